// Long sequences of whatever a host may do to a configuration, held against a plain model of it.
#include <map>
#include <random>

#include "config_model.h"
#include "host_test.h"
#include "scratch_files.h"
#include "sink.h"

namespace conmuta::test {
namespace {

class RandomOperations {
 public:
  explicit RandomOperations(unsigned seed) : random_(seed) {}

  void Run(int steps) {
    for (int step = 0; step < steps && !::testing::Test::HasFailure(); ++step) {
      SCOPED_TRACE("step " + std::to_string(step) + ": " + Step());
      Compare();
    }
    connection_.Close();
  }

 private:
  using Slot = ConfigModel::Slot;

  int Number(int low, int high) { return std::uniform_int_distribution<int>(low, high)(random_); }

  template <class Value>
  Value OneOf(std::initializer_list<Value> values) {
    return *(values.begin() + Number(0, static_cast<int>(values.size()) - 1));
  }

  // Short and long, with NULs, and with a character that no ANSI code page of the West has.
  Text AnyText(int width) {
    const int length = OneOf({0, 1, 2, Number(0, width), width, width + 3});
    Text text;
    for (int i = 0; i < length; ++i) {
      text += OneOf<char16_t>({u'a', u'B', u'1', u' ', u'\r', u'\n', u'\0', u'\u4E2D'});
    }
    return text;
  }
  unsigned char AnyByte() {
    return static_cast<unsigned char>(OneOf({0, 0, 1, 2, 255, Number(0, 255)}));
  }

  std::string Step() {
    switch (Number(0, 24)) {
      case 0:
        return WriteText("Marca", &Cfg::put_Marca, model_.brand, 50, true);
      case 1:
        return WriteText("Modelo", &Cfg::put_Modelo, model_.model, 50, true);
      case 2:
        return WriteText("Comentarios", &Cfg::put_Comentarios, model_.comments, 250, false);
      case 3:
        return WriteText("Separador", &Cfg::put_Separador, model_.separator, 10, false);
      case 4: {
        const int value = OneOf({0, 1, 2, 5, 9, -1});
        auto variable = Code<emCasos>(value);
        Do(config_, &Cfg::put_Caso, &variable);
        EXPECT_EQ(variable, value);
        model_.WriteCase(value);
        return "Caso = " + std::to_string(value);
      }
      case 5: {
        const int value = Number(-5, 5);
        Do(config_, &Cfg::put_IDCfg, static_cast<long>(value));
        model_.id = value;
        return "IDCfg";
      }
      case 6:
      case 7:
      case 8: {
        const int kind = OneOf({0, 1, 54, -1, 53, Number(2, 8), Number(2, 53)});
        Do(config_, &Cfg::put_DATOActivo, Code<emParamDato>(kind));
        model_.lists[ConfigModel::kItems].active = kind;
        return "DATOActivo = " + std::to_string(kind);
      }
      case 9:
      case 10: {
        const int kind = OneOf({0, 1, 24, -1, 23, Number(2, 5), Number(2, 23)});
        Do(config_, &Cfg::put_CTEActivo, Code<emParamDatoConstante>(kind));
        model_.lists[ConfigModel::kConstants].active = kind;
        return "CTEActivo = " + std::to_string(kind);
      }
      case 11:
      case 12:
        return WriteByte("DATOPos", &Cfg::put_DATOPos, ConfigModel::kItems, &Slot::pos);
      case 13:
      case 14:
        return WriteByte("DATOTam", &Cfg::put_DATOTam, ConfigModel::kItems, &Slot::size);
      case 15: {
        const int value = OneOf({0, 1, 2, 3, 7, -1});
        Do(config_, &Cfg::put_TipoDatoDATO, Code<emTipoDato>(value));
        model_.WriteType(value);
        return "TipoDatoDATO = " + std::to_string(value);
      }
      case 16:
        return WriteByte("CTEPos", &Cfg::put_CTEPos, ConfigModel::kConstants, &Slot::pos);
      case 17:
        return WriteByte("CTETam", &Cfg::put_CTETam, ConfigModel::kConstants, &Slot::size);
      case 18: {
        const Text value = AnyText(20);
        Do(config_, &Cfg::put_Constante, value);
        model_.WriteConstant(value);
        return "Constante";
      }
      case 19: {
        const int pair = OneOf({0, 1, 2, 3, 4, 7, -1});
        Do(config_, &Cfg::put_PuertoActivo, Code<emPuertoSerial>(pair));
        model_.pair = pair;
        return "PuertoActivo = " + std::to_string(pair);
      }
      case 20: {
        const auto pin = static_cast<short>(OneOf({-1, 0, 1, 9, 10, 25, 26, Number(1, 25)}));
        Do(config_, &Cfg::put_PinIZQ, pin);
        model_.WritePin(model_.left, pin);
        return "PinIZQ = " + std::to_string(pin);
      }
      case 21: {
        const auto pin = static_cast<short>(OneOf({-1, 0, 1, 9, 10, 25, 26, Number(1, 25)}));
        Do(config_, &Cfg::put_PinDER, pin);
        model_.WritePin(model_.right, pin);
        return "PinDER = " + std::to_string(pin);
      }
      case 22: {
        const bool wired = Number(0, 2) != 0;
        Do(config_, &Cfg::put_PinesConectados, component::ToVariantBool(wired));
        model_.WriteWire(wired);
        return "PinesConectados";
      }
      case 23:
        return Number(0, 5) == 0 ? Reset() : Save();
      default:
        return Number(0, 2) == 0 ? Open() : Save();
    }
  }

  std::string WriteText(const char* name, HRESULT (STDMETHODCALLTYPE Cfg::*put)(BSTR), Text& field,
                        int width, bool is_name) {
    const Text value = AnyText(width);
    Do(config_, put, value);
    if (is_name) {
      model_.WriteBrand(field, value);
    } else {
      model_.WriteText(field, value);
    }
    return name;
  }

  std::string WriteByte(const char* name, HRESULT (STDMETHODCALLTYPE Cfg::*put)(unsigned char),
                        int list, int Slot::*byte) {
    const unsigned char value = AnyByte();
    Do(config_, put, value);
    model_.WriteByte(model_.lists[static_cast<std::size_t>(list)], byte, value);
    return std::string(name) + " = " + std::to_string(value);
  }

  std::string Reset() {
    Do(config_, &Cfg::Iniciar);
    model_.Iniciar();
    return "Iniciar";
  }

  std::string Save() {
    const Text name = FromWide(std::to_wstring(Number(1, 4))) + u".cfg";
    const HRESULT saved = config_->GuardarComo(Bstr(folder_.Path(name)).get());
    if (!model_.CanBeSaved()) {
      EXPECT_EQ(saved, static_cast<HRESULT>(0x800405DE));
      return "GuardarComo, incomplete";
    }
    EXPECT_EQ(saved, S_OK);
    files_[name] = model_.Save();
    EXPECT_EQ(folder_.Bytes(name), files_[name]);
    return "GuardarComo";
  }

  std::string Open() {
    const Text name = FromWide(std::to_wstring(Number(1, 4))) + u".cfg";
    const HRESULT opened = config_->Abrir(Bstr(folder_.Path(name)).get());
    if (!files_.contains(name)) {
      EXPECT_EQ(opened, static_cast<HRESULT>(0x800405DD));
      return "Abrir, missing";
    }
    EXPECT_EQ(opened, S_OK);
    model_.Open(files_[name]);
    return "Abrir";
  }

  void Compare() {
    EXPECT_EQ(sink_.Take(), std::exchange(model_.events, {}));
    EXPECT_EQ(Read(config_, &Cfg::get_Modificado), component::ToVariantBool(model_.modified));
    EXPECT_EQ(Read(config_, &Cfg::get_IDCfg), model_.id);
    EXPECT_EQ(Read(config_, &Cfg::get_Version), model_.version);
    EXPECT_EQ(Read(config_, &Cfg::get_Caso), model_.special_case);
    const Text brand = ConfigModel::Shown(model_.brand);
    const Text model = ConfigModel::Shown(model_.model);
    const bool named = !brand.empty() && !model.empty();
    EXPECT_EQ(Read(config_, &Cfg::get_Marca), brand);
    EXPECT_EQ(Read(config_, &Cfg::get_Modelo), model);
    EXPECT_EQ(Read(config_, &Cfg::get_NombreConmutador),
              named ? brand + u", " + model : u"Desconocido");
    EXPECT_EQ(Read(config_, &Cfg::get_HayConfig),
              component::ToVariantBool(named && model_.special_case != 0));
    EXPECT_EQ(Read(config_, &Cfg::get_Comentarios), ConfigModel::Shown(model_.comments));
    const Text separator = ConfigModel::Shown(model_.separator);
    EXPECT_EQ(Read(config_, &Cfg::get_Separador), separator);
    Text codes;
    for (std::size_t i = 0; i < 10; ++i) {
      const int code = i < separator.size() ? ToAnsi(separator[i]) : 0;
      codes += FromWide(std::to_wstring(code)) + u",";
    }
    EXPECT_EQ(Read(config_, &Cfg::get_ListaSeparador), codes);

    const ConfigModel::List& items = model_.lists[ConfigModel::kItems];
    const Slot* item = model_.Active(items);
    EXPECT_EQ(Read(config_, &Cfg::get_DATOActivo), items.active);
    EXPECT_EQ(Read(config_, &Cfg::get_HayDATO), component::ToVariantBool(model_.HasActive(items)));
    EXPECT_EQ(Read(config_, &Cfg::get_TipoDatoDATO), item != nullptr ? item->type : 0);
    EXPECT_EQ(Read(config_, &Cfg::get_DATOPos), item != nullptr ? item->pos : 0);
    EXPECT_EQ(Read(config_, &Cfg::get_DATOTam), item != nullptr ? item->size : 0);

    const ConfigModel::List& constants = model_.lists[ConfigModel::kConstants];
    const Slot* constant = model_.Active(constants);
    EXPECT_EQ(Read(config_, &Cfg::get_CTEActivo), constants.active);
    EXPECT_EQ(Read(config_, &Cfg::get_HayCTE),
              component::ToVariantBool(model_.HasActive(constants)));
    EXPECT_EQ(Read(config_, &Cfg::get_TipoDatoCTE), constant != nullptr ? constant->type : 0);
    EXPECT_EQ(Read(config_, &Cfg::get_CTEPos), constant != nullptr ? constant->pos : 0);
    EXPECT_EQ(Read(config_, &Cfg::get_CTETam), constant != nullptr ? constant->size : 0);
    EXPECT_EQ(Read(config_, &Cfg::get_Constante),
              constant != nullptr ? ConfigModel::Shown(constant->constant) : u"");

    EXPECT_EQ(Read(config_, &Cfg::get_PuertoActivo), model_.pair);
    EXPECT_EQ(Read(config_, &Cfg::get_PinIZQ), model_.left);
    EXPECT_EQ(Read(config_, &Cfg::get_PinDER), model_.right);
    EXPECT_EQ(Read(config_, &Cfg::get_PinesConectados), component::ToVariantBool(model_.IsWired()));
  }

  std::mt19937 random_;
  const ScratchFolder folder_;
  std::map<Text, std::string> files_;
  ConfigModel model_;
  ComPtr<Cfg> config_ = NewConfig();
  Sink sink_;
  Connection connection_{config_.get(), &sink_};
};

class RandomOperationsTest : public HostTest, public ::testing::WithParamInterface<unsigned> {};

TEST_P(RandomOperationsTest, LeaveWhatTheModelHas) {
  RandomOperations(GetParam()).Run(4000);
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomOperationsTest, ::testing::Range(1u, 9u));

}  // namespace
}  // namespace conmuta::test
