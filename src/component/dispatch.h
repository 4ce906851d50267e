// IDispatch over the type library, kinder to script hosts than the library's own, and the same on
// every system.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <memory>

#include "component/com_support.h"
#include "component/members.h"

namespace conmuta::component {

// Late binding to the objects of one interface.
class Dispatcher {
 public:
  // The one of an interface of ours, made when it is first wanted.
  static std::shared_ptr<const Dispatcher> For(REFIID iid);

  // Keeps none for the next object.
  static void ForgetAll();

  // Names that are not members' (of arguments, of inherited members) are the type library's affair.
  HRESULT GetIDsOfNames(LPOLESTR* names, UINT count, DISPID* ids) const;

  // Calls a member through the object's virtual table. Arguments are coerced before anything is
  // called, see Argument. What the member raises becomes DISP_E_EXCEPTION with its words.
  HRESULT Invoke(void* object, DISPID id, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                 EXCEPINFO* exception, UINT* bad_argument) const;

 private:
  ComPtr<ITypeInfo> info_;
  MemberTable members_;
};

}  // namespace conmuta::component
