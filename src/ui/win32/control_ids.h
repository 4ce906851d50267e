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
inline constexpr int kEtqConexiones = 217;
inline constexpr int kTxtConexiones = 218;
inline constexpr int kEtqAyuda = 219;
inline constexpr int kEtqAviso = 220;
inline constexpr int kBtnAceptar = IDOK;
inline constexpr int kBtnCancelar = IDCANCEL;

// frmConmutador
inline constexpr int kTvConmutadores = 300;
inline constexpr int kFrame1 = 301;
inline constexpr int kEtqArch = 302;
inline constexpr int kTxtComentarios = 303;  // this window's txtInfo
inline constexpr int kBtnBuscar = 304;
inline constexpr int kBtnEliminar = 305;
inline constexpr int kBtnPuertos = 306;
inline constexpr int kBtnInstalar = 307;
inline constexpr int kBtnContraer = 308;
inline constexpr int kEtqPredeterminado = 309;
inline constexpr int kBtnDesinstalar = 310;

}  // namespace conmuta::win32
