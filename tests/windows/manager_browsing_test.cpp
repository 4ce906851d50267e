// The switch manager shows its catalogue, by mouse.
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
using win32::kTxtComentarios;

// --- browsing ---

TEST_F(ManagerWindowTest, EmptyCatalogueHasOnlyItsRoot) {
  Edit([](const Manager& manager) {
    EXPECT_EQ(manager.Outline(), "Conmutadores en Voralix  -  0 modelo(s) registrado(s)\n");
    EXPECT_EQ(TextOf(manager.window()), kManagerCaption);
    EXPECT_TRUE(manager.CanPress(kBtnBuscar));
    EXPECT_FALSE(manager.CanPress(kBtnEliminar));
    EXPECT_FALSE(manager.CanPress(kBtnInstalar));
    EXPECT_FALSE(manager.CanPress(kBtnPuertos));
    EXPECT_TRUE(manager.CanPress(kBtnContraer));
    EXPECT_TRUE(manager.CanPress(kBtnCerrar));
    EXPECT_EQ(manager.Shown(kBtnDesinstalar), kNoDefault);
    EXPECT_FALSE(manager.DefaultIsBold());
    EXPECT_EQ(manager.person().Focus(), manager.tree());
    manager.Close();
  });
  EXPECT_FALSE(Installed());
}

TEST_F(ManagerWindowTest, TreeShowsBrandsAndModelsInOrder) {
  SaveSome();
  Save(u"cnm7.cfg", u"ACME", u"x1");      // there is one
  Save(u"cnmA1.cfg", u"Otra", u"Y");      // no number
  Save(u"cnm8.txt", u"Otra", u"Y");       // another extension
  Save(u"otro9.cfg", u"Otra", u"Y");      // another prefix
  folder.Write(u"cnm10.cfg", "rubbish");  // no configuration
  Edit([](const Manager& manager) {
    std::string outline = manager.Outline();
    // Which spelling of the brand comes first depends on the order of the files.
    for (char& c : outline) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    std::string expected = kSome;
    for (char& c : expected) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    EXPECT_EQ(outline, expected);
    const auto items = ItemsOf(manager.tree());
    EXPECT_TRUE(items[0].expanded);
    EXPECT_EQ(manager.Selected(), items[0].text);
    manager.Close();
  });
}

TEST_F(ManagerWindowTest, SelectedModelIsShown) {
  SaveSome();
  Edit([this](const Manager& manager) {
    manager.Select(u"HiPath");
    EXPECT_EQ(manager.Shown(kFrame1), u"Siemens, HiPath");
    EXPECT_EQ(manager.Shown(kEtqArch), folder.Path(u"cnm3.cfg"));
    EXPECT_EQ(manager.Shown(kTxtComentarios), u"En la recepción");
    EXPECT_TRUE(HasStyle(manager.At(kTxtComentarios), ES_READONLY));
    for (const int id : {kBtnEliminar, kBtnInstalar, kBtnPuertos}) {
      EXPECT_TRUE(manager.CanPress(id)) << id;
    }
    manager.Select(u"Siemens");
    EXPECT_EQ(manager.Shown(kFrame1), u"");
    EXPECT_EQ(manager.Shown(kEtqArch), u"");
    EXPECT_EQ(manager.Shown(kTxtComentarios), u"");
    for (const int id : {kBtnEliminar, kBtnInstalar, kBtnPuertos}) {
      EXPECT_FALSE(manager.CanPress(id)) << id;
    }
    manager.Select(u"X1");
    EXPECT_EQ(manager.Shown(kTxtComentarios), u"Dos líneas:\r\nuna y otra");
    manager.Close();
  });
}

TEST_F(ManagerWindowTest, SelectedModelIsSeenWhileTheFocusIsElsewhere) {
  Edit([](const Manager& manager) {
    EXPECT_TRUE(HasStyle(manager.tree(), TVS_SHOWSELALWAYS));
    manager.Close();
  });
}

TEST_F(ManagerWindowTest, FileThatBreaksLaterShowsWhy) {
  SaveSome();
  Edit([this](const Manager& manager) {
    folder.Write(u"cnm3.cfg", "rubbish");
    manager.Select(u"HiPath");
    EXPECT_EQ(manager.Shown(kTxtComentarios),
              u"<No es posible abrir al archivo de configuración, no se reconoce.\r\n Archivo :" +
                  folder.Path(u"cnm3.cfg") + u">");
    EXPECT_EQ(manager.Shown(kEtqArch), u"");
    EXPECT_EQ(manager.Shown(kFrame1), u"");
    EXPECT_FALSE(manager.CanPress(kBtnInstalar));
    EXPECT_FALSE(manager.CanPress(kBtnEliminar));
    EXPECT_FALSE(manager.CanPress(kBtnPuertos));
    manager.Close();
  });
}

TEST_F(ManagerWindowTest, FileThatGoesLaterShowsNothing) {
  SaveSome();
  Edit([this](const Manager& manager) {
    DeleteFileW(Wide(folder.Path(u"cnm3.cfg")).c_str());
    manager.Select(u"HiPath");
    EXPECT_EQ(manager.Shown(kTxtComentarios), u"");
    EXPECT_EQ(manager.Shown(kEtqArch), u"");
    EXPECT_FALSE(manager.CanPress(kBtnEliminar));
    manager.Close();
  });
}

TEST_F(ManagerWindowTest, AmpersandInNamesIsToBeSeen) {
  Save(u"cnm1.cfg", u"AT&T", u"Merlin");
  Edit([](const Manager& manager) {
    manager.Select(u"Merlin");
    EXPECT_EQ(manager.Shown(kFrame1), u"AT&&T, Merlin");
    manager.Press(kBtnInstalar);
    EXPECT_EQ(manager.person().Answer(u"Conmutadores", IDOK).text,
              u"Se ha predeterminado exitosamente el conmutador \r\nAT&T, Merlin.");
    EXPECT_EQ(manager.Shown(kBtnDesinstalar), u"AT&&T, Merlin");
    manager.Close();
  });
}

// --- other commands ---

TEST_F(ManagerWindowTest, CollapsingShowsBrandsOnly) {
  SaveSome();
  Edit([](const Manager& manager) {
    manager.Select(u"HiPath");
    manager.Select(u"X1");
    manager.Press(kBtnContraer);
    for (const TreeItem& item : ItemsOf(manager.tree())) {
      EXPECT_EQ(item.expanded, item.depth == 0) << Narrow(item.text);
    }
    EXPECT_EQ(manager.Shown(kFrame1), u"") << "the model is hidden, and no longer selected";
    EXPECT_FALSE(manager.CanPress(kBtnEliminar));
    manager.Close();
  });
}

TEST_F(ManagerWindowTest, CollapsingABrandByHandHidesItsModel) {
  SaveSome();
  Edit([](const Manager& manager) {
    manager.person().SetFocusTo(manager.tree());
    manager.Select(u"HiPath");
    EXPECT_TRUE(manager.CanPress(kBtnEliminar));
    manager.person().Key(VK_LEFT);  // to the brand
    manager.person().Key(VK_LEFT);  // closes it
    EXPECT_EQ(manager.Selected(), u"Siemens");
    EXPECT_FALSE(manager.ItemOf(u"Siemens").expanded);
    EXPECT_FALSE(manager.CanPress(kBtnEliminar));
    manager.person().Key(VK_RIGHT);
    EXPECT_TRUE(manager.ItemOf(u"Siemens").expanded);
    manager.Close();
  });
}

TEST_F(ManagerWindowTest, CableIsShownNotEdited) {
  const auto config = NamedConfig(u"Siemens", u"HiPath");
  Connect(config, NullModem(1));
  Do(config, &Cfg::GuardarComo, folder.Path(u"cnm3.cfg"));
  const auto before = folder.Bytes(u"cnm3.cfg");
  Edit([](const Manager& manager) {
    manager.Select(u"HiPath");
    manager.Press(kBtnPuertos);
    const HWND cable = manager.person().WaitForWindow(kCableCaption);
    EXPECT_FALSE(IsUsable(manager.window()));
    EXPECT_EQ(TextOf(GetDlgItem(cable, win32::kEtqConmutador)), u"Conmutador\r\nSiemens, HiPath");
    EXPECT_FALSE(IsShown(GetDlgItem(cable, win32::kBtnAceptar)));
    manager.person().Press(GetDlgItem(cable, win32::kBtnCancelar));
    manager.person().WaitUntilClosed(cable);
    manager.person().host().Drain();
    EXPECT_TRUE(IsUsable(manager.window()));
    EXPECT_EQ(manager.Shown(kFrame1), u"Siemens, HiPath");
    manager.Close();
  });
  EXPECT_EQ(folder.Bytes(u"cnm3.cfg"), before);
}

// --- size ---

TEST_F(ManagerWindowTest, OpensLargeEnoughForACatalogue) {
  Edit([](const Manager& manager) {
    const int line = LineHeightOf(manager.At(kBtnCerrar));
    const SIZE client = ClientSizeOf(manager.window());
    EXPECT_EQ(client.cx, MulDiv(750, line, 15));
    EXPECT_EQ(client.cy, MulDiv(490, line, 15));
    manager.Close();
  });
}

TEST_F(ManagerWindowTest, TreeTakesWhatTheWindowGains) {
  Edit([](const Manager& manager) {
    const RECT tree = PlaceOf(manager.tree());
    const RECT close = PlaceOf(manager.At(kBtnCerrar));
    const RECT comments = PlaceOf(manager.At(kTxtComentarios));
    const SIZE outer = OuterSizeOf(manager.window());
    manager.person().Resize(manager.window(), outer.cx + 150, outer.cy + 90);
    EXPECT_EQ(PlaceOf(manager.tree()).right, tree.right + 150);
    EXPECT_EQ(PlaceOf(manager.tree()).bottom, tree.bottom + 90);
    EXPECT_EQ(PlaceOf(manager.At(kTxtComentarios)).left, comments.left + 150);
    EXPECT_EQ(PlaceOf(manager.At(kTxtComentarios)).bottom, comments.bottom + 90);
    EXPECT_EQ(PlaceOf(manager.At(kBtnCerrar)).left, close.left + 150);
    EXPECT_EQ(PlaceOf(manager.At(kBtnCerrar)).top, close.top + 90);
    manager.Close();
  });
}

TEST_F(ManagerWindowTest, LongNamesAndManyModelsAreShown) {
  const Text long_brand(50, u'M');
  const Text long_model(50, u'W');
  Save(u"cnm1.cfg", long_brand, long_model, Text(250, u'c'));
  for (int i = 2; i <= 200; ++i) {
    const std::u16string number = ToText(i);
    Save(u"cnm" + number + u".cfg", u"Marca " + ToText(i % 10), u"Modelo " + number);
  }
  Edit([&](const Manager& manager) {
    EXPECT_EQ(ItemsOf(manager.tree()).size(), 1u + 11u + 200u);
    manager.Select(long_model);
    EXPECT_EQ(manager.Shown(kTxtComentarios).size(), 250u);
    EXPECT_TRUE(manager.IsSelectedInView());
    manager.Close();
  });
}

}  // namespace
}  // namespace conmuta::test
