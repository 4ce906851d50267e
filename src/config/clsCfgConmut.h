// One switch configuration: where each item of a call stands in the lines that a PBX prints, which
// texts identify them, and how its serial cable is wired.
#pragma once

#include <cstdint>
#include <vector>

#include "cable/frmPuertos.h"
#include "config/header.h"
#include "config/slot_list.h"
#include "platform/platform.h"

namespace conmuta {

// Receives the events of a configuration, synchronously, inside the write that raises them. A
// handler may read and change the configuration; it must not destroy it.
class ConfigListener {
 public:
  virtual ~ConfigListener() = default;
  virtual void CambioNombreConmutador() {}
  virtual void ConfiguracionCargada() {}
  virtual void Inicializado() {}
  virtual void Cambios() {}
};

// Properties never fail: what a setter cannot store is cut, ignored, or releases the slot.
class clsCfgConmut {
 public:
  static constexpr std::int16_t kTamMaxSeparador = 10;
  static constexpr std::int16_t kTamMaxComentarios = 250;

  explicit clsCfgConmut(const Platform& platform) : platform_(platform) {}
  clsCfgConmut(const clsCfgConmut&) = delete;
  clsCfgConmut& operator=(const clsCfgConmut&) = delete;

  // At most one listener; null for none.
  void Listen(ConfigListener* listener) { listener_ = listener; }

  // Clears everything but IDCfg and PuertoActivo, then raises Inicializado. Slots are released but
  // keep kind, position, size and constant.
  void Iniciar();

  bool Modificado() const { return modified_; }

  // Whether there is something to translate with: case and version not 0, brand and model named.
  bool HayConfig() const;

  std::int32_t IDCfg() const { return id_; }
  void IDCfg(std::int32_t value) { id_ = value; }

  emVersionConfiguracion Version() const { return header_.Version; }
  TextView NombreVersion() const;

  emCasos Caso() const { return header_.Caso; }
  void Caso(emCasos value);  // any code
  TextView NombreCaso() const { return ObtNombreCaso(header_.Caso); }
  static TextView ObtNombreCaso(emCasos emC);

  // Texts are cut to 50, 50, 250 and 10 characters; NULs are dropped on reading.
  Text Marca() const { return header_.Marca.Read(); }
  void Marca(TextView value);
  Text Modelo() const { return header_.Modelo.Read(); }
  void Modelo(TextView value);
  Text Comentarios() const { return header_.Comentarios.Read(); }
  void Comentarios(TextView value);
  Text Separador() const { return header_.Separador.Read(); }
  void Separador(TextView value);

  // "Marca, Modelo"; "Desconocido" when either is empty.
  Text NombreConmutador() const;

  // The separator as ten character codes, each followed by ",".
  Text ListaSeparador() const;

  // The kind that the slot properties address. Any code; one that is not a kind has no slot.
  emParamDato DATOActivo() const { return active_dato_; }
  void DATOActivo(emParamDato kind) { active_dato_ = kind; }
  emParamDatoConstante CTEActivo() const { return active_cte_; }
  void CTEActivo(emParamDatoConstante kind) { active_cte_ = kind; }

  bool HayDATO() const { return FindDATO(active_dato_) != nullptr; }
  bool HayCTE() const { return FindCTE(active_cte_) != nullptr; }

  // Reading without a slot gives 0 or the empty text. Writing makes a slot where there is none,
  // and releases it again while it is incomplete.
  emTipoDato TipoDatoDATO() const;
  void TipoDatoDATO(emTipoDato value);
  emTipoDato TipoDatoCTE() const;

  // Hosts rely on a written position or size turning the type of a DATO back into numeric: the
  // type is written last.
  std::uint8_t DATOPos() const;
  void DATOPos(std::uint8_t value);
  std::uint8_t DATOTam() const;
  void DATOTam(std::uint8_t value);
  std::uint8_t CTEPos() const;
  void CTEPos(std::uint8_t value);
  std::uint8_t CTETam() const;
  void CTETam(std::uint8_t value);
  Text Constante() const;
  void Constante(TextView value);  // cut to 20 characters; sets CTETam to what is left

  // The valid slot of a kind, or null; good until the next write to a slot property.
  const DATO* FindDATO(emParamDato kind) const { return datos_.FindValid(kind); }
  const CTE* FindCTE(emParamDatoConstante kind) const { return ctes_.FindValid(kind); }

  // Everything that a file keeps of this, as it keeps it: texts as they are stored, and the slots
  // in their order, released ones among them. Good until the next write.
  const ConfigHeader& Header() const { return header_; }
  const SlotList<DATO>& DATOs() const { return datos_; }
  const SlotList<CTE>& CTEs() const { return ctes_; }

  // Differs from what it was before whenever a slot may have changed.
  std::uint64_t SlotRevision() const { return datos_.Revision() + ctes_.Revision(); }

  // The connector pair and pins that PinesConectados addresses. Any pair is stored. A pin is
  // stored only while a pair is set and when it lies within the pins of the LEFT connector: hosts
  // rely on PinDER being checked like PinIZQ, although PinesConectados knows the right one.
  emPuertoSerial PuertoActivo() const { return active_pair_; }
  void PuertoActivo(emPuertoSerial pair) { active_pair_ = pair; }
  std::int16_t PinIZQ() const { return left_pin_; }
  void PinIZQ(std::int16_t pin);
  std::int16_t PinDER() const { return right_pin_; }
  void PinDER(std::int16_t pin);

  // Whether the two pins are wired. False, and writes ignored, for pins that the pair lacks. For a
  // pair beyond the four it reads False, yet a write marks the configuration as changed.
  bool PinesConectados() const;
  void PinesConectados(bool wired);

  // Replaces the wiring of all four pairs, with what stands for no pin of theirs.
  void Cables(const Wiring& wiring);

  // Shows the wiring in an editor and takes it over when the user accepts. PuertoActivo is 4
  // afterwards. Each wire that changes raises Cambios.
  void EDConfigSeriales(bool bolMod, const ViewFactory<frmPuertos>& make_view);

  // Replaces the configuration by the content of a file and raises ConfiguracionCargada.
  // ConfigError 1501 when there is no such file or it lacks the archive attribute, 1505 when it is
  // no configuration, code 0 for a blank path; the configuration is then as it was.
  void Abrir(TextView cadArch);

  // Writes the file anew. ConfigError 1501 for a blank path, 1502 when case, brand, model or
  // separator is missing, 1500 when the file cannot be written; an existing file is gone then. Want
  // of memory leaves it alone.
  void GuardarComo(TextView cadArch);

  // Writes the text exchange file anew. ConfigError 1501 for a blank path, 1503 when a value cannot
  // be written; the values before it stay in the file. 1503 for want of memory, too; an existing
  // file is left alone then.
  void Exportar(TextView cadArch);

  // Reads a text exchange file over the configuration: what the file does not name stays. Only the
  // standard case is taken. ConfigError 1504 naming the first header value that is wrong, those
  // before it being replaced by then; bad wiring counts as 0, bad items and constants are skipped.
  void Importar(TextView cadArch);

 private:
  void Reset();
  void NotifyChange();
  void WriteName(FixedText<50>& field, TextView value);
  bool PinsAreValid() const;
  void TakeWiringFrom(frmPuertos& editor);

  template <class Slot>
  static std::uint8_t ReadByte(const SlotList<Slot>& list, typename Slot::Kind active,
                               std::uint8_t Slot::*byte);
  template <class Slot>
  void WriteByte(SlotList<Slot>& list, typename Slot::Kind active, std::uint8_t Slot::*byte,
                 std::uint8_t value);

  bool LeeCfgActual(TextView path);
  bool LeeCfgVersion2(TextView path);
  std::vector<ProfileValue> ExchangeValues() const;
  void ReadExchange(TextView path, TextView& detail);

  const Platform platform_;
  ConfigListener* listener_ = nullptr;
  std::int32_t id_ = 0;
  ConfigHeader header_;
  bool modified_ = false;
  emPuertoSerial active_pair_ = emNoPuerto;
  std::int16_t left_pin_ = 0;
  std::int16_t right_pin_ = 0;
  emParamDato active_dato_ = emNoParamDato;
  SlotList<DATO> datos_;
  emParamDatoConstante active_cte_ = emNoParamDatoConstante;
  SlotList<CTE> ctes_;
};

}  // namespace conmuta
