#include "config/clsCfgConmut.h"

#include "config/character_codes.h"
#include "config/descriptions.h"

namespace conmuta {
namespace {

// The slot that a write works on.
template <class Slot>
std::int16_t FindOrMake(SlotList<Slot>& list, typename Slot::Kind kind) {
  const std::int16_t found = list.Busca(kind);
  return found != 0 ? found : list.Alta(kind);
}

template <class Slot>
const Slot* FindAny(const SlotList<Slot>& list, typename Slot::Kind kind) {
  const std::int16_t found = list.Busca(kind);
  return found != 0 ? &list[found] : nullptr;
}

template <class Slot>
void ReleaseUnlessValid(Slot& slot) {
  if (!IsValid(slot)) slot.TipoDato = emNoDefinido;
}

}  // namespace

void clsCfgConmut::NotifyChange() {
  modified_ = true;
  if (listener_ != nullptr) listener_->Cambios();
}

void clsCfgConmut::Reset() {
  header_.Version = emVersion3_0;
  header_.Cables.Clear();
  Comentarios(u"");
  Marca(u"");
  Modelo(u"");
  Separador(u"");
  left_pin_ = 0;
  right_pin_ = 0;
  active_dato_ = emNoParamDato;
  active_cte_ = emNoParamDatoConstante;
  header_.Caso = emCasoEstandar;
  datos_.ReleaseAll();
  ctes_.ReleaseAll();
  modified_ = false;
}

void clsCfgConmut::Iniciar() {
  Reset();
  if (listener_ != nullptr) listener_->Inicializado();
}

bool clsCfgConmut::HayConfig() const {
  return header_.Caso != emNoCaso && header_.Version != emNoVersion && !header_.Marca.Empty() &&
         !header_.Modelo.Empty();
}

TextView clsCfgConmut::NombreVersion() const {
  return VersionName(header_.Version);
}

TextView clsCfgConmut::ObtNombreCaso(emCasos emC) {
  return CaseName(emC);
}

void clsCfgConmut::Caso(emCasos value) {
  if (value == header_.Caso) return;
  header_.Caso = value;
  NotifyChange();
}

void clsCfgConmut::WriteName(FixedText<50>& field, TextView value) {
  if (!field.Assign(value)) return;
  modified_ = true;
  if (listener_ != nullptr) listener_->CambioNombreConmutador();
  if (listener_ != nullptr) listener_->Cambios();
}

void clsCfgConmut::Marca(TextView value) {
  WriteName(header_.Marca, value);
}

void clsCfgConmut::Modelo(TextView value) {
  WriteName(header_.Modelo, value);
}

void clsCfgConmut::Comentarios(TextView value) {
  if (header_.Comentarios.Assign(value)) NotifyChange();
}

void clsCfgConmut::Separador(TextView value) {
  if (header_.Separador.Assign(value)) NotifyChange();
}

Text clsCfgConmut::NombreConmutador() const {
  if (header_.Marca.Empty() || header_.Modelo.Empty()) return u"Desconocido";
  return Marca() + u", " + Modelo();
}

Text clsCfgConmut::ListaSeparador() const {
  return basConmuta::CadenaACodigos(platform_.code_page, Separador(), kTamMaxSeparador);
}

emTipoDato clsCfgConmut::TipoDatoDATO() const {
  const DATO* slot = FindAny(datos_, active_dato_);
  return slot != nullptr ? slot->TipoDato : emNoDefinido;
}

emTipoDato clsCfgConmut::TipoDatoCTE() const {
  const CTE* slot = FindAny(ctes_, active_cte_);
  return slot != nullptr ? slot->TipoDato : emNoDefinido;
}

void clsCfgConmut::TipoDatoDATO(emTipoDato value) {
  DATO& slot = datos_[FindOrMake(datos_, active_dato_)];
  if (slot.TipoDato == value) return;
  slot.TipoDato = value;
  ReleaseUnlessValid(slot);
  NotifyChange();
}

template <class Slot>
std::uint8_t clsCfgConmut::ReadByte(const SlotList<Slot>& list, typename Slot::Kind active,
                                    std::uint8_t Slot::*byte) {
  const Slot* slot = FindAny(list, active);
  return slot != nullptr ? slot->*byte : std::uint8_t{0};
}

template <class Slot>
void clsCfgConmut::WriteByte(SlotList<Slot>& list, typename Slot::Kind active,
                             std::uint8_t Slot::*byte, std::uint8_t value) {
  // By number: a handler of Cambios may add slots, which moves them.
  const std::int16_t number = FindOrMake(list, active);
  if (list[number].*byte != value) {
    list[number].*byte = value;
    NotifyChange();
  }
  list[number].TipoDato = Slot::kTypeWhenWritten;
  ReleaseUnlessValid(list[number]);
}

std::uint8_t clsCfgConmut::DATOPos() const {
  return ReadByte(datos_, active_dato_, &DATO::Pos);
}
std::uint8_t clsCfgConmut::DATOTam() const {
  return ReadByte(datos_, active_dato_, &DATO::Tam);
}
std::uint8_t clsCfgConmut::CTEPos() const {
  return ReadByte(ctes_, active_cte_, &CTE::Pos);
}
std::uint8_t clsCfgConmut::CTETam() const {
  return ReadByte(ctes_, active_cte_, &CTE::Tam);
}

void clsCfgConmut::DATOPos(std::uint8_t value) {
  WriteByte(datos_, active_dato_, &DATO::Pos, value);
}
void clsCfgConmut::DATOTam(std::uint8_t value) {
  WriteByte(datos_, active_dato_, &DATO::Tam, value);
}
void clsCfgConmut::CTEPos(std::uint8_t value) {
  WriteByte(ctes_, active_cte_, &CTE::Pos, value);
}
void clsCfgConmut::CTETam(std::uint8_t value) {
  WriteByte(ctes_, active_cte_, &CTE::Tam, value);
}

Text clsCfgConmut::Constante() const {
  const CTE* slot = FindAny(ctes_, active_cte_);
  return slot != nullptr ? slot->Constante.Read() : Text();
}

void clsCfgConmut::Constante(TextView value) {
  const std::int16_t number = FindOrMake(ctes_, active_cte_);
  if (ctes_[number].Constante.Assign(value)) NotifyChange();
  CTE& slot = ctes_[number];  // again: see WriteByte
  slot.Tam = static_cast<std::uint8_t>(slot.Constante.Length());
  slot.TipoDato = CTE::kTypeWhenWritten;
  ReleaseUnlessValid(slot);
}

}  // namespace conmuta
