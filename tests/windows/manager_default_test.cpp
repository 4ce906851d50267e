// The default switch is made, followed and removed.
#include "switch_manager.h"

namespace conmuta::test {
namespace {

using win32::kBtnDesinstalar;
using win32::kBtnInstalar;
using win32::kFrame1;

TEST_F(ManagerWindowTest, InstallingMakesTheDefaultSwitch) {
  SaveSome();
  Edit([](const Manager& manager) {
    manager.Select(u"HiPath");
    manager.Press(kBtnInstalar);
    const auto said = manager.person().Answer(u"Conmutadores", IDOK);
    EXPECT_EQ(said.text, u"Se ha predeterminado exitosamente el conmutador \r\nSiemens, HiPath.");
    EXPECT_EQ(said.buttons, kOk);
    manager.person().host().Drain();
    EXPECT_EQ(manager.Shown(kBtnDesinstalar), u"Siemens, HiPath");
    EXPECT_EQ(manager.ToolTip(), u"Conmutador predeterminado");
    EXPECT_TRUE(manager.DefaultIsBold());
    manager.Select(u"X1");
    EXPECT_EQ(manager.Shown(kFrame1).find(u">>"), Text::npos);
    EXPECT_FALSE(manager.DefaultIsBold());
    manager.Select(u"HiPath");
    EXPECT_EQ(manager.Shown(kFrame1), u">> Siemens, HiPath <<");
    EXPECT_TRUE(manager.DefaultIsBold());
    manager.Close();
  });
  EXPECT_EQ(folder.Bytes(u"activo.dat"), folder.Bytes(u"cnm3.cfg"));
  EXPECT_TRUE(Installed());
  Edit([](const Manager& manager) { manager.Close(); });
  EXPECT_TRUE(Installed()) << "it never goes back";
}

TEST_F(ManagerWindowTest, PresentDefaultSwitchIsMarked) {
  SaveSome();
  Save(u"activo.dat", u"siemens", u"HIPATH");
  Edit([](const Manager& manager) {
    EXPECT_EQ(manager.Selected(), u"HiPath");
    EXPECT_TRUE(manager.IsSelectedInView());
    EXPECT_EQ(manager.Shown(kBtnDesinstalar), u"Siemens, HiPath");
    EXPECT_TRUE(manager.DefaultIsBold());
    EXPECT_EQ(manager.ToolTip(), u"Conmutador predeterminado");
    manager.Close();
  });
  EXPECT_FALSE(Installed());
}

TEST_F(ManagerWindowTest, InstallingNeedsAFileName) {
  SaveSome();
  Do(catalogue, &Catalogue::put_ArchivoInstalado, u"");
  Edit([](const Manager& manager) {
    manager.Select(u"HiPath");
    manager.Press(kBtnInstalar);
    EXPECT_EQ(
        manager.person().Answer(u"Error", IDOK).text,
        u"No se ha determinado el archivo que se usará para predeterminar el conmutador a usar.");
    manager.Close();
  });
  EXPECT_FALSE(Installed());
}

TEST_F(ManagerWindowTest, InstallingOntoItselfIsRefused) {
  SaveSome();
  const auto before = folder.Bytes(u"cnm3.cfg");
  Do(catalogue, &Catalogue::put_ArchivoInstalado, folder.Path(u"CNM3.CFG"));
  Edit([](const Manager& manager) {
    manager.Select(u"HiPath");
    manager.Press(kBtnInstalar);
    EXPECT_EQ(manager.person().Answer(u"Error", IDOK).text,
              u"Ha ocurrido un conflicto de nombres de archivos.");
    manager.Close();
  });
  EXPECT_EQ(folder.Bytes(u"cnm3.cfg"), before);
  EXPECT_FALSE(Installed());
}

TEST_F(ManagerWindowTest, DefaultSwitchIsRemovedAfterYes) {
  SaveSome();
  Save(u"activo.dat", u"Siemens", u"HiPath");
  Edit([this](const Manager& manager) {
    manager.Press(kBtnDesinstalar);
    const auto asked = manager.person().Answer(u"Conmutadores", IDNO);
    EXPECT_EQ(asked.text, u"¿Deseas quitar el conmutador predeterminado 'Siemens, HiPath'?");
    EXPECT_EQ(asked.buttons, kYesNo);
    EXPECT_TRUE(folder.Exists(u"activo.dat"));
    manager.Press(kBtnDesinstalar);
    manager.person().Answer(u"Conmutadores", IDYES);
    const auto said = manager.person().Answer(u"Conmutadores", IDOK);
    EXPECT_EQ(said.text, u"Se ha quitado el conmutador predeterminado exitosamente.");
    manager.person().host().Drain();
    EXPECT_EQ(manager.Shown(kBtnDesinstalar), kNoDefault);
    EXPECT_EQ(manager.ToolTip(), kNoDefault);
    manager.Press(kBtnDesinstalar);  // nothing to remove any more
    EXPECT_TRUE(IsUsable(manager.window()));
    manager.Close();
  });
  EXPECT_FALSE(folder.Exists(u"activo.dat"));
  EXPECT_TRUE(folder.Exists(u"cnm3.cfg")) << "the catalogue stays";
  EXPECT_FALSE(Installed());
}

TEST_F(ManagerWindowTest, RemovedFileIsForgottenAllTheSame) {
  SaveSome();
  Save(u"activo.dat", u"Siemens", u"HiPath");
  Edit([this](const Manager& manager) {
    DeleteFileW(Wide(default_path).c_str());
    manager.Press(kBtnDesinstalar);
    manager.person().Answer(u"Conmutadores", IDYES);
    manager.person().host().Drain();
    EXPECT_TRUE(IsUsable(manager.window())) << "nothing more is said";
    EXPECT_EQ(manager.Shown(kBtnDesinstalar), kNoDefault);
    manager.Close();
  });
}

}  // namespace
}  // namespace conmuta::test
