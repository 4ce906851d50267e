// The cable editor window without its toolkit: what its controls show, and what pressing and
// typing does to the wiring.
#pragma once

#include "cable/cable_editor.h"
#include "cable/wiring.h"
#include "platform/text.h"

namespace conmuta {

// Nothing here reports an error: a bad left pin disables the list, bad pieces of it are dropped.
class frmPuertos : public CableEditor {
 public:
  // What shows the editor. It reads the controls' state from the editor.
  class View {
   public:
    virtual ~View() = default;
    virtual void Update() = 0;          // something has changed
    virtual void Run(frmPuertos&) = 0;  // until Close, or the user closes it
    virtual void Close() = 0;
  };

  // The view must live as long.
  explicit frmPuertos(View& view) : view_(view) {}

  void Caption(TextView caption) override;
  void Conmutador(TextView name) override;
  void Modificar(bool may_edit) override;
  emPuertoSerial PuertoActivo() const override { return pair_; }
  void PuertoActivo(emPuertoSerial pair) override;
  std::int16_t PinIZQ() const { return left_pin_; }
  void PinIZQ(std::int16_t pin) override { left_pin_ = pin; }
  std::int16_t PinDER() const { return right_pin_; }
  void PinDER(std::int16_t pin) override { right_pin_ = pin; }
  bool PinesConectados() const override;
  void PinesConectados(bool wired) override;
  void Show(ifrmPuertos& client) override;

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
  std::int16_t shown_pin() const { return pin_is_shown_ ? left_pin_ : std::int16_t{0}; }

  // What the user does.
  void TypeLeftPin(TextView text);
  void TypeConnectedPins(TextView text);
  void ChoosePair(emPuertoSerial pair);
  void PickLeftPin(int pin);             // in the diagram
  void ToggleWire(int left, int right);  // in the diagram; while editing only
  void Accept();
  void Cancel();

 private:
  void ShowNoList();
  WiringMask* CurrentMask();
  Text ListOf(WiringMask mask) const;

  View& view_;
  ifrmPuertos* client_ = nullptr;
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
};

}  // namespace conmuta
