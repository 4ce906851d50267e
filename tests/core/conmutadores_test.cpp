// The catalogue as hosts see it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "catalogue/clsConmutadores.h"
#include "support/manager_bench.h"

namespace conmuta {
namespace {

using test::ManagerBench;
using testing::ElementsAre;

class Catalogue : public testing::Test, protected ManagerBench {
 protected:
  // Opens the window, lets the user work, and closes it.
  void Edit(std::function<void(frmConmutador&)> user) {
    catalogue.Editar(
        [&] {
          auto made = std::make_unique<test::ManagerView>();
          made->user = [&, shown = made.get()](frmConmutador& running) {
            if (user) user(running);
            calls.insert(calls.end(), shown->calls.begin(), shown->calls.end());
          };
          return made;
        },
        [this] { return std::make_unique<test::CableView>(calls); });
  }
  void Set() {
    catalogue.Directorio(u"C:\\cat");
    catalogue.Prefijo(u"cnm");
    catalogue.Extension(u"cfg");
    catalogue.ArchivoInstalado(kDefault);
  }

  clsConmutadores catalogue{platform};
  std::vector<std::string> calls;
};

TEST_F(Catalogue, BeginsEmptyAndNotInstalled) {
  EXPECT_EQ(catalogue.Directorio(), u"");
  EXPECT_EQ(catalogue.Prefijo(), u"");
  EXPECT_EQ(catalogue.Extension(), u"");
  EXPECT_EQ(catalogue.ArchivoInstalado(), u"");
  EXPECT_FALSE(catalogue.Instalado());
}

TEST_F(Catalogue, DirectoryEndsWithABackslash) {
  const struct {
    TextView given;
    TextView kept;
  } rows[] = {{u"C:\\cat", u"C:\\cat\\"},
              {u"C:\\cat\\", u"C:\\cat\\"},
              {u"", u"\\"},
              {u"\\", u"\\"},
              {u"C:/cat/", u"C:/cat/\\"},
              {u" ", u" \\"}};
  for (const auto& row : rows) {
    catalogue.Directorio(row.given);
    EXPECT_EQ(catalogue.Directorio(), row.kept);
  }
}

TEST_F(Catalogue, OtherSettingsAreStoredAsGiven) {
  for (const TextView text : {u"", u" x ", u"a\\b", u".cfg"}) {
    catalogue.Prefijo(text);
    catalogue.Extension(text);
    catalogue.ArchivoInstalado(text);
    EXPECT_EQ(catalogue.Prefijo(), text);
    EXPECT_EQ(catalogue.Extension(), text);
    EXPECT_EQ(catalogue.ArchivoInstalado(), text);
  }
}

TEST_F(Catalogue, WindowIsFilledWhenItIsShown) {
  PutModel(1, "ACME", "X1");
  PutModel(2, "ACME", "X2");
  Put(kDefault, "ACME", "X2");
  Set();
  Edit([&](frmConmutador& running) {
    EXPECT_EQ(running.Prefijo(), u"cnm");
    EXPECT_EQ(running.Extension(), u"cfg");
    EXPECT_EQ(running.Directorio(), u"C:\\cat\\");
    EXPECT_EQ(running.ArchivoInstalar(), kDefault);
    EXPECT_EQ(ModelsOf(running.tree()).size(), 3u);
    EXPECT_EQ(running.selected().key, u"MOD2");
    EXPECT_EQ(running.default_caption(), u"ACME, X2");
  });
  EXPECT_THAT(calls, ElementsAre("busy", "idle", "run"));
}

TEST_F(Catalogue, LookingAroundInstallsNothing) {
  PutModel(1, "ACME", "X1");
  Put(kDefault, "ACME", "X1");
  Set();
  Edit([](frmConmutador& running) {
    running.NodeClick(u"MOD1");
    running.btnDesinstalar();
  });
  EXPECT_FALSE(catalogue.Instalado());
}

TEST_F(Catalogue, InstalledStaysInstalled) {
  PutModel(1, "ACME", "X1");
  Set();
  Edit([&](frmConmutador& running) {
    running.NodeClick(u"MOD1");
    EXPECT_FALSE(catalogue.Instalado());
    running.btnInstalar();
    EXPECT_TRUE(catalogue.Instalado());
  });
  EXPECT_TRUE(catalogue.Instalado());
  Edit(nullptr);
  EXPECT_TRUE(catalogue.Instalado());
  Edit([](frmConmutador& running) { running.btnDesinstalar(); });
  EXPECT_TRUE(catalogue.Instalado());
}

TEST_F(Catalogue, DeletingTheDefaultModelCountsAsInstalling) {
  PutModel(1, "ACME", "X1");
  Put(kDefault, "ACME", "X1");
  Set();
  Edit([](frmConmutador& running) {
    running.NodeClick(u"MOD1");
    running.btnEliminar();
  });
  EXPECT_TRUE(catalogue.Instalado());
  EXPECT_FALSE(Has(kDefault));
}

TEST_F(Catalogue, EachWindowLooksAtTheDiskAnew) {
  Set();
  Edit([](frmConmutador& running) { EXPECT_EQ(ModelsOf(running.tree()).size(), 1u); });
  PutModel(1, "ACME", "X1");
  Edit([](frmConmutador& running) { EXPECT_EQ(ModelsOf(running.tree()).size(), 2u); });
}

TEST_F(Catalogue, WindowMayBeOpenedWithoutAnySetting) {
  Edit([](frmConmutador& running) {
    running.btnInstalar();
    running.btnDesinstalar();
    running.btnEliminar();
    running.btnPuertos();
    running.btnContraer();
    running.btnBuscar();
    EXPECT_EQ(ModelsOf(running.tree()).size(), 1u);
  });
  EXPECT_FALSE(catalogue.Instalado());
}

TEST_F(Catalogue, HostMayOpenItAgainFromWithin) {
  PutModel(1, "ACME", "X1");
  Set();
  Edit([&](frmConmutador&) {
    Edit([](frmConmutador& inner) {
      inner.NodeClick(u"MOD1");
      inner.btnInstalar();
    });
  });
  EXPECT_TRUE(catalogue.Instalado());
}

}  // namespace
}  // namespace conmuta
