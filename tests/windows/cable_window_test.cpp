// The cable editor through its real controls.
#include "cable_editor.h"
#include "component/sink.h"

namespace conmuta::test {
namespace {

using win32::kBtnAceptar;
using win32::kBtnCancelar;
using win32::kDiagram;
using win32::kEtqConmutador;
using win32::kLabel1;
using win32::kLabel2;
using win32::kOpcPuerto;
using win32::kTxtConexiones;
using win32::kTxtPinesConectados;
using win32::kTxtPinIzq;

// --- what it shows ---

TEST_F(CableWindowTest, ControlsHaveTheirCaptions) {
  Edit(NamedConfig(), [](const Editor& editor) {
    EXPECT_EQ(TextOf(editor.window()), kCaption);
    EXPECT_EQ(TextOf(editor.At(kOpcPuerto + 1)), u"Puerto DB9 - DB9");
    EXPECT_EQ(TextOf(editor.At(kOpcPuerto + 2)), u"Puerto DB9 - DB25");
    EXPECT_EQ(TextOf(editor.At(kOpcPuerto + 3)), u"Puerto DB25 - DB9");
    EXPECT_EQ(TextOf(editor.At(kOpcPuerto + 4)), u"Puerto DB25 - DB25");
    EXPECT_EQ(TextOf(editor.At(kLabel1)), u"Pin");
    EXPECT_EQ(TextOf(editor.At(kLabel2)), u"---> Pines conectados");
    EXPECT_EQ(TextOf(editor.At(kEtqConmutador)), u"Conmutador\r\nACME, X1");
    EXPECT_EQ(TextOf(editor.At(kBtnAceptar)), u"&Aceptar");
    EXPECT_EQ(TextOf(editor.At(kBtnCancelar)), u"&Cancelar");
    editor.Cancel();
  });
}

TEST_F(CableWindowTest, UnnamedSwitchIsUnknown) {
  Edit(NewConfig(), [](const Editor& editor) {
    EXPECT_EQ(TextOf(editor.At(kEtqConmutador)), u"Conmutador\r\nDesconocido");
    editor.Cancel();
  });
}

TEST_F(CableWindowTest, AmpersandInTheSwitchsNameIsToBeSeen) {
  Edit(NamedConfig(u"AT&T", u"Merlin"), [](const Editor& editor) {
    EXPECT_EQ(TextOf(editor.At(kEtqConmutador)), u"Conmutador\r\nAT&T, Merlin");
    EXPECT_TRUE(HasStyle(editor.At(kEtqConmutador), SS_NOPREFIX));
    editor.Cancel();
  });
}

TEST_F(CableWindowTest, EditingBeginsWithEmptyFieldsOfTheFirstPair) {
  const auto config = NamedConfig();
  Connect(config, NullModem(1));
  Edit(config, [](const Editor& editor) {
    EXPECT_EQ(editor.Chosen(), 1);
    EXPECT_EQ(TextOf(editor.pin()), u"");
    EXPECT_EQ(editor.List(), u"");
    EXPECT_TRUE(IsUsable(editor.pin()));
    EXPECT_TRUE(IsShown(editor.list()));
    EXPECT_FALSE(IsUsable(editor.list()));
    EXPECT_TRUE(IsShown(editor.At(kLabel1)));
    EXPECT_TRUE(IsShown(editor.At(kLabel2)));
    EXPECT_TRUE(IsUsable(editor.At(kBtnAceptar)));
    EXPECT_TRUE(IsUsable(editor.At(kBtnCancelar)));
    for (int pair = 1; pair <= 4; ++pair) EXPECT_TRUE(IsUsable(editor.At(kOpcPuerto + pair)));
    editor.Cancel();
  });
}

TEST_F(CableWindowTest, ViewingHasNoFieldsAndNothingToAccept) {
  Look(NamedConfig(), [](const Editor& editor) {
    for (const int id : {kTxtPinIzq, kTxtPinesConectados, kLabel1, kLabel2, kBtnAceptar}) {
      EXPECT_FALSE(IsShown(editor.At(id))) << id;
    }
    EXPECT_FALSE(IsWindowEnabled(editor.At(kBtnAceptar)));
    EXPECT_EQ(TextOf(editor.At(kBtnCancelar)), u"&Cerrar");
    EXPECT_TRUE(IsUsable(editor.At(kBtnCancelar)));
    for (int pair = 1; pair <= 4; ++pair) EXPECT_TRUE(IsUsable(editor.At(kOpcPuerto + pair)));
    editor.Cancel();
  });
}

TEST_F(CableWindowTest, LeftOutArgumentMeansViewing) {
  const auto config = NamedConfig();
  While([&] { Do(config, &Cfg::EDConfigSeriales, nullptr); },
        [](const Person& person) {
          const Editor editor(person);
          EXPECT_FALSE(IsShown(editor.At(kBtnAceptar)));
          editor.Cancel();
        });
}

TEST_F(CableWindowTest, ViewingGivesTheFieldsRoomToTheDiagram) {
  LONG height_when_editing = 0;
  const auto measure = [](const Editor& editor) {
    editor.person().Resize(editor.window(), 900, 800);
    return ClientSizeOf(editor.At(kDiagram)).cy;
  };
  Edit(NamedConfig(), [&](const Editor& editor) {
    height_when_editing = measure(editor);
    editor.Cancel();
  });
  Look(NamedConfig(), [&](const Editor& editor) {
    EXPECT_GT(measure(editor), height_when_editing);
    editor.Cancel();
  });
}

// --- the left pin and its list ---

TEST_F(CableWindowTest, PinBeyondTheLeftConnectorDisablesTheList) {
  const auto config = NamedConfig();
  Connect(config, {{2, 1, 7}, {3, 10, 4}, {3, 10, 9}});
  Edit(config, [](const Editor& editor) {
    editor.Choose(2);
    editor.TypePin(u"1");
    EXPECT_EQ(editor.List(), u"7,");
    editor.TypePin(u"10");
    EXPECT_EQ(editor.List(), u"");
    EXPECT_FALSE(IsUsable(editor.list()));
    editor.Choose(3);
    editor.TypePin(u"10");
    EXPECT_EQ(editor.List(), u"4,9,");
    EXPECT_TRUE(IsUsable(editor.list()));
    editor.Cancel();
  });
}

TEST_F(CableWindowTest, WhatIsNoPinDisablesTheList) {
  Edit(NamedConfig(), [](const Editor& editor) {
    for (const TextView text : {u"0", u"-1", u"x", u"1x", u"1 1", u"99999999999999999999"}) {
      editor.TypePin(u"2");
      EXPECT_TRUE(IsUsable(editor.list()));
      editor.TypePin(text);
      EXPECT_FALSE(IsUsable(editor.list())) << ::testing::PrintToString(text);
      EXPECT_EQ(TextOf(editor.pin()), text) << "what was typed stays";
    }
    editor.TypePin(u" 9 ");
    EXPECT_TRUE(IsUsable(editor.list()));
    editor.TypePin(u"");
    EXPECT_FALSE(IsUsable(editor.list()));
    editor.Cancel();
  });
}

TEST_F(CableWindowTest, ListShowsEachPinWithAComma) {
  const auto config = NamedConfig();
  Connect(config, {{4, 20, 3}, {4, 20, 5}, {4, 20, 25}});
  Edit(config, [](const Editor& editor) {
    editor.Choose(4);
    editor.TypePin(u"20");
    EXPECT_EQ(editor.List(), u"3,5,25,");
    editor.TypePin(u"21");
    EXPECT_EQ(editor.List(), u"");
    EXPECT_TRUE(IsUsable(editor.list()));
    editor.Cancel();
  });
}

TEST_F(CableWindowTest, PiecesThatAreNoPinsAreDropped) {
  const auto config = NamedConfig();
  Edit(config, [](const Editor& editor) {
    editor.Wire(2, u"4", u"3,3,x,30,");
    EXPECT_EQ(editor.List(), u"3,3,x,30,") << "what was typed stays";
    editor.Wire(4, u"25", u"26,25");
    editor.Wire(3, u"12", u"10,9,,0,-2, 8 ");
    editor.Wire(1, u"9", u"9,10");
    editor.Accept();
  });
  EXPECT_EQ(WiresOf(config), (Wires{{2, 4, 3}, {4, 25, 25}, {3, 12, 9}, {3, 12, 8}, {1, 9, 9}}));
}

TEST_F(CableWindowTest, ClearedListUnwiresThePin) {
  const auto config = NamedConfig();
  Connect(config, {{1, 2, 3}, {1, 2, 5}, {1, 3, 2}});
  Edit(config, [](const Editor& editor) {
    editor.TypePin(u"2");
    EXPECT_EQ(editor.List(), u"3,5,");
    editor.TypeList(u"");
    editor.Accept();
  });
  EXPECT_EQ(WiresOf(config), (Wires{{1, 3, 2}}));
}

TEST_F(CableWindowTest, LeavingAPinKeepsItsWires) {
  const auto config = NamedConfig();
  Edit(config, [](const Editor& editor) {
    editor.TypePin(u"1");
    editor.TypeList(u"4,6");
    editor.TypePin(u"");
    editor.TypePin(u"2");
    editor.TypeList(u"3");
    editor.TypePin(u"1");
    EXPECT_EQ(editor.List(), u"4,6,");
    editor.Accept();
  });
  EXPECT_EQ(WiresOf(config), (Wires{{1, 1, 4}, {1, 1, 6}, {1, 2, 3}}));
}

TEST_F(CableWindowTest, SwitchingThePairEmptiesTheFieldsAndKeepsAllWires) {
  const auto config = NamedConfig();
  Edit(config, [](const Editor& editor) {
    editor.Wire(1, u"1", u"2");
    editor.Choose(4);
    EXPECT_EQ(editor.Chosen(), 4);
    EXPECT_EQ(TextOf(editor.pin()), u"");
    EXPECT_EQ(editor.List(), u"");
    EXPECT_FALSE(IsUsable(editor.list()));
    editor.TypePin(u"1");
    EXPECT_EQ(editor.List(), u"");
    editor.TypeList(u"20");
    editor.Choose(1);
    editor.TypePin(u"1");
    EXPECT_EQ(editor.List(), u"2,");
    editor.Accept();
  });
  EXPECT_EQ(WiresOf(config), (Wires{{1, 1, 2}, {4, 1, 20}}));
}

TEST_F(CableWindowTest, DisabledListHasTheWindowsColour) {
  Edit(NamedConfig(), [](const Editor& editor) {
    const auto color = [&](HWND field) {
      RedrawWindow(field, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
      editor.person().host().Drain();
      const SIZE size = ClientSizeOf(field);
      return PixelOf(field, size.cx - 5, size.cy / 2);
    };
    EXPECT_EQ(color(editor.list()), GetSysColor(COLOR_BTNFACE));
    EXPECT_EQ(color(editor.pin()), GetSysColor(COLOR_WINDOW));
    editor.TypePin(u"3");
    EXPECT_EQ(color(editor.list()), GetSysColor(COLOR_WINDOW));
    editor.TypePin(u"x");
    EXPECT_EQ(color(editor.list()), GetSysColor(COLOR_BTNFACE));
    editor.Cancel();
  });
}

// --- accepting and leaving ---

TEST_F(CableWindowTest, AcceptedWiringIsTheConfigurations) {
  const auto config = NamedConfig();
  Connect(config, NullModem(1));
  Sink sink;
  const Connection connection(config.get(), &sink);
  Edit(config, [](const Editor& editor) {
    editor.Wire(1, u"2", u"3,4");      // one more wire
    editor.Wire(4, u"7", u"25,1,13");  // three
    editor.Accept();
  });
  EXPECT_EQ(sink.Take(), Events(4, kChanged));
  EXPECT_EQ(Read(config, &Cfg::get_Modificado), VARIANT_TRUE);
  EXPECT_EQ(Read(config, &Cfg::get_PuertoActivo), Code<::emPuertoSerial>(4));
  EXPECT_EQ(Read(config, &Cfg::get_PinIZQ), 25);
  EXPECT_EQ(Read(config, &Cfg::get_PinDER), 25);
  Wires expected = NullModem(1);
  expected.insert({{1, 2, 4}, {4, 7, 25}, {4, 7, 1}, {4, 7, 13}});
  EXPECT_EQ(WiresOf(config), expected);
}

TEST_F(CableWindowTest, AcceptingWithoutAChangeChangesNothing) {
  const ComPtr<Cfg> config = NewConfig();
  Edit(config, [](const Editor& editor) { editor.Accept(); });
  EXPECT_EQ(Read(config, &Cfg::get_Modificado), VARIANT_FALSE);
  EXPECT_EQ(WiresOf(config), Wires());
}

// Hosts rely on it: the configuration addresses no right pin above 9 of this pair.
TEST_F(CableWindowTest, LastPinOfTheMixedPairComesBackAsNine) {
  const auto config = NamedConfig();
  Edit(config, [](const Editor& editor) {
    editor.Wire(2, u"1", u"25");
    editor.Wire(2, u"2", u"12");
    editor.Accept();
  });
  EXPECT_EQ(WiresOf(config), (Wires{{2, 1, 9}}));
}

TEST_F(CableWindowTest, MixedPairShowsNineForAllAbove) {
  const auto config = NamedConfig();
  Connect(config, {{2, 3, 9}});
  Edit(config, [](const Editor& editor) {
    editor.Choose(2);
    editor.TypePin(u"3");
    EXPECT_EQ(editor.List(), u"9,10,11,12,13,14,15,16,17,18,19,20,21,22,23,24,25,");
    editor.Cancel();
  });
}

class CableWindowLeavingTest : public CableWindowTest {
 protected:
  // Edits, and leaves the window in some way that is not accepting.
  template <class Leave>
  void ExpectNothingKept(Leave&& leave) {
    const auto config = NewConfig();
    Connect(config, NullModem(4));
    Sink sink;
    const Connection connection(config.get(), &sink);
    Edit(config, [&](const Editor& editor) {
      editor.Wire(1, u"1", u"1,2,3");
      editor.Wire(4, u"2", u"");
      leave(editor);
      editor.person().WaitUntilClosed(editor.window());
    });
    EXPECT_EQ(sink.Take(), Events());
    EXPECT_EQ(WiresOf(config), NullModem(4));
  }
};

TEST_F(CableWindowLeavingTest, CancelKeepsTheOldWiring) {
  ExpectNothingKept([](const Editor& editor) { editor.Cancel(); });
}
TEST_F(CableWindowLeavingTest, EscapeKeepsTheOldWiring) {
  ExpectNothingKept([](const Editor& editor) { editor.person().Key(VK_ESCAPE); });
}
TEST_F(CableWindowLeavingTest, CloseBoxKeepsTheOldWiring) {
  ExpectNothingKept([](const Editor& editor) { editor.person().PressCloseBox(editor.window()); });
}
TEST_F(CableWindowLeavingTest, MnemonicOfCancelKeepsTheOldWiring) {
  ExpectNothingKept([](const Editor& editor) { editor.person().Alt(L'c'); });
}
TEST_F(CableWindowLeavingTest, EnterOnCancelKeepsTheOldWiring) {
  ExpectNothingKept([](const Editor& editor) {
    editor.person().SetFocusTo(editor.At(kBtnAceptar));
    editor.person().Key(VK_TAB);
    EXPECT_EQ(editor.person().Focus(), editor.At(kBtnCancelar));
    editor.person().Key(VK_RETURN);
  });
}

TEST_F(CableWindowTest, ViewingPressesNothingIn) {
  const auto config = NewConfig();
  Connect(config, NullModem(1));
  Sink sink;
  const Connection connection(config.get(), &sink);
  Look(config, [](const Editor& editor) {
    editor.ClickPin(Side::kLeft, 2);
    editor.DragWire(2, 9);
    editor.person().Alt(L'a');  // Aceptar is not there
    EXPECT_TRUE(IsWindow(editor.window()));
    editor.person().Key(VK_RETURN);
    editor.person().WaitUntilClosed(editor.window());
  });
  EXPECT_EQ(sink.Take(), Events());
  EXPECT_EQ(WiresOf(config), NullModem(1));
}

// --- the keyboard ---

TEST_F(CableWindowTest, WorksByKeyboardAlone) {
  const auto config = NamedConfig();
  Edit(config, [](const Editor& editor) {
    const Person& person = editor.person();
    EXPECT_EQ(person.Focus(), editor.At(kOpcPuerto + 1));
    person.Key(VK_DOWN);
    EXPECT_EQ(editor.Chosen(), 2);
    EXPECT_EQ(person.Focus(), editor.At(kOpcPuerto + 2));
    person.Key(VK_DOWN);
    person.Key(VK_DOWN);
    EXPECT_EQ(editor.Chosen(), 4);
    person.Key(VK_DOWN);
    EXPECT_EQ(editor.Chosen(), 1) << "around the group";
    person.Key(VK_UP);
    EXPECT_EQ(editor.Chosen(), 4);
    person.Key(VK_TAB);
    EXPECT_EQ(person.Focus(), editor.pin());
    person.Key('1');
    person.Key('2');
    EXPECT_EQ(TextOf(editor.pin()), u"12");
    person.Key(VK_TAB);
    EXPECT_EQ(person.Focus(), editor.list());
    person.Key('2');
    person.Key('1');
    EXPECT_EQ(editor.List(), u"21");
    person.Key(VK_RETURN);
    person.WaitUntilClosed(editor.window());
  });
  EXPECT_EQ(WiresOf(config), (Wires{{4, 12, 21}}));
}

TEST_F(CableWindowTest, TabGoesAroundAndSkipsWhatTakesNoInput) {
  Edit(NamedConfig(), [](const Editor& editor) {
    const Person& person = editor.person();
    std::vector<int> visited;
    for (int i = 0; i < 12; ++i) {
      visited.push_back(GetDlgCtrlID(person.Focus()));
      person.Key(VK_TAB);
    }
    // DB9 to DB9 fits, so that the scroll bar takes no input either.
    const std::vector<int> around = {kOpcPuerto + 1, kTxtPinIzq,  kDiagram,
                                     kTxtConexiones, kBtnAceptar, kBtnCancelar};
    EXPECT_EQ(std::vector<int>(visited.begin(), visited.begin() + 6), around);
    EXPECT_EQ(std::vector<int>(visited.begin() + 6, visited.end()), around);
    person.KeyWith(VK_SHIFT, VK_TAB);
    EXPECT_EQ(person.Focus(), editor.At(kBtnCancelar));
    editor.Cancel();
  });
}

TEST_F(CableWindowTest, MnemonicAccepts) {
  const auto config = NamedConfig();
  Edit(config, [](const Editor& editor) {
    editor.Wire(1, u"5", u"5");
    editor.person().Alt(L'a');
    editor.person().WaitUntilClosed(editor.window());
  });
  EXPECT_EQ(WiresOf(config), (Wires{{1, 5, 5}}));
}

TEST_F(CableWindowTest, CaretStaysWhereOneTypes) {
  Edit(NamedConfig(), [](const Editor& editor) {
    editor.TypePin(u"1");
    editor.TypeList(u"9,");
    Send(editor.list(), EM_SETSEL, 0, LPARAM{0});
    PostMessageW(editor.list(), WM_CHAR, L'3', 1);
    PostMessageW(editor.list(), WM_CHAR, L',', 1);
    editor.person().host().Drain();
    EXPECT_EQ(editor.List(), u"3,9,");
    editor.Cancel();
  });
}

// --- the diagram ---

TEST_F(CableWindowTest, ClickOnALeftPinChoosesIt) {
  const auto config = NamedConfig();
  Connect(config, NullModem(1));
  Edit(config, [](const Editor& editor) {
    editor.ClickPin(Side::kLeft, 4);
    EXPECT_EQ(TextOf(editor.pin()), u"4");
    EXPECT_EQ(editor.List(), u"1,6,");
    editor.ClickPin(Side::kLeft, 9);
    EXPECT_EQ(TextOf(editor.pin()), u"9");
    editor.ClickPin(Side::kRight, 4);
    EXPECT_EQ(TextOf(editor.pin()), u"9") << "a right pin is none";
    editor.person().Click(editor.At(kDiagram), {3, 3});
    EXPECT_EQ(TextOf(editor.pin()), u"9") << "beside the connectors is none";
    editor.Cancel();
  });
}

TEST_F(CableWindowTest, DragFromLeftToRightTogglesAWire) {
  const auto config = NamedConfig();
  Connect(config, NullModem(1));
  Edit(config, [](const Editor& editor) {
    editor.DragWire(9, 9);
    EXPECT_EQ(TextOf(editor.pin()), u"9");
    EXPECT_EQ(editor.List(), u"9,");
    editor.DragWire(4, 6);
    EXPECT_EQ(editor.List(), u"1,");
    editor.DragWire(9, 1);
    EXPECT_EQ(editor.List(), u"1,9,");
    editor.Accept();
  });
  Wires expected = NullModem(1);
  expected.erase({1, 4, 6});
  expected.insert({{1, 9, 9}, {1, 9, 1}});
  EXPECT_EQ(WiresOf(config), expected);
}

TEST_F(CableWindowTest, DragThatEndsOnNoRightPinWiresNothing) {
  const auto config = NamedConfig();
  Edit(config, [](const Editor& editor) {
    const HWND view = editor.At(kDiagram);
    const POINT from = editor.PinAt(Side::kLeft, 1);
    editor.person().Drag(view, from, editor.PinAt(Side::kLeft, 5));
    editor.person().Drag(view, from, {from.x + 80, from.y});
    editor.person().Drag(view, from, {-50, -50});
    editor.person().Drag(view, editor.PinAt(Side::kRight, 1), editor.PinAt(Side::kRight, 2));
    EXPECT_EQ(editor.List(), u"");
    editor.Accept();
  });
  EXPECT_EQ(WiresOf(config), Wires());
}

TEST_F(CableWindowTest, DragThatIsInterruptedWiresNothing) {
  const auto config = NamedConfig();
  Edit(config, [](const Editor& editor) {
    const HWND view = editor.At(kDiagram);
    const POINT from = editor.PinAt(Side::kLeft, 1);
    const POINT to = editor.PinAt(Side::kRight, 1);
    PostMessageW(view, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(from.x, from.y));
    editor.person().host().Drain();
    editor.person().host().Run([] { ReleaseCapture(); });
    PostMessageW(view, WM_LBUTTONUP, 0, MAKELPARAM(to.x, to.y));
    editor.person().host().Drain();
    EXPECT_EQ(editor.List(), u"");
    editor.Accept();
  });
  EXPECT_EQ(WiresOf(config), Wires());
}

TEST_F(CableWindowTest, EveryPinOfEveryPairCanBeClickedAndWired) {
  const auto config = NamedConfig();
  Edit(config, [](const Editor& editor) {
    for (int pair = 1; pair <= 4; ++pair) {
      editor.Choose(pair);
      const int left_pins = pair <= 2 ? 9 : 25;
      const int right_pins = pair % 2 == 1 ? 9 : 25;
      for (int left = 1; left <= left_pins; ++left) {
        const int right = std::min(left, right_pins);
        // The farther half of a long connector has to be scrolled into view.
        Send(editor.window(), WM_VSCROLL, static_cast<WPARAM>(left > 13 ? SB_BOTTOM : SB_TOP),
             reinterpret_cast<LPARAM>(editor.scroll()));
        editor.DragWire(left, right);
        EXPECT_EQ(TextOf(editor.pin()), ToText(left));
        EXPECT_EQ(editor.List(), ToText(right) + u",") << pair << ':' << left;
      }
    }
    editor.Cancel();
  });
}

TEST_F(CableWindowTest, DiagramIsPainted) {
  const auto config = NamedConfig();
  Connect(config, NullModem(1));
  Edit(config, [](const Editor& editor) {
    const HWND view = editor.At(kDiagram);
    const auto colors = [&] {
      RedrawWindow(view, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
      editor.person().host().Drain();
      const POINT pin = editor.PinAt(Side::kLeft, 4);
      return std::pair(PixelOf(view, pin.x, pin.y - editor.LineHeight() / 2 + 1),
                       PixelOf(view, 1, 1));
    };
    const auto before = colors();
    EXPECT_EQ(before.second, RGB(255, 255, 255));
    editor.TypePin(u"4");
    EXPECT_NE(colors().first, before.first) << "the current pin is filled";
    editor.Cancel();
  });
}

// --- scrolling and size ---

TEST_F(CableWindowTest, BarIsDisabledWhenAllFits) {
  Edit(NamedConfig(), [](const Editor& editor) {
    EXPECT_TRUE(IsShown(editor.scroll()));
    EXPECT_FALSE(IsUsable(editor.scroll()));
    editor.Choose(4);
    EXPECT_FALSE(IsUsable(editor.scroll())) << "all of a DB25 is seen";
    const SIZE outer = OuterSizeOf(editor.window());
    editor.MakeLow();
    EXPECT_TRUE(IsUsable(editor.scroll()));
    editor.person().Resize(editor.window(), static_cast<int>(outer.cx), static_cast<int>(outer.cy));
    EXPECT_FALSE(IsUsable(editor.scroll()));
    editor.Cancel();
  });
}

TEST_F(CableWindowTest, BarScrollsTheDiagram) {
  Edit(NamedConfig(), [](const Editor& editor) {
    editor.Choose(4);
    editor.MakeLow();
    const auto scroll = [&](WPARAM how) {
      PostMessageW(editor.window(), WM_VSCROLL, how, reinterpret_cast<LPARAM>(editor.scroll()));
      editor.person().host().Drain();
      return editor.Scrolled();
    };
    EXPECT_EQ(editor.Scrolled(), 0);
    const int line = scroll(SB_LINEDOWN);
    EXPECT_GT(line, 0);
    editor.ClickPin(Side::kLeft, 2);
    EXPECT_EQ(TextOf(editor.pin()), u"2") << "pins are where they are seen";
    EXPECT_EQ(editor.Scrolled(), line);
    const int end = scroll(SB_BOTTOM);
    EXPECT_GT(end, line);
    editor.ClickPin(Side::kLeft, 13);
    EXPECT_EQ(TextOf(editor.pin()), u"13");
    EXPECT_EQ(scroll(SB_PAGEDOWN), end) << "not beyond the end";
    EXPECT_EQ(scroll(SB_LINEUP), end - line);
    EXPECT_EQ(scroll(SB_TOP), 0);
    EXPECT_EQ(scroll(SB_PAGEUP), 0);
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    Send(editor.scroll(), SBM_GETSCROLLINFO, 0, &info);
    EXPECT_NEAR(static_cast<double>(end), info.nMax - static_cast<int>(info.nPage) + 1, 1);
    editor.Cancel();
  });
}

TEST_F(CableWindowTest, BarWorksByKeyboardAndWheel) {
  Edit(NamedConfig(), [](const Editor& editor) {
    editor.Choose(4);
    editor.MakeLow();
    editor.person().SetFocusTo(editor.scroll());
    editor.person().Key(VK_DOWN);
    const int line = editor.Scrolled();
    EXPECT_GT(line, 0);
    editor.person().Key(VK_END);
    EXPECT_GT(editor.Scrolled(), line);
    editor.person().Key(VK_HOME);
    EXPECT_EQ(editor.Scrolled(), 0);
    PostMessageW(editor.window(), WM_MOUSEWHEEL, MAKEWPARAM(0, -WHEEL_DELTA), 0);
    editor.person().host().Drain();
    EXPECT_GT(editor.Scrolled(), 0);
    PostMessageW(editor.window(), WM_MOUSEWHEEL, MAKEWPARAM(0, 10 * WHEEL_DELTA), 0);
    editor.person().host().Drain();
    EXPECT_EQ(editor.Scrolled(), 0);
    editor.Cancel();
  });
}

TEST_F(CableWindowTest, EnlargingScrollsBackWhatIsNoLongerHidden) {
  Edit(NamedConfig(), [](const Editor& editor) {
    editor.Choose(4);
    editor.MakeLow();
    Send(editor.window(), WM_VSCROLL, SB_BOTTOM, reinterpret_cast<LPARAM>(editor.scroll()));
    const SIZE outer = OuterSizeOf(editor.window());
    editor.person().Resize(editor.window(), outer.cx, outer.cy + 400);
    EXPECT_EQ(editor.Scrolled(), 0);
    editor.ClickPin(Side::kLeft, 25);
    EXPECT_EQ(TextOf(editor.pin()), u"25");
    editor.Cancel();
  });
}

TEST_F(CableWindowTest, DiagramTakesWhatTheWindowGains) {
  Edit(NamedConfig(), [](const Editor& editor) {
    const RECT diagram = PlaceOf(editor.At(kDiagram));
    const RECT accept = PlaceOf(editor.At(kBtnAceptar));
    const RECT cancel = PlaceOf(editor.At(kBtnCancelar));
    const RECT list = PlaceOf(editor.list());
    const SIZE outer = OuterSizeOf(editor.window());
    editor.person().Resize(editor.window(), outer.cx + 200, outer.cy + 100);
    EXPECT_EQ(PlaceOf(editor.At(kDiagram)).right, diagram.right + 200);
    EXPECT_EQ(PlaceOf(editor.At(kDiagram)).bottom, diagram.bottom + 100);
    EXPECT_EQ(PlaceOf(editor.At(kDiagram)).top, diagram.top);
    EXPECT_EQ(PlaceOf(editor.At(kBtnAceptar)).left, accept.left + 200);
    EXPECT_EQ(PlaceOf(editor.At(kBtnCancelar)).top, cancel.top + 100);
    EXPECT_EQ(PlaceOf(editor.list()).right, list.right + 200);
    editor.ClickPin(Side::kLeft, 3);
    editor.DragWire(3, 7);
    EXPECT_EQ(editor.List(), u"7,");
    editor.Cancel();
  });
}

}  // namespace
}  // namespace conmuta::test
