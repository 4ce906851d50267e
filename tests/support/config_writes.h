// Whatever a host may write to a configuration, held against a plain telling of the rules.
#pragma once

#include <gtest/gtest.h>

#include <utility>

#include "support/config_bench.h"
#include "support/config_snapshot.h"
#include "support/naive_config.h"
#include "support/random.h"

namespace conmuta::test {

// A configuration and its plain model, written to alike.
class ConfigWrites : private ConfigBench {
 public:
  explicit ConfigWrites(Random random) : random_(random) {}

  // One random write to both, which must then be the same.
  void Step() {
    Write();
    EXPECT_EQ(Snapshot::OfState(config), Snapshot(naive_.State()));
    EXPECT_EQ(TakeEvents(), std::exchange(naive_.events, {}));
  }

  int saved() const { return saved_; }
  const Random& random() const { return random_; }

 private:
  int Below(int bound) { return random_.Below(bound); }

  template <std::size_t kSize>
  int OneOf(const int (&values)[kSize]) {
    return values[Below(static_cast<int>(kSize))];
  }

  // Few kinds, so that sequences meet again; sometimes none.
  int Kind() {
    static constexpr int kOdd[] = {-2147483647 - 1, -1, 0, 1, 24, 53, 54, 55, 2147483647};
    return Below(8) == 0 ? OneOf(kOdd) : 2 + Below(6);
  }
  int Byte() {
    static constexpr int kBytes[] = {0, 0, 1, 2, 5, 255};
    return OneOf(kBytes);
  }
  Text SomeText() {
    static constexpr char16_t kCharacters[] = {u'\0', u'\0', u' ', u'A', u'\u00F1', u'\u4E2D'};
    Text text;
    const int length = Below(4) == 0 ? Below(260) : Below(4);
    for (int i = 0; i < length; ++i) text.push_back(kCharacters[Below(6)]);
    return text;
  }

  void Write() {
    switch (Below(24)) {
      case 0: {
        const Text text = SomeText();
        config.Marca(text);
        naive_.WriteText(naive_.brand, 50, text, true);
        break;
      }
      case 1: {
        const Text text = SomeText();
        config.Modelo(text);
        naive_.WriteText(naive_.model, 50, text, true);
        break;
      }
      case 2: {
        const Text text = SomeText();
        config.Comentarios(text);
        naive_.WriteText(naive_.comments, 250, text, false);
        break;
      }
      case 3: {
        const Text text = SomeText();
        config.Separador(text);
        naive_.WriteText(naive_.separator, 10, text, false);
        break;
      }
      case 4: {
        const int code = Below(8) - 1;
        config.Caso(static_cast<emCasos>(code));
        naive_.WriteCase(code);
        break;
      }
      case 5:
        config.IDCfg(naive_.id = Below(1000) - 500);
        break;
      case 6:
      case 7:
      case 8: {
        naive_.active_dato = Kind();
        config.DATOActivo(static_cast<emParamDato>(naive_.active_dato));
        break;
      }
      case 9:
      case 10: {
        const int value = Byte();
        config.DATOPos(static_cast<std::uint8_t>(value));
        naive_.WriteByte(NaiveConfig::kDato, naive_.datos, naive_.active_dato,
                         &NaiveConfig::Slot::pos, value);
        break;
      }
      case 11:
      case 12: {
        const int value = Byte();
        config.DATOTam(static_cast<std::uint8_t>(value));
        naive_.WriteByte(NaiveConfig::kDato, naive_.datos, naive_.active_dato,
                         &NaiveConfig::Slot::size, value);
        break;
      }
      case 13:
      case 14: {
        const int type = Below(6) - 1;
        config.TipoDatoDATO(static_cast<emTipoDato>(type));
        naive_.WriteType(type);
        break;
      }
      case 15:
      case 16: {
        naive_.active_cte = Kind();
        config.CTEActivo(static_cast<emParamDatoConstante>(naive_.active_cte));
        break;
      }
      case 17: {
        const int value = Byte();
        config.CTEPos(static_cast<std::uint8_t>(value));
        naive_.WriteByte(NaiveConfig::kCte, naive_.ctes, naive_.active_cte, &NaiveConfig::Slot::pos,
                         value);
        break;
      }
      case 18: {
        const int value = Byte();
        config.CTETam(static_cast<std::uint8_t>(value));
        naive_.WriteByte(NaiveConfig::kCte, naive_.ctes, naive_.active_cte,
                         &NaiveConfig::Slot::size, value);
        break;
      }
      case 19: {
        const Text text = SomeText();
        config.Constante(text);
        naive_.WriteConstant(text);
        break;
      }
      case 20: {
        static constexpr int kPairs[] = {-1, 0, 1, 2, 3, 4, 4, 7};
        naive_.pair = OneOf(kPairs);
        config.PuertoActivo(static_cast<emPuertoSerial>(naive_.pair));
        break;
      }
      case 21: {
        const int left = Below(28) - 1;
        const int right = Below(28) - 1;
        config.PinIZQ(static_cast<std::int16_t>(left));
        config.PinDER(static_cast<std::int16_t>(right));
        naive_.WritePin(naive_.left, left);
        naive_.WritePin(naive_.right, right);
        break;
      }
      case 22: {
        const bool wired = Below(3) != 0;
        config.PinesConectados(wired);
        naive_.WriteWire(wired);
        break;
      }
      default:
        Rarely();
    }
  }

  void Rarely() {
    switch (Below(8)) {
      case 0:
        config.Iniciar();
        naive_.Iniciar();
        break;
      case 1:
      case 2:
        SaveAndSometimesOpen();
        break;
      default:
        break;
    }
  }

  void SaveAndSometimesOpen() {
    if (!naive_.CanBeSaved()) {
      EXPECT_THROW(config.GuardarComo(u"a.cfg"), ConfigError);
      return;
    }
    files.fail_open = Below(8) == 0;
    if (files.fail_open) {
      EXPECT_THROW(config.GuardarComo(u"a.cfg"), ConfigError);
      EXPECT_EQ(files.entries.count(u"a.cfg"), 0u);
      return;
    }
    config.GuardarComo(u"a.cfg");
    naive_.modified = false;
    const SwitchFile file = naive_.File();
    ASSERT_EQ(files.entries.at(u"a.cfg").bytes, file.Bytes());
    ++saved_;
    if (Below(2) == 0) return;
    config.Abrir(u"a.cfg");
    naive_.Open(file);
  }

  Random random_;
  NaiveConfig naive_;
  int saved_ = 0;
};

}  // namespace conmuta::test
