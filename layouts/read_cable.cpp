#include "cable/wiring.h"
#include "layouts/names.h"
#include "layouts/parts.h"

namespace conmuta::layouts {
namespace {

// The number that a key spells out, from 0 to 25; nothing for any other key.
std::optional<int> PinOf(TextView key) {
  for (int pin = 0; pin <= 25; ++pin) {
    if (key == ToText(pin)) return pin;
  }
  return std::nullopt;
}

class CableReader {
 public:
  CableReader(emPuertoSerial pair, Wiring& wiring, Findings& findings)
      : pair_(pair),
        path_(Text(u"cable.").append(NameOf(pair))),
        table_(wiring.Table(pair)),
        findings_(findings) {}

  void Read(const TomlValue& value) {
    const auto* keys = findings_.AsTable(value, path_);
    if (keys == nullptr) return;
    for (const TomlEntry& key : *keys) {
      if (key.key == u"mascaras") {
        ReadMasks(key);
      } else if (const auto pin = PinWithin(key, 1)) {
        ReadPins(key, *pin);
      }
    }
  }

 private:
  // The computer's pin that a key names.
  std::optional<int> PinWithin(const TomlEntry& key, int least) {
    const auto pin = PinOf(key.key);
    if (pin && *pin >= least && *pin <= LeftPins(pair_)) return pin;
    findings_.Add(MistakeKind::kOutOfRange, key.key_extent.begin, path_,
                  u"la computadora no tiene la pata «" + key.key + u"»",
                  u"de " + ToText(least) + u" a " + ToText(LeftPins(pair_)));
    return std::nullopt;
  }

  void ReadPins(const TomlEntry& key, int pin) {
    WiringMask mask = 0;
    if (key.value.kind == TomlValue::Kind::kList) {
      for (const TomlValue& far : key.value.list) mask |= FarPin(key, far);
    } else {
      mask = FarPin(key, key.value);
    }
    Store(key, pin, mask);
  }

  // The bit of a pin of the switch; 0 when it has no such pin.
  WiringMask FarPin(const TomlEntry& key, const TomlValue& value) {
    const auto pin = findings_.AsInteger(value, path_ + u"." + key.key);
    if (!pin) return 0;
    if (*pin >= 1 && *pin <= RightPins(pair_)) return PinMask(static_cast<int>(*pin));
    findings_.Add(MistakeKind::kOutOfRange, value.extent.begin, path_ + u"." + key.key,
                  u"el conmutador no tiene la pata " + ToText(*pin),
                  u"de 1 a " + ToText(RightPins(pair_)));
    return 0;
  }

  // Entries of the table as numbers, for what no cable has.
  void ReadMasks(const TomlEntry& entry) {
    const auto* keys = findings_.AsTable(entry.value, path_ + u".mascaras");
    if (keys == nullptr) return;
    for (const TomlEntry& key : *keys) {
      const auto pin = PinWithin(key, 0);
      if (!pin) continue;
      if (const auto mask = findings_.AsCode(key.value, path_ + u".mascaras." + key.key)) {
        Store(key, *pin, *mask);
      }
    }
  }

  void Store(const TomlEntry& key, int pin, WiringMask mask) {
    const WiringMask bit = WiringMask{1} << pin;
    if ((given_ & bit) != 0) {
      findings_.Add(MistakeKind::kGivenTwice, key.key_extent.begin, path_ + u"." + key.key,
                    u"se da dos veces");
    }
    given_ |= bit;
    table_[static_cast<std::size_t>(pin)] = mask;
  }

  emPuertoSerial pair_;
  Text path_;
  std::span<WiringMask> table_;
  Findings& findings_;
  WiringMask given_ = 0;  // the pins read so far
};

}  // namespace

void ReadCables(const TomlEntry& entry, Layout& layout, Findings& findings) {
  const auto* cables = findings.AsTable(entry.value, entry.key);
  if (cables == nullptr) return;
  for (const TomlEntry& cable : *cables) {
    if (const auto pair = FindPair(cable.key)) {
      CableReader(*pair, layout.header.Cables, findings).Read(cable.value);
    } else {
      findings.AddUnknown(cable.key_extent.begin, entry.key, cable.key, PairNames());
    }
  }
}

}  // namespace conmuta::layouts
