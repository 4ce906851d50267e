// A configuration through its virtual table: what it is when new, its plain properties and names.
#include "host_test.h"

namespace conmuta::test {
namespace {

class CfgConmutTest : public HostTest {
 protected:
  void TearDown() override {
    config = {};
    HostTest::TearDown();
  }

  ComPtr<Cfg> config = NewConfig();
};

TEST_F(CfgConmutTest, NewOneIsEmpty) {
  EXPECT_EQ(Read(config, &Cfg::get_Modificado), VARIANT_FALSE);
  EXPECT_EQ(Read(config, &Cfg::get_HayConfig), VARIANT_FALSE);
  EXPECT_EQ(Read(config, &Cfg::get_IDCfg), 0);
  EXPECT_EQ(Read(config, &Cfg::get_Version), emVersion3_0);
  EXPECT_EQ(Read(config, &Cfg::get_NombreVersion), u"3.0");
  EXPECT_EQ(Read(config, &Cfg::get_Caso), emCasoEstandar);
  EXPECT_EQ(Read(config, &Cfg::get_NombreCaso), u"Estandar");
  EXPECT_EQ(Read(config, &Cfg::get_Marca), u"");
  EXPECT_EQ(Read(config, &Cfg::get_Modelo), u"");
  EXPECT_EQ(Read(config, &Cfg::get_NombreConmutador), u"Desconocido");
  EXPECT_EQ(Read(config, &Cfg::get_Comentarios), u"");
  EXPECT_EQ(Read(config, &Cfg::get_Separador), u"");
  EXPECT_EQ(Read(config, &Cfg::get_ListaSeparador), u"0,0,0,0,0,0,0,0,0,0,");
  EXPECT_EQ(Read(config, &Cfg::get_DATOActivo), emNoParamDato);
  EXPECT_EQ(Read(config, &Cfg::get_CTEActivo), emNoParamDatoConstante);
  EXPECT_EQ(Read(config, &Cfg::get_HayDATO), VARIANT_FALSE);
  EXPECT_EQ(Read(config, &Cfg::get_HayCTE), VARIANT_FALSE);
  EXPECT_EQ(Read(config, &Cfg::get_TipoDatoDATO), emNoDefinido);
  EXPECT_EQ(Read(config, &Cfg::get_TipoDatoCTE), emNoDefinido);
  EXPECT_EQ(Read(config, &Cfg::get_DATOPos), 0);
  EXPECT_EQ(Read(config, &Cfg::get_DATOTam), 0);
  EXPECT_EQ(Read(config, &Cfg::get_CTEPos), 0);
  EXPECT_EQ(Read(config, &Cfg::get_CTETam), 0);
  EXPECT_EQ(Read(config, &Cfg::get_Constante), u"");
  EXPECT_EQ(Read(config, &Cfg::get_PuertoActivo), emNoPuerto);
  EXPECT_EQ(Read(config, &Cfg::get_PinIZQ), 0);
  EXPECT_EQ(Read(config, &Cfg::get_PinDER), 0);
  EXPECT_EQ(Read(config, &Cfg::get_PinesConectados), VARIANT_FALSE);
}

TEST_F(CfgConmutTest, LimitsOfTheTexts) {
  EXPECT_EQ(Read(config, &Cfg::get_TamMaxSeparador), 10);
  EXPECT_EQ(Read(config, &Cfg::get_TamMaxComentarios), 250);
}

TEST_F(CfgConmutTest, IdentifierIsTheHostsAndMarksNoChange) {
  for (const long id : {7L, -1L, static_cast<long>(INT32_MAX), static_cast<long>(INT32_MIN)}) {
    Do(config, &Cfg::put_IDCfg, id);
    EXPECT_EQ(Read(config, &Cfg::get_IDCfg), id);
  }
  EXPECT_EQ(Read(config, &Cfg::get_Modificado), VARIANT_FALSE);
  Do(config, &Cfg::Iniciar);
  EXPECT_EQ(Read(config, &Cfg::get_IDCfg), INT32_MIN);
}

TEST_F(CfgConmutTest, ThereIsAConfigurationOnceBrandAndModelAreNamed) {
  Do(config, &Cfg::put_Marca, u"ACME");
  EXPECT_EQ(Read(config, &Cfg::get_HayConfig), VARIANT_FALSE);
  EXPECT_EQ(Read(config, &Cfg::get_NombreConmutador), u"Desconocido");
  Do(config, &Cfg::put_Modelo, u"X1");
  EXPECT_EQ(Read(config, &Cfg::get_HayConfig), VARIANT_TRUE);
  EXPECT_EQ(Read(config, &Cfg::get_NombreConmutador), u"ACME, X1");
  auto none = emNoCaso;
  Do(config, &Cfg::put_Caso, &none);
  EXPECT_EQ(Read(config, &Cfg::get_HayConfig), VARIANT_FALSE);
}

TEST_F(CfgConmutTest, CaseTakesAnyCodeAndLeavesTheCallersVariable) {
  for (const int code : {5, 0, 9, -1, static_cast<int>(INT32_MIN)}) {
    auto value = static_cast<emCasos>(code);
    Do(config, &Cfg::put_Caso, &value);
    EXPECT_EQ(value, code);
    EXPECT_EQ(Read(config, &Cfg::get_Caso), code);
  }
  EXPECT_EQ(Read(config, &Cfg::get_Modificado), VARIANT_TRUE);
}

TEST_F(CfgConmutTest, CaseNeedsAVariable) {
  EXPECT_EQ(Try(config, &Cfg::put_Caso, nullptr), Plain(E_POINTER));
  EXPECT_EQ(Read(config, &Cfg::get_Caso), emCasoEstandar);
  EXPECT_EQ(Read(config, &Cfg::get_Modificado), VARIANT_FALSE);
}

TEST_F(CfgConmutTest, CasesHaveNames) {
  const TextView names[] = {u"No definido",
                            u"Estandar",
                            u"Caso de Samsung Nx-820",
                            u"Caso del Nortel Meridian",
                            u"Caso norstar 0x32 SMDR6",
                            u"Resta de fechas para calcular la duración"};
  for (const int code : {-2, -1, 0, 1, 2, 3, 4, 5, 77, 1000}) {
    const bool known = code >= 0 && code < static_cast<int>(std::size(names));
    const Text name(known ? names[code] : u"");
    auto value = static_cast<emCasos>(code);
    EXPECT_EQ(Read(config, &Cfg::ObtNombreCaso, value), name) << code;
    EXPECT_EQ(Read(config, &Cfg::get_Caso), emCasoEstandar);
  }
  EXPECT_EQ(Read(config, &Cfg::get_Modificado), VARIANT_FALSE);
  for (const int code : {-2, -1, 0, 1, 2, 3, 4, 5, 77, 1000}) {
    const bool known = code >= 0 && code < static_cast<int>(std::size(names));
    const Text name(known ? names[code] : u"");
    auto value = static_cast<emCasos>(code);
    Do(config, &Cfg::put_Caso, &value);
    EXPECT_EQ(Read(config, &Cfg::get_NombreCaso), name) << code;
  }
}

TEST_F(CfgConmutTest, KindsHaveDescriptions) {
  struct Row {
    int code;
    TextView text;
  };
  for (const Row& row :
       {Row{2, u"Día de la fecha "}, Row{20, u"Numero telefónico inter - extension"},
        Row{53, u"Troncal No. 2 de fin de transferida inter - troncal"}, Row{1, u"No parametro"},
        Row{0, u"No parametro"}, Row{54, u"No parametro"}, Row{-1, u"No parametro"},
        Row{INT32_MIN, u"No parametro"}}) {
    EXPECT_EQ(Read(config, &Cfg::ObtDescDATO, static_cast<emParamDato>(row.code)), row.text)
        << row.code;
  }
  for (const Row& row :
       {Row{2, u"Identificador de horario matutino de la fecha"},
        Row{5, u"Identificador de entrante (AND)"},
        Row{23, u"Identificador de fin de transferida inter - troncal"}, Row{1, u"No parametro"},
        Row{24, u"No parametro"}, Row{-1, u"No parametro"}}) {
    EXPECT_EQ(Read(config, &Cfg::ObtDescCTE, static_cast<emParamDatoConstante>(row.code)), row.text)
        << row.code;
  }
}

TEST_F(CfgConmutTest, ActiveKindsTakeAnyCodeAndMarkNoChange) {
  for (const int code : {2, 53, 54, 0, -1, static_cast<int>(INT32_MAX)}) {
    Do(config, &Cfg::put_DATOActivo, static_cast<emParamDato>(code));
    EXPECT_EQ(Read(config, &Cfg::get_DATOActivo), code);
    Do(config, &Cfg::put_CTEActivo, static_cast<emParamDatoConstante>(code));
    EXPECT_EQ(Read(config, &Cfg::get_CTEActivo), code);
  }
  EXPECT_EQ(Read(config, &Cfg::get_Modificado), VARIANT_FALSE);
}

}  // namespace
}  // namespace conmuta::test
