// The members of an interface as late bound calls need them.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace conmuta::component {

// No member of ours has more, the result not counted.
inline constexpr std::size_t kMostParameters = 2;

struct Parameter {
  VARTYPE type = VT_EMPTY;
  bool by_reference = false;  // the member may change the caller's variable
  bool optional = false;      // left out, it is the zero of its type
  IID iid = IID_NULL;         // of an object
};

struct Member {
  DISPID id = DISPID_UNKNOWN;
  INVOKEKIND kind = INVOKE_FUNC;
  std::size_t slot = 0;  // in the virtual table
  std::vector<Parameter> parameters;
  VARTYPE result = VT_EMPTY;  // VT_EMPTY: it gives nothing back

  bool IsAssignment() const { return kind == INVOKE_PROPERTYPUT || kind == INVOKE_PROPERTYPUTREF; }
};

// Read once from the type information of a dual interface; its own members, not the inherited ones.
class MemberTable {
 public:
  // Whole or not at all.
  void Read(ITypeInfo* dispatch);

  // Names are plain ASCII, in any letter case and whatever the locale.
  std::optional<DISPID> IdOf(std::wstring_view name) const;

  // Of the members with that id and one of the kinds that the flags ask for, the first in the
  // virtual table; null without one.
  const Member* Find(DISPID id, WORD flags) const;

 private:
  struct FoldedHash {
    using is_transparent = void;
    std::size_t operator()(std::wstring_view name) const;
  };
  struct FoldedEqual {
    using is_transparent = void;
    bool operator()(std::wstring_view a, std::wstring_view b) const;
  };

  void Add(ITypeInfo* info, const FUNCDESC& function);

  std::vector<Member> members_;  // by id
  std::unordered_map<std::wstring, DISPID, FoldedHash, FoldedEqual> ids_;
};

}  // namespace conmuta::component
