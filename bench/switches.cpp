#include "switches.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "place.h"

namespace conmuta::bench {
namespace {

std::string File(const std::string& name, const std::string& file) {
  return PathHere(CONMUTA_EXAMPLES "/" + name + "/" + file);
}

}  // namespace

// Sorted, for the file system has its own order.
std::vector<std::string> Switches() {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(PathHere(CONMUTA_EXAMPLES))) {
    const std::string name = entry.path().filename().string();
    if (std::filesystem::exists(entry.path() / (name + ".cfg"))) names.push_back(name);
  }
  std::sort(names.begin(), names.end());
  return names;
}

Text ConfigPath(const std::string& name) {
  const std::string path = File(name, name + ".cfg");
  return {path.begin(), path.end()};
}

Lines Capture(const std::string& name) {
  std::ifstream file(File(name, "capture.txt"), std::ios::binary);
  Lines lines;
  for (std::string line; std::getline(file, line);) {
    while (line.ends_with('\r')) line.pop_back();
    lines.Add(line);
  }
  return lines;
}

Translator::Translator() : config_(SystemPlatform()), translator_(SystemPlatform().clock) {}

Translator::Translator(const std::string& name) : Translator() {
  config_.Abrir(ConfigPath(name));
  translator_.Conmutador(&config_);
}

}  // namespace conmuta::bench
