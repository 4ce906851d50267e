#include "component/members.h"

#include <algorithm>

#include "component/com_support.h"

namespace conmuta::component {
namespace {

constexpr wchar_t Folded(wchar_t c) {
  return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c - L'A' + L'a') : c;
}

// Owns what type information hands out for a while.
class Attributes {
 public:
  explicit Attributes(ITypeInfo* info) : info_(info) { Require(info_->GetTypeAttr(&attributes_)); }
  ~Attributes() { info_->ReleaseTypeAttr(attributes_); }
  Attributes(const Attributes&) = delete;
  Attributes& operator=(const Attributes&) = delete;

  const TYPEATTR* operator->() const { return attributes_; }

 private:
  ITypeInfo* const info_;
  TYPEATTR* attributes_ = nullptr;
};

class Function {
 public:
  Function(ITypeInfo* info, UINT index) : info_(info) {
    Require(info_->GetFuncDesc(index, &description_));
  }
  ~Function() { info_->ReleaseFuncDesc(description_); }
  Function(const Function&) = delete;
  Function& operator=(const Function&) = delete;

  const FUNCDESC& operator*() const { return *description_; }

 private:
  ITypeInfo* const info_;
  FUNCDESC* description_ = nullptr;
};

Parameter Resolve(ITypeInfo* info, const TYPEDESC& type);

// An enumeration is a number, an interface an object.
Parameter ResolveDefined(ITypeInfo* info, HREFTYPE reference) {
  Parameter result;
  ComPtr<ITypeInfo> defined;
  Require(info->GetRefTypeInfo(reference, defined.Receive()));
  const Attributes attributes(defined.get());
  switch (attributes->typekind) {
    case TKIND_ALIAS:
      return Resolve(defined.get(), attributes->tdescAlias);
    case TKIND_ENUM:
      result.type = VT_I4;
      break;
    case TKIND_DISPATCH:
    case TKIND_INTERFACE:
      result.type = VT_DISPATCH;
      result.iid = attributes->guid;
      break;
    default:
      break;
  }
  return result;
}

Parameter Resolve(ITypeInfo* info, const TYPEDESC& type) {
  if (type.vt == VT_USERDEFINED) return ResolveDefined(info, type.hreftype);
  Parameter result;
  if (type.vt != VT_PTR) {
    result.type = type.vt;
    return result;
  }
  result = Resolve(info, *type.lptdesc);
  result.by_reference = result.type != VT_DISPATCH;  // an object is a pointer by itself
  return result;
}

}  // namespace

std::size_t MemberTable::FoldedHash::operator()(std::wstring_view name) const {
  std::size_t hash = 2166136261u;
  for (const wchar_t c : name) hash = (hash ^ Folded(c)) * 16777619u;
  return hash;
}

bool MemberTable::FoldedEqual::operator()(std::wstring_view a, std::wstring_view b) const {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](wchar_t x, wchar_t y) { return Folded(x) == Folded(y); });
}

void MemberTable::Read(ITypeInfo* dispatch) {
  // The other face of a dual interface tells slots and true parameters.
  HREFTYPE reference = 0;
  Require(dispatch->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference));
  ComPtr<ITypeInfo> info;
  Require(dispatch->GetRefTypeInfo(reference, info.Receive()));
  const Attributes attributes(info.get());
  for (UINT i = 0; i < attributes->cFuncs; ++i) Add(info.get(), *Function(info.get(), i));
  std::stable_sort(members_.begin(), members_.end(),
                   [](const Member& a, const Member& b) { return a.id < b.id; });
}

void MemberTable::Add(ITypeInfo* info, const FUNCDESC& function) {
  Member member;
  member.id = function.memid;
  member.kind = function.invkind;
  member.slot = static_cast<std::size_t>(function.oVft) / sizeof(void*);
  for (int i = 0; i < function.cParams; ++i) {
    const ELEMDESC& element = function.lprgelemdescParam[i];
    const USHORT flags = element.paramdesc.wParamFlags;
    Parameter parameter = Resolve(info, element.tdesc);
    parameter.optional = (flags & PARAMFLAG_FOPT) != 0;
    if ((flags & PARAMFLAG_FRETVAL) != 0) {
      member.result = parameter.type;
    } else {
      member.parameters.push_back(parameter);
    }
  }
  if (member.parameters.size() > kMostParameters) throw CallFailed{E_UNEXPECTED};
  members_.push_back(std::move(member));

  Variant name;
  V_VT(&name) = VT_BSTR;
  Require(info->GetDocumentation(function.memid, &V_BSTR(&name), nullptr, nullptr, nullptr));
  ids_.emplace(std::wstring(V_BSTR(&name), SysStringLen(V_BSTR(&name))), function.memid);
}

std::optional<DISPID> MemberTable::IdOf(std::wstring_view name) const {
  const auto found = ids_.find(name);
  return found == ids_.end() ? std::nullopt : std::optional<DISPID>(found->second);
}

const Member* MemberTable::Find(DISPID id, WORD flags) const {
  auto member = std::lower_bound(members_.begin(), members_.end(), id,
                                 [](const Member& m, DISPID wanted) { return m.id < wanted; });
  for (; member != members_.end() && member->id == id; ++member) {
    if ((flags & member->kind) != 0) return &*member;
  }
  return nullptr;
}

}  // namespace conmuta::component
