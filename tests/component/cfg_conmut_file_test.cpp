// Saving and opening configurations, with every failure as hosts see it.
#include "host_test.h"
#include "scratch_files.h"

namespace conmuta::test {
namespace {

constexpr HRESULT ConfigError(unsigned code) {
  return static_cast<HRESULT>(0x80040000u + code);
}
constexpr TextView kNotFound = u"No es posible encontrar el archivo deseado.";
constexpr TextView kIncomplete =
    u"Los datos de la configuración no estan completos.\r\n"
    u"Verifica la marca y modelo, el separador de llamadas, el caso establecido.";

Failure OpenFailure(unsigned code, TextView message, const Text& path) {
  return {ConfigError(code), u"clsConfigConmut.Abrir", Text(message) + u"\r\n Archivo :" + path};
}

class CfgConmutFileTest : public HostTest {
 protected:
  void TearDown() override {
    config = {};
    HostTest::TearDown();
  }

  void Fill() {
    Do(config, &Cfg::put_Marca, u"ACME");
    Do(config, &Cfg::put_Modelo, u"X1");
    Do(config, &Cfg::put_Separador, u"\r\n");
  }
  void DefineItem(int kind, unsigned char pos, unsigned char size) {
    Do(config, &Cfg::put_DATOActivo, static_cast<emParamDato>(kind));
    Do(config, &Cfg::put_DATOPos, pos);
    Do(config, &Cfg::put_DATOTam, size);
  }
  void DefineConstant(int kind, unsigned char pos, TextView text) {
    Do(config, &Cfg::put_CTEActivo, static_cast<emParamDatoConstante>(kind));
    Do(config, &Cfg::put_Constante, text);
    Do(config, &Cfg::put_CTEPos, pos);
  }
  Text SavedAs(TextView name) {
    const Text path = folder.Path(name);
    Do(config, &Cfg::GuardarComo, path);
    return path;
  }

  const ScratchFolder folder;
  ComPtr<Cfg> config = NewConfig();
};

TEST_F(CfgConmutFileTest, FileHoldsTheHeaderAndTheSlotsInUse) {
  Fill();
  DefineItem(2, 5, 2);
  DefineItem(3, 8, 2);
  DefineItem(4, 11, 4);
  DefineItem(5, 0, 2);
  DefineConstant(4, 1, u"IN");
  DefineConstant(7, 1, u"OUT");
  EXPECT_EQ(Read(config, &Cfg::get_Modificado), VARIANT_TRUE);
  SavedAs(u"a.cfg");
  EXPECT_EQ(Read(config, &Cfg::get_Modificado), VARIANT_FALSE);
  const std::string bytes = folder.Bytes(u"a.cfg");
  ASSERT_EQ(bytes.size(), 750u);
  EXPECT_EQ(bytes.substr(0, 8), std::string("\3\0\0\0ACME", 8));
  EXPECT_EQ(bytes.substr(354, 14), std::string("\r\n\0\0\0\0\0\0\0\0\1\0\0\0", 14));
  EXPECT_EQ(bytes.substr(656, 4), std::string("\3\0\2\0", 4));
  EXPECT_EQ(bytes.substr(660, 10), std::string("\2\0\0\0\1\0\0\0\5\2", 10));
  EXPECT_EQ(bytes.substr(690, 13), std::string("\4\0\0\0\2\0\0\0\1\2IN\0", 13));
}

TEST_F(CfgConmutFileTest, WhatWasSavedComesBack) {
  Fill();
  Do(config, &Cfg::put_Comentarios, u"Línea 1\r\nLínea 2");
  auto subtraction = emCasoRestaFechasDuracion;
  Do(config, &Cfg::put_Caso, &subtraction);
  DefineItem(53, 250, 5);
  Do(config, &Cfg::put_TipoDatoDATO, emValorCadena);
  DefineConstant(23, 9, TextView(u"A\0ñ", 3));
  Do(config, &Cfg::put_PuertoActivo, emPuertoSerialDB25DB25);
  Do(config, &Cfg::put_PinIZQ, short{25});
  Do(config, &Cfg::put_PinDER, short{1});
  Do(config, &Cfg::put_PinesConectados, VARIANT_TRUE);
  const Text path = SavedAs(u"a.cfg");

  const auto other = NewConfig();
  Do(other, &Cfg::put_IDCfg, 9L);
  Do(other, &Cfg::put_PuertoActivo, emPuertoSerialDB25DB25);
  Do(other, &Cfg::Abrir, path);
  EXPECT_EQ(Read(other, &Cfg::get_Modificado), VARIANT_FALSE);
  EXPECT_EQ(Read(other, &Cfg::get_IDCfg), 9);
  EXPECT_EQ(Read(other, &Cfg::get_NombreConmutador), u"ACME, X1");
  EXPECT_EQ(Read(other, &Cfg::get_Separador), u"\r\n");
  EXPECT_EQ(Read(other, &Cfg::get_Comentarios), u"Línea 1\r\nLínea 2");
  EXPECT_EQ(Read(other, &Cfg::get_Caso), emCasoRestaFechasDuracion);
  Do(other, &Cfg::put_DATOActivo, emParamTroncal2InterTroncalFinTransferida);
  EXPECT_EQ(Read(other, &Cfg::get_HayDATO), VARIANT_TRUE);
  EXPECT_EQ(Read(other, &Cfg::get_TipoDatoDATO), emValorCadena);
  EXPECT_EQ(Read(other, &Cfg::get_DATOPos), 250);
  EXPECT_EQ(Read(other, &Cfg::get_DATOTam), 5);
  Do(other, &Cfg::put_CTEActivo, emDatoCteIdentInterTroncalFinTransferida);
  EXPECT_EQ(Read(other, &Cfg::get_HayCTE), VARIANT_TRUE);
  EXPECT_EQ(Read(other, &Cfg::get_CTEPos), 9);
  EXPECT_EQ(Read(other, &Cfg::get_Constante), u"Añ");
  Do(other, &Cfg::put_PinIZQ, short{25});
  Do(other, &Cfg::put_PinDER, short{1});
  EXPECT_EQ(Read(other, &Cfg::get_PinesConectados), VARIANT_TRUE);
  Do(other, &Cfg::GuardarComo, folder.Path(u"b.cfg"));
  EXPECT_EQ(folder.Bytes(u"b.cfg"), folder.Bytes(u"a.cfg"));
}

TEST_F(CfgConmutFileTest, NameOfTheFileMayHaveAnyCharacter) {
  Fill();
  const Text path = SavedAs(u"año \u4E2D.cfg");
  EXPECT_TRUE(folder.Exists(u"año \u4E2D.cfg"));
  Do(NewConfig(), &Cfg::Abrir, path);
}

TEST_F(CfgConmutFileTest, SavingReplacesAnOldFile) {
  Fill();
  folder.Write(u"a.cfg", std::string(5000, 'x'));
  SavedAs(u"a.cfg");
  EXPECT_EQ(folder.Bytes(u"a.cfg").size(), 660u);
}

TEST_F(CfgConmutFileTest, SavingWithoutANameFails) {
  Fill();
  for (const TextView path : {TextView(u""), TextView(u"   ")}) {
    EXPECT_EQ(Try(config, &Cfg::GuardarComo, path),
              (Failure{ConfigError(1501), u"clsConfigConmut.Exportar", Text(kNotFound)}));
  }
  EXPECT_EQ(FailureOf(config->GuardarComo(nullptr)).result, ConfigError(1501));
  EXPECT_EQ(Read(config, &Cfg::get_Modificado), VARIANT_TRUE);
}

TEST_F(CfgConmutFileTest, SavingAnIncompleteConfigurationFailsAndLeavesTheFile) {
  const Failure incomplete{ConfigError(1502), u"clsConfigConmut.GuardarComo", Text(kIncomplete)};
  folder.Write(u"a.cfg", "old");
  const Text path = folder.Path(u"a.cfg");
  EXPECT_EQ(Try(config, &Cfg::GuardarComo, path), incomplete);
  Fill();
  auto none = emNoCaso;
  Do(config, &Cfg::put_Caso, &none);
  EXPECT_EQ(Try(config, &Cfg::GuardarComo, path), incomplete);
  auto other = Code<emCasos>(9);
  Do(config, &Cfg::put_Caso, &other);
  for (const auto put : {&Cfg::put_Marca, &Cfg::put_Modelo, &Cfg::put_Separador}) {
    Do(config, put, TextView(u"\0", 1));
    EXPECT_EQ(Try(config, &Cfg::GuardarComo, path), incomplete);
    Do(config, put, u"x");
  }
  EXPECT_EQ(folder.Bytes(u"a.cfg"), "old");
  Do(config, &Cfg::GuardarComo, path);
}

TEST_F(CfgConmutFileTest, SavingWhereNothingCanBeWrittenFails) {
  Fill();
  for (const Text& path : {folder.Path(u"no\\a.cfg"), folder.Path(u""), Text(u"\\\\?\\")}) {
    EXPECT_EQ(Try(config, &Cfg::GuardarComo, path),
              (Failure{ConfigError(1500), u"clsConfigConmut.GuardarComo",
                       u"No es posible acceder al archivo o el nombre del archivo no es válido."}));
  }
  EXPECT_EQ(Read(config, &Cfg::get_Modificado), VARIANT_TRUE);
}

TEST_F(CfgConmutFileTest, PathWithANulIsNoPath) {
  Fill();
  const Text path = folder.Path(u"a.cfg") + Text(1, u'\0') + u"b";
  EXPECT_EQ(Try(config, &Cfg::GuardarComo, path).result, ConfigError(1500));
  EXPECT_FALSE(folder.Exists(u"a.cfg"));
  EXPECT_EQ(Try(config, &Cfg::Abrir, path).result, ConfigError(1501));
}

TEST_F(CfgConmutFileTest, OpeningWithoutANameFails) {
  EXPECT_EQ(Try(config, &Cfg::Abrir, u""), OpenFailure(0, u"Error desconocido.", u""));
  EXPECT_EQ(Try(config, &Cfg::Abrir, u"  "), OpenFailure(0, u"Error desconocido.", u"  "));
  EXPECT_EQ(FailureOf(config->Abrir(nullptr)), OpenFailure(0, u"Error desconocido.", u""));
}

TEST_F(CfgConmutFileTest, OpeningWhatIsNotThereFails) {
  const Text path = folder.Path(u"no.cfg");
  EXPECT_EQ(Try(config, &Cfg::Abrir, path), OpenFailure(1501, kNotFound, path));
}

TEST_F(CfgConmutFileTest, OpeningAFolderFails) {
  const Text path = folder.Path(u"");
  EXPECT_EQ(Try(config, &Cfg::Abrir, path), OpenFailure(1501, kNotFound, path));
}

TEST_F(CfgConmutFileTest, WhatIsNoConfigurationIsNotOpenedAndChangesNothing) {
  Fill();
  SavedAs(u"a.cfg");
  std::string header = folder.Bytes(u"a.cfg");
  const auto with = [&](std::size_t place, std::size_t length, const std::string& bytes) {
    std::string changed = header;
    return changed.replace(place, length, bytes);
  };
  const std::string contents[] = {
      "",
      header.substr(0, 659),
      with(0, 1, "\2"),
      with(4, 50, std::string(50, '\0')),
      with(54, 50, std::string(50, '\0')),
      with(354, 10, std::string(10, '\0')),
  };
  const auto other = NewConfig();
  Do(other, &Cfg::put_Marca, u"Otra");
  const Text path = folder.Path(u"b.cfg");
  for (const std::string& content : contents) {
    folder.Write(u"b.cfg", content);
    EXPECT_EQ(Try(other, &Cfg::Abrir, path),
              OpenFailure(1505, u"No es posible abrir al archivo de configuración, no se reconoce.",
                          path));
    EXPECT_EQ(Read(other, &Cfg::get_Marca), u"Otra");
    EXPECT_EQ(Read(other, &Cfg::get_Modificado), VARIANT_TRUE);
  }
}

TEST_F(CfgConmutFileTest, RecordsBeforeACutAreLoaded) {
  Fill();
  DefineItem(2, 5, 2);
  DefineItem(3, 8, 2);
  SavedAs(u"a.cfg");
  folder.Write(u"b.cfg", folder.Bytes(u"a.cfg").substr(0, 679));
  const auto other = NewConfig();
  Do(other, &Cfg::Abrir, folder.Path(u"b.cfg"));
  Do(other, &Cfg::put_DATOActivo, emParamFechaDia);
  EXPECT_EQ(Read(other, &Cfg::get_HayDATO), VARIANT_TRUE);
  Do(other, &Cfg::put_DATOActivo, emParamFechaMes);
  EXPECT_EQ(Read(other, &Cfg::get_HayDATO), VARIANT_FALSE);
}

TEST_F(CfgConmutFileTest, AnyCaseIsAccepted) {
  Fill();
  auto nine = Code<emCasos>(9);
  Do(config, &Cfg::put_Caso, &nine);
  const Text path = SavedAs(u"a.cfg");
  const auto other = NewConfig();
  Do(other, &Cfg::Abrir, path);
  EXPECT_EQ(Read(other, &Cfg::get_Caso), 9);
}

}  // namespace
}  // namespace conmuta::test
