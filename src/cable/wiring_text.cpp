#include "cable/wiring_text.h"

#include <array>

namespace conmuta {
namespace {

constexpr std::array<TextView, 10> kDb9 = {u"",    u"DCD", u"RXD", u"TXD", u"DTR",
                                           u"GND", u"DSR", u"RTS", u"CTS", u"RI"};
constexpr std::array<TextView, 26> kDb25 = {
    u"", u"", u"TXD", u"RXD", u"RTS", u"CTS", u"DSR", u"GND", u"DCD", u"",   u"", u"", u"",
    u"", u"", u"",    u"",    u"",    u"",    u"",    u"DTR", u"",    u"RI", u"", u"", u""};

}  // namespace

WiringMask FarEnds(emPuertoSerial pair, std::span<const WiringMask> table, Pin pin) {
  if (pin.number < 1 || pin.number > PinsOf(pair, pin.side)) return 0;
  if (pin.side == Side::kLeft) {
    const WiringMask all = PinMask(RightPins(pair) + 1) - 1;
    return table[static_cast<std::size_t>(pin.number)] & all;
  }
  WiringMask lefts = 0;
  for (int left = 1; left <= LeftPins(pair); ++left) {
    if (IsWired(table, left, pin.number)) lefts |= PinMask(left);
  }
  return lefts;
}

Text PinList(WiringMask pins) {
  Text list;
  for (int pin = 1; pin <= 25; ++pin) {
    if ((pins & PinMask(pin)) == 0) continue;
    if (!list.empty()) list.append(u", ");
    list.append(ToText(pin));
  }
  return list;
}

TextView SignalName(emPuertoSerial pair, Pin pin) {
  const int pins = LeftPins(pair);
  if (pin.side == Side::kRight || pin.number < 1 || pin.number > pins) return u"";
  const auto number = static_cast<std::size_t>(pin.number);
  return pins == 9 ? kDb9[number] : kDb25[number];
}

Text DescribePin(emPuertoSerial pair, std::span<const WiringMask> table, Pin pin) {
  Text text = pin.side == Side::kLeft ? u"Computadora " : u"Conmutador ";
  text.append(ToText(pin.number));
  if (const TextView signal = SignalName(pair, pin); !signal.empty()) {
    text.append(u" (").append(signal).append(u")");
  }
  const WiringMask ends = FarEnds(pair, table, pin);
  return text.append(u": ").append(ends != 0 ? PinList(ends) : u"sin cables");
}

Text WiringList(emPuertoSerial pair, std::span<const WiringMask> table) {
  Text list;
  for (int left = 1; left <= LeftPins(pair); ++left) {
    const WiringMask ends = FarEnds(pair, table, {Side::kLeft, left});
    if (ends == 0) continue;
    list.append(ToText(left)).append(u" - ").append(PinList(ends)).append(kLineBreak);
  }
  return list;
}

}  // namespace conmuta
