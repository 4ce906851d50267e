// Files, and what the window keeps from one run to the next.
#include <gmock/gmock.h>
#include <shlobj.h>

#include "taller/win32/guess_window.h"
#include "taller/win32/header_window.h"
#include "windows/window_rules.h"
#include "workshop.h"

namespace conmuta::taller {
namespace {

const auto kKx = SwitchFile("panasonic-kx", "capture.txt");

// Of one line that is as wide as any.
void ChangeBrand(const Shop& shop, TextView brand) {
  shop.Command(kEditHeader);
  const HWND header = shop.person().WaitForWindow(u"Datos del conmutador");
  EXPECT_THAT(test::FlawsOf(header, 96), ::testing::IsEmpty());
  shop.person().Type(GetDlgItem(header, kHeaderBrand), brand);
  shop.person().Press(GetDlgItem(header, IDOK));
  shop.person().WaitUntilClosed(header);
  shop.host().Rest();
}

// A capture with its own layout, whose lines all have their verdicts.
void OpenJudged(const Shop& shop) {
  shop.OpenCapture(kKx);
  shop.See([](MainWindow& main) {
    main.OpenAny(SwitchFile("panasonic-kx", "layout.toml"));
    return 0;
  });
  shop.WaitForVerdicts();
}

TEST_F(WorkshopTest, DataOfTheSwitchAreChangedAsOneStep) {
  Work([](const Shop& shop) {
    ChangeBrand(shop, u"ACME & Cía.");
    EXPECT_EQ(TextOf(shop.window()), u"Taller de conmutadores - ACME & Cía., Sin modelo *");
    shop.Command(kUndo);
    EXPECT_EQ(TextOf(shop.window()), u"Taller de conmutadores - Sin marca, Sin modelo");
    shop.Leave();
  });
}

TEST_F(WorkshopTest, CaptureThatIsNotThereIsSaidAndNothingChanges) {
  Work([this](const Shop& shop) {
    std::thread opens([&] {
      shop.See([this](MainWindow& main) {
        main.OpenAny(folder() / "no-hay.txt");
        return 0;
      });
    });
    try {
      const auto said = shop.person().Answer(kProgramName, IDOK);
      EXPECT_NE(said.text.find(u"no-hay.txt"), Text::npos) << Narrow(said.text);
    } catch (const test::Stuck& stuck) {
      ADD_FAILURE() << stuck.what();
    }
    opens.join();
    EXPECT_EQ(TextOf(shop.At(kStatusLine)), u"Sin captura");
    shop.Leave();
  });
}

TEST_F(WorkshopTest, FileThatCannotBeWrittenIsSaidAndTheDocumentKept) {
  const auto file = folder() / "mio.toml";
  Work(
      [&](const Shop& shop) {
        ChangeBrand(shop, u"ACME");
        std::filesystem::remove(file);
        std::filesystem::create_directory(file);
        PostMessageW(shop.window(), WM_COMMAND, kSaveLayout, 0);
        const auto said = shop.person().Answer(kProgramName, IDOK);
        EXPECT_NE(said.text.find(u"mio.toml"), Text::npos) << Narrow(said.text);
        EXPECT_EQ(TextOf(shop.window()), u"Taller de conmutadores - ACME, Sin modelo *");
        shop.Command(kUndo);
        shop.Leave();
      },
      [&](MainWindow& main) {
        SystemDisk disk;
        ASSERT_TRUE(main.bench().document().SaveAs(disk, file, Format::kLayout).empty());
      });
}

TEST_F(WorkshopTest, ChangesAreSavedWhenThePersonLeavesWithThem) {
  const auto file = folder() / "mio.toml";
  Work(
      [&](const Shop& shop) {
        ChangeBrand(shop, u"ACME");
        shop.Leave();
        shop.person().Answer(kProgramName, IDYES);
        shop.person().WaitUntilClosed(shop.window());
      },
      [&](MainWindow& main) {
        SystemDisk disk;
        ASSERT_TRUE(main.bench().document().SaveAs(disk, file, Format::kLayout).empty());
      });
  EXPECT_NE(BytesOf(file).find("marca = \"ACME\""), std::string::npos);
}

TEST_F(WorkshopTest, WhatACrashLeftIsBroughtBackAndCanBeUndone) {
  {
    // A run that keeps a copy and does not come to its end.
    test::FakeClock clock;
    SystemDisk disk;
    Workbench bench(disk, clock, folder(), [] {});
    ASSERT_TRUE(
        bench.document().Apply(layouts::SetText{layouts::SetText::Key::kBrand, u"ACME"}).empty());
    ASSERT_TRUE(bench.autosave().Keep(bench.document()).empty());
  }
  Work([](const Shop& shop) {
    EXPECT_EQ(TextOf(shop.window()), u"Taller de conmutadores - ACME, Sin modelo *");
    EXPECT_NE(TextOf(shop.At(kMessageLine)).find(u"recuperó"), Text::npos);
    shop.Command(kUndo);
    EXPECT_EQ(TextOf(shop.window()), u"Taller de conmutadores - Sin marca, Sin modelo");
    shop.Leave();
  });
  Work([](const Shop& shop) {
    EXPECT_EQ(TextOf(shop.window()), u"Taller de conmutadores - Sin marca, Sin modelo");
    shop.Leave();
  });
}

TEST_F(WorkshopTest, FileIsOpenedAgainWithoutWhatNobodyWantedToSave) {
  const auto file = folder() / "mio.toml";
  Work(
      [&](const Shop& shop) {
        ChangeBrand(shop, u"ACME");
        shop.host().Run([&] {});
        ASSERT_TRUE(shop.See([](MainWindow& main) {
          return main.bench().autosave().Keep(main.bench().document()).empty();
        }));
        shop.Command(kOpenLayout);
        shop.person().Answer(kProgramName, IDNO);
        shop.ChooseFile(u"Abrir configuración", file);
        EXPECT_EQ(TextOf(shop.window()), u"Taller de conmutadores - Sin marca, Sin modelo");
        shop.Leave();
      },
      [&](MainWindow& main) {
        SystemDisk disk;
        ASSERT_TRUE(main.bench().document().SaveAs(disk, file, Format::kLayout).empty());
      });
}

TEST_F(WorkshopTest, PanesAndZoomAreKeptBetweenRuns) {
  RECT before{};
  Work([&](const Shop& shop) {
    shop.person().Drag(shop.At(kAcrossSplitter), {1, 50}, {-79, 50});
    shop.Command(kZoomIn);
    before = test::PlaceOf(shop.At(kLayoutList));
    EXPECT_EQ(shop.See([](MainWindow& main) { return main.lines_view().zoom(); }),
              LinesView::kUsualZoom + 10);
    shop.Leave();
  });
  Work([&](const Shop& shop) {
    const RECT now = test::PlaceOf(shop.At(kLayoutList));
    EXPECT_NEAR(static_cast<double>(now.left), static_cast<double>(before.left), 2);
    EXPECT_EQ(shop.See([](MainWindow& main) { return main.lines_view().zoom(); }),
              LinesView::kUsualZoom + 10);
    const LONG width = test::ClientSizeOf(shop.window()).cx;
    EXPECT_LT(now.left, width - 400) << "it was pulled to the left";
    shop.Leave();
  });
}

TEST_F(WorkshopTest, GuessIsTakenAsOneStep) {
  Work([](const Shop& shop) {
    shop.OpenCapture(kKx);
    shop.Command(kGuess);
    const HWND guess = shop.person().WaitForWindow(u"Adivinar");
    test::WaitUntil("all layouts are tried",
                    [&] { return TextOf(GetDlgItem(guess, kGuessState)).empty(); });
    EXPECT_THAT(test::FlawsOf(guess, 96), ::testing::IsEmpty());
    shop.person().Press(GetDlgItem(guess, IDOK));
    shop.person().WaitUntilClosed(guess);
    shop.WaitForVerdicts();
    EXPECT_EQ(TextOf(shop.window()), u"Taller de conmutadores - Panasonic, KX-TD1232 *");
    EXPECT_NE(TextOf(shop.At(kStatusLine)).find(u"53 llamadas"), Text::npos)
        << Narrow(TextOf(shop.At(kStatusLine)));
    shop.Command(kUndo);
    EXPECT_EQ(TextOf(shop.window()), u"Taller de conmutadores - Sin marca, Sin modelo");
    shop.Leave();
  });
}

TEST_F(WorkshopTest, CableIsEditedInTheComponentsWindowAsOneStep) {
  Work([](const Shop& shop) {
    shop.Command(kEditCable);
    const HWND cable = shop.person().WaitForWindow(u"Configuración de puerto SMDR");
    shop.person().Type(GetDlgItem(cable, win32::kTxtPinIzq), u"2");
    shop.person().Type(GetDlgItem(cable, win32::kTxtPinesConectados), u"3");
    shop.person().Press(GetDlgItem(cable, IDOK));
    shop.person().WaitUntilClosed(cable);
    shop.host().Rest();
    EXPECT_TRUE(shop.See([](MainWindow& main) {
      return IsWired(main.bench().document().layout().header.Cables.Table(emPuertoSerialDB9DB9), 2,
                     3);
    }));
    shop.Command(kUndo);
    EXPECT_FALSE(shop.See([](MainWindow& main) { return main.bench().document().IsModified(); }));
    shop.Leave();
  });
}

TEST_F(WorkshopTest, ReportOpensOnTheLayout) {
  Work([](const Shop& shop) {
    shop.Command(kShowReport);
    const HWND report = shop.person().WaitForWindow(u"Información general de configuración");
    EXPECT_NE(TextOf(GetDlgItem(report, win32::kTxtInfo)).find(u"Sin marca"), Text::npos);
    shop.person().Press(GetDlgItem(report, IDCANCEL));
    shop.person().WaitUntilClosed(report);
    shop.Leave();
  });
}

TEST_F(WorkshopTest, NextAndPreviousLinesOfACounterAreGoneTo) {
  Work([](const Shop& shop) {
    OpenJudged(shop);
    const auto kind_here = [&] {
      return shop.See([](MainWindow& main) {
        return main.bench().verdicts().Of(main.bench().selection().caret().line);
      });
    };
    EXPECT_TRUE(kind_here().IsNoCall());  // a heading
    const Caret heading = shop.CaretPlace();
    shop.person().Key(VK_F7);
    EXPECT_TRUE(kind_here().IsCall());
    EXPECT_EQ(shop.CaretPlace().line, 13u);
    shop.person().KeyWith(VK_SHIFT, VK_F8);
    EXPECT_TRUE(kind_here().IsNoCall());
    EXPECT_EQ(shop.CaretPlace().line, 12u);
    shop.person().Key(VK_F9);
    EXPECT_EQ(TextOf(shop.At(kMessageLine)), u"No hay otro error más adelante.");
    EXPECT_EQ(heading.line, 10u);
    shop.Leave();
  });
}

TEST_F(WorkshopTest, FiguresUnfoldIntoReasonsThatLeadToTheirLines) {
  Work([](const Shop& shop) {
    OpenJudged(shop);
    shop.Command(kShowReasons);
    shop.person().Key(VK_DOWN);
    shop.person().Key(VK_DOWN);  // incoming ones
    shop.person().Key(VK_RETURN);
    shop.host().Rest();
    EXPECT_EQ(shop.See([](MainWindow& main) {
      return main.bench().verdicts().Of(main.bench().selection().caret().line).type();
    }),
              emLlamadaEntrante);
    shop.Leave();
  });
}

TEST_F(WorkshopTest, ResultSaysWhatBecomesOfTheCaretsLine) {
  Work([](const Shop& shop) {
    shop.OpenCapture(kKx);
    shop.See([](MainWindow& main) {
      main.OpenAny(SwitchFile("panasonic-kx", "layout.toml"));
      return 0;
    });
    shop.MoveTo(13, 1);
    const Text result = TextOf(shop.At(kResultText));
    EXPECT_TRUE(result.starts_with(u"Línea 13: llamada entrante")) << Narrow(result);
    EXPECT_NE(result.find(u"Fecha 02/01/2019 (1-8)"), Text::npos) << Narrow(result);
    shop.MoveTo(11, 1);
    EXPECT_TRUE(TextOf(shop.At(kResultText)).starts_with(u"Línea 11: sin llamada"))
        << Narrow(TextOf(shop.At(kResultText)));
    shop.Leave();
  });
}

TEST_F(WorkshopTest, WayToWhatStandsInACallsWayIsGone) {
  Work([](const Shop& shop) {
    shop.OpenCapture(kKx);
    const auto remedy = shop.See([](MainWindow& main) {
      main.OpenAny(SwitchFile("panasonic-kx", "layout.toml"));
      return main.bench().ResultOfLine()->remedy;
    });
    ASSERT_TRUE(remedy.has_value());
    shop.Command(kGoToRemedy);
    EXPECT_EQ(shop.person().Focus(), shop.At(kLayoutPos));
    const int row = static_cast<int>(
        Send(shop.At(kLayoutList), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED));
    EXPECT_GE(row, 0);
    const Text pos = TextOf(shop.At(kLayoutPos));
    const auto item = shop.Item(NameOf(*remedy));
    EXPECT_EQ(pos, item ? ToText(item->first) : Text());
    shop.Leave();
  });
}

TEST_F(WorkshopTest, ReportOfALineOpens) {
  Work([](const Shop& shop) {
    shop.OpenCapture(kKx);
    shop.Command(kShowLineReport);
    const HWND report = shop.person().WaitForWindow(u"Información general de configuración");
    EXPECT_NE(TextOf(GetDlgItem(report, win32::kTxtInfo)).find(u"SMDR REPORT"), Text::npos);
    shop.person().Press(GetDlgItem(report, IDCANCEL));
    shop.person().WaitUntilClosed(report);
    shop.Leave();
  });
}

TEST_F(WorkshopTest, LinesArePasted) {
  Work([](const Shop& shop) {
    shop.host().Run([&] {
      const std::u16string text = u"01/14/19 09:07AM 1204\r\n01/14/19 09:08AM 1205\r\n";
      const std::size_t bytes = (text.size() + 1) * sizeof text[0];
      const HGLOBAL data = GlobalAlloc(GMEM_MOVEABLE, bytes);
      std::copy_n(text.c_str(), text.size() + 1, static_cast<char16_t*>(GlobalLock(data)));
      GlobalUnlock(data);
      OpenClipboard(shop.window());
      EmptyClipboard();
      SetClipboardData(CF_UNICODETEXT, data);
      CloseClipboard();
    });
    shop.person().KeyWith(VK_CONTROL, 'V');
    shop.WaitForVerdicts();
    EXPECT_EQ(shop.See([](MainWindow& main) { return main.bench().lines(); }), 2u);
    EXPECT_TRUE(TextOf(shop.At(kStatusLine)).starts_with(u"2 líneas"))
        << Narrow(TextOf(shop.At(kStatusLine)));
    shop.Leave();
  });
}

TEST_F(WorkshopTest, DroppedFilesAreOpenedForWhatTheyAre) {
  Work([](const Shop& shop) {
    const std::wstring names =
        kKx.wstring() + L'\0' + SwitchFile("panasonic-kx", "layout.toml").wstring() + L'\0' + L'\0';
    const std::size_t bytes = names.size() * sizeof names[0];
    const HGLOBAL data = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, sizeof(DROPFILES) + bytes);
    auto* drop = static_cast<DROPFILES*>(GlobalLock(data));
    drop->pFiles = sizeof(DROPFILES);
    drop->fWide = TRUE;
    std::copy(names.begin(), names.end(), reinterpret_cast<wchar_t*>(drop + 1));
    GlobalUnlock(data);
    PostMessageW(shop.window(), WM_DROPFILES, reinterpret_cast<WPARAM>(data), 0);
    shop.host().Drain();
    shop.WaitForVerdicts();
    EXPECT_EQ(TextOf(shop.window()), u"Taller de conmutadores - Panasonic, KX-TD1232");
    EXPECT_NE(TextOf(shop.At(kStatusLine)).find(u"53 llamadas"), Text::npos)
        << Narrow(TextOf(shop.At(kStatusLine)));
    shop.Leave();
  });
}

TEST_F(WorkshopTest, LargeCaptureScrollsToItsEndAtOnce) {
  const auto large = folder() / "grande.txt";
  constexpr std::uint64_t kMany = 400000;
  {
    std::ofstream file(large, std::ios::binary);
    for (std::uint64_t i = 0; i < kMany; ++i) {
      file << "01/14/19 09:07AM 1204  03 18005550123                    00:12'40 98765\r\n";
    }
  }
  Work([&](const Shop& shop) {
    shop.OpenCapture(large);
    test::WaitUntil("all lines are counted", [&] {
      return shop.See([](MainWindow& main) { return main.bench().lines(); }) == kMany;
    });
    const ULONGLONG begin = GetTickCount64();
    shop.person().KeyWith(VK_CONTROL, VK_END);
    shop.host().Rest();
    EXPECT_LT(GetTickCount64() - begin, 2000u);
    EXPECT_EQ(shop.CaretPlace().line, kMany);
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    GetScrollInfo(shop.lines(), SB_VERT, &info);
    EXPECT_EQ(info.nPos + static_cast<int>(info.nPage) - 1, static_cast<int>(kMany));
    shop.Leave();
  });
}

}  // namespace
}  // namespace conmuta::taller
