// Sinks that come, hear and go while there is no memory.
#include <gtest/gtest.h>

#include <memory>

#include "component/sink.h"
#include "rounds.h"
#include "saved_files.h"

namespace conmuta::test {
namespace {

class EventHost : public Host {
 public:
  // Whether the sink is heard of exactly while it is connected.
  void Verify(HRESULT answered) override {
    Host::Verify(answered);
    if (cookie_ != 0) {
      EXPECT_EQ(point_->Unadvise(std::exchange(cookie_, 0)), S_OK);
    }
    sink_.Take();
    Do(config_, &Cfg::put_Comentarios, u"nobody hears");
    EXPECT_EQ(sink_.Take(), Events());
    EXPECT_EQ(sink_.references(), 0);
  }

 protected:
  HRESULT Connect() {
    if (cookie_ != 0) return S_OK;
    const HRESULT result = point_->Advise(&sink_, &cookie_);
    EXPECT_EQ(SUCCEEDED(result), cookie_ != 0);
    return result;
  }

  Sink sink_;
  const ComPtr<Cfg> config_ = NamedConfig();
  const ComPtr<IConnectionPoint> point_ = EventsOf(config_.get());
  DWORD cookie_ = 0;
};

class Listener final : public EventHost {
 public:
  HRESULT Act() override { return Connect(); }
};

TEST(Events, ConnectingAnswersForWantOfMemory) {
  RunRounds(Supply::kMemory, "connecting", [] { return std::make_unique<Listener>(); });
}

// Every change is heard of; that the whole was loaded, only when it was.
class Speaker final : public EventHost {
 public:
  Speaker() {
    Do(TypicalConfig(), &Cfg::Exportar, folder_.Path(u"a.txt"));
    EXPECT_EQ(Connect(), S_OK);
  }

  HRESULT Act() override {
    sink_.Take();
    const HRESULT loaded = config_->Importar(path_.get());
    const Events heard = sink_.Take();
    EXPECT_EQ(!heard.empty() && heard.back() == kLoaded, SUCCEEDED(loaded));
    return loaded;
  }
  bool MayAnswer(HRESULT answered) const override { return answered == kImportFailed; }

 private:
  const ScratchFolder folder_;
  const Bstr path_{folder_.Path(u"a.txt")};
};

TEST(Events, TellOfALoadOnlyWhenItIsWhole) {
  RunRounds(Supply::kMemory, "importing", [] { return std::make_unique<Speaker>(); });
}

// Asks who is there, in all the ways there are.
class Enumerator final : public EventHost {
 public:
  Enumerator() { EXPECT_EQ(Connect(), S_OK); }

  HRESULT Act() override {
    const auto container =
        QueryFor<IConnectionPointContainer>(config_.get(), IID_IConnectionPointContainer);
    HRESULT result = S_OK;
    const auto goes_on = [&](HRESULT answered) { return SUCCEEDED(result = answered); };
    ComPtr<IEnumConnectionPoints> points;
    ComPtr<IEnumConnectionPoints> other_points;
    ComPtr<IEnumConnections> connections;
    ComPtr<IEnumConnections> other_connections;
    if (!goes_on(container->EnumConnectionPoints(points.Receive())) ||
        !goes_on(points->Clone(other_points.Receive())) ||
        !goes_on(point_->EnumConnections(connections.Receive())) ||
        !goes_on(connections->Clone(other_connections.Receive()))) {
      return result;
    }
    ComPtr<IConnectionPoint> point;
    EXPECT_EQ(other_points->Next(1, point.Receive(), nullptr), S_OK);
    EXPECT_EQ(point.get(), point_.get());
    CONNECTDATA connection{};
    EXPECT_EQ(other_connections->Next(1, &connection, nullptr), S_OK);
    EXPECT_EQ(connection.dwCookie, cookie_);
    connection.pUnk->Release();
    return S_OK;
  }
};

TEST(Events, EnumeratingAnswersForWantOfMemory) {
  RunRounds(Supply::kMemory, "enumerating", [] { return std::make_unique<Enumerator>(); });
}

}  // namespace
}  // namespace conmuta::test
