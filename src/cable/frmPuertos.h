// The cable editor window without its toolkit: what its controls show, and what pressing and
// typing does to the wiring.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "cable/usual_cables.h"
#include "cable/wiring.h"
#include "platform/text.h"
#include "platform/window_view.h"

namespace conmuta {

// Wires are addressed like those of a configuration: pair, left pin, right pin. Nothing here
// reports an error: a bad left pin disables the list, bad pieces of it are dropped.
class frmPuertos {
 public:
  using View = WindowView<frmPuertos>;

  // The view must live as long.
  explicit frmPuertos(View& view) : view_(view) {}
  frmPuertos(const frmPuertos&) = delete;
  frmPuertos& operator=(const frmPuertos&) = delete;

  // Raised when the user accepts; who opened the window takes the wiring over.
  std::function<void()> Actualizar;

  void Caption(TextView caption);
  void Conmutador(TextView name);
  void Modificar(bool may_edit);
  emPuertoSerial PuertoActivo() const { return pair_; }
  void PuertoActivo(emPuertoSerial pair);
  std::int16_t PinIZQ() const { return left_pin_; }
  void PinIZQ(std::int16_t pin) { left_pin_ = pin; }
  std::int16_t PinDER() const { return right_pin_; }
  void PinDER(std::int16_t pin) { right_pin_ = pin; }
  bool PinesConectados() const;
  void PinesConectados(bool wired);

  // Lets the user work until the window closes.
  void Show() { view_.Run(*this); }

  // What the controls show.
  const Text& caption() const { return caption_; }
  const Text& etqConmutador() const { return switch_label_; }
  emPuertoSerial opcPuerto() const { return option_; }  // the one that is selected
  const Text& txtPinIzq() const { return pin_text_; }
  const Text& txtPinesConectados() const { return list_text_; }
  bool list_enabled() const { return list_enabled_; }
  // Only then are Aceptar and the fields shown.
  bool may_edit() const { return may_edit_; }
  TextView btnCancelar() const { return may_edit_ ? u"&Cancelar" : u"&Cerrar"; }
  // The wiring of the pair that is shown. Its current pin is PinIZQ when txtPinIzq names it, else
  // 0.
  const Wiring& wiring() const { return wiring_; }
  std::span<const WiringMask> table() const { return wiring_.Table(option_); }
  std::int16_t shown_pin() const { return pin_is_shown_ ? left_pin_ : std::int16_t{0}; }
  // What the pair does not keep of what is drawn; empty for the others.
  TextView notice() const;
  bool can_undo() const { return !undo_.empty(); }

  // What the user does.
  void TypeLeftPin(TextView text);
  void TypeConnectedPins(TextView text);
  void ChoosePair(emPuertoSerial pair);
  void PickLeftPin(int pin);  // in the diagram
  void Accept();
  void Cancel() { view_.Close(); }

  // While editing only. Each is one step for Undo, as is what is typed for one pin.
  void ToggleWire(int left, int right);
  void CutWires(Pin pin);
  void UseCable(const UsualCable& cable);  // of the pair that is shown
  void CutAllWires();                      // of that pair
  void Undo();

 private:
  // The wiring as it was, and where it was changed.
  struct Step {
    Wiring wiring;
    emPuertoSerial pair;
  };

  void ShowNoList();
  void ShowList();
  WiringMask* CurrentMask();
  Text ListOf(WiringMask mask) const;
  void Remember(const Wiring& before);
  template <class Change>
  void ChangeTable(Change change);

  View& view_;
  Text caption_;
  Text switch_label_;
  emPuertoSerial pair_ = emPuertoSerialDB9DB9;
  emPuertoSerial option_ = emPuertoSerialDB9DB9;
  std::int16_t left_pin_ = 0;
  std::int16_t right_pin_ = 0;
  bool may_edit_ = false;
  bool pin_is_shown_ = false;
  Text pin_text_;
  Text list_text_;
  bool list_enabled_ = false;
  Wiring wiring_;
  std::vector<Step> undo_;
  bool typing_ = false;  // what is typed next belongs to the last step
};

}  // namespace conmuta
