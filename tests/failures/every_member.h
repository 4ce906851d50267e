// The members of the public classes as the type library has them, and how to call any of them.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <string>
#include <vector>

#include "component/host.h"

namespace conmuta::test {

struct LibraryMember {
  std::string name;  // with what is done to it, "put Marca"
  MEMBERID id = 0;
  INVOKEKIND kind = INVOKE_FUNC;
  ULONG_PTR offset = 0;             // in the virtual table, in bytes
  std::vector<VARTYPE> parameters;  // codes as VT_I4, objects as VT_DISPATCH; VT_BYREF beside
  VARTYPE result = VT_EMPTY;        // VT_EMPTY: it gives nothing back

  bool IsPut() const { return (kind & (INVOKE_PROPERTYPUT | INVOKE_PROPERTYPUTREF)) != 0; }
};

std::vector<LibraryMember> MembersOf(REFIID iid);

// Values for the parameters of a member; objects and texts belong to them.
class Values {
 public:
  Values(const LibraryMember& member, TextView text, IDispatch* object);
  ~Values();
  Values(const Values&) = delete;
  Values& operator=(const Values&) = delete;

  // Each calls the member once more, with the same values.
  HRESULT CallDirectly(IDispatch* object);
  HRESULT CallByDispatch(IDispatch* object);

 private:
  const LibraryMember& member_;
  std::vector<VARIANT> values_;  // in the order of the parameters
  std::vector<LONG> variables_;  // of those that go by reference
};

}  // namespace conmuta::test
