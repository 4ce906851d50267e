// The whole path of a file: read, split, widened, translated.
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <random>

#include "kx_lines.h"
#include "require.h"
#include "row.h"
#include "sections.h"
#include "switches.h"
#include "turns.h"

namespace conmuta::bench {
namespace {

// A file of made-up lines; removed with this.
class KxFile {
 public:
  explicit KxFile(std::size_t lines) {
    std::ofstream file(path_, std::ios::binary);
    KxLines source;
    for (std::size_t i = 0; i < lines; ++i) file << source.Next() << "\r\n";
    Require(file.flush().good(), "the file of lines can be written");
  }
  ~KxFile() {
    std::error_code error;
    std::filesystem::remove(path_, error);
  }
  KxFile(const KxFile&) = delete;
  KxFile& operator=(const KxFile&) = delete;

  const std::filesystem::path& path() const { return path_; }

 private:
  const std::filesystem::path path_ = std::filesystem::temp_directory_path() /
                                      ("conmuta-bench-" + std::to_string(std::random_device()()));
};

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

}  // namespace

void MeasureFile(std::size_t lines) {
  const KxFile file(lines);
  Translator translator("panasonic-kx");
  Require(TranslateFile(file.path(), translator) == lines, "the file is read whole");
  const auto spent = BestOfTurns({[&] { TranslateFile(file.path(), translator); }});
  PrintRow("file read, split, widened, translated", spent[0] / static_cast<double>(lines),
           "ns a line");
}

}  // namespace conmuta::bench
