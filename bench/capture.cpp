#include "capture.h"

#include <fstream>

namespace conmuta::bench {
namespace {

std::string Folder(const std::string& example) {
  return CONMUTA_EXAMPLES "/" + example + "/";
}

}  // namespace

std::string ConfigPath(const std::string& example) {
  return Folder(example) + example + ".cfg";
}

Text ToText16(const std::string& ascii) {
  Text text;
  for (const char c : ascii) text.push_back(static_cast<unsigned char>(c));
  return text;
}

std::vector<Text> CaptureLines(const std::string& example) {
  std::ifstream file(Folder(example) + "capture.txt", std::ios::binary);
  std::vector<Text> lines;
  for (std::string line; std::getline(file, line);) {
    while (!line.empty() && line.back() == '\r') line.pop_back();
    lines.push_back(ToText16(line));
  }
  return lines;
}

}  // namespace conmuta::bench
