// How our windows behave among others: where and how large they open, what frame them, whom their
// questions belong to, what the pointer looks like.
#include "cable_editor.h"
#include "every_window.h"
#include "replaced_import.h"

namespace conmuta::test {
namespace {

class WindowMannersTest : public EveryWindowTest {};

TEST_F(WindowMannersTest, OpenInTheMiddleOfTheScreen) {
  InEach([](const Person&, HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    RECT area{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    EXPECT_NEAR((place.left + place.right) / 2, (area.left + area.right) / 2, 1);
    EXPECT_NEAR((place.top + place.bottom) / 2, (area.top + area.bottom) / 2, 1);
  });
}

TEST_F(WindowMannersTest, CanBeResizedMaximisedAndMinimised) {
  InEach([](const Person&, HWND window) { EXPECT_TRUE(HasStyle(window, WS_OVERLAPPEDWINDOW)); });
}

// Where the screen has room, nobody has to scroll to a button.
TEST_F(WindowMannersTest, AreNeverSoSmallThatTheyScroll) {
  InEach([](const Person& person, HWND window) {
    person.Resize(window, 1, 1);
    EXPECT_FALSE(HasStyle(window, WS_HSCROLL));
    EXPECT_FALSE(HasStyle(window, WS_VSCROLL));
  });
}

TEST_F(WindowMannersTest, ToolTipsBreakLongLinesAndShowAmpersands) {
  InEach([](const Person&, HWND window) {
    int ours = 0;  // a tree has tool tips of its own
    for (HWND tips = nullptr;
         (tips = FindWindowExW(nullptr, tips, TOOLTIPS_CLASSW, nullptr)) != nullptr;) {
      if (GetWindow(tips, GW_OWNER) == window && HasStyle(tips, TTS_NOPREFIX | TTS_ALWAYSTIP) &&
          Send(tips, TTM_GETMAXTIPWIDTH) == 600) {
        ++ours;
      }
    }
    EXPECT_EQ(ours, 1);
  });
}

TEST_F(WindowMannersTest, LongPathsLoseTheirMiddleAndHintsTheirEnd) {
  InEach([](const Person&, HWND window) {
    const auto ellipsis_of = [&](int id) {
      return GetWindowLongPtrW(GetDlgItem(window, id), GWL_STYLE) & SS_ELLIPSISMASK;
    };
    EXPECT_TRUE(GetDlgItem(window, win32::kEtqArch) == nullptr ||
                ellipsis_of(win32::kEtqArch) == SS_PATHELLIPSIS);
    for (const int id : {win32::kEtqAyuda, win32::kEtqAviso}) {
      EXPECT_TRUE(GetDlgItem(window, id) == nullptr || ellipsis_of(id) == SS_ENDELLIPSIS);
    }
  });
}

TEST_F(WindowMannersTest, PointerIsAnArrow) {
  InEach([](const Person&, HWND window) {
    std::vector<HWND> ours = ChildrenOf(window);
    std::erase_if(ours, [](HWND control) { return ClassOf(control) != u"Conmuta.Diagram"; });
    ours.push_back(window);
    for (const HWND one : ours) {
      EXPECT_EQ(reinterpret_cast<HCURSOR>(GetClassLongPtrW(one, GCLP_HCURSOR)),
                LoadCursorW(nullptr, IDC_ARROW));
    }
  });
}

std::vector<HCURSOR> pointers;

HCURSOR WINAPI RecordPointer(HCURSOR pointer) {
  pointers.push_back(pointer);
  return nullptr;
}

TEST_F(WindowMannersTest, PointerIsAnHourglassWhileACatalogueIsRead) {
  pointers.clear();
  const ReplacedImport recorded("SetCursor", reinterpret_cast<void*>(&RecordPointer));
  While([&] { Open("manager"); },
        [](const Person& person) {
          PostMessageW(person.WaitForWindow(kManagerCaption), WM_CLOSE, 0, 0);
        });
  const HCURSOR hourglass = LoadCursorW(nullptr, IDC_WAIT);
  const HCURSOR arrow = LoadCursorW(nullptr, IDC_ARROW);
  ASSERT_GE(pointers.size(), 2u);
  for (std::size_t i = 0; i < pointers.size(); ++i) {
    EXPECT_EQ(pointers[i], i % 2 == 0 ? hourglass : arrow) << "turn " << i;
  }
  EXPECT_EQ(pointers.size() % 2, 0u) << "the hourglass goes";
}

// --- what the manager asks and says ---

class ManagerMannersTest : public EveryWindowTest {
 protected:
  // Presses a button of the manager with its one model selected; the person is to answer.
  template <class Answer>
  void Press(int button, Answer&& answer) {
    While([&] { Open("manager"); },
          [&](const Person& person) {
            const HWND window = person.WaitForWindow(kManagerCaption);
            person.Press(GetDlgItem(window, button));
            answer(person, window);
            PostMessageW(window, WM_CLOSE, 0, 0);
          });
  }
};

TEST_F(ManagerMannersTest, QuestionsBelongToTheWindowAndLookLikeQuestions) {
  Press(win32::kBtnEliminar, [](const Person& person, HWND window) {
    const HWND box = person.WaitForDialog(u"Advertencia");
    EXPECT_EQ(GetWindow(box, GW_OWNER), window);
    EXPECT_FALSE(IsUsable(window));
    EXPECT_EQ(person.Answer(u"Advertencia", IDNO).icon, LoadIconW(nullptr, IDI_QUESTION));
  });
}

TEST_F(ManagerMannersTest, NoticesBelongToTheWindowAndLookLikeNotices) {
  Press(win32::kBtnInstalar, [](const Person& person, HWND window) {
    const HWND box = person.WaitForDialog(u"Conmutadores");
    EXPECT_EQ(GetWindow(box, GW_OWNER), window);
    EXPECT_FALSE(IsUsable(window));
    EXPECT_EQ(person.Answer(u"Conmutadores", IDOK).icon, LoadIconW(nullptr, IDI_EXCLAMATION));
  });
}

TEST_F(ManagerMannersTest, FileDialogBelongsToTheWindowAndOffersConfigurations) {
  Press(win32::kBtnBuscar, [](const Person& person, HWND window) {
    const HWND dialog =
        person.WaitForDialog(u"Buscar archivo de configuración de conmutadores ...");
    EXPECT_EQ(GetWindow(dialog, GW_OWNER), window);
    EXPECT_FALSE(IsUsable(window));
    HWND types = nullptr;
    WaitUntil("kinds of file", [&] { return (types = GetDlgItem(dialog, 0x470)) != nullptr; });
    std::wstring kinds;
    for (LRESULT i = 0; i < Send(types, CB_GETCOUNT); ++i) {
      std::array<wchar_t, 200> kind{};
      Send(types, CB_GETLBTEXT, static_cast<WPARAM>(i), kind.data());
      kinds.append(kind.data()).append(L"\n");
    }
    EXPECT_EQ(kinds, L"Configuraciones (*.cfg)\n");
    EXPECT_FALSE(IsShown(GetDlgItem(dialog, 0x410))) << "nothing is opened read-only";
    person.Press(GetDlgItem(dialog, IDCANCEL));
    person.WaitUntilClosed(dialog);
  });
}

// --- the cable's menu ---

// Its key is pressed nowhere, so the menu comes up where one looks, and not in a corner.
TEST_F(CableWindowTest, MenuKeyShowsTheMenuOverTheDiagram) {
  Edit(NamedConfig(), [](const Editor& editor) {
    const HWND menu = editor.OpenMenu();
    RECT place{};
    GetWindowRect(menu, &place);
    const SIZE diagram = ClientSizeOf(editor.At(win32::kDiagram));
    POINT corner{place.left, place.top};
    ScreenToClient(editor.At(win32::kDiagram), &corner);
    EXPECT_NEAR(corner.x, diagram.cx / 2, 10);
    EXPECT_NEAR(corner.y, diagram.cy / 3, 10);
    editor.LeaveMenu(menu);
    editor.Cancel();
  });
}

}  // namespace
}  // namespace conmuta::test
