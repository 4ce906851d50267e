#include "config/config_file.h"

#include "config/record_bytes.h"

namespace conmuta {
namespace {

template <class Archive, class Header>
constexpr void HeaderFields(Archive& field, Header& header) {
  field(header.config.Version);
  field(header.config.Marca);
  field(header.config.Modelo);
  field(header.config.Comentarios);
  field(header.config.Separador);
  field(header.config.Caso);
  for (int pair = emPuertoSerialDB9DB9; pair <= emPuertoSerialDB25DB25; ++pair) {
    for (auto& mask : header.config.Cables.Table(static_cast<emPuertoSerial>(pair))) field(mask);
  }
  field(header.NumDATO);
  field(header.NumCTE);
}

template <class Archive, class Slot>
constexpr void SlotFields(Archive& field, Slot& slot) {
  field(slot.Param);
  field(slot.TipoDato);
  field(slot.Pos);
  field(slot.Tam);
  if constexpr (requires { slot.Constante; }) field(slot.Constante);
}

// The sizes that the layout promises are those of its fields.
constexpr std::size_t SizeOfHeader() {
  RecordSize size;
  const FileHeader header;
  HeaderFields(size, header);
  return size.bytes();
}
template <class Slot>
constexpr std::size_t SizeOfSlot() {
  RecordSize size;
  const Slot slot;
  SlotFields(size, slot);
  return size.bytes();
}
static_assert(SizeOfHeader() == kHeaderBytes);
static_assert(SizeOfSlot<DATO>() == kDatoBytes);
static_assert(SizeOfSlot<CTE>() == kCteBytes);

template <class Slot>
void AppendSlot(std::string& bytes, const Slot& slot, const CodePage& code_page) {
  RecordWriter writer(bytes, code_page);
  SlotFields(writer, slot);
}

template <class Slot>
std::optional<Slot> TakeSlot(std::string_view& bytes, std::size_t size, const CodePage& code_page) {
  if (bytes.size() < size) return std::nullopt;
  Slot slot;
  RecordReader reader(bytes, code_page);
  SlotFields(reader, slot);
  bytes.remove_prefix(size);
  return slot;
}

}  // namespace

void AppendHeader(std::string& bytes, const FileHeader& header, const CodePage& code_page) {
  RecordWriter writer(bytes, code_page);
  HeaderFields(writer, header);
}

void AppendRecord(std::string& bytes, const DATO& slot, const CodePage& code_page) {
  AppendSlot(bytes, slot, code_page);
}

void AppendRecord(std::string& bytes, const CTE& slot, const CodePage& code_page) {
  AppendSlot(bytes, slot, code_page);
}

std::optional<FileHeader> ReadHeader(std::string_view bytes, const CodePage& code_page) {
  if (bytes.size() < kHeaderBytes) return std::nullopt;
  FileHeader header;
  RecordReader reader(bytes, code_page);
  HeaderFields(reader, header);
  return header;
}

std::optional<DATO> TakeDATO(std::string_view& bytes, const CodePage& code_page) {
  return TakeSlot<DATO>(bytes, kDatoBytes, code_page);
}

std::optional<CTE> TakeCTE(std::string_view& bytes, const CodePage& code_page) {
  return TakeSlot<CTE>(bytes, kCteBytes, code_page);
}

}  // namespace conmuta
