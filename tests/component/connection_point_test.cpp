// The connection point itself: advising, counting, enumerating, refusing.
#include "host_test.h"
#include "sink.h"

namespace conmuta::test {
namespace {

class ConnectionPointTest : public HostTest {
 protected:
  void TearDown() override {
    point = {};
    container = {};
    config = {};
    HostTest::TearDown();
  }

  // Number of connections, by enumerating them.
  int Connections() {
    ComPtr<IEnumConnections> connections;
    EXPECT_EQ(point->EnumConnections(connections.Receive()), S_OK);
    int count = 0;
    CONNECTDATA data;
    while (connections->Next(1, &data, nullptr) == S_OK) {
      data.pUnk->Release();
      ++count;
    }
    return count;
  }

  ComPtr<Cfg> config = NewConfig();
  ComPtr<IConnectionPointContainer> container =
      QueryFor<IConnectionPointContainer>(config.get(), IID_IConnectionPointContainer);
  ComPtr<IConnectionPoint> point = EventsOf(config.get());
};

TEST_F(ConnectionPointTest, ContainerIsThatOfTheObject) {
  EXPECT_TRUE(IsSame(container.get(), config.get()));
  ComPtr<IConnectionPointContainer> found;
  EXPECT_EQ(point->GetConnectionPointContainer(found.Receive()), S_OK);
  EXPECT_TRUE(IsSame(found.get(), config.get()));
  EXPECT_EQ(point->GetConnectionPointContainer(nullptr), E_POINTER);
  EXPECT_FALSE(IsSame(point.get(), config.get()));
}

TEST_F(ConnectionPointTest, PointIsForTheEventsOnly) {
  IID iid;
  EXPECT_EQ(point->GetConnectionInterface(&iid), S_OK);
  EXPECT_EQ(iid, DIID___clsCfgConmut);
  EXPECT_EQ(point->GetConnectionInterface(nullptr), E_POINTER);
  auto* other = reinterpret_cast<IConnectionPoint*>(0x1234);
  for (const IID& no : {IID_IDispatch, IID_IPropertyNotifySink, IID__clsCfgConmut}) {
    EXPECT_EQ(container->FindConnectionPoint(no, &other), CONNECT_E_NOCONNECTION);
    EXPECT_EQ(other, nullptr);
  }
  EXPECT_EQ(container->FindConnectionPoint(DIID___clsCfgConmut, nullptr), E_POINTER);
  void* refused = reinterpret_cast<void*>(0x1234);
  EXPECT_EQ(point->QueryInterface(IID__clsCfgConmut, &refused), E_NOINTERFACE);
  EXPECT_EQ(refused, nullptr);
  EXPECT_EQ(point->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
}

TEST_F(ConnectionPointTest, ClassInformationNamesTheEvents) {
  const auto provider = QueryFor<IProvideClassInfo2>(config.get(), IID_IProvideClassInfo2);
  GUID guid;
  EXPECT_EQ(provider->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &guid), S_OK);
  EXPECT_EQ(guid, DIID___clsCfgConmut);
  EXPECT_EQ(provider->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, nullptr), E_POINTER);
  EXPECT_EQ(provider->GetGUID(7, &guid), E_INVALIDARG);
  EXPECT_EQ(guid, GUID_NULL);
}

TEST_F(ConnectionPointTest, ClassWithoutEventsNamesNone) {
  const auto call = NewCall();
  const auto provider = QueryFor<IProvideClassInfo2>(call.get(), IID_IProvideClassInfo2);
  GUID guid;
  EXPECT_TRUE(FAILED(provider->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &guid)));
  EXPECT_EQ(guid, GUID_NULL);
}

TEST_F(ConnectionPointTest, ConnectionsAreCounted) {
  Sink sink;
  EXPECT_EQ(Connections(), 0);
  {
    const Connection connection(config.get(), &sink);
    EXPECT_EQ(Connections(), 1);
    EXPECT_EQ(sink.references(), 1);
  }
  EXPECT_EQ(Connections(), 0);
  EXPECT_EQ(sink.references(), 0);
}

TEST_F(ConnectionPointTest, SinkThatKnowsOnlyDispatchHearsToo) {
  Sink sink(Sink::Knows::kDispatchOnly);
  const Connection connection(config.get(), &sink);
  Do(config, &Cfg::put_Comentarios, u"x");
  EXPECT_EQ(sink.Take(), Events{kChanged});
}

TEST_F(ConnectionPointTest, SinkThatKnowsNothingIsRefused) {
  Sink sink(Sink::Knows::kNothing);
  DWORD cookie = 77;
  EXPECT_EQ(point->Advise(&sink, &cookie), CONNECT_E_CANNOTCONNECT);
  EXPECT_EQ(cookie, 0u);
  EXPECT_EQ(sink.references(), 0);
}

TEST_F(ConnectionPointTest, AdvisingNeedsASinkAndAPlace) {
  Sink sink;
  DWORD cookie = 77;
  EXPECT_EQ(point->Advise(nullptr, &cookie), E_POINTER);
  EXPECT_EQ(point->Advise(&sink, nullptr), E_POINTER);
  EXPECT_EQ(sink.references(), 0);
  EXPECT_EQ(Connections(), 0);
}

TEST_F(ConnectionPointTest, SinkMayConnectTwice) {
  Sink sink;
  DWORD first = 0, second = 0;
  EXPECT_EQ(point->Advise(&sink, &first), S_OK);
  EXPECT_EQ(point->Advise(&sink, &second), S_OK);
  EXPECT_NE(first, second);
  EXPECT_NE(first, 0u);
  Do(config, &Cfg::put_Comentarios, u"x");
  EXPECT_EQ(sink.Take(), (Events{kChanged, kChanged}));
  EXPECT_EQ(point->Unadvise(first), S_OK);
  Do(config, &Cfg::put_Comentarios, u"y");
  EXPECT_EQ(sink.Take(), Events{kChanged});
  EXPECT_EQ(point->Unadvise(second), S_OK);
}

TEST_F(ConnectionPointTest, ConnectionThatIsNotThereCannotBeClosed) {
  Sink sink;
  DWORD cookie = 0;
  EXPECT_EQ(point->Unadvise(0), CONNECT_E_NOCONNECTION);
  ASSERT_EQ(point->Advise(&sink, &cookie), S_OK);
  EXPECT_EQ(point->Unadvise(cookie + 1), CONNECT_E_NOCONNECTION);
  EXPECT_EQ(point->Unadvise(cookie), S_OK);
  EXPECT_EQ(point->Unadvise(cookie), CONNECT_E_NOCONNECTION);
}

TEST_F(ConnectionPointTest, PointKeepsItsObjectAlive) {
  Sink sink;
  DWORD cookie = 0;
  ASSERT_EQ(point->Advise(&sink, &cookie), S_OK);
  config = {};
  container = {};
  EXPECT_EQ(Connections(), 1);
  point = {};
  EXPECT_EQ(sink.references(), 0);
}

TEST_F(ConnectionPointTest, ConnectionsAreEnumeratedAsTheyWere) {
  Sink first, second, third;
  const Connection one(config.get(), &first);
  Connection two(config.get(), &second);
  ComPtr<IEnumConnections> connections;
  ASSERT_EQ(point->EnumConnections(connections.Receive()), S_OK);
  const Connection three(config.get(), &third);
  two.Close();
  EXPECT_GT(second.references(), 0) << "the enumerator still hands it out";

  CONNECTDATA data[4];
  ULONG fetched = 99;
  EXPECT_EQ(connections->Next(4, data, &fetched), S_FALSE);
  ASSERT_EQ(fetched, 2u);
  EXPECT_TRUE(IsSame(data[0].pUnk, &first));
  EXPECT_TRUE(IsSame(data[1].pUnk, &second));
  EXPECT_LT(data[0].dwCookie, data[1].dwCookie);
  for (ULONG i = 0; i < fetched; ++i) data[i].pUnk->Release();
  EXPECT_EQ(connections->Next(1, data, &fetched), S_FALSE);
  EXPECT_EQ(fetched, 0u);
  connections = {};
  EXPECT_EQ(second.references(), 0);
}

TEST_F(ConnectionPointTest, EnumeratorsSkipResetAndClone) {
  Sink sinks[3];
  const Connection one(config.get(), &sinks[0]), two(config.get(), &sinks[1]),
      three(config.get(), &sinks[2]);
  ComPtr<IEnumConnections> connections;
  ASSERT_EQ(point->EnumConnections(connections.Receive()), S_OK);
  const auto next = [](const ComPtr<IEnumConnections>& from) {
    CONNECTDATA data{};
    if (from->Next(1, &data, nullptr) == S_OK) data.pUnk->Release();
    return data.pUnk;
  };
  EXPECT_EQ(connections->Skip(1), S_OK);
  EXPECT_TRUE(IsSame(next(connections), &sinks[1]));
  ComPtr<IEnumConnections> clone;
  ASSERT_EQ(connections->Clone(clone.Receive()), S_OK);
  EXPECT_TRUE(IsSame(next(connections), &sinks[2]));
  EXPECT_TRUE(IsSame(next(clone), &sinks[2])) << "a clone stands where its model stood";
  EXPECT_EQ(next(connections), nullptr);
  EXPECT_EQ(connections->Reset(), S_OK);
  EXPECT_TRUE(IsSame(next(connections), &sinks[0]));
  EXPECT_EQ(connections->Skip(3), S_FALSE);
  EXPECT_EQ(connections->Skip(0), S_OK);
  EXPECT_EQ(connections->Next(0, nullptr, nullptr), E_POINTER);
  CONNECTDATA data;
  EXPECT_EQ(connections->Next(2, &data, nullptr), E_POINTER);
  EXPECT_EQ(connections->Clone(nullptr), E_POINTER);
}

TEST_F(ConnectionPointTest, TheOnePointIsEnumerated) {
  ComPtr<IEnumConnectionPoints> points;
  ASSERT_EQ(container->EnumConnectionPoints(points.Receive()), S_OK);
  ComPtr<IConnectionPoint> found[2];
  IConnectionPoint* handed[2] = {};
  ULONG fetched = 99;
  EXPECT_EQ(points->Next(2, handed, &fetched), S_FALSE);
  ASSERT_EQ(fetched, 1u);
  found[0] = ComPtr<IConnectionPoint>::Adopt(handed[0]);
  EXPECT_TRUE(IsSame(found[0].get(), point.get()));
  EXPECT_EQ(points->Reset(), S_OK);
  EXPECT_EQ(points->Next(1, handed, &fetched), S_OK);
  found[1] = ComPtr<IConnectionPoint>::Adopt(handed[0]);
  EXPECT_EQ(container->EnumConnectionPoints(nullptr), E_POINTER);
  EXPECT_EQ(point->EnumConnections(nullptr), E_POINTER);
}

}  // namespace
}  // namespace conmuta::test
