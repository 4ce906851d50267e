#include "switches.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>

#include "layouts/capture.h"
#include "layouts/layout_config.h"
#include "layouts/read_layout.h"
#include "place.h"
#include "require.h"

namespace conmuta::bench {
namespace {

constexpr char kSwitches[] = CONMUTA_SOURCE "/switches";
constexpr char kCatalogue[] = CONMUTA_SOURCE "/build/catalogue";

std::string Bytes(const std::string& name, const std::string& file) {
  std::ifstream stream(PathHere(kSwitches) + "/" + name + "/" + file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

layouts::Layout LayoutOf(const std::string& name) {
  const auto reading = layouts::ReadLayout(Bytes(name, "layout.toml"));
  Require(reading.layout.has_value(), "the layout can be read");
  return *reading.layout;
}

}  // namespace

// Sorted, for the file system has its own order.
std::vector<std::string> Switches() {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(PathHere(kSwitches))) {
    names.push_back(entry.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

emCasos CaseOf(const std::string& name) {
  return LayoutOf(name).header.Caso;
}

std::string ConfigFile(const std::string& name) {
  return PathHere(kCatalogue) + "/" + name + ".cfg";
}

Text ConfigPath(const std::string& name) {
  const std::string path = ConfigFile(name);
  return {path.begin(), path.end()};
}

Lines Capture(const std::string& name) {
  const auto reading = layouts::ReadCapture(Bytes(name, "capture.txt"));
  Require(reading.capture.has_value(), "the capture can be read");
  Lines lines;
  for (const layouts::CaptureLine& line : reading.capture->lines) lines.Add(line.text);
  return lines;
}

Translator::Translator() : config_(SystemPlatform()), translator_(SystemPlatform().clock) {}

Translator::Translator(const std::string& name) : Translator() {
  layouts::Apply(LayoutOf(name), config_);
  translator_.Conmutador(&config_);
}

}  // namespace conmuta::bench
