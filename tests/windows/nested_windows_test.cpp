// Windows within windows, beside the host's own, and references dropped meanwhile.
#include "component/sink.h"
#include "rude_host.h"

namespace conmuta::test {
namespace {

using win32::kBtnAceptar;
using win32::kBtnCerrar;

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

}  // namespace
}  // namespace conmuta::test
