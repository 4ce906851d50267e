#include "component/dispatch.h"

#include <algorithm>
#include <array>

#include "component/module.h"

namespace conmuta::component {
namespace {

SRWLOCK cache_lock = SRWLOCK_INIT;

// Holds the lock on the dispatchers that are in use, by interface.
class Cache {
 public:
  Cache() { AcquireSRWLockExclusive(&cache_lock); }
  ~Cache() { ReleaseSRWLockExclusive(&cache_lock); }
  Cache(const Cache&) = delete;
  Cache& operator=(const Cache&) = delete;

  std::weak_ptr<const Dispatcher>& Of(REFIID iid) {
    const auto found = std::find_if(entries.begin(), entries.end(), [&](const auto& entry) {
      return IsEqualGUID(entry.first, iid);
    });
    if (found != entries.end()) return found->second;
    return entries.emplace_back(iid, std::weak_ptr<const Dispatcher>()).second;
  }

 private:
  static inline std::vector<std::pair<IID, std::weak_ptr<const Dispatcher>>> entries;
};

// Index of the parameter that an argument goes to: named ones come first, the others backwards.
int ParameterOf(const DISPPARAMS& arguments, UINT argument, int parameters) {
  if (argument < arguments.cNamedArgs) {
    const DISPID name = arguments.rgdispidNamedArgs[argument];
    return name == DISPID_PROPERTYPUT ? parameters - 1 : name;
  }
  return static_cast<int>(arguments.cArgs - 1 - argument);
}

bool IsOmitted(const VARIANT& value) {
  return V_VT(&value) == VT_ERROR && V_ERROR(&value) == DISP_E_PARAMNOTFOUND;
}

}  // namespace

// One argument as the member wants it, and the way back to the caller's variable.
class Dispatcher::Argument {
 public:
  HRESULT Prepare(VARIANT& given, const Parameter& wanted) {
    given_ = &given;
    wanted_ = wanted;
    if (wanted.type == VT_DISPATCH) return PrepareObject();
    const HRESULT result =
        VariantChangeType(&value_, const_cast<VARIANT*>(Source()), 0, wanted.type);
    if (FAILED(result)) return result;
    if (!wanted.by_reference) return VariantCopy(&passed_, &value_);
    V_VT(&passed_) = static_cast<VARTYPE>(wanted.type | VT_BYREF);
    V_BYREF(&passed_) = &V_NONE(&value_);
    return S_OK;
  }

  const VARIANT& passed() const { return passed_; }

  HRESULT WriteBack() {
    if (!wanted_.by_reference || !V_ISBYREF(given_)) return S_OK;
    if (V_VT(given_) == (VT_BYREF | VT_VARIANT)) return VariantCopy(V_VARIANTREF(given_), &value_);
    Variant back;
    const auto type = static_cast<VARTYPE>(V_VT(given_) & ~VT_BYREF);
    const HRESULT result = VariantChangeType(&back, &value_, 0, type);
    if (FAILED(result)) return result;
    Store(back, type);
    return S_OK;
  }

 private:
  const VARIANT* Source() const {
    return V_VT(given_) == (VT_BYREF | VT_VARIANT) ? V_VARIANTREF(given_) : given_;
  }

  HRESULT PrepareObject() {
    IUnknown* object = nullptr;
    switch (V_VT(Source())) {
      case VT_NULL:
        break;
      case VT_DISPATCH:
      case VT_UNKNOWN:
        object = V_UNKNOWN(Source());
        break;
      case VT_BYREF | VT_DISPATCH:
      case VT_BYREF | VT_UNKNOWN:
        object = *V_UNKNOWNREF(Source());
        break;
      default:
        return DISP_E_TYPEMISMATCH;
    }
    const auto typed = QueryFor<IDispatch>(object, wanted_.iid);
    if (object != nullptr && !typed) return DISP_E_TYPEMISMATCH;
    V_VT(&passed_) = VT_DISPATCH;
    V_DISPATCH(&passed_) = typed.CopyTo();
    return S_OK;
  }

  // Puts a plain value where the caller's pointer points.
  void Store(Variant& value, VARTYPE type) {
    switch (type) {
      case VT_I1:
      case VT_UI1:
        *V_UI1REF(given_) = V_UI1(&value);
        break;
      case VT_I2:
      case VT_UI2:
      case VT_BOOL:
        *V_I2REF(given_) = V_I2(&value);
        break;
      case VT_I8:
      case VT_UI8:
      case VT_R8:
      case VT_CY:
      case VT_DATE:
        *V_I8REF(given_) = V_I8(&value);
        break;
      case VT_BSTR:
        std::swap(*V_BSTRREF(given_), V_BSTR(&value));
        break;
      case VT_DECIMAL:
        *V_DECIMALREF(given_) = V_DECIMAL(&value);
        V_DECIMALREF(given_)->wReserved = 0;
        break;
      default:  // the four-byte types
        *V_I4REF(given_) = V_I4(&value);
    }
  }

  VARIANT* given_ = nullptr;
  Parameter wanted_;
  Variant value_;
  Variant passed_;
};

Dispatcher::Parameter Dispatcher::ResolveDefined(ITypeInfo* info, HREFTYPE reference) {
  ComPtr<ITypeInfo> defined;
  TYPEATTR* attributes = nullptr;
  if (FAILED(info->GetRefTypeInfo(reference, defined.Receive())) ||
      FAILED(defined->GetTypeAttr(&attributes))) {
    return {};
  }
  Parameter result;
  if (attributes->typekind == TKIND_ENUM) {
    result.type = VT_I4;
  } else if (attributes->typekind == TKIND_DISPATCH || attributes->typekind == TKIND_INTERFACE) {
    result.type = VT_DISPATCH;
    result.iid = attributes->guid;
  }
  defined->ReleaseTypeAttr(attributes);
  return result;
}

Dispatcher::Parameter Dispatcher::Resolve(ITypeInfo* info, const TYPEDESC& type) {
  if (type.vt == VT_USERDEFINED) return ResolveDefined(info, type.hreftype);
  if (type.vt != VT_PTR) return {type.vt, false, IID_NULL};
  Parameter pointed = Resolve(info, *type.lptdesc);
  if (pointed.type != VT_DISPATCH) pointed.by_reference = true;
  return pointed;
}

Dispatcher::Dispatcher(ComPtr<ITypeInfo> info) : info_(std::move(info)) {
  FUNCDESC* function = nullptr;
  for (UINT i = 0; SUCCEEDED(info_->GetFuncDesc(i, &function)); ++i) {
    Parameters& parameters = members_[{function->memid, function->invkind}];
    parameters.clear();
    for (int p = 0; p < function->cParams; ++p) {
      if ((function->lprgelemdescParam[p].paramdesc.wParamFlags & PARAMFLAG_FRETVAL) != 0) continue;
      parameters.push_back(Resolve(info_.get(), function->lprgelemdescParam[p].tdesc));
    }
    info_->ReleaseFuncDesc(function);
  }
}

std::shared_ptr<const Dispatcher> Dispatcher::For(REFIID iid, HRESULT& result) {
  Cache cache;
  auto& cached = cache.Of(iid);
  auto dispatcher = cached.lock();
  result = S_OK;
  if (dispatcher) return dispatcher;
  ComPtr<ITypeInfo> info;
  result = module::TypeInfoOf(iid, info.Receive());
  if (FAILED(result)) return nullptr;
  dispatcher = std::make_shared<const Dispatcher>(std::move(info));
  cached = dispatcher;
  return dispatcher;
}

HRESULT Dispatcher::GetIDsOfNames(LPOLESTR* names, UINT count, DISPID* ids) const {
  return info_->GetIDsOfNames(names, count, ids);
}

const Dispatcher::Parameters* Dispatcher::Find(DISPID member, WORD flags) const {
  for (const INVOKEKIND kind :
       {INVOKE_PROPERTYPUT, INVOKE_PROPERTYPUTREF, INVOKE_PROPERTYGET, INVOKE_FUNC}) {
    if ((flags & kind) == 0) continue;
    if (const auto found = members_.find({member, kind}); found != members_.end()) {
      return &found->second;
    }
  }
  return nullptr;
}

HRESULT Dispatcher::Invoke(void* object, DISPID member, WORD flags, DISPPARAMS* parameters,
                           VARIANT* result, EXCEPINFO* exception, UINT* bad_argument) const {
  const Parameters* declared = Find(member, flags);
  if (parameters == nullptr || declared == nullptr) {
    return info_->Invoke(object, member, flags, parameters, result, exception, bad_argument);
  }

  // Not every system's own Invoke refuses what is too much.
  constexpr UINT kMostArguments = 4;
  if (parameters->cArgs > std::min<std::size_t>(declared->size(), kMostArguments)) {
    return DISP_E_BADPARAMCOUNT;
  }

  std::array<Argument, kMostArguments> arguments;
  std::array<VARIANT, kMostArguments> passed;  // borrowed from the arguments
  const int count = static_cast<int>(declared->size());
  for (UINT i = 0; i < parameters->cArgs; ++i) {
    VARIANT& given = parameters->rgvarg[i];
    passed[i] = given;
    const int index = ParameterOf(*parameters, i, count);
    if (index < 0 || index >= count || IsOmitted(given)) continue;
    const Parameter& wanted = (*declared)[static_cast<std::size_t>(index)];
    if (wanted.type == VT_EMPTY) continue;
    const HRESULT coerced = arguments[i].Prepare(given, wanted);
    if (FAILED(coerced)) {
      if (bad_argument != nullptr) *bad_argument = i;
      return coerced;
    }
    passed[i] = arguments[i].passed();
  }

  DISPPARAMS coerced = *parameters;
  coerced.rgvarg = passed.data();
  const HRESULT called =
      info_->Invoke(object, member, flags, &coerced, result, exception, bad_argument);
  if (FAILED(called)) return called;
  for (UINT i = 0; i < parameters->cArgs; ++i) {
    const HRESULT written = arguments[i].WriteBack();
    if (FAILED(written)) return written;
  }
  return called;
}

}  // namespace conmuta::component
