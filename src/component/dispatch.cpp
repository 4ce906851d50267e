#include "component/dispatch.h"

#include <algorithm>
#include <array>
#include <optional>
#include <vector>

#include "component/argument.h"
#include "component/module.h"

namespace conmuta::component {
namespace {

SRWLOCK cache_lock = SRWLOCK_INIT;

// Holds the lock on the dispatchers that were made, by interface.
class Cache {
 public:
  Cache() { AcquireSRWLockExclusive(&cache_lock); }
  ~Cache() { ReleaseSRWLockExclusive(&cache_lock); }
  Cache(const Cache&) = delete;
  Cache& operator=(const Cache&) = delete;

  void Clear() { entries.value = {}; }

  std::shared_ptr<const Dispatcher>& Of(REFIID iid) {
    auto& known = entries.value;
    const auto found = std::find_if(known.begin(), known.end(), [&](const auto& entry) {
      return IsEqualGUID(entry.first, iid);
    });
    if (found != known.end()) return found->second;
    return known.emplace_back(iid, nullptr).second;
  }

 private:
  using Entries = std::vector<std::pair<IID, std::shared_ptr<const Dispatcher>>>;

  // Not destroyed with the DLL: what they hold must not be released under the loader's lock.
  union Lasting {
    Lasting() : value() {}
    ~Lasting() {}
    Entries value;
  };
  static inline Lasting entries;
};

using Arguments = std::array<std::optional<Argument>, kMostParameters>;

// Index of the parameter that an argument goes to: named ones come first, the others backwards.
// Beyond the parameters for a name that none has.
std::size_t ParameterOf(const Member& member, const DISPPARAMS& given, UINT argument) {
  if (argument >= given.cNamedArgs) return given.cArgs - 1 - argument;
  const DISPID name = given.rgdispidNamedArgs[argument];
  if (name != DISPID_PROPERTYPUT) return static_cast<std::size_t>(name);
  return member.parameters.size() - (member.result == VT_EMPTY ? 1 : 0);  // the result counts too
}

// Some hosts assign every variable by reference, as if it held an object.
bool AssignsAVariable(WORD flags, const DISPPARAMS& given) {
  return flags == DISPATCH_PROPERTYPUTREF && given.cArgs != 0 && V_ISBYREF(&given.rgvarg[0]);
}

bool IsOmitted(const VARIANT& value) {
  return V_VT(&value) == VT_ERROR && V_ERROR(&value) == DISP_E_PARAMNOTFOUND;
}

HRESULT Take(const Member& member, const DISPPARAMS& given, Arguments& arguments,
             UINT* bad_argument) {
  const auto& parameters = member.parameters;
  if (given.cArgs > parameters.size()) return DISP_E_BADPARAMCOUNT;
  for (UINT i = 0; i < given.cArgs; ++i) {
    const std::size_t index = ParameterOf(member, given, i);
    if (index >= parameters.size()) continue;
    if (parameters[index].optional && IsOmitted(given.rgvarg[i])) continue;
    const HRESULT taken = arguments[index].emplace(parameters[index]).Take(given.rgvarg[i]);
    if (FAILED(taken)) {
      if (bad_argument != nullptr) *bad_argument = i;
      return taken;
    }
  }
  if (member.IsAssignment() &&
      (given.cNamedArgs == 0 || given.rgdispidNamedArgs[0] != DISPID_PROPERTYPUT)) {
    return DISP_E_PARAMNOTFOUND;
  }
  for (std::size_t i = 0; i < parameters.size(); ++i) {
    if (arguments[i]) continue;
    if (!parameters[i].optional) return DISP_E_BADPARAMCOUNT;
    arguments[i].emplace(parameters[i]).TakeDefault();
  }
  return S_OK;
}

template <class... Words>
HRESULT Call(void* object, std::size_t slot, Words... words) {
  using Function = HRESULT(STDMETHODCALLTYPE*)(void* object, Words... words);
  return reinterpret_cast<Function>((*static_cast<void***>(object))[slot])(object, words...);
}

// Calls the member with its arguments, and the place for the result behind them.
HRESULT Call(void* object, const Member& member, Arguments& arguments, VARIANT& result) {
  std::array<Word, kMostParameters + 1> words{};
  std::size_t count = 0;
  for (; count < member.parameters.size(); ++count) words[count] = arguments[count]->Pass();
  if (member.result != VT_EMPTY) {
    const bool is_whole = member.result == VT_VARIANT;
    if (!is_whole) V_VT(&result) = member.result;
    void* const place = is_whole ? static_cast<void*>(&result) : &V_NONE(&result);
    words[count++] = reinterpret_cast<Word>(place);
  }
  switch (count) {
    case 0:
      return Call(object, member.slot);
    case 1:
      return Call(object, member.slot, words[0]);
    case 2:
      return Call(object, member.slot, words[0], words[1]);
    default:
      return Call(object, member.slot, words[0], words[1], words[2]);
  }
}

// What a member that failed says, in the form for late bound callers.
HRESULT Exception(HRESULT failed, EXCEPINFO* exception) {
  if (exception == nullptr) return DISP_E_EXCEPTION;
  *exception = EXCEPINFO{};
  exception->scode = failed;
  ComPtr<IErrorInfo> info;
  if (GetErrorInfo(0, info.Receive()) == S_OK) {
    info->GetSource(&exception->bstrSource);
    info->GetDescription(&exception->bstrDescription);
    info->GetHelpFile(&exception->bstrHelpFile);
    info->GetHelpContext(&exception->dwHelpContext);
  }
  return DISP_E_EXCEPTION;
}

}  // namespace

std::shared_ptr<const Dispatcher> Dispatcher::For(REFIID iid) {
  Cache cache;
  auto& cached = cache.Of(iid);
  if (cached) return cached;
  const auto made = std::make_shared<Dispatcher>();
  made->info_ = module::TypeInfoOf(iid);
  made->members_.Read(made->info_.get());
  return cached = made;
}

void Dispatcher::ForgetAll() {
  Cache().Clear();
}

HRESULT Dispatcher::GetIDsOfNames(LPOLESTR* names, UINT count, DISPID* ids) const {
  if (count == 1 && names[0] != nullptr) {
    if (const auto id = members_.IdOf(names[0])) {
      ids[0] = *id;
      return S_OK;
    }
  }
  return info_->GetIDsOfNames(names, count, ids);
}

HRESULT Dispatcher::Invoke(void* object, DISPID id, WORD flags, DISPPARAMS* parameters,
                           VARIANT* result, EXCEPINFO* exception, UINT* bad_argument) const {
  if (parameters == nullptr || parameters->cNamedArgs > parameters->cArgs) return E_INVALIDARG;
  const Member* member = members_.Find(id, flags);
  if (member == nullptr && AssignsAVariable(flags, *parameters)) {
    member = members_.Find(id, DISPATCH_PROPERTYPUT);
  }
  if (member == nullptr) return DISP_E_MEMBERNOTFOUND;

  Arguments arguments;
  const HRESULT taken = Take(*member, *parameters, arguments, bad_argument);
  if (FAILED(taken)) return taken;

  Variant given_back;
  const HRESULT called = Call(object, *member, arguments, given_back);
  if (FAILED(called)) {
    V_VT(&given_back) = VT_EMPTY;  // a failed member gives nothing
    return Exception(called, exception);
  }
  if (result != nullptr) {
    *result = given_back;
    V_VT(&given_back) = VT_EMPTY;
  }
  for (std::size_t i = 0; i < member->parameters.size(); ++i) {
    const HRESULT written = arguments[i]->WriteBack();
    if (FAILED(written)) return written;
  }
  return S_OK;
}

}  // namespace conmuta::component
