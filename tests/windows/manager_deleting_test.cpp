// Models leave the catalogue.
#include "switch_manager.h"

namespace conmuta::test {
namespace {

using win32::kBtnDesinstalar;
using win32::kBtnEliminar;
using win32::kEtqArch;
using win32::kFrame1;

TEST_F(ManagerWindowTest, DeletingAsksFirst) {
  SaveSome();
  Edit([](const Manager& manager) {
    manager.Select(u"HiPath");
    manager.Press(kBtnEliminar);
    const auto said = manager.person().Answer(u"Advertencia", IDNO);
    EXPECT_EQ(said.text, u"¿Esta seguro que desea eliminar el conmutador : Siemens, HiPath ?");
    EXPECT_EQ(said.buttons, kYesNo);
    EXPECT_NE(said.icon, nullptr);
    EXPECT_NE(manager.Outline().find("HiPath"), std::string::npos);
    EXPECT_EQ(manager.Selected(), u"HiPath");
    manager.Close();
  });
  EXPECT_TRUE(folder.Exists(u"cnm3.cfg"));
}

TEST_F(ManagerWindowTest, LastModelTakesItsBrandWithIt) {
  SaveSome();
  Edit([](const Manager& manager) {
    manager.Select(u"HiPath");
    manager.Press(kBtnEliminar);
    manager.person().Answer(u"Advertencia", IDYES);
    manager.person().host().Drain();
    EXPECT_EQ(manager.Outline().find("Siemens"), std::string::npos);
    EXPECT_EQ(manager.Selected(), u"Conmutadores en Voralix  -  2 modelo(s) registrado(s)");
    EXPECT_EQ(manager.Shown(kFrame1), u"");
    EXPECT_FALSE(manager.CanPress(kBtnEliminar));
    manager.Select(u"X2");
    manager.Press(kBtnEliminar);
    manager.person().Answer(u"Advertencia", IDYES);
    manager.person().host().Drain();
    EXPECT_NE(manager.Outline().find("    X1\n"), std::string::npos) << "the brand has another";
    manager.Close();
  });
  EXPECT_FALSE(folder.Exists(u"cnm3.cfg"));
  EXPECT_FALSE(folder.Exists(u"cnm12.cfg"));
  EXPECT_TRUE(folder.Exists(u"cnm5.cfg"));
  EXPECT_FALSE(Installed());
}

TEST_F(ManagerWindowTest, DeletingTheDefaultModelDeletesTheDefaultSwitch) {
  SaveSome();
  Save(u"activo.dat", u"Siemens", u"HiPath");
  Edit([](const Manager& manager) {
    EXPECT_EQ(manager.Selected(), u"HiPath");
    manager.Press(kBtnEliminar);
    EXPECT_EQ(manager.person().Answer(u"Advertencia", IDYES).text,
              u"¿Esta seguro que desea eliminar el conmutador : Siemens, HiPath ?\r\n"
              u"Este conmutador esta predeterminado, eliminarlo provocara que no halla conmutador "
              u"predeterminado.");
    manager.person().host().Drain();
    EXPECT_EQ(manager.Shown(kBtnDesinstalar), kNoDefault);
    EXPECT_FALSE(manager.DefaultIsBold());
    manager.Close();
  });
  EXPECT_FALSE(folder.Exists(u"activo.dat"));
  EXPECT_FALSE(folder.Exists(u"cnm3.cfg"));
  EXPECT_TRUE(Installed());
}

TEST_F(ManagerWindowTest, DeleteKeyInTheTreeDeletesTheModel) {
  SaveSome();
  Edit([](const Manager& manager) {
    manager.person().SetFocusTo(manager.tree());
    manager.Select(u"Siemens");
    manager.person().Key(VK_DELETE);  // a brand is not deleted
    EXPECT_TRUE(IsUsable(manager.window()));
    manager.Select(u"HiPath");
    manager.person().Key(VK_DELETE);
    manager.person().Answer(u"Advertencia", IDYES);
    manager.person().host().Drain();
    EXPECT_EQ(manager.Outline().find("HiPath"), std::string::npos);
    manager.Close();
  });
}

TEST_F(ManagerWindowTest, EverythingCanBeDeletedAndAddedAgain) {
  SaveSome();
  Save(u"nuevo.cfg", u"ACME", u"X1");
  Edit([this](const Manager& manager) {
    for (const TextView model : {u"X1", u"X2", u"HiPath"}) {
      manager.Select(model);
      manager.Press(kBtnEliminar);
      manager.person().Answer(u"Advertencia", IDYES);
      manager.person().host().Drain();
    }
    EXPECT_EQ(manager.Outline(), "Conmutadores en Voralix  -  0 modelo(s) registrado(s)\n");
    manager.Add(folder.Path(u"nuevo.cfg"));
    EXPECT_EQ(manager.Outline(),
              "Conmutadores en Voralix  -  1 modelo(s) registrado(s)\n  ACME\n    X1\n");
    EXPECT_EQ(manager.Shown(kEtqArch), folder.Path(u"cnm13.cfg"));
    manager.Close();
  });
}

}  // namespace
}  // namespace conmuta::test
