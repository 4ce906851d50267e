// Functions of the test in the place of those that a DLL imports.
#pragma once

#include <windows.h>

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstdlib>

#include "imports.h"

namespace conmuta::test {

// The name of a function, as a template's argument.
template <std::size_t kSize>
struct Name {
  constexpr Name(const char (&name)[kSize]) { std::copy_n(name, kSize, text); }
  char text[kSize];
};

// What is called instead: an object of type Behave, with the original before the arguments.
template <Name kName, class Function, class Behave>
struct Diversion;

template <Name kName, class Behave, class Result, class... Arguments>
struct Diversion<kName, Result(Arguments...), Behave> {
  using Function = Result(Arguments...);
  static inline Function* original = nullptr;
  static Result Call(Arguments... arguments) { return Behave{}(original, arguments...); }
};

// On 32 bit the system's functions are called another way than the run time's.
template <Name kName, class Behave, class Result, class... Arguments>
requires(sizeof(void*) == 4) struct Diversion<kName, Result WINAPI(Arguments...), Behave> {
  using Function = Result WINAPI(Arguments...);
  static inline Function* original = nullptr;
  static Result WINAPI Call(Arguments... arguments) { return Behave{}(original, arguments...); }
};

template <Name kName, class Function, class Behave>
void Divert(void** place, Behave) {
  using Diverted = Diversion<kName, Function, Behave>;
  Diverted::original =
      reinterpret_cast<Function*>(Put(place, reinterpret_cast<void*>(&Diverted::Call)));
}

// A function that the DLL does not import any more is a row that has to go.
template <Name kName, class Function, class Behave>
void DivertImport(HMODULE module, Behave behave) {
  void** const place = ImportOf(module, kName.text);
  if (place == nullptr) {
    std::fprintf(stderr, "the DLL does not import %s\n", kName.text);
    std::exit(2);
  }
  Divert<kName, Function>(place, behave);
}

}  // namespace conmuta::test
