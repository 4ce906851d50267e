// The switch manager by keyboard, and the ways out of it.
#include "switch_manager.h"

namespace conmuta::test {
namespace {

using win32::kBtnBuscar;
using win32::kBtnCerrar;
using win32::kBtnContraer;
using win32::kBtnDesinstalar;
using win32::kBtnEliminar;
using win32::kBtnInstalar;
using win32::kBtnPuertos;
using win32::kEtqArch;
using win32::kFrame1;
using win32::kTvConmutadores;
using win32::kTxtComentarios;

// --- the ways out ---

TEST_F(ManagerWindowTest, CloseBoxCloses) {
  Edit([](const Manager& manager) {
    manager.person().PressCloseBox(manager.window());
    manager.person().WaitUntilClosed(manager.window());
  });
}

TEST_F(ManagerWindowTest, EscapeCloses) {
  Edit([](const Manager& manager) {
    manager.person().Key(VK_ESCAPE);
    manager.person().WaitUntilClosed(manager.window());
  });
}

TEST_F(ManagerWindowTest, EscapeInTheCommentsCloses) {
  Edit([](const Manager& manager) {
    manager.person().SetFocusTo(manager.At(kTxtComentarios));
    manager.person().Key(VK_RETURN);  // there is no default button
    EXPECT_TRUE(IsWindow(manager.window()));
    manager.person().Key(VK_ESCAPE);
    manager.person().WaitUntilClosed(manager.window());
  });
}

// --- the keyboard ---

TEST_F(ManagerWindowTest, WorksByKeyboardAlone) {
  SaveSome();
  Save(u"nuevo.cfg", u"Nortel", u"Norstar");
  Edit([this](const Manager& manager) {
    const Person& person = manager.person();
    EXPECT_EQ(person.Focus(), manager.tree());
    person.Key(VK_END);
    person.Key(VK_RIGHT);
    person.Key(VK_DOWN);
    EXPECT_EQ(manager.Selected(), u"HiPath");
    EXPECT_EQ(manager.Shown(kFrame1), u"Siemens, HiPath");

    person.Alt(L'p');
    person.Answer(u"Conmutadores", IDOK);
    person.host().Drain();
    EXPECT_EQ(manager.Shown(kBtnDesinstalar), u"Siemens, HiPath");

    person.Alt(L'u');
    const HWND cable = person.WaitForWindow(kCableCaption);
    person.Key(VK_ESCAPE);
    person.WaitUntilClosed(cable);
    person.host().Drain();

    person.Alt(L'b');
    manager.ChooseFile(folder.Path(u"nuevo.cfg"));
    person.host().Drain();
    EXPECT_EQ(manager.Selected(), u"Norstar");

    person.Alt(L'e');
    person.Answer(u"Advertencia", IDYES);
    person.host().Drain();
    EXPECT_EQ(manager.Outline().find("Norstar"), std::string::npos);

    person.Alt(L'c');
    EXPECT_FALSE(manager.ItemOf(u"Siemens").expanded);

    person.Alt(L'r');
    person.WaitUntilClosed(manager.window());
  });
}

// The button itself bears the switch's name.
TEST_F(ManagerWindowTest, LabelsKeyGoesToTheDefaultSwitch) {
  SaveSome();
  Save(u"activo.dat", u"Siemens", u"HiPath");
  Edit([](const Manager& manager) {
    manager.person().Alt(L'd');
    EXPECT_EQ(manager.person().Focus(), manager.At(kBtnDesinstalar));
    manager.person().SetFocusTo(manager.At(kBtnDesinstalar));
    manager.person().Key(VK_SPACE);
    manager.person().Answer(u"Conmutadores", IDNO);
    manager.Close();
  });
}

TEST_F(ManagerWindowTest, EveryCommandHasAKeyOfItsOwn) {
  Edit([](const Manager& manager) {
    std::set<char16_t> keys;
    for (const HWND control : ChildrenOf(manager.window())) {
      const int id = GetDlgCtrlID(control);
      if (id == kFrame1 || id == kBtnDesinstalar || id == kTxtComentarios || id == kEtqArch)
        continue;
      if (!IsShown(control)) continue;  // a name for those who cannot see
      const Text text = TextOf(control);
      const auto mark = text.find(u'&');
      if (text.empty()) continue;
      ASSERT_NE(mark, Text::npos) << Narrow(text);
      EXPECT_TRUE(keys.insert(ToUpper(text[mark + 1])).second) << Narrow(text);
    }
    EXPECT_EQ(keys.size(), 7u);
    manager.Close();
  });
}

TEST_F(ManagerWindowTest, TabVisitsEverythingThatCanBeUsed) {
  SaveSome();
  Edit([](const Manager& manager) {
    manager.Select(u"HiPath");
    std::vector<int> visited;
    for (int i = 0; i < 9; ++i) {
      visited.push_back(GetDlgCtrlID(manager.person().Focus()));
      manager.person().Key(VK_TAB);
    }
    EXPECT_EQ(visited, (std::vector<int>{kTvConmutadores, kBtnBuscar, kBtnEliminar, kBtnContraer,
                                         kTxtComentarios, kBtnInstalar, kBtnPuertos,
                                         kBtnDesinstalar, kBtnCerrar}));
    EXPECT_EQ(manager.person().Focus(), manager.tree());
    manager.Close();
  });
}

}  // namespace
}  // namespace conmuta::test
