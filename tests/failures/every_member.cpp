#include "every_member.h"

#include <algorithm>

#include "component/dll.h"

namespace conmuta::test {
namespace {

VARTYPE TypeOf(ITypeInfo* info, const TYPEDESC& type) {
  if (type.vt == VT_PTR) {
    const VARTYPE pointed = TypeOf(info, *type.lptdesc);
    return pointed == VT_DISPATCH ? pointed : static_cast<VARTYPE>(pointed | VT_BYREF);
  }
  if (type.vt != VT_USERDEFINED) return type.vt;
  ComPtr<ITypeInfo> defined;
  TYPEATTR* attributes = nullptr;
  info->GetRefTypeInfo(type.hreftype, defined.Receive());
  defined->GetTypeAttr(&attributes);
  const bool is_code = attributes->typekind == TKIND_ENUM;
  defined->ReleaseTypeAttr(attributes);
  return is_code ? VT_I4 : VT_DISPATCH;
}

std::string NameOf(ITypeInfo* info, const FUNCDESC& function) {
  BSTR name = nullptr;
  info->GetDocumentation(function.memid, &name, nullptr, nullptr, nullptr);
  const Text text = TakeText(name);
  const char* doing = function.invkind == INVOKE_PROPERTYGET      ? "get "
                      : function.invkind == INVOKE_PROPERTYPUT    ? "put "
                      : function.invkind == INVOKE_PROPERTYPUTREF ? "set "
                                                                  : "";
  return doing + std::string(text.begin(), text.end());
}

}  // namespace

std::vector<LibraryMember> MembersOf(REFIID iid) {
  ComPtr<ITypeLib> library;
  ComPtr<ITypeInfo> dispatch;
  ComPtr<ITypeInfo> info;
  HREFTYPE reference = 0;
  LoadTypeLibEx(DllPath().c_str(), REGKIND_NONE, library.Receive());
  library->GetTypeInfoOfGuid(iid, dispatch.Receive());
  dispatch->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference);
  dispatch->GetRefTypeInfo(reference, info.Receive());
  std::vector<LibraryMember> members;
  FUNCDESC* function = nullptr;
  for (UINT i = 0; SUCCEEDED(info->GetFuncDesc(i, &function)); ++i) {
    LibraryMember member;
    member.name = NameOf(info.get(), *function);
    member.id = function->memid;
    member.kind = function->invkind;
    member.offset = static_cast<ULONG_PTR>(function->oVft);
    for (int p = 0; p < function->cParams; ++p) {
      const ELEMDESC& element = function->lprgelemdescParam[p];
      if ((element.paramdesc.wParamFlags & PARAMFLAG_FRETVAL) != 0) {
        member.result = static_cast<VARTYPE>(TypeOf(info.get(), element.tdesc) & ~VT_BYREF);
      } else {
        member.parameters.push_back(TypeOf(info.get(), element.tdesc));
      }
    }
    members.push_back(std::move(member));
    info->ReleaseFuncDesc(function);
  }
  return members;
}

Values::Values(const LibraryMember& member, TextView text, IDispatch* object)
    : member_(member), variables_(member.parameters.size(), 2) {
  for (std::size_t i = 0; i < member.parameters.size(); ++i) {
    VARIANT value;
    VariantInit(&value);
    V_VT(&value) = member.parameters[i];
    if (V_ISBYREF(&value)) {
      V_BYREF(&value) = &variables_[i];
    } else if (V_VT(&value) == VT_BSTR) {
      V_BSTR(&value) = SysAllocStringLen(reinterpret_cast<const OLECHAR*>(text.data()),
                                         static_cast<UINT>(text.size()));
    } else if (V_VT(&value) == VT_DISPATCH) {
      V_DISPATCH(&value) = object;
      if (object != nullptr) object->AddRef();
    } else {
      V_I4(&value) = 2;
    }
    values_.push_back(value);
  }
}

Values::~Values() {
  for (VARIANT& value : values_) VariantClear(&value);
}

HRESULT Values::CallDirectly(IDispatch* object) {
  Variant result;
  std::vector<VARIANT> given = values_;
  VARIANT place;
  V_VT(&place) = VT_BYREF | VT_VARIANT;
  const bool is_whole = member_.result == VT_VARIANT;
  V_BYREF(&place) = is_whole ? static_cast<void*>(&result) : &V_NONE(&result);
  if (member_.result != VT_EMPTY) given.push_back(place);
  std::vector<VARTYPE> types;
  std::vector<VARIANT*> pointers;
  for (VARIANT& value : given) {
    types.push_back(V_VT(&value));
    pointers.push_back(&value);
  }
  VARIANT answered;
  VariantInit(&answered);
  DispCallFunc(object, member_.offset, CC_STDCALL, VT_ERROR, static_cast<UINT>(given.size()),
               types.data(), pointers.data(), &answered);
  if (SUCCEEDED(V_ERROR(&answered)) && !is_whole) V_VT(&result) = member_.result;
  return V_ERROR(&answered);
}

HRESULT Values::CallByDispatch(IDispatch* object) {
  std::vector<VARIANT> given = values_;
  std::reverse(given.begin(), given.end());
  DISPID put = DISPID_PROPERTYPUT;
  DISPPARAMS parameters{given.data(), member_.IsPut() ? &put : nullptr,
                        static_cast<UINT>(given.size()), member_.IsPut() ? 1u : 0u};
  Variant result;
  EXCEPINFO exception{};
  const HRESULT called = object->Invoke(
      member_.id, IID_NULL, LOCALE_USER_DEFAULT, static_cast<WORD>(member_.kind), &parameters,
      member_.result != VT_EMPTY ? &result : nullptr, &exception, nullptr);
  SysFreeString(exception.bstrSource);
  SysFreeString(exception.bstrDescription);
  SysFreeString(exception.bstrHelpFile);
  return called == DISP_E_EXCEPTION ? exception.scode : called;
}

}  // namespace conmuta::test
