#include "component/event_source.h"

#include <new>

#include "component/boundary.h"
#include "component/enumerator.h"

namespace conmuta::component {
namespace {

struct PointTraits {
  using Interface = IEnumConnectionPoints;
  using Item = IConnectionPoint*;
  using Kept = ComPtr<IConnectionPoint>;
  static constexpr const IID& kIid = IID_IEnumConnectionPoints;
  static Item Hand(const Kept& kept) { return kept.CopyTo(); }
};

struct ConnectionTraits {
  using Interface = IEnumConnections;
  using Item = CONNECTDATA;
  struct Kept {
    ComPtr<IUnknown> sink;
    DWORD cookie;
  };
  static constexpr const IID& kIid = IID_IEnumConnections;
  static Item Hand(const Kept& kept) { return {kept.sink.CopyTo(), kept.cookie}; }
};

}  // namespace

HRESULT EventSource::EnumConnectionPoints(IEnumConnectionPoints** points) {
  return GuardedResult(owner_, IID_NULL, points, [&]() -> IEnumConnectionPoints* {
    return new Enumerator<PointTraits>({ComPtr<IConnectionPoint>(&point_)});
  });
}

HRESULT EventSource::FindConnectionPoint(REFIID iid, IConnectionPoint** point) {
  if (point == nullptr) return E_POINTER;
  *point = nullptr;
  if (!IsEqualGUID(iid, point_.events())) return CONNECT_E_NOCONNECTION;
  *point = &point_;
  point_.AddRef();
  return S_OK;
}

HRESULT EventSource::Point::QueryInterface(REFIID iid, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  if (!IsEqualGUID(iid, IID_IUnknown) && !IsEqualGUID(iid, IID_IConnectionPoint)) {
    return E_NOINTERFACE;
  }
  *object = static_cast<IConnectionPoint*>(this);
  AddRef();
  return S_OK;
}

HRESULT EventSource::Point::GetConnectionInterface(IID* iid) {
  if (iid == nullptr) return E_POINTER;
  *iid = events_;
  return S_OK;
}

HRESULT EventSource::Point::GetConnectionPointContainer(IConnectionPointContainer** container) {
  if (container == nullptr) return E_POINTER;
  *container = &source_;
  source_.AddRef();
  return S_OK;
}

HRESULT EventSource::Point::Advise(IUnknown* sink, DWORD* cookie) {
  if (sink == nullptr || cookie == nullptr) return E_POINTER;
  *cookie = 0;
  // Hosts' sinks answer to the events' own id; some know only IDispatch.
  auto events = QueryFor<IDispatch>(sink, events_);
  if (!events) events = QueryFor<IDispatch>(sink, IID_IDispatch);
  if (!events) return CONNECT_E_CANNOTCONNECT;
  return GuardedResult(this, IID_NULL, cookie, [&] {
    sinks_.emplace(last_cookie_ + 1, events);
    return ++last_cookie_;
  });
}

HRESULT EventSource::Point::Unadvise(DWORD cookie) {
  const auto found = sinks_.find(cookie);
  if (found == sinks_.end()) return CONNECT_E_NOCONNECTION;
  const auto released_last = std::move(found->second);  // its release may call back in here
  sinks_.erase(found);
  return S_OK;
}

HRESULT EventSource::Point::EnumConnections(IEnumConnections** connections) {
  return GuardedResult(this, IID_NULL, connections, [&]() -> IEnumConnections* {
    Enumerator<ConnectionTraits>::Snapshot snapshot;
    for (const auto& [cookie, sink] : sinks_) {
      snapshot.push_back({ComPtr<IUnknown>(sink.get()), cookie});
    }
    return new Enumerator<ConnectionTraits>(std::move(snapshot));
  });
}

void EventSource::Point::Fire(DISPID event) {
  const DWORD newest = last_cookie_;
  for (auto next = sinks_.begin(); next != sinks_.end() && next->first <= newest;) {
    const DWORD cookie = next->first;
    const ComPtr<IDispatch> sink = next->second;
    DISPPARAMS none{};
    sink->Invoke(event, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &none, nullptr, nullptr,
                 nullptr);
    next = sinks_.upper_bound(cookie);
  }
}

}  // namespace conmuta::component
