// A person works in the workshop's window with mouse and keyboard.
#include <gmock/gmock.h>

#include <map>

#include "windows/message_font.h"
#include "windows/window_rules.h"
#include "workshop.h"

namespace conmuta::taller {
namespace {

const auto kMitel = SwitchFile("mitel-standard", "capture.txt");
constexpr std::uint64_t kHead = 11;  // lines of that file's
constexpr std::uint64_t kFirst = kHead + 1;

TEST_F(WorkshopTest, OpensAnEmptyLayoutWithoutACapture) {
  Work([](const Shop& shop) {
    EXPECT_EQ(TextOf(shop.window()), u"Taller de conmutadores - Sin marca, Sin modelo");
    EXPECT_EQ(TextOf(shop.At(kStatusLine)), u"Sin captura");
    EXPECT_EQ(shop.person().Focus(), shop.lines());
    shop.Leave();
  });
}

TEST_F(WorkshopTest, CaptureIsOpenedAndCountedByItsCommand) {
  Work([](const Shop& shop) {
    shop.OpenCapture(kMitel);
    const auto lines = shop.See([](MainWindow& main) { return main.bench().lines(); });
    EXPECT_GT(lines, 20u);
    EXPECT_EQ(shop.CaretPlace(), (Caret{kFirst, 1}));
    EXPECT_NE(TextOf(shop.At(kStatusLine)).find(u"0 llamadas"), Text::npos)
        << Narrow(TextOf(shop.At(kStatusLine)));
    shop.Leave();
  });
}

TEST_F(WorkshopTest, ColumnsMarkedWithTheMouseBecomeTheItemThatIsChosen) {
  Work([](const Shop& shop) {
    shop.OpenCapture(kMitel);
    shop.MarkWithMouse(kFirst, 2, 3);
    EXPECT_EQ(shop.Mark(), (Marked{kFirst, 2, 2}));
    shop.Choose(u"FechaMes");
    EXPECT_EQ(shop.Item(u"FechaMes"), std::pair(2, 2));
    EXPECT_EQ(shop.Mark(), std::nullopt);
    EXPECT_EQ(TextOf(shop.window()), u"Taller de conmutadores - Sin marca, Sin modelo *");
    shop.Command(kUndo);
    shop.Leave();
  });
}

TEST_F(WorkshopTest, ColumnsMarkedBackwardsAreTheSameColumns) {
  Work([](const Shop& shop) {
    shop.OpenCapture(kMitel);
    shop.MarkWithMouse(kFirst + 3, 37, 34);
    EXPECT_EQ(shop.Mark(), (Marked{kFirst + 3, 34, 4}));
    shop.person().Press(GetDlgItem(shop.Offers(), IDCANCEL));
    shop.Leave();
  });
}

TEST_F(WorkshopTest, ColumnsAreMarkedWithShiftAndArrows) {
  Work([](const Shop& shop) {
    shop.OpenCapture(kMitel);
    const Person& person = shop.person();
    for (int i = 0; i < 4; ++i) person.Key(VK_RIGHT);
    person.KeyWith(VK_SHIFT, VK_RIGHT);
    person.KeyWith(VK_SHIFT, VK_RIGHT);
    EXPECT_EQ(shop.Mark(), (Marked{kFirst, 5, 2}));
    person.Key(VK_RETURN);
    shop.Choose(u"FechaDia");
    EXPECT_EQ(shop.Item(u"FechaDia"), std::pair(5, 2));
    EXPECT_EQ(person.Focus(), shop.lines());
    shop.Command(kUndo);
    shop.Leave();
  });
}

TEST_F(WorkshopTest, ConstantTakesTheTextThatIsMarked) {
  Work([](const Shop& shop) {
    shop.OpenCapture(kMitel);
    shop.MoveTo(kFirst, 24);
    shop.person().Key(VK_RETURN);  // the caret's column, where nothing is marked
    shop.Choose(u"IdentEntrante");
    EXPECT_EQ(shop.Constant(u"IdentEntrante"), std::pair(24, Text(u"T")));
    shop.Command(kUndo);
    shop.Leave();
  });
}

TEST_F(WorkshopTest, LikeliestItemIsTakenWithEnterAlone) {
  Work([](const Shop& shop) {
    shop.OpenCapture(kMitel);
    shop.MarkWithMouse(kFirst, 34, 54);
    const HWND list = GetDlgItem(shop.Offers(), kOfferList);
    Text first(100, kNul);
    first.resize(static_cast<std::size_t>(Send(list, LB_GETTEXT, 0, first.data())));
    shop.person().Key(VK_RETURN);
    shop.host().Rest();
    const Text name = first.substr(0, first.find(u'\t'));
    EXPECT_EQ(shop.Item(name), std::pair(34, 21)) << Narrow(name);
    shop.Command(kUndo);
    shop.Leave();
  });
}

TEST_F(WorkshopTest, OffersAreFilteredAsOneTypes) {
  Work([](const Shop& shop) {
    shop.OpenCapture(kMitel);
    shop.MarkWithMouse(kFirst, 15, 16);
    const HWND offers = shop.Offers();
    const HWND list = GetDlgItem(offers, kOfferList);
    EXPECT_EQ(Send(list, LB_GETCOUNT), 74);
    shop.person().Type(GetDlgItem(offers, kOfferFilter), u"duracion horas");
    EXPECT_EQ(Send(list, LB_GETCOUNT), 1);
    shop.person().Type(GetDlgItem(offers, kOfferFilter), u"nada de eso");
    EXPECT_EQ(Send(list, LB_GETCOUNT), 0);
    EXPECT_FALSE(test::IsUsable(GetDlgItem(offers, IDOK)));
    shop.person().Key(VK_ESCAPE);
    shop.person().WaitUntilClosed(offers);
    EXPECT_FALSE(shop.See([](MainWindow& main) { return main.bench().document().IsModified(); }));
    shop.Leave();
  });
}

TEST_F(WorkshopTest, ConstantOfMoreThanTwentyCharactersIsRefusedWhereItIsChosen) {
  Work([](const Shop& shop) {
    shop.OpenCapture(kMitel);
    shop.MarkWithMouse(kFirst, 34, 54);
    const HWND offers = shop.Offers();
    shop.person().Type(GetDlgItem(offers, kOfferFilter), u"IdentSalienteAND");
    shop.person().Key(VK_RETURN);
    EXPECT_NE(TextOf(GetDlgItem(offers, kOfferDoubt)), u"");
    shop.person().Key(VK_ESCAPE);
    shop.person().WaitUntilClosed(offers);
    EXPECT_EQ(shop.Constant(u"IdentSalienteAND"), std::nullopt);
    shop.Leave();
  });
}

TEST_F(WorkshopTest, ChangesAreUndoneAndRedone) {
  Work([](const Shop& shop) {
    shop.OpenCapture(kMitel);
    const std::string before = shop.Toml();
    shop.MarkWithMouse(kFirst, 2, 3);
    shop.Choose(u"FechaMes");
    const std::string after = shop.Toml();
    shop.person().KeyWith(VK_CONTROL, 'Z');
    EXPECT_EQ(shop.Toml(), before);
    shop.person().KeyWith(VK_CONTROL, 'Y');
    EXPECT_EQ(shop.Toml(), after);
    shop.person().KeyWith(VK_CONTROL, 'Z');
    shop.Leave();
  });
}

TEST_F(WorkshopTest, DeleteTakesTheColumnsItemAway) {
  Work([](const Shop& shop) {
    shop.OpenCapture(kMitel);
    shop.MarkWithMouse(kFirst, 2, 3);
    shop.Choose(u"FechaMes");
    shop.MoveTo(kFirst, 3);
    shop.person().Key(VK_DELETE);
    EXPECT_EQ(shop.Item(u"FechaMes"), std::nullopt);
    shop.Command(kUndo);
    shop.Command(kUndo);
    shop.Leave();
  });
}

TEST_F(WorkshopTest, TypedColumnAndSizeChangeTheChosenItem) {
  Work([](const Shop& shop) {
    shop.OpenCapture(kMitel);
    shop.MarkWithMouse(kFirst, 2, 3);
    shop.Choose(u"FechaMes");  // it is chosen in the list, too
    shop.person().Type(shop.At(kLayoutPos), u"8");
    EXPECT_EQ(shop.Item(u"FechaMes"), std::pair(8, 2));
    shop.person().Type(shop.At(kLayoutSize), u"1");
    EXPECT_EQ(shop.Item(u"FechaMes"), std::pair(8, 1));
    shop.person().Type(shop.At(kLayoutPos), u"300");
    EXPECT_EQ(shop.Item(u"FechaMes"), std::pair(30, 1));  // as far as it could be
    EXPECT_NE(TextOf(shop.At(kLayoutDoubt)).find(u"va de 1 a 254"), Text::npos);
    while (shop.See([](MainWindow& main) { return main.bench().document().CanUndo(); })) {
      shop.Command(kUndo);
    }
    shop.Leave();
  });
}

TEST_F(WorkshopTest, ConfigurationIsSavedAsTheCatalogueHasIt) {
  Work(
      [this](const Shop& shop) {
        shop.Command(kSaveLayoutAs);
        const auto saved = folder() / "copia.cfg";
        shop.ChooseFile(u"Guardar configuración como", saved);
        EXPECT_EQ(BytesOf(saved).size(), BytesOf(folder() / "original.cfg").size());
        EXPECT_EQ(BytesOf(saved), BytesOf(folder() / "original.cfg"));
        EXPECT_EQ(TextOf(shop.window()),
                  u"Taller de conmutadores - Mitel, SX-200 / SX-2000 / 3300, 90 columnas");
        shop.Leave();
      },
      [this](MainWindow& main) {
        const auto original = folder() / "original.cfg";
        ASSERT_TRUE(
            main.bench().OpenLayout(SwitchFile("mitel-standard", "layout.toml")).messages.empty());
        ASSERT_TRUE(main.bench()
                        .document()
                        .SaveAs(main.bench().disk(), original, Format::kConfiguration)
                        .empty());
        main.bench().document().New();
        main.OpenAny(original);
      });
}

TEST_F(WorkshopTest, ClosingWithChangesAsksOnce) {
  Work([](const Shop& shop) {
    shop.OpenCapture(kMitel);
    shop.MarkWithMouse(kFirst, 2, 3);
    shop.Choose(u"FechaMes");
    shop.person().PressCloseBox(shop.window());
    const auto said = shop.person().Answer(kProgramName, IDCANCEL);
    EXPECT_EQ(said.text, u"¿Guardar los cambios de Sin marca, Sin modelo?");
    EXPECT_EQ(said.buttons, (std::vector<int>{IDCANCEL, IDYES, IDNO}));
    EXPECT_TRUE(IsWindow(shop.window()));
    shop.person().PressCloseBox(shop.window());
    shop.person().Answer(kProgramName, IDNO);
    shop.person().WaitUntilClosed(shop.window());
  });
}

// The letters that ampersands mark in a menu, or in the window's controls.
void AddKeys(const Text& caption, std::map<char16_t, int>& keys) {
  const std::size_t mark = caption.find(u'&');
  if (mark + 1 < caption.size()) ++keys[ToUpper(caption.substr(mark + 1, 1)).front()];
}
void AddKeys(HMENU menu, std::map<char16_t, int>& keys) {
  for (int i = 0; i < GetMenuItemCount(menu); ++i) {
    Text text(100, kNul);
    text.resize(static_cast<std::size_t>(GetMenuStringW(
        menu, static_cast<UINT>(i), reinterpret_cast<wchar_t*>(text.data()), 100, MF_BYPOSITION)));
    if (text.empty()) continue;  // a line
    EXPECT_NE(text.find(u'&'), Text::npos) << Narrow(text);
    AddKeys(text, keys);
  }
}
Text DoubledIn(const std::map<char16_t, int>& keys) {
  Text doubled;
  for (const auto& [key, count] : keys) {
    if (count > 1) doubled += key;
  }
  return doubled;
}

TEST_F(WorkshopTest, EveryMenuAndControlHasAKeyOfItsOwn) {
  Work([](const Shop& shop) {
    const HMENU bar = GetMenu(shop.window());
    std::map<char16_t, int> keys;
    AddKeys(bar, keys);
    for (const HWND control : test::ChildrenOf(shop.window())) {
      const bool marks = test::ClassOf(control) == u"Button" ||
                         (test::ClassOf(control) == u"Static" &&
                          !test::HasStyle(control, SS_NOPREFIX) && test::IsShown(control));
      if (marks) AddKeys(TextOf(control), keys);
    }
    EXPECT_EQ(DoubledIn(keys), u"");
    EXPECT_GT(keys.size(), 8u);
    for (int i = 0; i < GetMenuItemCount(bar); ++i) {
      std::map<char16_t, int> commands;
      AddKeys(GetSubMenu(bar, i), commands);
      EXPECT_EQ(DoubledIn(commands), u"") << "in menu " << i;
    }
    shop.Leave();
  });
}

TEST_F(WorkshopTest, WheelWithControlMakesLettersLarger) {
  Work([](const Shop& shop) {
    const auto zoom = [&] {
      return shop.See([](MainWindow& main) { return main.lines_view().zoom(); });
    };
    const auto turn = [&](int delta) {
      PostMessageW(shop.lines(), WM_MOUSEWHEEL, MAKEWPARAM(MK_CONTROL, static_cast<WORD>(delta)),
                   0);
      shop.host().Drain();
    };
    const int before = zoom();
    turn(WHEEL_DELTA);
    EXPECT_GT(zoom(), before);
    turn(-WHEEL_DELTA);
    EXPECT_EQ(zoom(), before);
    for (int i = 0; i < 50; ++i) turn(WHEEL_DELTA);
    EXPECT_EQ(zoom(), LinesView::kMostZoom);
    shop.Leave();
  });
}

TEST_F(WorkshopTest, PlaceIsToldToThoseWhoCannotSeeIt) {
  Work([](const Shop& shop) {
    shop.OpenCapture(kMitel);
    shop.MarkWithMouse(kFirst, 2, 3);
    shop.person().Press(GetDlgItem(shop.Offers(), IDCANCEL));
    shop.host().Rest();
    EXPECT_TRUE(TextOf(shop.lines()).starts_with(u"Línea 12, columna 3, marcadas 2 a 3:  03/12"))
        << Narrow(TextOf(shop.lines()));
    shop.Leave();
  });
}

TEST_F(WorkshopTest, NothingIsCutAtAnyResolutionNorSize) {
  for (const auto& [dpi, percent] :
       {std::pair(96u, 100), std::pair(96u, 225), std::pair(192u, 100), std::pair(192u, 225)}) {
    SCOPED_TRACE(testing::Message() << dpi << " dots per inch, font of " << percent << " %");
    const test::MessageFontOf font(percent);
    Work([dpi = dpi](const Shop& shop) {
      shop.OpenCapture(kMitel);
      shop.host().Run([&] {
        RECT place{};
        GetWindowRect(shop.window(), &place);
        SendMessageW(shop.window(), WM_DPICHANGED, MAKEWPARAM(dpi, dpi),
                     reinterpret_cast<LPARAM>(&place));
      });
      for (const SIZE size : {SIZE{10, 10}, SIZE{900, 700}, SIZE{3000, 2000}}) {
        shop.person().Resize(shop.window(), size.cx, size.cy);
        shop.host().Rest();
        EXPECT_THAT(test::ClippedTextsOf(shop.window()), ::testing::IsEmpty());
        EXPECT_THAT(test::MisplacedOf(shop.window()), ::testing::IsEmpty());
      }
      shop.Leave();
    });
  }
}

}  // namespace
}  // namespace conmuta::taller
