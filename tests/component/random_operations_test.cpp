// Long sequences of whatever a host may do to a configuration, held against a plain model of it.
#include <map>
#include <random>

#include "host_test.h"
#include "scratch_files.h"
#include "sink.h"
#include "support/naive_config.h"

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
  using Slot = NaiveConfig::Slot;

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
        model_.active_dato = kind;
        return "DATOActivo = " + std::to_string(kind);
      }
      case 9:
      case 10: {
        const int kind = OneOf({0, 1, 24, -1, 23, Number(2, 5), Number(2, 23)});
        Do(config_, &Cfg::put_CTEActivo, Code<emParamDatoConstante>(kind));
        model_.active_cte = kind;
        return "CTEActivo = " + std::to_string(kind);
      }
      case 11:
      case 12:
        return WriteItemByte("DATOPos", &Cfg::put_DATOPos, &Slot::pos);
      case 13:
      case 14:
        return WriteItemByte("DATOTam", &Cfg::put_DATOTam, &Slot::size);
      case 15: {
        const int value = OneOf({0, 1, 2, 3, 7, -1});
        Do(config_, &Cfg::put_TipoDatoDATO, Code<emTipoDato>(value));
        model_.WriteType(value);
        return "TipoDatoDATO = " + std::to_string(value);
      }
      case 16:
        return WriteConstantByte("CTEPos", &Cfg::put_CTEPos, &Slot::pos);
      case 17:
        return WriteConstantByte("CTETam", &Cfg::put_CTETam, &Slot::size);
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
    model_.WriteText(field, static_cast<std::size_t>(width), value, is_name);
    return name;
  }

  using PutByte = HRESULT (STDMETHODCALLTYPE Cfg::*)(unsigned char);

  std::string WriteItemByte(const char* name, PutByte put, int Slot::*byte) {
    return WriteByte(name, put, NaiveConfig::kDato, model_.datos, model_.active_dato, byte);
  }
  std::string WriteConstantByte(const char* name, PutByte put, int Slot::*byte) {
    return WriteByte(name, put, NaiveConfig::kCte, model_.ctes, model_.active_cte, byte);
  }
  std::string WriteByte(const char* name, PutByte put, const NaiveConfig::SlotRules& rules,
                        std::vector<Slot>& slots, int kind, int Slot::*byte) {
    const unsigned char value = AnyByte();
    Do(config_, put, value);
    model_.WriteByte(rules, slots, kind, byte, value);
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
    files_[name] = model_.File();
    model_.modified = false;
    EXPECT_EQ(folder_.Bytes(name), files_[name].Bytes());
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
    EXPECT_EQ(TakeEvents(), std::exchange(model_.events, {}));
    EXPECT_EQ(State(), model_.State());
    const Text brand = Read(config_, &Cfg::get_Marca);
    const Text model = Read(config_, &Cfg::get_Modelo);
    const bool named = !brand.empty() && !model.empty();
    EXPECT_EQ(Read(config_, &Cfg::get_NombreConmutador),
              named ? brand + u", " + model : u"Desconocido");
    EXPECT_EQ(Read(config_, &Cfg::get_HayConfig),
              component::ToVariantBool(named && model_.caso != 0));
    const Text separator = Read(config_, &Cfg::get_Separador);
    Text codes;
    for (std::size_t i = 0; i < 10; ++i) {
      const int code = i >= separator.size() ? 0 : separator[i] < 0x80 ? separator[i] : '?';
      codes += FromWide(std::to_wstring(code)) + u",";
    }
    EXPECT_EQ(Read(config_, &Cfg::get_ListaSeparador), codes);
  }

  std::vector<std::string> TakeEvents() {
    static constexpr const char* kNames[] = {"", "CambioNombreConmutador", "ConfiguracionCargada",
                                             "Inicializado", "Cambios"};
    std::vector<std::string> names;
    for (const int event : sink_.Take()) names.emplace_back(kNames[event]);
    return names;
  }

  // What a host reads, member by member.
  std::map<std::string, std::string> State() {
    const auto yes = [&](auto get) { return std::to_string(Read(config_, get) != VARIANT_FALSE); };
    const auto number = [&](auto get) { return std::to_string(Read(config_, get)); };
    const auto text = [&](auto get) { return Shown(Read(config_, get)); };
    return {{"Modificado", yes(&Cfg::get_Modificado)},
            {"IDCfg", number(&Cfg::get_IDCfg)},
            {"Version", number(&Cfg::get_Version)},
            {"Caso", number(&Cfg::get_Caso)},
            {"Marca", text(&Cfg::get_Marca)},
            {"Modelo", text(&Cfg::get_Modelo)},
            {"Comentarios", text(&Cfg::get_Comentarios)},
            {"Separador", text(&Cfg::get_Separador)},
            {"DATOActivo", number(&Cfg::get_DATOActivo)},
            {"HayDATO", yes(&Cfg::get_HayDATO)},
            {"TipoDatoDATO", number(&Cfg::get_TipoDatoDATO)},
            {"DATOPos", number(&Cfg::get_DATOPos)},
            {"DATOTam", number(&Cfg::get_DATOTam)},
            {"CTEActivo", number(&Cfg::get_CTEActivo)},
            {"HayCTE", yes(&Cfg::get_HayCTE)},
            {"TipoDatoCTE", number(&Cfg::get_TipoDatoCTE)},
            {"CTEPos", number(&Cfg::get_CTEPos)},
            {"CTETam", number(&Cfg::get_CTETam)},
            {"Constante", text(&Cfg::get_Constante)},
            {"PuertoActivo", number(&Cfg::get_PuertoActivo)},
            {"PinIZQ", number(&Cfg::get_PinIZQ)},
            {"PinDER", number(&Cfg::get_PinDER)},
            {"PinesConectados", yes(&Cfg::get_PinesConectados)}};
  }

  std::mt19937 random_;
  const ScratchFolder folder_;
  std::map<Text, SwitchFile> files_;
  NaiveConfig model_;
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
