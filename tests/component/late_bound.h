// Calls as script engines make them: members by name, arguments as variants.
#pragma once

#include <algorithm>
#include <initializer_list>
#include <vector>

#include "host.h"

namespace conmuta::test {

// Values of arguments; whoever takes them owns what they hold.
inline VARIANT Value(VARTYPE type) {
  VARIANT value;
  VariantInit(&value);
  V_VT(&value) = type;
  return value;
}
inline VARIANT Int(long number) {
  VARIANT value = Value(VT_I4);
  V_I4(&value) = number;
  return value;
}
inline VARIANT Real(double number) {
  VARIANT value = Value(VT_R8);
  V_R8(&value) = number;
  return value;
}
inline VARIANT Str(TextView text) {
  VARIANT value = Value(VT_BSTR);
  V_BSTR(&value) = SysAllocStringLen(reinterpret_cast<const OLECHAR*>(text.data()),
                                     static_cast<UINT>(text.size()));
  return value;
}
inline VARIANT Bool(bool truth) {
  VARIANT value = Value(VT_BOOL);
  V_BOOL(&value) = component::ToVariantBool(truth);
  return value;
}
inline VARIANT Obj(IDispatch* object) {
  VARIANT value = Value(VT_DISPATCH);
  V_DISPATCH(&value) = object;
  if (object != nullptr) object->AddRef();
  return value;
}
inline VARIANT Missing() {
  VARIANT value = Value(VT_ERROR);
  V_ERROR(&value) = DISP_E_PARAMNOTFOUND;
  return value;
}
// A variable of the caller's.
inline VARIANT Ref(VARTYPE type, void* variable) {
  VARIANT value = Value(static_cast<VARTYPE>(type | VT_BYREF));
  V_BYREF(&value) = variable;
  return value;
}
inline VARIANT RefVariant(VARIANT& variable) {
  return Ref(VT_VARIANT, &variable);
}

// What came of a call.
struct Outcome {
  HRESULT result = S_OK;
  Failure exception;  // when `result` is DISP_E_EXCEPTION
  UINT bad_argument = 99;
};

class LateBound {
 public:
  explicit LateBound(IDispatch* object) : object_(object) {}

  DISPID Id(const wchar_t* name) const {
    std::wstring copy(name);
    OLECHAR* names[] = {copy.data()};
    DISPID id = DISPID_UNKNOWN;
    EXPECT_EQ(object_->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id), S_OK) << name;
    return id;
  }

  // Arguments in the order in which they are written.
  Outcome Invoke(const wchar_t* name, WORD flags, std::initializer_list<VARIANT> arguments,
                 VARIANT* result = nullptr) const {
    const bool is_put = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    return InvokeNamed(Id(name), flags, arguments,
                       is_put ? std::vector<DISPID>{DISPID_PROPERTYPUT} : std::vector<DISPID>{},
                       result);
  }

  // The last arguments are those that the names are for.
  Outcome InvokeNamed(DISPID id, WORD flags, std::initializer_list<VARIANT> arguments,
                      std::vector<DISPID> names, VARIANT* result = nullptr) const {
    std::vector<VARIANT> given(arguments);
    std::reverse(given.begin(), given.end());
    DISPPARAMS parameters{given.data(), names.data(), static_cast<UINT>(given.size()),
                          static_cast<UINT>(names.size())};
    Outcome outcome;
    EXCEPINFO exception{};
    outcome.result = object_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, result,
                                     &exception, &outcome.bad_argument);
    if (exception.pfnDeferredFillIn != nullptr) exception.pfnDeferredFillIn(&exception);
    outcome.exception = {exception.scode, TakeText(exception.bstrSource),
                         TakeText(exception.bstrDescription)};
    SysFreeString(exception.bstrHelpFile);
    for (VARIANT& value : given) VariantClear(&value);
    return outcome;
  }

  HRESULT Put(const wchar_t* name, VARIANT value) const {
    return Invoke(name, DISPATCH_PROPERTYPUT, {value}).result;
  }
  HRESULT Put(const wchar_t* name, VARIANT index, VARIANT value) const {
    return Invoke(name, DISPATCH_PROPERTYPUT, {index, value}).result;
  }

  // The value of a property, expected to be of a type.
  long GetInt(const wchar_t* name, VARTYPE type = VT_I4) const {
    Variant value;
    Read(name, type, value);
    Variant number;
    EXPECT_EQ(VariantChangeType(&number, &value, 0, VT_I4), S_OK);
    return V_I4(&number);
  }
  Text GetText(const wchar_t* name) const {
    Variant value;
    Read(name, VT_BSTR, value);
    return Text(component::View(V_BSTR(&value)));
  }
  ComPtr<IDispatch> GetObject(const wchar_t* name) const {
    Variant value;
    Read(name, VT_DISPATCH, value);
    return ComPtr<IDispatch>(V_DISPATCH(&value));
  }

 private:
  // Script engines do not know whether a name is a property or a method.
  void Read(const wchar_t* name, VARTYPE type, VARIANT& value) const {
    const Outcome outcome = Invoke(name, DISPATCH_PROPERTYGET | DISPATCH_METHOD, {}, &value);
    EXPECT_EQ(outcome.result, S_OK) << name;
    EXPECT_EQ(V_VT(&value), type) << name;
  }

  ComPtr<IDispatch> object_;
};

}  // namespace conmuta::test
