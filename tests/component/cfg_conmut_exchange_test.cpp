// Exporting and importing, through the system's own profile functions.
#include "host_test.h"
#include "scratch_files.h"
#include "sink.h"

namespace conmuta::test {
namespace {

Failure ImportFailure(TextView detail, const Text& path) {
  return {static_cast<HRESULT>(0x800405E0), u"clsConfigConmut.Importar",
          u"Error de importación en la configuración.\r\n" + Text(detail) + u"\r\n" + path};
}

class CfgConmutExchangeTest : public HostTest {
 protected:
  void TearDown() override {
    config = {};
    HostTest::TearDown();
  }

  void Fill() {
    Do(config, &Cfg::put_Marca, u"ACME");
    Do(config, &Cfg::put_Modelo, u"Módulo 1");
    Do(config, &Cfg::put_Separador, u"\r\n");
    Do(config, &Cfg::put_Comentarios, u"uno\r\ndos");
    Do(config, &Cfg::put_DATOActivo, emParamFechaDia);
    Do(config, &Cfg::put_DATOPos, 5);
    Do(config, &Cfg::put_DATOTam, 2);
    Do(config, &Cfg::put_CTEActivo, emDatoCteIdentEntrante);
    Do(config, &Cfg::put_Constante, u"IN");
    Do(config, &Cfg::put_CTEPos, 1);
  }

  const ScratchFolder folder;
  ComPtr<Cfg> config = NewConfig();
};

TEST_F(CfgConmutExchangeTest, WhatWasExportedComesBack) {
  Fill();
  const Text path = folder.Path(u"a.txt");
  folder.Write(u"a.txt", "[Datos]\r\nDato2=3,1,1,1,\r\n");
  Sink sink;
  {
    const Connection connection(config.get(), &sink);
    Do(config, &Cfg::Exportar, path);
  }
  EXPECT_EQ(Read(config, &Cfg::get_Modificado), VARIANT_TRUE);

  const auto other = NewConfig();
  Do(other, &Cfg::put_IDCfg, 3L);
  {
    const Connection connection(other.get(), &sink);
    Do(other, &Cfg::Importar, path);
  }
  const Events heard = sink.Take();
  ASSERT_FALSE(heard.empty());
  EXPECT_EQ(heard.back(), kLoaded);
  EXPECT_EQ(Read(other, &Cfg::get_Modificado), VARIANT_FALSE);
  EXPECT_EQ(Read(other, &Cfg::get_NombreConmutador), u"ACME, Módulo 1");
  EXPECT_EQ(Read(other, &Cfg::get_ListaSeparador), u"13,10,0,0,0,0,0,0,0,0,");
  EXPECT_EQ(Read(other, &Cfg::get_Comentarios), u"uno  dos");
  Do(other, &Cfg::put_DATOActivo, emParamFechaDia);
  EXPECT_EQ(Read(other, &Cfg::get_HayDATO), VARIANT_TRUE);
  EXPECT_EQ(Read(other, &Cfg::get_DATOPos), 5);
  Do(other, &Cfg::put_DATOActivo, emParamFechaMes);
  EXPECT_EQ(Read(other, &Cfg::get_HayDATO), VARIANT_FALSE) << "an old key was left in the file";
  Do(other, &Cfg::put_CTEActivo, emDatoCteIdentEntrante);
  EXPECT_EQ(Read(other, &Cfg::get_Constante), u"IN");
}

TEST_F(CfgConmutExchangeTest, ExportingWithoutANameFails) {
  EXPECT_EQ(Try(config, &Cfg::Exportar, u"  "),
            (Failure{static_cast<HRESULT>(0x800405DD), u"clsConfigConmut.Exportar",
                     u"No es posible encontrar el archivo deseado."}));
}

TEST_F(CfgConmutExchangeTest, ExportingWhereNothingCanBeWrittenFails) {
  EXPECT_EQ(Try(config, &Cfg::Exportar, folder.Path(u"no\\a.txt")),
            (Failure{static_cast<HRESULT>(0x800405DF), u"clsConfigConmut.Exportar",
                     u"Ocurrio un error en los datos al intentar exportar la configuración."}));
}

TEST_F(CfgConmutExchangeTest, ImportingWhatIsNotThereFailsAtTheVersion) {
  const Text path = folder.Path(u"no.txt");
  EXPECT_EQ(Try(config, &Cfg::Importar, path), ImportFailure(u"La versión no es correcta.", path));
}

TEST_F(CfgConmutExchangeTest, CaseThatIsNotStandardIsNotImported) {
  Fill();
  auto value = emCasoSamsungNX_820;
  Do(config, &Cfg::put_Caso, &value);
  const Text path = folder.Path(u"a.txt");
  Do(config, &Cfg::Exportar, path);
  EXPECT_EQ(Try(config, &Cfg::Importar, path),
            ImportFailure(u"El caso de la configuración no esta soportado.", path));
  EXPECT_EQ(Read(config, &Cfg::get_Caso), emCasoSamsungNX_820);
  EXPECT_EQ(Read(config, &Cfg::get_Modificado), VARIANT_TRUE);
}

TEST_F(CfgConmutExchangeTest, SeparatorOfNulsIsNone) {
  folder.Write(u"a.txt",
               "[Conmutador]\r\nVersion=2\r\nMarca=ACME\r\nModelo=X1\r\nCaso=1\r\n"
               "Separador=0,0,\r\n");
  const Text path = folder.Path(u"a.txt");
  EXPECT_EQ(Try(config, &Cfg::Importar, path),
            ImportFailure(u"No hay un separador de llamadas definido.", path));
  // What was checked before is stored.
  EXPECT_EQ(Read(config, &Cfg::get_Version), emVersion2_0);
  EXPECT_EQ(Read(config, &Cfg::get_NombreConmutador), u"ACME, X1");
}

TEST_F(CfgConmutExchangeTest, ImportedVersionIsSavedAsThePresentOne) {
  folder.Write(u"a.txt",
               "[Conmutador]\r\nVersion=2\r\nMarca=ACME\r\nModelo=X1\r\nCaso=1\r\n"
               "Separador=13,10,\r\n");
  Do(config, &Cfg::Importar, folder.Path(u"a.txt"));
  EXPECT_EQ(Read(config, &Cfg::get_NombreVersion), u"2.0");
  Do(config, &Cfg::GuardarComo, folder.Path(u"a.cfg"));
  EXPECT_EQ(folder.Bytes(u"a.cfg").at(0), 3);
  EXPECT_EQ(Read(config, &Cfg::get_NombreVersion), u"2.0");
}

}  // namespace
}  // namespace conmuta::test
