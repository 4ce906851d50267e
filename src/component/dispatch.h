// IDispatch over the type library, kinder to script hosts than the library's own.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <map>
#include <memory>
#include <utility>
#include <vector>

#include "component/com_support.h"

namespace conmuta::component {

// The members of one interface, as its type information describes them. Shared by all objects of a
// class for as long as there are any.
class Dispatcher {
 public:
  // The one of an interface of ours; null with the reason in `result` when there is none.
  static std::shared_ptr<const Dispatcher> For(REFIID iid, HRESULT& result);

  explicit Dispatcher(ComPtr<ITypeInfo> info);

  HRESULT GetIDsOfNames(LPOLESTR* names, UINT count, DISPID* ids) const;

  // Like ITypeInfo::Invoke, and besides: arguments are coerced here, so that a wrong type is "type
  // mismatch" and a value beyond its type's range an overflow before anything is called; arguments
  // by reference may be of any type, script variables among them, and get the result written back;
  // null stands for no object, which JScript has no other word for.
  HRESULT Invoke(void* object, DISPID member, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                 EXCEPINFO* exception, UINT* bad_argument) const;

 private:
  struct Parameter {
    VARTYPE type = VT_EMPTY;  // VT_EMPTY: one that is left as it comes
    bool by_reference = false;
    IID iid = IID_NULL;  // of an object
  };
  using Parameters = std::vector<Parameter>;
  class Argument;

  static Parameter Resolve(ITypeInfo* info, const TYPEDESC& type);
  static Parameter ResolveDefined(ITypeInfo* info, HREFTYPE reference);
  const Parameters* Find(DISPID member, WORD flags) const;

  ComPtr<ITypeInfo> info_;
  std::map<std::pair<DISPID, INVOKEKIND>, Parameters> members_;
};

}  // namespace conmuta::component
