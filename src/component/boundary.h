// The border between the core and COM: no exception crosses it.
#pragma once

#include <windows.h>

#include <utility>

#include "component/com_support.h"
#include "translate/line_error.h"

namespace conmuta::component {

// A value of a wrong kind was handed in; hosts see "type mismatch".
class TypeMismatchError {};

// For a handler of any exception: its HRESULT, with number, source and description left for the
// caller to fetch where it has them.
HRESULT ReportCurrentException(REFIID iid) noexcept;

// The same for an error of a line, S_OK for none: costs less than an exception, and broken captures
// have many.
HRESULT ReportLine(REFIID iid, LineError error) noexcept;

// Answers for a call that failed for a reason that needs no words.
HRESULT ReportPlain(HRESULT result) noexcept;

// Runs the body of a method of `self`, which stays alive meanwhile, whatever a host does from an
// event handler.
template <class Body>
HRESULT Guarded(IUnknown* self, REFIID iid, Body&& body) noexcept {
  const ComPtr<IUnknown> keep_alive(self);
  try {
    std::forward<Body>(body)();
    return S_OK;
  } catch (...) {
    return ReportCurrentException(iid);
  }
}

// The same for a method that hands a value out: E_POINTER when there is nowhere to put it. On
// failure the place holds the type's zero.
template <class Out, class Body>
HRESULT GuardedResult(IUnknown* self, REFIID iid, Out* result, Body&& body) noexcept {
  if (result == nullptr) return ReportPlain(E_POINTER);
  *result = Out{};
  return Guarded(self, iid, [&] { *result = std::forward<Body>(body)(); });
}

}  // namespace conmuta::component
