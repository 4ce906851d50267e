#include "cable/frmPuertos.h"

#include "platform/number.h"
#include "platform/pieces.h"

namespace conmuta {

void frmPuertos::Caption(TextView caption) {
  caption_ = caption;
  view_.Update();
}

void frmPuertos::Conmutador(TextView name) {
  switch_label_ = Text(u"Conmutador").append(kLineBreak).append(name);
  view_.Update();
}

void frmPuertos::Modificar(bool may_edit) {
  may_edit_ = may_edit;
  view_.Update();
}

void frmPuertos::PuertoActivo(emPuertoSerial pair) {
  pair_ = pair;
  if (IsConnectorPair(pair)) ChoosePair(pair);
}

// The mask that PinIZQ addresses in the pair's table, or null.
WiringMask* frmPuertos::CurrentMask() {
  if (!IsConnectorPair(pair_) || left_pin_ < 1 || left_pin_ > LeftPins(pair_)) return nullptr;
  return &wiring_.Table(pair_)[static_cast<std::size_t>(left_pin_)];
}

bool frmPuertos::PinesConectados() const {
  const WiringMask* mask = const_cast<frmPuertos*>(this)->CurrentMask();
  return mask != nullptr && right_pin_ >= 1 && right_pin_ <= RightPins(pair_) &&
         (*mask & PinMask(right_pin_)) != 0;
}

void frmPuertos::PinesConectados(bool wired) {
  if (CurrentMask() == nullptr || right_pin_ < 1 || right_pin_ > RightPins(pair_)) return;
  SetWired(wiring_.Table(pair_), left_pin_, right_pin_, wired);
}

Text frmPuertos::ListOf(WiringMask mask) const {
  Text list;
  for (int pin = 1; pin <= RightPins(pair_); ++pin) {
    if ((mask & PinMask(pin)) != 0) list.append(ToText(pin)).append(u",");
  }
  return list;
}

TextView frmPuertos::notice() const {
  return option_ == emPuertoSerialDB9DB25
             ? u"De este par no se guardan los pines 10 a 25 del conmutador; el 9 queda como el 25."
             : u"";
}

// Emptying the list this way is not the user's doing: the wiring stays.
void frmPuertos::ShowNoList() {
  list_enabled_ = false;
  list_text_.clear();
}

void frmPuertos::ShowList() {
  if (!list_enabled_) return;
  const WiringMask* mask = CurrentMask();
  list_text_ = mask != nullptr ? ListOf(*mask) : Text();
}

void frmPuertos::TypeLeftPin(TextView text) {
  typing_ = false;
  pin_text_ = text;
  const auto pin = ReadWholeNumber(text);
  pin_is_shown_ = pin && *pin > 0 && *pin <= LeftPins(option_);
  if (pin_is_shown_) left_pin_ = static_cast<std::int16_t>(*pin);
  if (pin_is_shown_ && may_edit_) {
    list_enabled_ = true;
    ShowList();
  } else {
    ShowNoList();
  }
  view_.Update();
}

void frmPuertos::TypeConnectedPins(TextView text) {
  if (!list_enabled_) return;
  const Wiring before = wiring_;
  list_text_ = text;
  if (WiringMask* mask = CurrentMask()) {
    *mask = 0;
    for (Pieces pieces(text); const auto piece = pieces.Next();) {
      const auto pin = ReadWholeNumber(*piece);
      if (!pin || *pin <= 0 || *pin > RightPins(pair_)) continue;
      right_pin_ = static_cast<std::int16_t>(*pin);
      *mask |= PinMask(right_pin_);
    }
  }
  if (wiring_ != before && !typing_) {
    Remember(before);
    typing_ = true;
  }
  view_.Update();
}

void frmPuertos::ChoosePair(emPuertoSerial pair) {
  typing_ = false;
  pin_text_.clear();
  pin_is_shown_ = false;
  ShowNoList();
  option_ = pair;
  pair_ = pair;
  view_.Update();
}

void frmPuertos::PickLeftPin(int pin) {
  TypeLeftPin(ToText(pin));
}

void frmPuertos::ToggleWire(int left, int right) {
  if (!may_edit_) return;
  PickLeftPin(left);
  const WiringMask* mask = CurrentMask();
  if (!list_enabled_ || mask == nullptr || right < 1 || right > RightPins(pair_)) return;
  TypeConnectedPins(ListOf(*mask ^ PinMask(right)));
  typing_ = false;
}

// Changes the wires of the pair that is shown.
template <class Change>
void frmPuertos::ChangeTable(Change change) {
  if (!may_edit_) return;
  const Wiring before = wiring_;
  change(wiring_.Table(option_));
  typing_ = false;
  if (wiring_ == before) return;
  Remember(before);
  ShowList();
  view_.Update();
}

void frmPuertos::CutWires(Pin pin) {
  if (pin.number < 1 || pin.number > PinsOf(option_, pin.side)) return;
  ChangeTable([&](std::span<WiringMask> table) {
    if (pin.side == Side::kLeft) {
      table[static_cast<std::size_t>(pin.number)] = 0;
    } else {
      for (WiringMask& mask : table.subspan(1)) mask &= ~PinMask(pin.number);
    }
  });
}

void frmPuertos::CutAllWires() {
  ChangeTable([](std::span<WiringMask> table) {
    for (WiringMask& mask : table.subspan(1)) mask = 0;
  });
}

void frmPuertos::UseCable(const UsualCable& cable) {
  if (cable.pair != option_) return;
  ChangeTable([&](std::span<WiringMask> table) {
    for (WiringMask& mask : table.subspan(1)) mask = 0;
    for (const UsualCable::Wire& wire : cable.wires) {
      if (wire.left != 0) SetWired(table, wire.left, wire.right, true);
    }
  });
}

void frmPuertos::Remember(const Wiring& before) {
  undo_.push_back({before, option_});
}

// Shows the pair where it happened.
void frmPuertos::Undo() {
  if (!may_edit_ || undo_.empty()) return;
  const Step step = undo_.back();
  undo_.pop_back();
  wiring_ = step.wiring;
  typing_ = false;
  if (step.pair != option_) ChoosePair(step.pair);
  ShowList();
  view_.Update();
}

void frmPuertos::Accept() {
  if (!may_edit_) return;
  if (Actualizar) Actualizar();
  view_.Close();
}

}  // namespace conmuta
