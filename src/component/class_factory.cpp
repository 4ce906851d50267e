// The functions through which COM loads the component, makes objects and lets it go.
#include <algorithm>
#include <atomic>

#include "component/boundary.h"
#include "component/dispatch.h"
#include "component/module.h"

namespace conmuta::component {
namespace {

class ClassFactory final : public IClassFactory {
 public:
  explicit ClassFactory(const ComClass& made) : made_(made) {}

  STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (!IsEqualGUID(iid, IID_IUnknown) && !IsEqualGUID(iid, IID_IClassFactory)) {
      return E_NOINTERFACE;
    }
    *object = static_cast<IClassFactory*>(this);
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return static_cast<ULONG>(++references_); }
  STDMETHODIMP_(ULONG) Release() override {
    const long left = --references_;
    if (left == 0) delete this;
    return static_cast<ULONG>(left);
  }

  STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** object) override {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (outer != nullptr) return CLASS_E_NOAGGREGATION;
    ComPtr<IUnknown> made;
    const HRESULT result = made_.create(made.Receive());
    return FAILED(result) ? result : made->QueryInterface(iid, object);
  }
  STDMETHODIMP LockServer(BOOL lock) override {
    lock ? module::Lock() : module::Unlock();
    return S_OK;
  }

 private:
  const ModuleLock module_lock_;
  const ComClass& made_;
  std::atomic<long> references_ = 1;
};

}  // namespace
}  // namespace conmuta::component

using namespace conmuta::component;

STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  const auto classes = Classes();
  const auto found = std::find_if(classes.begin(), classes.end(),
                                  [&](const ComClass& c) { return IsEqualGUID(*c.clsid, clsid); });
  if (found == classes.end()) return CLASS_E_CLASSNOTAVAILABLE;
  ComPtr<IClassFactory> factory;
  const HRESULT made = GuardedResult(nullptr, IID_NULL, factory.Receive(),
                                     [&]() -> IClassFactory* { return new ClassFactory(*found); });
  return FAILED(made) ? made : factory->QueryInterface(iid, object);
}

STDAPI DllCanUnloadNow() {
  if (module::IsInUse()) return S_FALSE;
  // While the DLL is unloaded it would be too late: others must not be called under the loader's
  // lock.
  Dispatcher::ForgetAll();
  module::ForgetLibrary();
  return S_OK;
}
