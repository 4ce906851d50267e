// Windows within windows, and hosts that do what they should not while one is open.
#include "component/scratch_files.h"
#include "component/sink.h"
#include "samples.h"
#include "ui/win32/control_ids.h"
#include "window_test.h"

namespace conmuta::test {
namespace {

using win32::kBtnAceptar;
using win32::kBtnCancelar;
using win32::kBtnCerrar;

constexpr TextView kInfoCaption = u"Información general de configuración";
constexpr TextView kCableCaption = u"Configuración de puerto SMDR";
constexpr TextView kManagerCaption = u"Conmutadores";

// A top-level window of the host's own.
class HostWindow {
 public:
  explicit HostWindow(DWORD style = WS_VISIBLE)
      : window_(CreateWindowExW(0, L"STATIC", L"Host", WS_OVERLAPPEDWINDOW | style, 0, 0, 200, 100,
                                nullptr, nullptr, GetModuleHandleW(nullptr), nullptr)) {}
  ~HostWindow() { DestroyWindow(window_); }
  HostWindow(const HostWindow&) = delete;
  HostWindow& operator=(const HostWindow&) = delete;

  HWND handle() const { return window_; }
  bool IsEnabled() const { return IsWindowEnabled(window_) != 0; }

 private:
  HWND window_;
};

class RudeHostTest : public WindowTest {
 protected:
  RudeHostTest() {
    const auto model = NamedConfig();
    Do(model, &Cfg::GuardarComo, folder.Path(u"cnm1.cfg"));
  }
  void TearDown() override {
    config = {};
    catalogue = {};
    WindowTest::TearDown();
  }

  // Each kind of window in turn.
  struct Kind {
    const char* name;
    TextView caption;
    std::function<void()> open;
    int way_out;
  };
  std::vector<Kind> Kinds() {
    return {{"information", kInfoCaption, [this] { ShowInfo(); }, kBtnCerrar},
            {"cable editor", kCableCaption, [this] { EditCable(); }, kBtnCancelar},
            {"manager", kManagerCaption, [this] { EditCatalogue(); }, kBtnCerrar}};
  }

  void ShowInfo() { EXPECT_EQ(config->MostrarInformacionConfiguracion(), S_OK); }
  void EditCable() {
    VARIANT_BOOL may_edit = VARIANT_TRUE;
    EXPECT_EQ(config->EDConfigSeriales(&may_edit), S_OK);
  }
  void EditCatalogue() { EXPECT_EQ(catalogue->Editar(), S_OK); }

  ComPtr<Catalogue> NewFilledCatalogue() {
    auto made = NewCatalogue();
    Do(made, &Catalogue::put_Directorio, folder.Path(u""));
    Do(made, &Catalogue::put_Prefijo, u"cnm");
    Do(made, &Catalogue::put_Extension, u"cfg");
    Do(made, &Catalogue::put_ArchivoInstalado, folder.Path(u"activo.dat"));
    return made;
  }

  // Selects the one model of the catalogue.
  static void SelectModel(const Person& person, HWND manager) {
    const HWND tree = GetDlgItem(manager, win32::kTvConmutadores);
    Send(tree, TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(ItemsOf(tree).back().item));
    person.host().Drain();
  }

  ScratchFolder folder;
  ComPtr<Cfg> config = NamedConfig();
  ComPtr<Catalogue> catalogue = NewFilledCatalogue();
};

// --- windows within windows ---

TEST_F(RudeHostTest, ReportOpensFromAnEventHandler) {
  Sink sink;
  const Connection connection(config.get(), &sink);
  sink.handler = [&](int) { ShowInfo(); };
  While([&] { Do(config, &Cfg::put_Comentarios, u"Otro"); },
        [](const Person& person) {
          const HWND window = person.WaitForWindow(kInfoCaption);
          person.Press(GetDlgItem(window, kBtnCerrar));
        });
  EXPECT_EQ(sink.Take(), Events{kChanged});
  EXPECT_EQ(Read(config, &Cfg::get_Comentarios), u"Otro");
}

TEST_F(RudeHostTest, ReportOpensOverTheEditorThatIsBeingAccepted) {
  Sink sink;
  const Connection connection(config.get(), &sink);
  sink.handler = [&](int) { ShowInfo(); };
  While([&] { EditCable(); },
        [](const Person& person) {
          const HWND editor = person.WaitForWindow(kCableCaption);
          person.Type(GetDlgItem(editor, win32::kTxtPinIzq), u"2");
          person.Type(GetDlgItem(editor, win32::kTxtPinesConectados), u"3");
          person.Press(GetDlgItem(editor, kBtnAceptar));
          const HWND report = person.WaitForWindow(kInfoCaption);
          EXPECT_FALSE(IsWindowEnabled(editor));
          person.Press(GetDlgItem(report, kBtnCerrar));
          person.WaitUntilClosed(editor);
        });
  EXPECT_EQ(sink.Take(), Events{kChanged});
  EXPECT_EQ(WiresOf(config), (Wires{{1, 2, 3}}));
}

TEST_F(RudeHostTest, ReportOpensOverAReport) {
  Sink sink;
  const Connection connection(config.get(), &sink);
  int depth = 0;
  sink.handler = [&](int) {
    if (++depth < 4) Do(config, &Cfg::put_IDCfg, depth);
    ShowInfo();
  };
  const HostWindow own;
  While([&] { Do(config, &Cfg::put_Marca, u"Otra"); },  // two events, one after the other
        [&](const Person& person) {
          for (int i = 0; i < 2; ++i) {
            const HWND window = person.WaitForWindow(kInfoCaption);
            EXPECT_FALSE(own.IsEnabled());
            person.Press(GetDlgItem(window, kBtnCerrar));
            person.WaitUntilClosed(window);
          }
        });
  EXPECT_TRUE(own.IsEnabled());
  EXPECT_EQ(sink.Take(), (Events{kNameChanged, kChanged}));
}

TEST_F(RudeHostTest, OuterWindowStaysOpenWhenTheInnerOneCloses) {
  const HostWindow own;
  While([&] { EditCatalogue(); },
        [&](const Person& person) {
          const HWND manager = person.WaitForWindow(kManagerCaption);
          SelectModel(person, manager);
          for (int i = 0; i < 2; ++i) {
            person.Press(GetDlgItem(manager, win32::kBtnPuertos));
            const HWND cable = person.WaitForWindow(kCableCaption);
            EXPECT_FALSE(IsWindowEnabled(manager));
            person.PressCloseBox(cable);
            person.WaitUntilClosed(cable);
            person.host().Drain();
            EXPECT_TRUE(IsUsable(manager));
            EXPECT_FALSE(own.IsEnabled()) << "the manager is still open";
          }
          person.PressCloseBox(manager);
        });
  EXPECT_TRUE(own.IsEnabled());
}

TEST_F(RudeHostTest, OuterWindowThatIsToldToCloseWaitsForTheInnerOne) {
  While([&] { EditCatalogue(); },
        [&](const Person& person) {
          const HWND manager = person.WaitForWindow(kManagerCaption);
          SelectModel(person, manager);
          person.Press(GetDlgItem(manager, win32::kBtnPuertos));
          const HWND cable = person.WaitForWindow(kCableCaption);
          PostMessageW(manager, WM_CLOSE, 0, 0);
          person.host().Drain();
          EXPECT_TRUE(IsUsable(cable));
          person.PressCloseBox(cable);
          person.WaitUntilClosed(manager);
        });
}

TEST_F(RudeHostTest, WindowsOpenOneAfterTheOther) {
  for (int round = 0; round < 2; ++round) {
    for (const Kind& kind : Kinds()) {
      SCOPED_TRACE(kind.name);
      While(kind.open, [&](const Person& person) {
        const HWND window = person.WaitForWindow(kind.caption);
        person.Press(GetDlgItem(window, kind.way_out));
        person.WaitUntilClosed(window);
      });
    }
  }
}

TEST_F(RudeHostTest, TwoThreadsHaveAWindowEach) {
  While([&] { ShowInfo(); },
        [&](const Person& person) {
          const HWND first = person.WaitForWindow(kInfoCaption);
          std::thread other([&] {
            ASSERT_EQ(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_OK);
            {
              HostThread other_host;
              auto other_config = NamedConfig(u"Otra", u"Z");
              test::While(
                  other_host, [&] { Do(other_config, &Cfg::MostrarInformacionConfiguracion); },
                  [&](const Person& other_person) {
                    const HWND second = other_person.WaitForWindow(kInfoCaption);
                    EXPECT_NE(second, first);
                    EXPECT_TRUE(IsUsable(first)) << "it belongs to another thread";
                    const Text shown = TextOf(GetDlgItem(second, win32::kTxtInfo));
                    EXPECT_NE(shown.find(u"Otra, Z"), Text::npos);
                    other_person.Press(GetDlgItem(second, kBtnCerrar));
                  });
            }
            CoUninitialize();
          });
          other.join();
          EXPECT_TRUE(IsUsable(first));
          person.Press(GetDlgItem(first, kBtnCerrar));
        });
}

// --- the host's other windows ---

TEST_F(RudeHostTest, OtherWindowsAreDisabledMeanwhile) {
  const HostWindow enabled;
  const HostWindow disabled(WS_VISIBLE | WS_DISABLED);
  const HostWindow hidden(0);
  SetActiveWindow(enabled.handle());
  for (const Kind& kind : Kinds()) {
    SCOPED_TRACE(kind.name);
    While(kind.open, [&](const Person& person) {
      const HWND window = person.WaitForWindow(kind.caption);
      EXPECT_FALSE(enabled.IsEnabled());
      EXPECT_FALSE(disabled.IsEnabled());
      EXPECT_EQ(GetWindow(window, GW_OWNER), nullptr);
      person.Press(GetDlgItem(window, kind.way_out));
    });
    EXPECT_TRUE(enabled.IsEnabled());
    EXPECT_FALSE(disabled.IsEnabled());
    EXPECT_TRUE(hidden.IsEnabled());
    EXPECT_EQ(GetActiveWindow(), enabled.handle());
  }
}

TEST_F(RudeHostTest, WindowThatTheHostDestroysMeanwhileIsNotMissed) {
  const HWND doomed = CreateWindowExW(0, L"STATIC", L"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0,
                                      200, 100, nullptr, nullptr, nullptr, nullptr);
  While([&] { ShowInfo(); },
        [&](const Person& person) {
          const HWND window = person.WaitForWindow(kInfoCaption);
          person.host().Run([&] { DestroyWindow(doomed); });
          person.Press(GetDlgItem(window, kBtnCerrar));
        });
}

TEST_F(RudeHostTest, HostsTimersRunMeanwhile) {
  const HostWindow own;
  static std::atomic<int> ticks;
  ticks = 0;
  SetTimer(own.handle(), 1, 10, [](HWND, UINT, UINT_PTR, DWORD) CALLBACK { ++ticks; });
  While([&] { ShowInfo(); },
        [&](const Person& person) {
          const HWND window = person.WaitForWindow(kInfoCaption);
          WaitUntil("timer", [] { return ticks > 2; });
          person.Press(GetDlgItem(window, kBtnCerrar));
        });
  KillTimer(own.handle(), 1);
}

// --- references ---

TEST_F(RudeHostTest, HostDropsItsLastReferenceMeanwhile) {
  Cfg* const lone_config = config.get();
  Catalogue* const lone_catalogue = catalogue.get();
  const auto expect_alive = [&](const Person& person, TextView caption, int way_out, auto& held) {
    const HWND window = person.WaitForWindow(caption);
    person.host().Run([&] { held = {}; });
    const LoadedDll dll;
    EXPECT_EQ(dll.CanUnloadNow(), S_FALSE);
    person.Press(GetDlgItem(window, way_out));
  };
  While([&] { EXPECT_EQ(lone_config->MostrarInformacionConfiguracion(), S_OK); },
        [&](const Person& person) { expect_alive(person, kInfoCaption, kBtnCerrar, config); });
  While(
      [&] { EXPECT_EQ(lone_catalogue->Editar(), S_OK); },
      [&](const Person& person) { expect_alive(person, kManagerCaption, kBtnCerrar, catalogue); });
  config = NamedConfig();
  Cfg* const lone_editor = config.get();
  VARIANT_BOOL may_edit = VARIANT_TRUE;
  While([&] { EXPECT_EQ(lone_editor->EDConfigSeriales(&may_edit), S_OK); },
        [&](const Person& person) {
          const HWND window = person.WaitForWindow(kCableCaption);
          person.Type(GetDlgItem(window, win32::kTxtPinIzq), u"2");
          person.Type(GetDlgItem(window, win32::kTxtPinesConectados), u"3");
          expect_alive(person, kCableCaption, kBtnAceptar, config);
        });
  auto translator = NewTranslator();
  Do(translator, &Trad::putref_Conmutador, NamedConfig().get());
  Trad* const lone_translator = translator.get();
  While([&] { EXPECT_EQ(lone_translator->MuestraInfoTrad(), S_OK); },
        [&](const Person& person) { expect_alive(person, kInfoCaption, kBtnCerrar, translator); });
}

TEST_F(RudeHostTest, ConfigurationChangesUnderTheEditor) {
  While([&] { EditCable(); },
        [&](const Person& person) {
          const HWND editor = person.WaitForWindow(kCableCaption);
          person.host().Run([&] {
            Do(config, &Cfg::Iniciar);
            Connect(config, {{4, 25, 25}});
          });
          person.Type(GetDlgItem(editor, win32::kTxtPinIzq), u"2");
          person.Type(GetDlgItem(editor, win32::kTxtPinesConectados), u"3");
          person.Press(GetDlgItem(editor, kBtnAceptar));
        });
  EXPECT_EQ(WiresOf(config), (Wires{{1, 2, 3}})) << "what the editor shows is what counts";
}

// --- the end of the host's queue, and of windows ---

TEST_F(RudeHostTest, QuitEndsTheCallAndReachesTheHost) {
  for (const Kind& kind : Kinds()) {
    SCOPED_TRACE(kind.name);
    const HostWindow own;
    While(kind.open, [&](const Person& person) {
      const HWND window = person.WaitForWindow(kind.caption);
      person.host().Run([] { PostQuitMessage(7); });
      person.WaitUntilClosed(window);
    });
    EXPECT_TRUE(own.IsEnabled());
    int exit_code = 0;
    EXPECT_TRUE(TakeQuit(&exit_code));
    EXPECT_EQ(exit_code, 7);
    EXPECT_FALSE(TakeQuit()) << "once only";
  }
}

TEST_F(RudeHostTest, QuitEndsNestedWindowsToo) {
  const HostWindow own;
  While([&] { EditCatalogue(); },
        [&](const Person& person) {
          const HWND manager = person.WaitForWindow(kManagerCaption);
          SelectModel(person, manager);
          person.Press(GetDlgItem(manager, win32::kBtnPuertos));
          const HWND cable = person.WaitForWindow(kCableCaption);
          person.host().Run([] { PostQuitMessage(8); });
          person.WaitUntilClosed(cable);
          person.WaitUntilClosed(manager);
        });
  EXPECT_TRUE(own.IsEnabled());
  int exit_code = 0;
  EXPECT_TRUE(TakeQuit(&exit_code));
  EXPECT_EQ(exit_code, 8);
  EXPECT_FALSE(TakeQuit());
}

TEST_F(RudeHostTest, QuitEndsAQuestionWithoutAYes) {
  While([&] { EditCatalogue(); },
        [&](const Person& person) {
          const HWND manager = person.WaitForWindow(kManagerCaption);
          SelectModel(person, manager);
          person.Press(GetDlgItem(manager, win32::kBtnEliminar));
          person.WaitForDialog(u"Advertencia");
          person.host().Run([] { PostQuitMessage(9); });
          person.WaitUntilClosed(manager);
        });
  EXPECT_TRUE(folder.Exists(u"cnm1.cfg"));
  EXPECT_TRUE(TakeQuit());
}

TEST_F(RudeHostTest, WindowThatSomebodyElseDestroysEndsTheCall) {
  for (const Kind& kind : Kinds()) {
    SCOPED_TRACE(kind.name);
    const HostWindow own;
    While(kind.open, [&](const Person& person) {
      const HWND window = person.WaitForWindow(kind.caption);
      person.host().Rest();
      person.host().Run([&] { DestroyWindow(window); });
    });
    EXPECT_TRUE(own.IsEnabled());
    EXPECT_FALSE(TakeQuit());
  }
}

// Nothing is posted: the loop must wake up all the same.
TEST_F(RudeHostTest, WindowThatIsClosedByASentMessageEndsTheCall) {
  for (const Kind& kind : Kinds()) {
    SCOPED_TRACE(kind.name);
    While(kind.open, [&](const Person& person) {
      const HWND window = person.WaitForWindow(kind.caption);
      person.host().Rest();
      Send(window, WM_CLOSE);
    });
  }
}

TEST_F(RudeHostTest, WindowDestroyedUnderItsQuestionEndsTheCall) {
  While([&] { EditCatalogue(); },
        [&](const Person& person) {
          const HWND manager = person.WaitForWindow(kManagerCaption);
          SelectModel(person, manager);
          person.Press(GetDlgItem(manager, win32::kBtnEliminar));
          person.WaitForDialog(u"Advertencia");
          person.host().Run([&] { DestroyWindow(manager); });
          person.host().Drain();  // the system's own loop notices with the next message
        });
  EXPECT_TRUE(folder.Exists(u"cnm1.cfg"));
}

TEST_F(RudeHostTest, ManagerDestroyedUnderTheCableEndsBothCalls) {
  While([&] { EditCatalogue(); },
        [&](const Person& person) {
          const HWND manager = person.WaitForWindow(kManagerCaption);
          SelectModel(person, manager);
          person.Press(GetDlgItem(manager, win32::kBtnPuertos));
          const HWND cable = person.WaitForWindow(kCableCaption);
          person.host().Run([&] { DestroyWindow(manager); });
          EXPECT_TRUE(IsUsable(cable));
          person.PressCloseBox(cable);
        });
}

TEST_F(RudeHostTest, HostWithoutAMessageLoopOfItsOwnIsServed) {
  std::thread other([&] {
    ASSERT_EQ(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_OK);
    {
      HostThread other_host;
      auto other_config = NamedConfig();
      test::While(
          other_host, [&] { Do(other_config, &Cfg::MostrarInformacionConfiguracion); },
          [](const Person& person) {
            const HWND window = person.WaitForWindow(kInfoCaption);
            person.Press(GetDlgItem(window, kBtnCerrar));
          });
    }
    CoUninitialize();
  });
  other.join();
}

// --- what stays behind ---

// Highest of the places that so many new objects get. It grows with every object that is not
// deleted, whereas places that are free are taken again first.
template <class Make, class Delete>
std::uintptr_t HighestPlace(Make&& make, Delete&& remove) {
  std::vector<decltype(make())> objects;
  std::uintptr_t highest = 0;
  for (int i = 0; i < 1000; ++i) {
    objects.push_back(make());
    highest = std::max(highest, reinterpret_cast<std::uintptr_t>(objects.back()) & 0xFFFF);
  }
  for (const auto object : objects) remove(object);
  return highest;
}

int WindowsOfThread() {
  int count = 0;
  EnumThreadWindows(
      GetCurrentThreadId(),
      [](HWND, LPARAM counted) CALLBACK -> BOOL {
        ++*reinterpret_cast<int*>(counted);
        return TRUE;
      },
      reinterpret_cast<LPARAM>(&count));
  return count;
}

TEST_F(RudeHostTest, FiftyOpeningsLeaveNothingBehind) {
  constexpr int kOpenings = 50;
  for (const Kind& kind : Kinds()) {
    SCOPED_TRACE(kind.name);
    const auto open_once = [&] {
      While(kind.open, [&](const Person& person) {
        const HWND window = person.WaitForWindow(kind.caption);
        person.Resize(window, 700, 500);
        PostMessageW(window, WM_CLOSE, 0, 0);
        person.WaitUntilClosed(window);
      });
    };
    const auto drawing_objects = [] {
      return HighestPlace([] { return CreateSolidBrush(RGB(1, 2, 3)); }, DeleteObject);
    };
    const auto windows = [] {
      return HighestPlace(
          [] {
            return CreateWindowExW(0, L"STATIC", nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                   nullptr, nullptr);
          },
          DestroyWindow);
    };
    for (int i = 0; i < 5; ++i) open_once();  // what the system keeps for itself is made by now
    const auto drawing_before = drawing_objects();
    const auto windows_before = windows();
    const DWORD gdi_before = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
    const DWORD user_before = GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS);
    const int top_level_before = WindowsOfThread();
    DWORD handles_before = 0, handles_after = 0;
    GetProcessHandleCount(GetCurrentProcess(), &handles_before);
    for (int i = 0; i < kOpenings; ++i) open_once();
    GetProcessHandleCount(GetCurrentProcess(), &handles_after);
    EXPECT_LT(drawing_objects(), drawing_before + kOpenings / 2);
    EXPECT_LT(windows(), windows_before + kOpenings / 2);
    // Both are 0 where the system does not count.
    EXPECT_LT(GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS), gdi_before + kOpenings / 2);
    EXPECT_LT(GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS), user_before + kOpenings / 2);
    EXPECT_EQ(WindowsOfThread(), top_level_before);
    EXPECT_LT(handles_after, handles_before + kOpenings / 2);
  }
}

TEST_F(RudeHostTest, DllUnloadsAfterItsWindowsAndLoadsAgain) {
  for (int round = 0; round < 3; ++round) {
    for (const Kind& kind : Kinds()) {
      SCOPED_TRACE(kind.name);
      While(kind.open, [&](const Person& person) {
        const HWND window = person.WaitForWindow(kind.caption);
        person.Press(GetDlgItem(window, kind.way_out));
      });
    }
    config = {};
    catalogue = {};
    CoFreeUnusedLibrariesEx(0, 0);
    EXPECT_EQ(GetModuleHandleW(DllPath().c_str()), nullptr);
    WNDCLASSW window_class{};
    EXPECT_FALSE(GetClassInfoW(nullptr, L"Conmuta.Window", &window_class));
    config = NamedConfig();
    catalogue = NewFilledCatalogue();
  }
}

}  // namespace
}  // namespace conmuta::test
