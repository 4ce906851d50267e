// The cable editor shows a cable, and pins are typed into it.
#include "cable_editor.h"

namespace conmuta::test {
namespace {

using win32::kBtnAceptar;
using win32::kBtnCancelar;
using win32::kDiagram;
using win32::kEtqConmutador;
using win32::kLabel1;
using win32::kLabel2;
using win32::kOpcPuerto;
using win32::kTxtPinesConectados;
using win32::kTxtPinIzq;

// --- what it shows ---

TEST_F(CableWindowTest, ControlsHaveTheirCaptions) {
  Edit(NamedConfig(), [](const Editor& editor) {
    EXPECT_EQ(TextOf(editor.window()), kCableCaption);
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

}  // namespace
}  // namespace conmuta::test
