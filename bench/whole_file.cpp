// The whole path of a file: read, split, widened, translated; and by the command also written as
// rows of calls.
#include <filesystem>
#include <fstream>
#include <iostream>
#include <random>
#include <sstream>

#include "conmuta/program.h"
#include "require.h"
#include "row.h"
#include "sections.h"
#include "switches.h"
#include "turns.h"

namespace conmuta::bench {
namespace {

constexpr double kMostTimesTranslating = 2.5;

// A path that no file has yet; a file that is made there is removed with this.
class TemporaryPath {
 public:
  TemporaryPath() = default;
  ~TemporaryPath() {
    std::error_code error;
    std::filesystem::remove(path_, error);
  }
  TemporaryPath(const TemporaryPath&) = delete;
  TemporaryPath& operator=(const TemporaryPath&) = delete;

  const std::filesystem::path& get() const { return path_; }

 private:
  const std::filesystem::path path_ = std::filesystem::temp_directory_path() /
                                      ("conmuta-bench-" + std::to_string(std::random_device()()));
};

void Write(const Lines& lines, const std::filesystem::path& path) {
  std::ofstream file(path, std::ios::binary);
  for (std::size_t i = 0; i < lines.size(); ++i) {
    file << std::string(lines[i].begin(), lines[i].end()) << "\r\n";
  }
  Require(file.flush().good(), "the file of lines can be written");
}

// As a host would do it. Gives the number of lines.
std::size_t TranslateFile(const std::filesystem::path& path, Translator& translator) {
  std::ifstream file(path, std::ios::binary);
  std::size_t lines = 0;
  Text wide;
  for (std::string line; std::getline(file, line); ++lines) {
    if (line.ends_with('\r')) line.pop_back();
    wide.resize(line.size());
    for (std::size_t i = 0; i < line.size(); ++i) wide[i] = static_cast<unsigned char>(line[i]);
    translator.Translate(wide);
  }
  return lines;
}

void WriteRows(const std::filesystem::path& from, const std::filesystem::path& to) {
  std::ostringstream out;
  std::ostringstream err;
  host::Console console{std::cin, out, err};
  const int code = host::RunProgram({"traduce", "-q", "-f", "csv", "--reemplaza", "-o", to.string(),
                                     ConfigFile("panasonic-kx"), from.string()},
                                    console);
  Require(code == 0 && err.str().empty(), "the command makes rows of calls");
}

}  // namespace

void MeasureFile(const Lines& lines) {
  const TemporaryPath file;
  const TemporaryPath rows;
  Write(lines, file.get());
  Translator translator("panasonic-kx");
  Require(TranslateFile(file.get(), translator) == lines.size(), "the file is read whole");
  const auto spent = BestOfTurns({
      [&] { translator.Translate(lines); },
      [&] { TranslateFile(file.get(), translator); },
      [&] { WriteRows(file.get(), rows.get()); },
  });
  const auto count = static_cast<double>(lines.size());
  PrintRow("file read, split, widened, translated", spent[1] / count, "ns a line");
  PrintRow("file to rows of CSV by the command", spent[2] / count, "ns a line");
  PrintRow("the same to translating alone", spent[2] / spent[0], "times", kMostTimesTranslating);
}

}  // namespace conmuta::bench
