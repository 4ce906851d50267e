// Configuration files written down byte by byte, at the offsets that their layouts promise. Nothing
// here comes from the code that reads and writes them.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace conmuta::test {

class FileImage {
 public:
  explicit FileImage(std::size_t size) : bytes_(size, '\0') {}

  // Little-endian, in as many bytes as said.
  void Number(std::size_t offset, int size, std::int64_t value) {
    for (int i = 0; i < size; ++i) {
      bytes_.at(offset + static_cast<std::size_t>(i)) = static_cast<char>((value >> (8 * i)) & 255);
    }
  }
  void Text(std::size_t offset, std::size_t width, std::string_view text) {
    for (std::size_t i = 0; i < width && i < text.size(); ++i) bytes_.at(offset + i) = text[i];
  }

  const std::string& bytes() const { return bytes_; }

 private:
  std::string bytes_;
};

// The present layout. Texts are bytes of the code page.
struct SwitchFile {
  struct Dato {
    std::int32_t kind;
    std::int32_t type;
    int pos;
    int size;
  };
  struct Cte {
    std::int32_t kind;
    std::int32_t type;
    int pos;
    int size;
    std::string text;
  };

  std::int64_t version = 3;
  std::string brand = "ACME";
  std::string model = "X1";
  std::string comments;
  std::string separator = "\r\n";
  std::int64_t caso = 1;
  std::array<std::uint32_t, 10> db9_db9{};
  std::array<std::uint32_t, 10> db9_db25{};
  std::array<std::uint32_t, 26> db25_db9{};
  std::array<std::uint32_t, 26> db25_db25{};
  std::vector<Dato> datos;
  std::vector<Cte> ctes;
  int dato_count_lie = 0;  // added to the true count
  int cte_count_lie = 0;

  std::string Bytes() const {
    FileImage image(660 + 10 * datos.size() + 30 * ctes.size());
    image.Number(0, 4, version);
    image.Text(4, 50, brand);
    image.Text(54, 50, model);
    image.Text(104, 250, comments);
    image.Text(354, 10, separator);
    image.Number(364, 4, caso);
    for (std::size_t pin = 0; pin < 10; ++pin) {
      image.Number(368 + 4 * pin, 4, db9_db9[pin]);
      image.Number(408 + 4 * pin, 4, db9_db25[pin]);
    }
    for (std::size_t pin = 0; pin < 26; ++pin) {
      image.Number(448 + 4 * pin, 4, db25_db9[pin]);
      image.Number(552 + 4 * pin, 4, db25_db25[pin]);
    }
    image.Number(656, 2, static_cast<int>(datos.size()) + dato_count_lie);
    image.Number(658, 2, static_cast<int>(ctes.size()) + cte_count_lie);
    std::size_t offset = 660;
    for (const Dato& dato : datos) {
      image.Number(offset, 4, dato.kind);
      image.Number(offset + 4, 4, dato.type);
      image.Number(offset + 8, 1, dato.pos);
      image.Number(offset + 9, 1, dato.size);
      offset += 10;
    }
    for (const Cte& cte : ctes) {
      image.Number(offset, 4, cte.kind);
      image.Number(offset + 4, 4, cte.type);
      image.Number(offset + 8, 1, cte.pos);
      image.Number(offset + 9, 1, cte.size);
      image.Text(offset + 10, 20, cte.text);
      offset += 30;
    }
    return image.bytes();
  }
};

// Version 2.0: one record of 786 bytes.
struct SwitchFile2 {
  struct Constant {
    int pos = 0;
    std::string text;
  };
  struct Item {
    int pos = 0;
    int size = 0;
    int type = 0;
  };

  std::int64_t version = 2;
  std::string comments;
  std::string brand = "ACME";
  std::string model = "OLD";
  std::string separator = "\r\n";
  std::array<Constant, 12> constants{};
  std::array<Item, 52> items{};

  std::string Bytes() const {
    FileImage image(786);
    image.Number(0, 4, version);
    image.Text(4, 255, comments);
    image.Text(259, 50, brand);
    image.Text(309, 50, model);
    image.Text(359, 12, separator);
    for (std::size_t i = 0; i < constants.size(); ++i) {
      image.Number(371 + 21 * i, 1, constants[i].pos);
      image.Text(372 + 21 * i, 20, constants[i].text);
    }
    for (std::size_t i = 0; i < items.size(); ++i) {
      image.Number(623 + 3 * i, 1, items[i].pos);
      image.Number(624 + 3 * i, 1, items[i].size);
      image.Number(625 + 3 * i, 1, items[i].type);
    }
    return image.bytes();
  }
};

}  // namespace conmuta::test
