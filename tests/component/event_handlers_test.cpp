// What handlers may do during an event: read, write, come, go, and end the object.
#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

#include "host_test.h"
#include "scratch_files.h"
#include "sink.h"

namespace conmuta::test {
namespace {

class EventHandlersTest : public HostTest {
 protected:
  void TearDown() override {
    config = {};
    HostTest::TearDown();
  }

  ComPtr<Cfg> config = NewConfig();
};

TEST_F(EventHandlersTest, EverySinkHearsInTheOrderInWhichTheyCame) {
  Sink first, second;
  Events order;
  first.handler = [&](int event) { order.push_back(10 + event); };
  second.handler = [&](int event) { order.push_back(20 + event); };
  const Connection one(config.get(), &first), two(config.get(), &second);
  Do(config, &Cfg::put_Marca, u"ACME");
  EXPECT_EQ(order, (Events{11, 21, 14, 24}));
  first.Take();
  second.Take();
}

TEST_F(EventHandlersTest, SinkThatFailsDisturbsNobody) {
  Sink first, second;
  first.answer = E_FAIL;
  const Connection one(config.get(), &first), two(config.get(), &second);
  Do(config, &Cfg::put_Comentarios, u"x");
  EXPECT_EQ(first.Take(), Events{kChanged});
  EXPECT_EQ(second.Take(), Events{kChanged});
}

TEST_F(EventHandlersTest, HandlerMayWrite) {
  Sink sink;
  sink.handler = [&](int event) {
    if (event == kNameChanged) Do(config, &Cfg::put_Comentarios, u"nueva");
  };
  const Connection connection(config.get(), &sink);
  Do(config, &Cfg::put_Marca, u"ACME");
  EXPECT_EQ(sink.Take(), (Events{kNameChanged, kChanged, kChanged}));
  EXPECT_EQ(Read(config, &Cfg::get_Comentarios), u"nueva");
}

TEST_F(EventHandlersTest, HandlerMayWriteTheVeryPropertyThatChanged) {
  Sink sink;
  sink.handler = [&](int event) {
    if (event == kNameChanged) Do(config, &Cfg::put_Marca, u"OTRA");
  };
  const Connection connection(config.get(), &sink);
  Do(config, &Cfg::put_Marca, u"ACME");
  EXPECT_EQ(Read(config, &Cfg::get_Marca), u"OTRA");
  EXPECT_EQ(sink.Take(), (Events{kNameChanged, kNameChanged, kChanged, kChanged}));
}

TEST_F(EventHandlersTest, HandlerMayAddItemsWhileOneIsWritten) {
  Sink sink;
  int added = 0;
  sink.handler = [&](int) {
    if (added++ != 0) return;
    for (int kind = emParamFechaMes; kind <= emParamTroncal2InterTroncalFinTransferida; ++kind) {
      Do(config, &Cfg::put_DATOActivo, static_cast<emParamDato>(kind));
      Do(config, &Cfg::put_DATOPos, static_cast<unsigned char>(kind));
      Do(config, &Cfg::put_DATOTam, 1);
    }
    Do(config, &Cfg::put_DATOActivo, emParamFechaDia);
  };
  const Connection connection(config.get(), &sink);
  Do(config, &Cfg::put_DATOActivo, emParamFechaDia);
  Do(config, &Cfg::put_DATOPos, 5);
  Do(config, &Cfg::put_DATOTam, 2);
  sink.Take();
  for (int kind = emParamFechaDia; kind <= emParamTroncal2InterTroncalFinTransferida; ++kind) {
    Do(config, &Cfg::put_DATOActivo, static_cast<emParamDato>(kind));
    EXPECT_EQ(Read(config, &Cfg::get_HayDATO), VARIANT_TRUE) << kind;
    EXPECT_EQ(Read(config, &Cfg::get_DATOPos), kind == emParamFechaDia ? 5 : kind);
  }
}

TEST_F(EventHandlersTest, HandlerMayAddConstantsWhileOneIsWritten) {
  Sink sink;
  int added = 0;
  sink.handler = [&](int) {
    if (added++ != 0) return;
    for (int kind = 3; kind <= 23; ++kind) {
      Do(config, &Cfg::put_CTEActivo, static_cast<emParamDatoConstante>(kind));
      Do(config, &Cfg::put_Constante, u"x");
      Do(config, &Cfg::put_CTEPos, 1);
    }
    Do(config, &Cfg::put_CTEActivo, emDatoCteIdentificadorHorarioMatutinoFecha);
  };
  const Connection connection(config.get(), &sink);
  Do(config, &Cfg::put_CTEActivo, emDatoCteIdentificadorHorarioMatutinoFecha);
  Do(config, &Cfg::put_Constante, u"AM");
  Do(config, &Cfg::put_CTEPos, 9);
  sink.Take();
  for (int kind = 2; kind <= 23; ++kind) {
    Do(config, &Cfg::put_CTEActivo, static_cast<emParamDatoConstante>(kind));
    EXPECT_EQ(Read(config, &Cfg::get_HayCTE), VARIANT_TRUE) << kind;
    EXPECT_EQ(Read(config, &Cfg::get_Constante), kind == 2 ? u"AM" : u"x");
  }
}

TEST_F(EventHandlersTest, HandlerMayReset) {
  Sink sink;
  sink.handler = [&](int event) {
    if (event == kNameChanged && Read(config, &Cfg::get_Marca) == u"ACME") {
      Do(config, &Cfg::Iniciar);
    }
  };
  const Connection connection(config.get(), &sink);
  Do(config, &Cfg::put_Marca, u"ACME");
  EXPECT_EQ(sink.Take(), (Events{kNameChanged, kNameChanged, kChanged, kReset, kChanged}));
  EXPECT_EQ(Read(config, &Cfg::get_Marca), u"");
}

TEST_F(EventHandlersTest, HandlerMayOpenAFile) {
  const ScratchFolder folder;
  const Text path = folder.Path(u"a.cfg");
  {
    const auto saved = NewConfig();
    Do(saved, &Cfg::put_Marca, u"ACME");
    Do(saved, &Cfg::put_Modelo, u"X1");
    Do(saved, &Cfg::put_Separador, u";");
    Do(saved, &Cfg::put_DATOActivo, emParamFechaDia);
    Do(saved, &Cfg::put_DATOPos, 5);
    Do(saved, &Cfg::put_DATOTam, 2);
    Do(saved, &Cfg::GuardarComo, path);
  }
  Sink sink;
  bool opened = false;
  sink.handler = [&](int) {
    if (!std::exchange(opened, true)) Do(config, &Cfg::Abrir, path);
  };
  const Connection connection(config.get(), &sink);
  Do(config, &Cfg::put_DATOActivo, emParamFechaMes);
  Do(config, &Cfg::put_DATOPos, 9);
  EXPECT_EQ(sink.Take().back(), kLoaded);
  EXPECT_EQ(Read(config, &Cfg::get_NombreConmutador), u"ACME, X1");
}

TEST_F(EventHandlersTest, HandlerMayOpenTheFileThatIsBeingOpened) {
  const ScratchFolder folder;
  const Text path = folder.Path(u"a.cfg");
  Do(config, &Cfg::put_Marca, u"ACME");
  Do(config, &Cfg::put_Modelo, u"X1");
  Do(config, &Cfg::put_Separador, u";");
  Do(config, &Cfg::GuardarComo, path);
  Sink sink;
  int depth = 0;
  sink.handler = [&](int) {
    if (depth++ == 0) Do(config, &Cfg::Abrir, path);
  };
  const Connection connection(config.get(), &sink);
  Do(config, &Cfg::Abrir, path);
  EXPECT_EQ(Read(config, &Cfg::get_NombreConmutador), u"ACME, X1");
  const Events heard = sink.Take();
  EXPECT_EQ(std::count(heard.begin(), heard.end(), kLoaded), 2);
}

TEST_F(EventHandlersTest, SinkMayGoDuringItsEvent) {
  Sink sink;
  Connection connection(config.get(), &sink);
  sink.handler = [&](int) {
    connection.Close();
    EXPECT_GT(sink.references(), 0) << "a sink lives as long as its event";
  };
  Do(config, &Cfg::put_Marca, u"ACME");
  EXPECT_EQ(sink.Take(), Events{kNameChanged});
  EXPECT_EQ(sink.references(), 0);
}

TEST_F(EventHandlersTest, SinkThatAnotherSentAwayDoesNotHearTheEvent) {
  Sink first, second, third;
  Connection one(config.get(), &first), two(config.get(), &second), three(config.get(), &third);
  first.handler = [&](int) { two.Close(); };
  Do(config, &Cfg::put_Comentarios, u"x");
  EXPECT_EQ(first.Take(), Events{kChanged});
  EXPECT_EQ(second.Take(), Events());
  EXPECT_EQ(third.Take(), Events{kChanged});
}

TEST_F(EventHandlersTest, SinkMaySendAwayOneThatHasHeardAlready) {
  Sink first, second;
  Connection one(config.get(), &first), two(config.get(), &second);
  second.handler = [&](int) { one.Close(); };
  Do(config, &Cfg::put_Marca, u"x");
  EXPECT_EQ(first.Take(), Events{kNameChanged});
  EXPECT_EQ(second.Take(), (Events{kNameChanged, kChanged}));
}

TEST_F(EventHandlersTest, SinkThatCameDuringAnEventHearsTheNext) {
  Sink first, second;
  std::unique_ptr<Connection> late;
  first.handler = [&](int) {
    if (!late) late = std::make_unique<Connection>(config.get(), &second);
  };
  const Connection one(config.get(), &first);
  Do(config, &Cfg::put_Marca, u"ACME");
  EXPECT_EQ(first.Take(), (Events{kNameChanged, kChanged}));
  EXPECT_EQ(second.Take(), Events{kChanged});
}

TEST_F(EventHandlersTest, HandlerMayReleaseTheLastReference) {
  const LoadedDll dll;
  Sink sink;
  DWORD cookie = 0;
  ASSERT_EQ(EventsOf(config.get())->Advise(&sink, &cookie), S_OK);
  // As early bound callers do: the call goes through a pointer that the handler takes away.
  Cfg* const pointer = config.get();
  sink.handler = [&](int event) {
    config = {};
    EXPECT_EQ(dll.CanUnloadNow(), S_FALSE) << event;
  };
  const Bstr brand(u"ACME");
  EXPECT_EQ(pointer->put_Marca(brand.get()), S_OK);
  EXPECT_EQ(sink.Take(), (Events{kNameChanged, kChanged}));
  EXPECT_EQ(sink.references(), 0) << "the object has gone, and its sinks with it";
  EXPECT_EQ(dll.CanUnloadNow(), S_OK);
}

TEST_F(EventHandlersTest, HandlerMayReleaseTheLastReferenceDuringIniciar) {
  const LoadedDll dll;
  Do(config, &Cfg::put_Marca, u"ACME");
  Sink sink;
  DWORD cookie = 0;
  ASSERT_EQ(EventsOf(config.get())->Advise(&sink, &cookie), S_OK);
  Cfg* const pointer = config.get();
  sink.handler = [&](int) { config = {}; };
  EXPECT_EQ(pointer->Iniciar(), S_OK);
  EXPECT_EQ(sink.Take(), (Events{kNameChanged, kChanged, kReset}));
  EXPECT_EQ(dll.CanUnloadNow(), S_OK);
}

TEST_F(EventHandlersTest, HandlerMayReleaseTheLastReferenceDuringADispatchedCall) {
  const LoadedDll dll;
  Sink sink;
  DWORD cookie = 0;
  ASSERT_EQ(EventsOf(config.get())->Advise(&sink, &cookie), S_OK);
  Cfg* const pointer = config.get();
  sink.handler = [&](int) { config = {}; };
  Variant value;
  V_VT(&value) = VT_BSTR;
  V_BSTR(&value) = SysAllocString(L"ACME");
  DISPID put = DISPID_PROPERTYPUT;
  DISPPARAMS parameters{&value, &put, 1, 1};
  EXPECT_EQ(pointer->Invoke(10, IID_NULL, 0, DISPATCH_PROPERTYPUT, &parameters, nullptr, nullptr,
                            nullptr),
            S_OK);
  EXPECT_EQ(sink.Take(), (Events{kNameChanged, kChanged}));
  EXPECT_EQ(dll.CanUnloadNow(), S_OK);
}

TEST_F(EventHandlersTest, HandlerMayGiveTheTranslatorAnotherConfiguration) {
  const auto translator = NewTranslator();
  Do(translator, &Trad::putref_Conmutador, config.get());
  Sink sink;
  DWORD cookie = 0;
  ASSERT_EQ(EventsOf(config.get())->Advise(&sink, &cookie), S_OK);
  Cfg* const pointer = config.get();
  config = {};
  sink.handler = [&](int) { Do(translator, &Trad::putref_Conmutador, nullptr); };
  EXPECT_EQ(pointer->Iniciar(), S_OK);
  EXPECT_EQ(sink.Take(), Events{kReset});
  EXPECT_EQ(sink.references(), 0);
}

}  // namespace
}  // namespace conmuta::test
