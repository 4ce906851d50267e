// Opening and saving: clsCfgConmut's side of the binary file.
#include <algorithm>

#include "config/clsCfgConmut.h"
#include "config/config_errors.h"
#include "config/config_file.h"
#include "config/config_file_v2.h"

namespace conmuta {
namespace {

template <class Slot>
std::int16_t CountValid(const SlotList<Slot>& list) {
  return Narrow<std::int16_t>(
      std::count_if(list.begin(), list.end(), [](const Slot& slot) { return IsValid(slot); }));
}

template <class Slot>
void AppendValid(std::string& bytes, const SlotList<Slot>& list, const CodePage& code_page) {
  for (const Slot& slot : list) {
    if (IsValid(slot)) AppendRecord(bytes, slot, code_page);
  }
}

// Of the next `count` records, as far as they are there, those that are valid.
template <class Slot, class Take>
std::vector<Slot> TakeValid(std::string_view& records, int count, Take take,
                            const CodePage& code_page) {
  std::vector<Slot> valid;
  for (int i = 0; i < count; ++i) {
    const auto record = take(records, code_page);
    if (!record) break;
    if (IsValid(*record)) valid.push_back(*record);
  }
  return valid;
}

}  // namespace

void clsCfgConmut::GuardarComo(TextView cadArch) {
  // Hosts rely on this error naming Exportar, not GuardarComo.
  if (Trim(cadArch).empty()) throw MakeConfigError(emErrorNoHayArchivo, u"Exportar");
  if (header_.Caso == emNoCaso || header_.Marca.Empty() || header_.Modelo.Empty() ||
      header_.Separador.Empty()) {
    throw MakeConfigError(emErrorConfigDatosIncompletos, u"GuardarComo");
  }

  FileHeader header{header_, CountValid(datos_), CountValid(ctes_)};
  header.config.Version = emVersion3_0;  // in the file only
  std::string bytes;
  AppendHeader(bytes, header, platform_.code_page);
  AppendValid(bytes, datos_, platform_.code_page);
  AppendValid(bytes, ctes_, platform_.code_page);

  platform_.files.Remove(cadArch);  // one that stays makes the write fail
  if (!platform_.files.Write(cadArch, bytes))
    throw MakeConfigError(emErrorConfigNoHay, u"GuardarComo");
  modified_ = false;
}

void clsCfgConmut::Abrir(TextView cadArch) {
  const auto error = [&](emErroresConfig code) {
    return MakeConfigError(code, u"Abrir", Text(kLineBreak).append(u" Archivo :").append(cadArch));
  };
  if (Trim(cadArch).empty()) throw error(emNoErrorConfig);
  // Hosts rely on files without the archive attribute being passed over.
  if ((platform_.files.Attributes(cadArch).value_or(0) & kAttributeArchive) == 0) {
    throw error(emErrorNoHayArchivo);
  }
  if (!LeeCfgActual(cadArch) && !LeeCfgVersion2(cadArch)) throw error(emErrorConfigAbrir);
  modified_ = false;
  if (listener_ != nullptr) listener_->ConfiguracionCargada();
}

bool clsCfgConmut::LeeCfgActual(TextView path) {
  const auto content = platform_.files.Read(path, kMostBytes);
  if (!content) return false;
  const CodePage& code_page = platform_.code_page;
  const auto header = ReadHeader(content->bytes, code_page);
  if (!header || header->config.Version != emVersion3_0 || header->config.Separador.Empty() ||
      header->config.Marca.Empty() || header->config.Modelo.Empty()) {
    return false;
  }

  // All that takes memory comes before the first change.
  std::string_view records = std::string_view(content->bytes).substr(kHeaderBytes);
  const auto items = TakeValid<DATO>(records, header->NumDATO, TakeDATO, code_page);
  const auto constants = TakeValid<CTE>(records, header->NumCTE, TakeCTE, code_page);
  datos_.Reserve(items.size());
  ctes_.Reserve(constants.size());

  Reset();
  header_ = header->config;
  // Through the properties, type last: writing a position resets it.
  for (const DATO& item : items) {
    DATOActivo(item.Param);
    DATOPos(item.Pos);
    DATOTam(item.Tam);
    TipoDatoDATO(item.TipoDato);
  }
  for (const CTE& constant : constants) {
    CTEActivo(constant.Param);
    CTEPos(constant.Pos);
    Constante(constant.Constante.Raw());
  }
  return true;
}

bool clsCfgConmut::LeeCfgVersion2(TextView path) {
  const auto content = platform_.files.Read(path, kVersion2Bytes);
  if (!content || content->size != kVersion2Bytes) return false;
  const auto record = ReadVersion2(content->bytes, platform_.code_page);
  if (!record) return false;

  datos_.Reserve(record->items.size());
  ctes_.Reserve(record->constants.size());
  Reset();
  Comentarios(record->Comentarios);
  Marca(record->Marca);
  Modelo(record->Modelo);
  Separador(record->Separador);
  for (std::size_t i = 0; i < record->constants.size(); ++i) {
    CTEActivo(kVersion2Constants[i]);
    CTEPos(record->constants[i].Pos);
    Constante(record->constants[i].Constante);
  }
  for (std::size_t i = 0; i < record->items.size(); ++i) {
    DATOActivo(kVersion2Items[i]);
    DATOPos(record->items[i].Pos);
    DATOTam(record->items[i].Tam);
    TipoDatoDATO(static_cast<emTipoDato>(record->items[i].TipoDato));
  }
  return true;
}

}  // namespace conmuta
