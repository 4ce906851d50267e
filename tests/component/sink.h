// A host's event sink that notes what it hears and does what a test tells it to.
#pragma once

#include <windows.h>

#include <ocidl.h>
#include <olectl.h>

#include <functional>
#include <utility>
#include <vector>

#include "host.h"

namespace conmuta::test {

enum Event { kNameChanged = 1, kLoaded = 2, kReset = 3, kChanged = 4 };
using Events = std::vector<int>;

// Lives where the test declares it; references are counted so that none is forgotten. An event that
// no test has taken note of when it goes is a failure.
class Sink final : public IDispatch {
 public:
  enum class Knows { kEvents, kDispatchOnly, kNothing };

  explicit Sink(Knows knows = Knows::kEvents) : knows_(knows) {}
  ~Sink() {
    EXPECT_EQ(references_, 0) << "somebody still holds the sink";
    EXPECT_EQ(heard_, Events()) << "events that nobody expected";
  }
  Sink(const Sink&) = delete;
  Sink& operator=(const Sink&) = delete;

  // Runs inside every event, after it was noted.
  std::function<void(int event)> handler;
  // What the sink answers.
  HRESULT answer = S_OK;

  Events Take() { return std::exchange(heard_, {}); }
  long references() const { return references_; }

  STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
    const bool known = IsEqualGUID(iid, IID_IUnknown) ||
                       (knows_ != Knows::kNothing && IsEqualGUID(iid, IID_IDispatch)) ||
                       (knows_ == Knows::kEvents && IsEqualGUID(iid, DIID___clsCfgConmut));
    *object = known ? static_cast<IDispatch*>(this) : nullptr;
    if (!known) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return static_cast<ULONG>(++references_); }
  STDMETHODIMP_(ULONG) Release() override { return static_cast<ULONG>(--references_); }
  STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  STDMETHODIMP Invoke(DISPID event, REFIID iid, LCID, WORD flags, DISPPARAMS* parameters, VARIANT*,
                      EXCEPINFO*, UINT*) override {
    EXPECT_EQ(iid, IID_NULL);
    EXPECT_EQ(flags, DISPATCH_METHOD);
    EXPECT_NE(parameters, nullptr);
    if (parameters != nullptr) {
      EXPECT_EQ(parameters->cArgs, 0u);
      EXPECT_EQ(parameters->cNamedArgs, 0u);
    }
    heard_.push_back(event);
    if (handler) handler(event);
    return answer;
  }

 private:
  Knows knows_;
  long references_ = 0;
  Events heard_;
};

inline ComPtr<IConnectionPoint> EventsOf(IUnknown* object) {
  const auto container = QueryFor<IConnectionPointContainer>(object, IID_IConnectionPointContainer);
  ComPtr<IConnectionPoint> point;
  EXPECT_EQ(container->FindConnectionPoint(DIID___clsCfgConmut, point.Receive()), S_OK);
  return point;
}

// A sink that listens to an object until it is told not to, or goes.
class Connection {
 public:
  Connection(IUnknown* object, IUnknown* sink) : point_(EventsOf(object)) {
    EXPECT_EQ(point_->Advise(sink, &cookie_), S_OK);
  }
  ~Connection() { Close(); }
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  void Close() {
    if (point_) {
      EXPECT_EQ(point_->Unadvise(cookie_), S_OK);
    }
    point_ = {};
  }

 private:
  ComPtr<IConnectionPoint> point_;
  DWORD cookie_ = 0;
};

}  // namespace conmuta::test
