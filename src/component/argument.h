// One argument of a late bound call.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include "component/com_support.h"
#include "component/members.h"

namespace conmuta::component {

// What a member takes for any argument: each of our types fits.
using Word = UINT_PTR;

// A value of the caller's on its way to a member, coerced to the type that the member takes.
class Argument {
 public:
  explicit Argument(const Parameter& wanted) : wanted_(wanted) {}

  // `given` must outlive the call. A wrong type is "type mismatch" and a value beyond its type's
  // range an overflow before anything is called. Arguments by reference may be of any type, script
  // variables among them. Null stands for no object, which JScript has no other word for.
  HRESULT Take(VARIANT& given);

  // The caller left out what is optional.
  void TakeDefault() { V_VT(&value_) = wanted_.type; }

  // What is handed to the member. Taken once, when the argument stays where it is.
  Word Pass();

  // Hands the caller's variable what the member put in its place. A value that the member did not
  // change leaves the variable as it was, in its type.
  HRESULT WriteBack();

 private:
  VARIANT& Source() const;
  HRESULT TakeObject();
  void Store(Variant& value, VARTYPE type);

  const Parameter& wanted_;
  VARIANT* given_ = nullptr;  // null for one that was left out
  bool is_borrowed_ = false;  // `given` itself is passed
  Variant value_;
  Word before_ = 0;
};

}  // namespace conmuta::component
