// Hosts that quit or destroy windows while one is open.
#include "rude_host.h"

namespace conmuta::test {
namespace {

using win32::kBtnCerrar;

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

}  // namespace
}  // namespace conmuta::test
