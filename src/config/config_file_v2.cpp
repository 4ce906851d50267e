#include "config/config_file_v2.h"

#include <algorithm>

#include "config/record_bytes.h"

namespace conmuta {
namespace {

constexpr std::size_t kVersionOffset = 0;
constexpr std::size_t kCommentsOffset = 4;
constexpr std::size_t kCommentsWidth = 255;
constexpr std::size_t kBrandOffset = kCommentsOffset + kCommentsWidth;
constexpr std::size_t kNameWidth = 50;
constexpr std::size_t kModelOffset = kBrandOffset + kNameWidth;
constexpr std::size_t kSeparatorOffset = kModelOffset + kNameWidth;
constexpr std::size_t kSeparatorWidth = 12;
constexpr std::size_t kConstantsOffset = kSeparatorOffset + kSeparatorWidth;
constexpr std::size_t kConstantWidth = 20;
constexpr std::size_t kItemsOffset =
    kConstantsOffset + kVersion2Constants.size() * (1 + kConstantWidth);
constexpr std::size_t kReservedOffset = kItemsOffset + kVersion2Items.size() * 3;
constexpr std::size_t kReservedWidth = 7;
static_assert(kReservedOffset + kReservedWidth == kVersion2Bytes);

bool Names(TextView text) {
  return std::any_of(text.begin(), text.end(), [](char16_t c) { return c != kNul; });
}

}  // namespace

std::optional<Version2Record> ReadVersion2(std::string_view bytes, const CodePage& code_page) {
  if (bytes.size() != kVersion2Bytes) return std::nullopt;
  const auto at = [&](std::size_t offset) { return RecordReader(bytes.substr(offset), code_page); };

  Version2Record record;
  at(kVersionOffset)(record.Version);
  record.Comentarios = at(kCommentsOffset).TakeText(kCommentsWidth);
  record.Marca = at(kBrandOffset).TakeText(kNameWidth);
  record.Modelo = at(kModelOffset).TakeText(kNameWidth);
  record.Separador = at(kSeparatorOffset).TakeText(kSeparatorWidth);
  if (record.Version != emVersion2_0 || !Names(record.Separador) || !Names(record.Marca) ||
      !Names(record.Modelo)) {
    return std::nullopt;
  }

  auto constants = at(kConstantsOffset);
  for (auto& constant : record.constants) {
    constants(constant.Pos);
    constant.Constante = constants.TakeText(kConstantWidth);
  }
  auto items = at(kItemsOffset);
  for (auto& item : record.items) {
    items(item.Pos);
    items(item.Tam);
    items(item.TipoDato);
  }
  return record;
}

}  // namespace conmuta
