// The cable wiring of a configuration and its editing.
#include "config/clsCfgConmut.h"

namespace conmuta {
namespace {

// Walks every wire of every pair: `pair`, `left` and `right` are called as each is reached.
template <class Pair, class Left, class Right>
void WalkWires(Pair pair, Left left, Right right) {
  for (int p = emPuertoSerialDB9DB9; p <= emPuertoSerialDB25DB25; ++p) {
    const auto code = static_cast<emPuertoSerial>(p);
    pair(code);
    for (int l = 1; l <= LeftPins(code); ++l) {
      left(static_cast<std::int16_t>(l));
      for (int r = 1; r <= RightPins(code); ++r) right(static_cast<std::int16_t>(r));
    }
  }
}

}  // namespace

void clsCfgConmut::PinIZQ(std::int16_t pin) {
  if (active_pair_ != emNoPuerto && pin >= 1 && pin <= LeftPins(active_pair_)) left_pin_ = pin;
}

void clsCfgConmut::PinDER(std::int16_t pin) {
  if (active_pair_ != emNoPuerto && pin >= 1 && pin <= LeftPins(active_pair_)) right_pin_ = pin;
}

bool clsCfgConmut::PinsAreValid() const {
  return active_pair_ != emNoPuerto && left_pin_ >= 1 && left_pin_ <= LeftPins(active_pair_) &&
         right_pin_ >= 1 && right_pin_ <= RightPins(active_pair_);
}

bool clsCfgConmut::PinesConectados() const {
  if (!PinsAreValid() || !IsConnectorPair(active_pair_)) return false;
  return IsWired(header_.Cables.Table(active_pair_), left_pin_, right_pin_);
}

void clsCfgConmut::PinesConectados(bool wired) {
  if (!PinsAreValid()) return;
  if (IsConnectorPair(active_pair_) &&
      !SetWired(header_.Cables.Table(active_pair_), left_pin_, right_pin_, wired)) {
    return;
  }
  NotifyChange();
}

void clsCfgConmut::Cables(const Wiring& wiring) {
  if (header_.Cables == wiring) return;
  header_.Cables = wiring;
  NotifyChange();
}

// Hosts rely on both copies going through PinDER of this object: of pair DB9-DB25 it takes the
// right pins 1 to 9 only, so the editor shows pin 9 for 10 to 25 and hands 25 back as 9.
void clsCfgConmut::EDConfigSeriales(bool bolMod, const ViewFactory<frmPuertos>& make_view) {
  const auto view = make_view();
  frmPuertos editor(*view);
  editor.Caption(u"Configuración de puerto SMDR");
  editor.Conmutador(NombreConmutador());
  editor.Modificar(bolMod);
  WalkWires(
      [&](emPuertoSerial pair) {
        editor.PuertoActivo(pair);
        PuertoActivo(pair);
      },
      [&](std::int16_t pin) {
        editor.PinIZQ(pin);
        PinIZQ(pin);
      },
      [&](std::int16_t pin) {
        editor.PinDER(pin);
        PinDER(pin);
        editor.PinesConectados(PinesConectados());
      });
  editor.PuertoActivo(emPuertoSerialDB9DB9);
  editor.Actualizar = [&] { TakeWiringFrom(editor); };
  editor.Show();
}

void clsCfgConmut::TakeWiringFrom(frmPuertos& editor) {
  WalkWires(
      [&](emPuertoSerial pair) {
        editor.PuertoActivo(pair);
        PuertoActivo(editor.PuertoActivo());
      },
      [&](std::int16_t pin) {
        editor.PinIZQ(pin);
        PinIZQ(pin);
      },
      [&](std::int16_t pin) {
        editor.PinDER(pin);
        PinDER(pin);
        PinesConectados(editor.PinesConectados());
      });
}

}  // namespace conmuta
