// What a handler of the events may see and do while it runs.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/config_bench.h"
#include "support/file_images.h"

namespace conmuta {
namespace {

using test::ConfigBench;
using test::Events;
using testing::ElementsAre;
using testing::IsEmpty;

class ConfigEvents : public testing::Test, protected ConfigBench {};

TEST_F(ConfigEvents, HandlerSeesTheNewValueAndTheChangeFlag) {
  bool seen = false;
  listener.OnNextEvent([&] { seen = config.Marca() == u"ACME" && config.Modificado(); });
  config.Marca(u"ACME");
  EXPECT_TRUE(seen);
  EXPECT_THAT(TakeEvents(), ElementsAre("CambioNombreConmutador", "Cambios"));
}

TEST_F(ConfigEvents, EveryWriteShowsItsValueInsideItsEvent) {
  config.DATOActivo(emParamFechaDia);
  config.CTEActivo(emDatoCteIdentEntrante);
  config.PuertoActivo(emPuertoSerialDB9DB9);
  config.PinIZQ(1);
  config.PinDER(1);
  int seen = 0;
  const auto expect = [&](auto read, auto value) {
    listener.OnNextEvent([&, read, value] {
      EXPECT_EQ(read(), value);
      EXPECT_TRUE(config.Modificado());
      ++seen;
    });
  };
  expect([&] { return config.Modelo(); }, Text(u"X1"));
  config.Modelo(u"X1");
  expect([&] { return config.Comentarios(); }, Text(u"text"));
  config.Comentarios(u"text");
  expect([&] { return config.Separador(); }, Text(u";"));
  config.Separador(u";");
  expect([&] { return config.Caso(); }, emCasoSamsungNX_820);
  config.Caso(emCasoSamsungNX_820);
  expect([&] { return config.DATOPos(); }, 5);
  config.DATOPos(5);
  expect([&] { return config.DATOTam(); }, 2);
  config.DATOTam(2);
  expect([&] { return config.TipoDatoDATO(); }, emValorCadena);
  config.TipoDatoDATO(emValorCadena);
  expect([&] { return config.CTEPos(); }, 9);
  config.CTEPos(9);
  expect([&] { return config.Constante(); }, Text(u"IN"));
  config.Constante(u"IN");
  expect([&] { return config.CTETam(); }, 7);
  config.CTETam(7);
  expect([&] { return config.PinesConectados(); }, true);
  config.PinesConectados(true);
  EXPECT_EQ(seen, 11);
}

TEST_F(ConfigEvents, TypeIsDecidedAfterTheEventOfAPosition) {
  config.DATOActivo(emParamFechaDia);
  emTipoDato inside = emNoDefinido;
  listener.OnNextEvent([&] { inside = config.TipoDatoDATO(); });
  config.DATOPos(5);
  EXPECT_EQ(inside, emValorNumerico);  // as the slot was made
  EXPECT_EQ(config.TipoDatoDATO(), emNoDefinido);
}

TEST_F(ConfigEvents, SizeOfAConstantIsSetAfterTheEventOfItsText) {
  config.CTEActivo(emDatoCteIdentEntrante);
  config.CTEPos(1);
  int inside = -1;
  listener.OnNextEvent([&] { inside = config.CTETam(); });
  config.Constante(u"IN");
  EXPECT_EQ(inside, 0);
  EXPECT_EQ(config.CTETam(), 2);
}

TEST_F(ConfigEvents, TypeIsDecidedBeforeItsOwnEvent) {
  config.DATOActivo(emParamFechaDia);
  emTipoDato inside = emValorConstante;
  listener.OnNextEvent([&] { inside = config.TipoDatoDATO(); });
  config.TipoDatoDATO(emValorCadena);  // without a place: released
  EXPECT_EQ(inside, emNoDefinido);
}

TEST_F(ConfigEvents, WriteInsideAnEventIsNested) {
  listener.OnNextEvent([&] { config.Modelo(u"X1"); });
  config.Marca(u"ACME");
  EXPECT_THAT(TakeEvents(), ElementsAre("CambioNombreConmutador", "CambioNombreConmutador",
                                        "Cambios", "Cambios"));
  EXPECT_EQ(config.NombreConmutador(), u"ACME, X1");
}

TEST_F(ConfigEvents, HandlerMayCorrectTheValueBeingWritten) {
  listener.OnNextEvent([&] { config.Marca(u"Acme"); });
  config.Marca(u"ACME");
  EXPECT_EQ(config.Marca(), u"Acme");
}

TEST_F(ConfigEvents, HandlerMayStopListening) {
  listener.OnNextEvent([&] { config.Listen(nullptr); });
  config.Marca(u"ACME");
  EXPECT_THAT(TakeEvents(), ElementsAre("CambioNombreConmutador"));
  config.Modelo(u"X1");
  config.Caso(emNoCaso);
  config.Iniciar();
  EXPECT_THAT(TakeEvents(), IsEmpty());
}

TEST_F(ConfigEvents, ListenerMayLeaveEventsAlone) {
  ConfigListener indifferent;
  config.Listen(&indifferent);
  config.Marca(u"ACME");
  config.Iniciar();
  files.entries[u"a.cfg"] = {test::SwitchFile().Bytes()};
  config.Abrir(u"a.cfg");
  EXPECT_EQ(config.NombreConmutador(), u"ACME, X1");
}

TEST_F(ConfigEvents, HandlerMayHandOverToAnotherListener) {
  test::RecordingListener other;
  listener.OnNextEvent([&] { config.Listen(&other); });
  config.Marca(u"ACME");
  EXPECT_THAT(TakeEvents(), ElementsAre("CambioNombreConmutador"));
  EXPECT_THAT(other.Take(), ElementsAre("Cambios"));
}

TEST_F(ConfigEvents, HandlerMayAddSlotsWhileOneIsWritten) {
  const auto add_all = [&] {
    for (int kind = 3; kind <= 53; ++kind) {
      test::DefineItem(config, static_cast<emParamDato>(kind), kind, 1);
    }
    for (int kind = 5; kind <= 23; ++kind) {
      test::DefineConstant(config, static_cast<emParamDatoConstante>(kind), kind, u"x");
    }
  };
  listener.OnNextEvent(add_all);
  config.DATOActivo(emParamFechaDia);
  config.DATOPos(5);
  EXPECT_EQ(config.DATOActivo(), 53);
  config.DATOActivo(emParamFechaDia);
  EXPECT_EQ(config.DATOPos(), 5);
  EXPECT_FALSE(config.HayDATO());
  config.DATOTam(2);
  EXPECT_TRUE(config.HayDATO());
}

TEST_F(ConfigEvents, HandlerMayAddConstantsWhileOneIsWritten) {
  listener.OnNextEvent([&] {
    for (int kind = 5; kind <= 23; ++kind) {
      test::DefineConstant(config, static_cast<emParamDatoConstante>(kind), kind, u"other");
    }
  });
  config.CTEActivo(emDatoCteIdentEntrante);
  config.Constante(u"IN");
  config.CTEActivo(emDatoCteIdentEntrante);
  EXPECT_EQ(config.Constante(), u"IN");
  EXPECT_EQ(config.CTETam(), 2);
}

TEST_F(ConfigEvents, WriteEndsOnTheSlotItBeganOn) {
  test::DefineItem(config, emParamFechaDia, 5, 2, emValorCadena);
  test::DefineItem(config, emParamFechaMes, 8, 2, emValorCadena);
  config.DATOActivo(emParamFechaDia);
  listener.OnNextEvent([&] { config.DATOActivo(emParamFechaMes); });
  config.DATOPos(6);
  EXPECT_EQ(config.DATOActivo(), emParamFechaMes);
  EXPECT_EQ(config.DATOPos(), 8);
  EXPECT_EQ(config.TipoDatoDATO(), emValorCadena);
  config.DATOActivo(emParamFechaDia);
  EXPECT_EQ(config.DATOPos(), 6);
  EXPECT_EQ(config.TipoDatoDATO(), emValorNumerico);
}

TEST_F(ConfigEvents, ConstantEndsOnTheSlotItBeganOn) {
  test::DefineConstant(config, emDatoCteIdentEntrante, 1, u"IN");
  test::DefineConstant(config, emDatoCteIdentSaliente, 2, u"OUT");
  config.CTEActivo(emDatoCteIdentEntrante);
  listener.OnNextEvent([&] { config.CTEActivo(emDatoCteIdentSaliente); });
  config.Constante(u"INCOMING");
  EXPECT_EQ(config.CTETam(), 3);
  config.CTEActivo(emDatoCteIdentEntrante);
  EXPECT_EQ(config.CTETam(), 8);
  EXPECT_EQ(config.Constante(), u"INCOMING");
}

TEST_F(ConfigEvents, SlotMayChangeItsKindWhileItIsWritten) {
  test::DefineItem(config, emParamFechaDia, 5, 2);
  listener.OnNextEvent([&] {
    config.TipoDatoDATO(emNoDefinido);
    config.DATOActivo(emParamFechaMes);
    config.DATOTam(4);  // takes the released slot over
  });
  config.DATOActivo(emParamFechaDia);
  config.DATOPos(6);
  EXPECT_EQ(config.DATOActivo(), emParamFechaMes);
  EXPECT_TRUE(config.HayDATO());
  EXPECT_EQ(config.DATOPos(), 6);
  EXPECT_EQ(config.DATOTam(), 4);
  config.DATOActivo(emParamFechaDia);
  EXPECT_FALSE(config.HayDATO());
  EXPECT_EQ(config.DATOPos(), 0);
}

TEST_F(ConfigEvents, ReleasedInsideItsOwnWriteItIsTakenBack) {
  test::DefineItem(config, emParamFechaDia, 5, 2);
  listener.OnNextEvent([&] { config.TipoDatoDATO(emNoDefinido); });
  config.DATOPos(6);
  EXPECT_TRUE(config.HayDATO());
}

TEST_F(ConfigEvents, IniciarInsideAWriteDoesNotUndoItsRest) {
  test::DefineItem(config, emParamFechaDia, 5, 2);
  TakeEvents();
  listener.OnNextEvent([&] { config.Iniciar(); });
  config.DATOPos(6);
  EXPECT_THAT(TakeEvents(), ElementsAre("Cambios", "Inicializado"));
  EXPECT_FALSE(config.Modificado());
  config.DATOActivo(emParamFechaDia);
  EXPECT_TRUE(config.HayDATO());
  EXPECT_EQ(config.DATOPos(), 6);
}

TEST_F(ConfigEvents, IniciarReportsTheTextsItClears) {
  Name();
  config.Comentarios(u"text");
  config.Caso(emNoCaso);
  TakeEvents();
  config.Iniciar();
  EXPECT_THAT(TakeEvents(),
              ElementsAre("Cambios",                            // comments
                          "CambioNombreConmutador", "Cambios",  // brand
                          "CambioNombreConmutador", "Cambios",  // model
                          "Cambios",                            // separator
                          "Inicializado"));
}

TEST_F(ConfigEvents, IniciarClearsCableThenTextsThenTheRest) {
  Name();
  config.Comentarios(u"text");
  config.Caso(emCasoSamsungNX_820);
  config.PuertoActivo(emPuertoSerialDB9DB9);
  config.PinIZQ(3);
  config.PinDER(2);
  config.PinesConectados(true);
  test::DefineItem(config, emParamFechaDia, 5, 2);
  bool seen = false;
  listener.OnNextEvent([&] {
    seen = true;
    EXPECT_FALSE(config.PinesConectados());
    EXPECT_EQ(config.Comentarios(), u"");
    EXPECT_EQ(config.NombreConmutador(), u"ACME, X1");
    EXPECT_EQ(config.Separador(), u"\r\n");
    EXPECT_EQ(config.PinIZQ(), 3);
    EXPECT_EQ(config.DATOActivo(), emParamFechaDia);
    EXPECT_TRUE(config.HayDATO());
    EXPECT_EQ(config.Caso(), emCasoSamsungNX_820);
    EXPECT_TRUE(config.Modificado());
  });
  config.Iniciar();
  EXPECT_TRUE(seen);
}

TEST_F(ConfigEvents, InicializadoComesWhenEverythingIsDone) {
  Name();
  test::DefineItem(config, emParamFechaDia, 5, 2);
  bool seen = false;
  listener.On("Inicializado", [&] {
    seen = true;
    EXPECT_FALSE(config.Modificado());
    EXPECT_EQ(config.NombreConmutador(), u"Desconocido");
    EXPECT_EQ(config.DATOActivo(), emNoParamDato);
    config.Marca(u"NEW");
  });
  config.Iniciar();
  EXPECT_TRUE(seen);
  EXPECT_EQ(config.Marca(), u"NEW");
  EXPECT_TRUE(config.Modificado());
}

TEST_F(ConfigEvents, TextWrittenBackWhileIniciarRunsStays) {
  Name();
  config.Comentarios(u"text");
  listener.OnNextEvent([&] { config.Comentarios(u"again"); });
  config.Iniciar();
  EXPECT_EQ(config.Comentarios(), u"again");
  EXPECT_FALSE(config.Modificado());
}

TEST_F(ConfigEvents, IniciarInsideIniciarEnds) {
  Name();
  config.Comentarios(u"text");
  TakeEvents();
  listener.OnNextEvent([&] { config.Iniciar(); });
  config.Iniciar();
  EXPECT_THAT(TakeEvents(),
              ElementsAre("Cambios", "CambioNombreConmutador", "Cambios", "CambioNombreConmutador",
                          "Cambios", "Cambios", "Inicializado", "Inicializado"));
}

class LoadEvents : public ConfigEvents {
 protected:
  LoadEvents() {
    test::SwitchFile file;
    file.comments = "text";
    file.datos = {{2, 1, 5, 2}, {3, 3, 8, 2}};
    file.ctes = {{4, 2, 1, 2, "IN"}};
    files.entries[u"a.cfg"] = {file.Bytes()};
    file.brand = "OTHER";
    file.datos = {{17, 3, 20, 6}};
    file.ctes = {};
    files.entries[u"b.cfg"] = {file.Bytes()};
  }
};

TEST_F(LoadEvents, EveryRecordRaisesTheChangesThatItMakes) {
  config.Abrir(u"a.cfg");
  EXPECT_THAT(TakeEvents(), ElementsAre("Cambios", "Cambios",             // numeric item
                                        "Cambios", "Cambios", "Cambios",  // text item
                                        "Cambios", "Cambios",             // constant
                                        "ConfiguracionCargada"));
}

TEST_F(LoadEvents, TheSameFileAgainClearsTheTextsAndKeepsThePlaces) {
  config.Abrir(u"a.cfg");
  TakeEvents();
  config.Abrir(u"a.cfg");
  EXPECT_THAT(TakeEvents(), ElementsAre("Cambios", "CambioNombreConmutador", "Cambios",
                                        "CambioNombreConmutador", "Cambios", "Cambios",
                                        "Cambios",  // only the type of the text item
                                        "ConfiguracionCargada"));
}

TEST_F(LoadEvents, LoadedComesOnceWithTheFlagCleared) {
  config.Caso(emNoCaso);
  bool seen = false;
  listener.On("ConfiguracionCargada", [&] {
    seen = true;
    EXPECT_FALSE(config.Modificado());
    EXPECT_EQ(config.NombreConmutador(), u"ACME, X1");
  });
  config.Abrir(u"a.cfg");
  EXPECT_TRUE(seen);
  EXPECT_FALSE(config.Modificado());
}

TEST_F(LoadEvents, ChangesDuringTheLoadShowTheNewHeader) {
  int changes = 0;
  listener.On("Cambios", [&] {
    ++changes;
    EXPECT_TRUE(config.Modificado());
    EXPECT_EQ(config.NombreConmutador(), u"ACME, X1");
  });
  config.Abrir(u"a.cfg");
  EXPECT_EQ(changes, 7);
}

TEST_F(LoadEvents, HandlerMayOpenAnotherFileDuringTheLoad) {
  listener.OnNextEvent([&] { config.Abrir(u"b.cfg"); });
  config.Abrir(u"a.cfg");
  EXPECT_FALSE(config.Modificado());
  EXPECT_EQ(config.Marca(), u"OTHER");
  config.DATOActivo(emParamFechaMes);
  EXPECT_TRUE(config.HayDATO());
}

TEST_F(LoadEvents, HandlerMayResetOrSaveDuringTheLoad) {
  int rounds = 0;
  listener.On("Cambios", [&] {
    if (++rounds % 2 == 0) config.Iniciar();
    config.DATOActivo(emParamCodigoCuenta);
    config.CTEActivo(emDatoCteIdentSaliente);
    try {
      config.GuardarComo(u"c.cfg");
    } catch (const ConfigError&) {
      // nothing to save just then
    }
  });
  config.Abrir(u"a.cfg");
  EXPECT_GT(rounds, 2);
  EXPECT_EQ(TakeEvents().back(), "ConfiguracionCargada");
}

}  // namespace
}  // namespace conmuta
