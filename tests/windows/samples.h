// Objects for windows to show, made as hosts make them.
#pragma once

#include <array>
#include <set>

#include "component/host.h"

namespace conmuta::test {

inline void Item(const ComPtr<Cfg>& config, int kind, int pos, int size, int type = 1) {
  Do(config, &Cfg::put_DATOActivo, Code<::emParamDato>(kind));
  Do(config, &Cfg::put_DATOPos, static_cast<unsigned char>(pos));
  Do(config, &Cfg::put_DATOTam, static_cast<unsigned char>(size));
  Do(config, &Cfg::put_TipoDatoDATO, Code<::emTipoDato>(type));
}

inline void Constant(const ComPtr<Cfg>& config, int kind, int pos, TextView text) {
  Do(config, &Cfg::put_CTEActivo, Code<::emParamDatoConstante>(kind));
  Do(config, &Cfg::put_Constante, text);
  Do(config, &Cfg::put_CTEPos, static_cast<unsigned char>(pos));
}

// With a brand and a model; it can be saved.
inline ComPtr<Cfg> NamedConfig(TextView brand = u"ACME", TextView model = u"X1") {
  auto config = NewConfig();
  Do(config, &Cfg::put_Marca, brand);
  Do(config, &Cfg::put_Modelo, model);
  Do(config, &Cfg::put_Separador, u"\r\n");
  return config;
}

// Reads lines like "21/11 10:05 00:07:20 E 5551234567 205".
inline ComPtr<Cfg> TypicalConfig() {
  auto config = NamedConfig(u"Panasonic", u"KX-TD1232");
  Item(config, 2, 1, 2);
  Item(config, 3, 4, 2);
  Item(config, 5, 7, 2);
  Item(config, 6, 10, 2);
  Item(config, 11, 13, 2);
  Item(config, 12, 16, 2);
  Item(config, 13, 19, 2);
  Item(config, 18, 24, 10, 3);
  Item(config, 31, 35, 3);
  Constant(config, 4, 22, u"E");
  Constant(config, 7, 22, u"S");
  return config;
}

// Everything that there is, defined.
inline ComPtr<Cfg> CrowdedConfig() {
  auto config = NamedConfig(u"Siemens", u"HiPath 3800");
  for (int kind = 2; kind <= 53; ++kind) Item(config, kind, kind, 255 - kind, kind % 3 + 1);
  for (int kind = 2; kind <= 23; ++kind) {
    Constant(config, kind, 100 + kind,
             Text(static_cast<std::size_t>(kind - 3 > 0 ? kind - 3 : 1),
                  static_cast<char16_t>(u'A' + kind)));
  }
  return config;
}

// --- cables ---

struct Wire {
  int pair;
  int left;
  int right;
  auto operator<=>(const Wire&) const = default;
};
using Wires = std::set<Wire>;

inline std::ostream& operator<<(std::ostream& out, const Wire& wire) {
  return out << wire.pair << ':' << wire.left << '-' << wire.right;
}

// Addresses a wire. Right pins 10 to 25 of a DB25 whose neighbour is a DB9 are only taken while
// both sides are DB25.
inline void Address(const ComPtr<Cfg>& config, const Wire& wire) {
  Do(config, &Cfg::put_PuertoActivo, Code<::emPuertoSerial>(4));
  Do(config, &Cfg::put_PinIZQ, static_cast<SHORT>(wire.left));
  Do(config, &Cfg::put_PinDER, static_cast<SHORT>(wire.right));
  Do(config, &Cfg::put_PuertoActivo, Code<::emPuertoSerial>(wire.pair));
}

inline void Connect(const ComPtr<Cfg>& config, const Wires& wires) {
  for (const Wire& wire : wires) {
    Address(config, wire);
    Do(config, &Cfg::put_PinesConectados, VARIANT_TRUE);
  }
}

inline Wires WiresOf(const ComPtr<Cfg>& config) {
  Wires wires;
  for (int pair = 1; pair <= 4; ++pair) {
    for (int left = 1; left <= (pair <= 2 ? 9 : 25); ++left) {
      for (int right = 1; right <= (pair % 2 == 1 ? 9 : 25); ++right) {
        Address(config, {pair, left, right});
        if (Read(config, &Cfg::get_PinesConectados) != VARIANT_FALSE) {
          wires.insert({pair, left, right});
        }
      }
    }
  }
  return wires;
}

// 2-3, 3-2, 5-5, and the control lines crossed.
inline Wires NullModem(int pair) {
  return {{pair, 2, 3}, {pair, 3, 2}, {pair, 4, 1}, {pair, 4, 6}, {pair, 5, 5},
          {pair, 1, 4}, {pair, 6, 4}, {pair, 7, 8}, {pair, 8, 7}};
}

}  // namespace conmuta::test
