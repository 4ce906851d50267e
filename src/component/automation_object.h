// What all public objects have in common: identity, lifetime, dispatch, error and class
// information.
#pragma once

#include <windows.h>

#include <ocidl.h>

#include <atomic>

#include "component/boundary.h"
#include "component/dispatch.h"
#include "component/module.h"

namespace conmuta::component {

// A code of the vocabulary in the type library's form, or back.
template <class Enum, class From>
constexpr Enum To(From code) {
  return static_cast<Enum>(code);
}

// Lets one of our objects reach the core object behind another. Not marshalled, so that an object
// of another apartment or of somebody else does not have it.
template <class Core>
class CoreAccess : public IUnknown {
 public:
  virtual Core& core() = 0;
};

// Base of the object of one public class: Interface is its dual interface, Core what it wraps.
// An object is born with one reference, which belongs to the creator.
template <class Interface, class Core>
class AutomationObject : public Interface,
                         public CoreAccess<Core>,
                         public ISupportErrorInfo,
                         public IProvideClassInfo2 {
 public:
  // The identifiers of a class: CLSID, default interface, the private CoreAccess, and the default
  // source of events (or null).
  struct Identity {
    const CLSID& clsid;
    const IID& iid;
    const IID& core_iid;
    const IID* events;
  };

  explicit AutomationObject(const Identity& identity) : identity_(identity) {}
  AutomationObject(const AutomationObject&) = delete;
  AutomationObject& operator=(const AutomationObject&) = delete;

  STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
    if (object == nullptr) return E_POINTER;
    *object = Find(iid);
    if (*object == nullptr) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return static_cast<ULONG>(++references_); }
  STDMETHODIMP_(ULONG) Release() override {
    const long left = --references_;
    if (left == 0) {
      references_ = 1;  // whoever asks for a reference while the object goes must not end it twice
      delete this;
    }
    return static_cast<ULONG>(left);
  }

  STDMETHODIMP GetTypeInfoCount(UINT* count) override {
    if (count == nullptr) return E_POINTER;
    *count = 1;
    return S_OK;
  }
  STDMETHODIMP GetTypeInfo(UINT index, LCID, ITypeInfo** info) override {
    if (info == nullptr) return E_POINTER;
    *info = nullptr;
    if (index != 0) return DISP_E_BADINDEX;
    return HandOut(identity_.iid, info);
  }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
    if (names == nullptr || ids == nullptr) return E_POINTER;
    return WithDispatcher([&] { return dispatcher_->GetIDsOfNames(names, count, ids); });
  }
  STDMETHODIMP Invoke(DISPID member, REFIID iid, LCID, WORD flags, DISPPARAMS* parameters,
                      VARIANT* result, EXCEPINFO* exception, UINT* bad_argument) override {
    if (!IsEqualGUID(iid, IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
    return WithDispatcher([&] {
      return dispatcher_->Invoke(static_cast<Interface*>(this), member, flags, parameters, result,
                                 exception, bad_argument);
    });
  }

  STDMETHODIMP InterfaceSupportsErrorInfo(REFIID iid) override {
    return IsEqualGUID(iid, identity_.iid) ? S_OK : S_FALSE;
  }

  STDMETHODIMP GetClassInfo(ITypeInfo** info) override {
    return info == nullptr ? E_POINTER : HandOut(identity_.clsid, info);
  }
  STDMETHODIMP GetGUID(DWORD kind, GUID* guid) override {
    if (guid == nullptr) return E_POINTER;
    *guid = GUID_NULL;
    if (kind != GUIDKIND_DEFAULT_SOURCE_DISP_IID) return E_INVALIDARG;
    if (identity_.events == nullptr) return E_UNEXPECTED;
    *guid = *identity_.events;
    return S_OK;
  }

 protected:
  virtual ~AutomationObject() = default;

  IUnknown* Self() { return static_cast<Interface*>(this); }

  // The interface of this object with that id, or null; not counted.
  virtual void* Find(REFIID iid) {
    if (IsEqualGUID(iid, IID_IUnknown) || IsEqualGUID(iid, IID_IDispatch) ||
        IsEqualGUID(iid, identity_.iid)) {
      return static_cast<Interface*>(this);
    }
    if (IsEqualGUID(iid, identity_.core_iid)) return static_cast<CoreAccess<Core>*>(this);
    if (IsEqualGUID(iid, IID_ISupportErrorInfo)) return static_cast<ISupportErrorInfo*>(this);
    if (IsEqualGUID(iid, IID_IProvideClassInfo) || IsEqualGUID(iid, IID_IProvideClassInfo2)) {
      return static_cast<IProvideClassInfo2*>(this);
    }
    return nullptr;
  }

  // Runs a member: `body` does the work, or gives what goes to `result`.
  template <class Body>
  HRESULT Do(Body&& body) {
    return Guarded(Self(), identity_.iid, std::forward<Body>(body));
  }
  template <class Out, class Body>
  HRESULT Get(Out* result, Body&& body) {
    return GuardedResult(Self(), identity_.iid, result, std::forward<Body>(body));
  }
  template <class Body>
  HRESULT GetText(BSTR* result, Body&& body) {
    return Get(result, [&] { return ToBstr(body()); });
  }
  template <class Body>
  HRESULT GetBool(VARIANT_BOOL* result, Body&& body) {
    return Get(result, [&] { return ToVariantBool(body()); });
  }
  // For a member whose argument is by reference: E_POINTER without one.
  template <class Argument, class Body>
  HRESULT DoWith(Argument* argument, Body&& body) {
    if (argument == nullptr) return ReportPlain(E_POINTER);
    return Do([&] { body(*argument); });
  }

 private:
  HRESULT HandOut(REFGUID guid, ITypeInfo** info) {
    return GuardedResult(Self(), IID_NULL, info, [&] { return module::TypeInfoOf(guid).CopyTo(); });
  }

  template <class Call>
  HRESULT WithDispatcher(Call&& call) {
    HRESULT result = S_OK;
    const HRESULT guarded = Guarded(Self(), IID_NULL, [&] {
      if (!dispatcher_) dispatcher_ = Dispatcher::For(identity_.iid);
      result = call();
    });
    return FAILED(guarded) ? guarded : result;
  }

  const Identity identity_;
  const ModuleLock module_lock_;
  std::atomic<long> references_ = 1;
  std::shared_ptr<const Dispatcher> dispatcher_;
};

// The core object behind an interface pointer that a host handed in; null for null. Raises
// TypeMismatchError for an object that is not one of ours.
template <class Core>
ComPtr<CoreAccess<Core>> RequireOurs(IUnknown* object, REFIID core_iid) {
  auto access = QueryFor<CoreAccess<Core>>(object, core_iid);
  if (object != nullptr && !access) throw TypeMismatchError();
  return access;
}

}  // namespace conmuta::component
