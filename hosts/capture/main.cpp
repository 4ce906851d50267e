// The capture's commands as a program of their own, which tests run.
#include <CLI/CLI.hpp>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>

#include "capture/commands.h"
#include "capture/store_address.h"
#include "layouts/layout_config.h"
#include "layouts/read_layout.h"
#include "platform/unicode.h"

namespace conmuta::capture {
namespace {

// A configuration file, or the folder or file of a layout.
void Load(const std::string& name, clsCfgConmut& config) {
  std::filesystem::path path = PathOf(name);
  if (path.extension() == ".cfg") return config.Abrir(path.u16string());
  if (std::filesystem::is_directory(path)) path /= "layout.toml";
  std::ifstream file(path, std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  const auto reading = layouts::ReadLayout(bytes, path.u16string());
  if (!reading.layout) throw std::runtime_error(name + ": no es un layout");
  layouts::Apply(*reading.layout, config);
}

int Main(int argc, char** argv) {
  CLI::App app("La línea de los conmutadores");
  app.require_subcommand(1);
  int code = kDone;
  const LoadLayout load = Load;
  AddCaptureCommands(app, load, std::cout, std::cerr, code);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? kDone : kUsage;
  } catch (const std::exception& error) {
    std::cerr << Shown(error.what()) << '\n';
    return kUsage;
  }
  return code;
}

}  // namespace
}  // namespace conmuta::capture

int main(int argc, char** argv) {
  return conmuta::capture::Main(argc, argv);
}
