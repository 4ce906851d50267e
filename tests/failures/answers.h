// What a person answers whom the DLL asks: no dialog of the system's is shown.
#pragma once

#include <windows.h>

#include <string>

namespace conmuta::test::answers {

inline constexpr int kMessageBox = IDYES;
inline std::wstring file;  // that is chosen; empty: none

}  // namespace conmuta::test::answers
