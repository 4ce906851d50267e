// Files come into the catalogue.
#include "switch_manager.h"

namespace conmuta::test {
namespace {

using win32::kBtnBuscar;
using win32::kBtnEliminar;
using win32::kEtqArch;
using win32::kFrame1;
using win32::kTxtComentarios;

TEST_F(ManagerWindowTest, FirstAddedFileGetsNumberOne) {
  Save(u"nuevo.cfg", u"ACME", u"X1", u"Comentario");
  Edit([this](const Manager& manager) {
    manager.Add(folder.Path(u"nuevo.cfg"));
    EXPECT_EQ(manager.Outline(),
              "Conmutadores en Voralix  -  1 modelo(s) registrado(s)\n  ACME\n    X1\n");
    EXPECT_EQ(manager.Selected(), u"X1");
    EXPECT_EQ(manager.Shown(kEtqArch), folder.Path(u"cnm1.cfg"));
    EXPECT_EQ(manager.Shown(kFrame1), u"ACME, X1");
    EXPECT_TRUE(manager.CanPress(kBtnEliminar));
    manager.Close();
  });
  EXPECT_EQ(folder.Bytes(u"cnm1.cfg"), folder.Bytes(u"nuevo.cfg"));
  EXPECT_FALSE(Installed());
}

TEST_F(ManagerWindowTest, AddedFileGetsTheNextNumberAndItsPlace) {
  SaveSome();
  Save(u"nuevo.cfg", u"ACME", u"X10");
  Save(u"otro.cfg", u"Nortel", u"Norstar");
  Edit([this](const Manager& manager) {
    manager.Add(folder.Path(u"nuevo.cfg"));
    EXPECT_EQ(manager.Shown(kEtqArch), folder.Path(u"cnm13.cfg"));
    manager.Add(folder.Path(u"otro.cfg"));
    EXPECT_EQ(manager.Shown(kEtqArch), folder.Path(u"cnm14.cfg"));
    EXPECT_TRUE(manager.IsSelectedInView());
    std::string outline = manager.Outline();
    EXPECT_NE(outline.find("  Nortel\n    Norstar\n  Siemens\n"), std::string::npos) << outline;
    EXPECT_NE(outline.find("    X1\n    X10\n    X2\n"), std::string::npos) << outline;
    EXPECT_NE(outline.find("5 modelo(s)"), std::string::npos) << outline;
    manager.Close();
  });
}

TEST_F(ManagerWindowTest, KnownModelIsUpdatedAfterYes) {
  SaveSome();
  Save(u"nuevo.cfg", u"SIEMENS", u"hipath", u"Ahora en el sótano");
  Edit([this](const Manager& manager) {
    manager.Press(kBtnBuscar);
    manager.ChooseFile(folder.Path(u"nuevo.cfg"));
    const auto said = manager.person().Answer(u"Conmutadores", IDYES);
    EXPECT_EQ(said.text, u"¿Deseas actualizar el conmutador : SIEMENS, hipath ?");
    EXPECT_EQ(said.buttons, kYesNo);
    manager.person().host().Drain();
    EXPECT_EQ(manager.Shown(kTxtComentarios), u"Ahora en el sótano");
    EXPECT_EQ(manager.Shown(kEtqArch), folder.Path(u"cnm3.cfg"));
    EXPECT_NE(manager.Outline().find("3 modelo(s)"), std::string::npos);
    manager.Close();
  });
  EXPECT_EQ(folder.Bytes(u"cnm3.cfg"), folder.Bytes(u"nuevo.cfg"));
}

TEST_F(ManagerWindowTest, KnownModelStaysAfterNo) {
  SaveSome();
  Save(u"nuevo.cfg", u"Siemens", u"HiPath", u"Ahora en el sótano");
  const auto before = folder.Bytes(u"cnm3.cfg");
  Edit([this](const Manager& manager) {
    manager.Press(kBtnBuscar);
    manager.ChooseFile(folder.Path(u"nuevo.cfg"));
    manager.person().Answer(u"Conmutadores", IDNO);
    manager.person().host().Drain();
    EXPECT_NE(manager.Outline().find("3 modelo(s)"), std::string::npos);
    manager.Close();
  });
  EXPECT_EQ(folder.Bytes(u"cnm3.cfg"), before);
}

TEST_F(ManagerWindowTest, DefaultSwitchFollowsAnUpdate) {
  SaveSome();
  Save(u"activo.dat", u"Siemens", u"HiPath");
  Save(u"nuevo.cfg", u"Siemens", u"HiPath", u"Ahora en el sótano");
  Edit([this](const Manager& manager) {
    manager.Press(kBtnBuscar);
    manager.ChooseFile(folder.Path(u"nuevo.cfg"));
    manager.person().Answer(u"Conmutadores", IDYES);
    manager.Close();
  });
  EXPECT_EQ(folder.Bytes(u"activo.dat"), folder.Bytes(u"nuevo.cfg"));
}

TEST_F(ManagerWindowTest, FileThatIsNoConfigurationIsRefused) {
  folder.Write(u"malo.cfg", "rubbish");
  Edit([this](const Manager& manager) {
    manager.Press(kBtnBuscar);
    manager.ChooseFile(folder.Path(u"malo.cfg"));
    const auto said = manager.person().Answer(u"Error", IDOK);
    EXPECT_EQ(said.text,
              u"No es posible abrir al archivo de configuración, no se reconoce.\r\n Archivo :" +
                  folder.Path(u"cfg.tmp"));
    EXPECT_EQ(said.buttons, kOk);
    EXPECT_EQ(manager.Outline(), "Conmutadores en Voralix  -  0 modelo(s) registrado(s)\n");
    manager.Close();
  });
  EXPECT_FALSE(folder.Exists(u"cnm1.cfg"));
}

TEST_F(ManagerWindowTest, CancelledDialogAddsNothing) {
  SaveSome();
  Edit([](const Manager& manager) {
    manager.Select(u"HiPath");
    manager.Press(kBtnBuscar);
    manager.ChooseFile(u"", IDCANCEL);
    EXPECT_NE(manager.Outline().find("3 modelo(s)"), std::string::npos);
    EXPECT_EQ(manager.Shown(kFrame1), u"Siemens, HiPath");
    EXPECT_TRUE(IsUsable(manager.window()));
    manager.Close();
  });
  EXPECT_FALSE(folder.Exists(u"cfg.tmp"));
}

TEST_F(ManagerWindowTest, DialogLeavesTheCurrentDirectoryAlone) {
  Save(u"nuevo.cfg", u"ACME", u"X1");
  wchar_t before[MAX_PATH] = L"", after[MAX_PATH] = L"";
  GetCurrentDirectoryW(MAX_PATH, before);
  Edit([this](const Manager& manager) {
    manager.Add(folder.Path(u"nuevo.cfg"));
    manager.Close();
  });
  GetCurrentDirectoryW(MAX_PATH, after);
  EXPECT_STREQ(after, before);
}

}  // namespace
}  // namespace conmuta::test
