// The controls of our windows by the names that users of the code know. Tests find them by these.
#pragma once

#include <windows.h>

namespace conmuta::win32 {

// frmInfo; btnCerrar is IDCANCEL in every window that has it, so that Esc presses it.
inline constexpr int kTxtInfo = 100;
inline constexpr int kBtnCerrar = IDCANCEL;

// frmPuertos
inline constexpr int kOpcPuerto = 200;  // and the pair's code: 201 to 204
inline constexpr int kLabel1 = 210;
inline constexpr int kTxtPinIzq = 211;
inline constexpr int kLabel2 = 212;
inline constexpr int kTxtPinesConectados = 213;
inline constexpr int kEtqConmutador = 214;
inline constexpr int kDiagram = 215;
inline constexpr int kVDesp = 216;
inline constexpr int kBtnAceptar = IDOK;
inline constexpr int kBtnCancelar = IDCANCEL;

}  // namespace conmuta::win32
