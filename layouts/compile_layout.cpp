// Makes configuration files of switch layouts.
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "config/clsCfgConmut.h"
#include "layouts/layout_config.h"
#include "layouts/read_layout.h"
#include "platform/unicode.h"

namespace conmuta::layouts {
namespace {

constexpr int kMistakes = 1;
constexpr int kUsage = 2;

struct Named {
  std::string name;  // of the folder, which the configuration's file takes
  Layout layout;
};

Text PathText(const std::filesystem::path& path) {
  return path.u16string();
}

int Fail(const std::filesystem::path& path, const char* what) {
  std::fprintf(stderr, "%s: %s\n", path.string().c_str(), what);
  return kMistakes;
}

// The layout at a path, which is that of a folder or of its layout.toml; nothing, and the reasons
// on stderr, when it has mistakes.
std::optional<Named> ReadAt(std::filesystem::path path) {
  if (std::filesystem::is_directory(path)) path /= "layout.toml";
  std::ifstream file(path, std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  if (!file) return Fail(path, "no se puede leer"), std::nullopt;
  auto reading = ReadLayout(bytes, PathText(path));
  for (const Mistake& mistake : reading.mistakes) {
    std::fprintf(stderr, "%s\n", ToUtf8(Sentence(mistake)).value_or("?").c_str());
  }
  if (!reading.layout) return std::nullopt;
  const auto folder = std::filesystem::absolute(path).parent_path().filename();
  return Named{folder.string(), std::move(*reading.layout)};
}

bool Write(const Named& named, const std::filesystem::path& folder) {
  clsCfgConmut config(SystemPlatform());
  Apply(named.layout, config);
  try {
    config.GuardarComo(PathText(folder / (named.name + ".cfg")));
  } catch (const ConfigError&) {
    return false;
  }
  return true;
}

int Run(const std::vector<std::filesystem::path>& paths, const std::filesystem::path& folder) {
  std::vector<Named> layouts;
  std::set<std::string> names;
  int status = 0;
  for (const auto& path : paths) {
    auto named = ReadAt(path);
    if (!named) {
      status = kMistakes;
    } else if (!names.insert(named->name).second) {
      status = Fail(path, "otro conmutador tiene el mismo nombre");
    } else {
      layouts.push_back(std::move(*named));
    }
  }
  if (status != 0) return status;
  std::error_code error;
  std::filesystem::create_directories(folder, error);
  for (const Named& named : layouts) {
    if (!Write(named, folder))
      status = Fail(folder / (named.name + ".cfg"), "no se puede escribir");
  }
  return status;
}

int Main(const std::vector<std::string>& arguments) {
  std::vector<std::filesystem::path> paths;
  std::optional<std::filesystem::path> folder;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    if (arguments[i] == "-o" && i + 1 < arguments.size() && !folder) {
      folder = arguments[++i];
    } else if (arguments[i].starts_with("-")) {
      paths.clear();
      break;
    } else {
      paths.emplace_back(arguments[i]);
    }
  }
  if (paths.empty() || !folder) {
    std::fputs(
        "Usage: compile_layout FOLDER-OR-FILE... -o DIR\n"
        "Writes DIR/NAME.cfg for each switch folder (or layout.toml in one) of that name; nothing\n"
        "when one of them has a mistake. Ends with 0, or 1 after mistakes, which are on stderr.\n",
        stderr);
    return kUsage;
  }
  return Run(paths, *folder);
}

}  // namespace
}  // namespace conmuta::layouts

int main(int argc, char** argv) {
  try {
    return conmuta::layouts::Main({argv + 1, argv + argc});
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
}
