// The connection point through which an object's events reach its hosts.
#pragma once

#include <windows.h>

#include <ocidl.h>
#include <olectl.h>

#include <map>

#include "component/com_support.h"

namespace conmuta::component {

// Part of the object that fires the events: its identity and lifetime are the owner's.
class EventSource final : public IConnectionPointContainer {
 public:
  EventSource(IUnknown* owner, REFIID events) : owner_(owner), point_(*this, events) {}
  EventSource(const EventSource&) = delete;
  EventSource& operator=(const EventSource&) = delete;

  // Calls every sink, in the order in which they came. Sinks may come and go meanwhile: one that
  // has gone is not called any more, one that has come is called from the next event on. What a
  // sink answers does not matter.
  void Fire(DISPID event) { point_.Fire(event); }

  STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
    return owner_->QueryInterface(iid, object);
  }
  STDMETHODIMP_(ULONG) AddRef() override { return owner_->AddRef(); }
  STDMETHODIMP_(ULONG) Release() override { return owner_->Release(); }
  STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** points) override;
  STDMETHODIMP FindConnectionPoint(REFIID iid, IConnectionPoint** point) override;

 private:
  // An identity of its own, kept alive through the owner.
  class Point final : public IConnectionPoint {
   public:
    Point(EventSource& source, REFIID events) : source_(source), events_(events) {}

    void Fire(DISPID event);

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
    STDMETHODIMP_(ULONG) AddRef() override { return source_.AddRef(); }
    STDMETHODIMP_(ULONG) Release() override { return source_.Release(); }
    STDMETHODIMP GetConnectionInterface(IID* iid) override;
    STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer** container) override;
    STDMETHODIMP Advise(IUnknown* sink, DWORD* cookie) override;
    STDMETHODIMP Unadvise(DWORD cookie) override;
    STDMETHODIMP EnumConnections(IEnumConnections** connections) override;

    const IID& events() const { return events_; }

   private:
    EventSource& source_;
    const IID& events_;
    std::map<DWORD, ComPtr<IDispatch>> sinks_;  // by cookie
    DWORD last_cookie_ = 0;                     // only grows
  };

  IUnknown* const owner_;
  Point point_;
};

}  // namespace conmuta::component
