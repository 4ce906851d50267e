// The core when each of its allocations fails in turn: alone, and with all behind it. What it does
// is done whole or reported, nothing leaks, and it can be done afterwards.
#include <gtest/gtest.h>

#include <memory>
#include <new>
#include <vector>

#include "cable/usual_cables.h"
#include "catalogue/clsConmutadores.h"
#include "config/clsCfgConmut.h"
#include "platform/text_profile.h"
#include "support/config_snapshot.h"
#include "support/fake_clock.h"
#include "support/fake_code_pages.h"
#include "support/fake_files.h"
#include "support/fake_month_names.h"
#include "support/file_images.h"
#include "support/full_config.h"
#include "support/layouts.h"
#include "support/memory.h"
#include "support/spared_files.h"
#include "support/translation.h"
#include "ui/reports.h"

namespace conmuta {
namespace {

using test::Snapshot;

// A program over a disk of its own, for one round.
class Program {
 public:
  virtual ~Program() = default;
  virtual void Act() = 0;
  // After the memory is back: what holds when it was done, and when it was not.
  virtual void Verify(bool done) = 0;

 protected:
  std::string BytesOf(TextView path) const {
    const auto found = disk_.entries.find(Text(path));
    return found != disk_.entries.end() ? found->second.bytes : "(no file)";
  }

  test::FakeFiles disk_;
  test::SparedFiles files_{disk_};
  test::FakeClock clock_;
  test::Latin1 code_page_;
  TextProfiles profiles_{files_, code_page_};
  const Platform platform_{files_, clock_, code_page_, profiles_};
};

constexpr TextView kConfigFile = u"a.cfg";

class ConfigProgram : public Program {
 protected:
  explicit ConfigProgram(const test::SwitchFile& content = test::FullFile()) {
    disk_.entries[Text(kConfigFile)] = {"old"};
    test::Fill(config_, content);
  }
  clsCfgConmut config_{platform_};
};

class Saving final : public ConfigProgram {
 public:
  void Act() override { config_.GuardarComo(kConfigFile); }
  void Verify(bool done) override {
    EXPECT_EQ(BytesOf(kConfigFile), done ? test::FullFile().Bytes() : "old");
    EXPECT_EQ(config_.Modificado(), !done);
  }
};

class Exporting final : public ConfigProgram {
 public:
  Exporting() : ConfigProgram(test::SwitchFile()) {  // few values: each is put among all others
    config_.Exportar(u"whole");
    whole_ = BytesOf(u"whole");
  }
  void Act() override { config_.Exportar(kConfigFile); }
  void Verify(bool done) override { EXPECT_EQ(BytesOf(kConfigFile), done ? whole_ : "old"); }

 private:
  std::string whole_;
};

class Opening final : public Program {
 public:
  Opening() {
    disk_.entries[Text(kConfigFile)] = {test::FullFile().Bytes()};
    config_.Marca(u"Other");
    config_.IDCfg(7);
    before_ = Snapshot::OfState(config_);
  }
  void Act() override { config_.Abrir(kConfigFile); }
  void Verify(bool done) override {
    if (!done) {
      EXPECT_EQ(Snapshot::OfState(config_), before_);
    } else {
      config_.GuardarComo(u"b.cfg");
      EXPECT_EQ(BytesOf(u"b.cfg"), test::FullFile().Bytes());
    }
  }

 private:
  clsCfgConmut config_{platform_};
  Snapshot before_;
};

class Importing final : public Program {
 public:
  Importing() {
    clsCfgConmut other(platform_);
    test::Fill(other, test::SwitchFile());
    other.Exportar(kConfigFile);
    config_.Marca(u"Other");
  }
  void Act() override { config_.Importar(kConfigFile); }
  void Verify(bool done) override { EXPECT_EQ(config_.Modificado(), !done); }

 private:
  clsCfgConmut config_{platform_};
};

// Says yes to everything.
class YesView final : public frmConmutador::View {
 public:
  explicit YesView(void (*user)(frmConmutador&)) : user_(user) {}
  void Update() override {}
  void Run(frmConmutador& window) override { user_(window); }
  void Close() override {}
  void TreeChanged() override {}
  void NodeAdded(const SwitchNode&) override {}
  void NodeRemoved(const SwitchNode&) override {}
  void NodeChanged(const SwitchNode&) override {}
  void NodeSelected(const SwitchNode&) override {}
  void Busy(bool) override {}
  int ShowMessage(TextView, int, TextView) override { return kYes; }
  std::optional<Text> OpenFile(const OpenFileDialog&) override { return u"D:\\new.cfg"; }

 private:
  void (*const user_)(frmConmutador&);
};

class PinsView final : public frmPuertos::View {
 public:
  void Update() override {}
  void Run(frmPuertos& editor) override {
    editor.ChoosePair(emPuertoSerialDB25DB25);
    editor.CutAllWires();
    editor.ToggleWire(2, 3);
    editor.ToggleWire(2, 4);
    editor.Undo();
    editor.TypeLeftPin(u"5");
    editor.TypeConnectedPins(u"20,6");
    editor.Accept();
  }
  void Close() override {}
};

std::unique_ptr<frmPuertos::View> MakePinsView() {
  return std::make_unique<PinsView>();
}

class Managing final : public Program {
 public:
  Managing() {
    disk_.entries[u"C:\\cnm1.cfg"] = {Model("X1")};
    disk_.entries[u"C:\\cnm2.cfg"] = {Model("X2")};
    disk_.entries[u"D:\\new.cfg"] = {Model("X3")};
    disk_.entries[u"C:\\default"] = {Model("X2")};
    catalogue_.Directorio(u"C:");
    catalogue_.Prefijo(u"cnm");
    catalogue_.Extension(u"cfg");
    catalogue_.ArchivoInstalado(u"C:\\default");
  }
  void Act() override {
    catalogue_.Editar(
        [] {
          return std::make_unique<YesView>([](frmConmutador& window) {
            window.NodeClick(u"MOD1");
            window.btnInstalar();
            window.btnDesinstalar();
            window.btnInstalar();
            window.btnBuscar();
            window.NodeClick(u"MOD2");
            window.btnPuertos();
            window.btnEliminar();
            window.btnContraer();
          });
        },
        MakePinsView);
  }
  // Every file is one that was there, whole.
  void Verify(bool done) override {
    for (const auto& [path, entry] : disk_.entries) {
      EXPECT_TRUE(entry.bytes == Model("X1") || entry.bytes == Model("X2") ||
                  entry.bytes == Model("X3"))
          << test::Shown(path);
    }
    EXPECT_EQ(BytesOf(u"C:\\cnm1.cfg"), Model("X1"));
    const bool default_changed = BytesOf(u"C:\\default") != Model("X2");
    EXPECT_TRUE(catalogue_.Instalado() || !default_changed) << "the host is not told";
    if (done) {
      EXPECT_EQ(BytesOf(u"C:\\default"), Model("X1"));
      EXPECT_EQ(BytesOf(u"C:\\cnm2.cfg"), "(no file)");
      EXPECT_EQ(BytesOf(u"C:\\cnm3.cfg"), Model("X3"));
    }
    disk_.entries[u"C:\\cnm2.cfg"] = {Model("X2")};  // to be done again
    disk_.entries.erase(u"C:\\cnm3.cfg");
  }

 private:
  static std::string Model(const std::string& name) {
    test::SwitchFile file;
    file.model = name;
    return file.Bytes();
  }
  clsConmutadores catalogue_{platform_};
};

class EditingCable final : public ConfigProgram {
 public:
  EditingCable() {
    for (const auto& [pair, left, right] : kDrawn) Wire(pair, left, right, false);
  }
  void Act() override { config_.EDConfigSeriales(true, MakePinsView); }
  void Verify(bool done) override {
    for (const auto& [pair, left, right] : kDrawn) EXPECT_EQ(IsWired(pair, left, right), done);
  }

 private:
  struct Drawn {
    emPuertoSerial pair;
    std::int16_t left;
    std::int16_t right;
  };
  static constexpr Drawn kDrawn[] = {{emPuertoSerialDB25DB25, 2, 3},
                                     {emPuertoSerialDB25DB25, 5, 6},
                                     {emPuertoSerialDB25DB25, 5, 20}};

  void Address(emPuertoSerial pair, std::int16_t left, std::int16_t right) {
    config_.PuertoActivo(pair);
    config_.PinIZQ(left);
    config_.PinDER(right);
  }
  bool IsWired(emPuertoSerial pair, std::int16_t left, std::int16_t right) {
    Address(pair, left, right);
    return config_.PinesConectados();
  }
  void Wire(emPuertoSerial pair, std::int16_t left, std::int16_t right, bool wired) {
    Address(pair, left, right);
    config_.PinesConectados(wired);
  }
};

// A line of every case, each longer than the one before.
template <emCasos kCase, test::ConfigBuilder (*kLayout)()>
class Translating final : public Program {
 public:
  void Act() override {
    auto config = Config();
    clsTradEST translator(clock_);
    translator.Conmutador(config.get());
    for (const TextView line : kLines) translator.Llamada(line);
    translator.AltaLlamadaLista();
    MuestraInfoTrad(translator, months_, [] { return std::make_unique<ReadingView>(); });
    MostrarInformacionConfiguracion(*config, [] { return std::make_unique<ReadingView>(); });
  }
  void Verify(bool) override {}

 private:
  class ReadingView final : public frmInfo::View {
   public:
    void Update() override {}
    void Run(frmInfo& window) override { EXPECT_FALSE(window.txtInfo.empty()); }
    void Close() override {}
  };

  static std::unique_ptr<clsCfgConmut> Config() {
    const test::memory::Spared spared;
    return kLayout().Case(kCase).Build();
  }

  static constexpr TextView kLines[] = {
      u"-------- 04/11/27 09:41:11 LINE = 0003 STN = 7344",
      u"00:00:00   INCOMING CALL    RINGING 0:06 and whatever else is printed",
      u"2026/11/21 10:05:30 00:07:20 00:05 IS T001 0205 5551234567 004321 and whatever else",
      u"S 029 00 DN7447  T038000 04/04 15:02 00:00:10 8761344 and whatever else is printed on it"};

  test::FakeMonthNames months_;
};

struct Scenario {
  const char* name;
  std::unique_ptr<Program> (*make)();
};

template <class Type>
constexpr Scenario Of(const char* name) {
  return {name, [] { return std::unique_ptr<Program>(std::make_unique<Type>()); }};
}

void PrintTo(const Scenario& scenario, std::ostream* out) {
  *out << scenario.name;
}

class OutOfMemory : public testing::TestWithParam<Scenario> {
 protected:
  // Gives whether it was done; what else than want of memory may come of it are errors of files.
  static bool Act(Program& program) {
    try {
      program.Act();
      return true;
    } catch (const std::bad_alloc&) {
    } catch (const ConfigError&) {
    }
    return false;
  }

  static void RunRound(std::size_t point, bool from_there_on) {
    SCOPED_TRACE(std::to_string(point) + (from_there_on ? " and all behind it" : ""));
    const std::int64_t before = test::memory::BytesInUse();
    {
      const auto program = GetParam().make();
      test::memory::FailAt(point, from_there_on);
      const bool done = Act(*program);
      test::memory::Stop();
      program->Verify(done);
      EXPECT_TRUE(Act(*program)) << "it cannot be done any more";
      program->Verify(true);
    }
    EXPECT_EQ(test::memory::BytesInUse(), before) << "memory is lost";
  }
};

TEST_P(OutOfMemory, IsReportedAndLosesNothing) {
  RunRound(0, false);  // what is only made once is there
  const auto program = GetParam().make();
  test::memory::FailAt(0);
  EXPECT_TRUE(Act(*program));
  const std::size_t allocations = test::memory::Stop();
  ASSERT_GT(allocations, 0u);
  for (std::size_t point = 1; point <= allocations; ++point) {
    RunRound(point, false);
    RunRound(point, true);
    if (HasFailure()) return;  // the others would say the same
  }
}

INSTANTIATE_TEST_SUITE_P(
    , OutOfMemory,
    testing::Values(Of<Saving>("Saving"), Of<Exporting>("Exporting"), Of<Opening>("Opening"),
                    Of<Importing>("Importing"), Of<Managing>("Managing"),
                    Of<EditingCable>("EditingCable"),
                    Of<Translating<emCasoEstandar, test::FixedColumns>>("Standard"),
                    Of<Translating<emCasoSamsungNX_820, test::FixedColumns>>("Samsung"),
                    Of<Translating<emCasoRestaFechasDuracion, test::FixedColumns>>("TwoDates"),
                    Of<Translating<emCasoNortelMeridian01, test::MeridianColumns>>("Meridian"),
                    Of<Translating<emCasoNortelNorstar0x32SMDR6, test::NorstarColumns>>("Norstar")),
    [](const auto& test) { return std::string(test.param.name); });

}  // namespace
}  // namespace conmuta
