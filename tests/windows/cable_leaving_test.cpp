// Whether the cable editor is accepted or left, and its keys.
#include "cable_editor.h"
#include "component/sink.h"

namespace conmuta::test {
namespace {

using win32::kBtnAceptar;
using win32::kBtnCancelar;
using win32::kDiagram;
using win32::kOpcPuerto;
using win32::kTxtConexiones;
using win32::kTxtPinIzq;

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

}  // namespace
}  // namespace conmuta::test
