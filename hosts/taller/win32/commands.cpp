#include "taller/win32/commands.h"

#include <string>
#include <vector>

namespace conmuta::taller {
namespace {

constexpr BYTE kPlain = FVIRTKEY;
constexpr BYTE kControl = FVIRTKEY | FCONTROL;
constexpr BYTE kShift = FVIRTKEY | FSHIFT;
constexpr BYTE kBoth = FVIRTKEY | FCONTROL | FSHIFT;

struct Entry {
  const wchar_t* text;  // of a menu of the bar, where there is no command
  int command = 0;
  const wchar_t* key = nullptr;
  BYTE modifiers = 0;  // 0: the key is another's business
  WORD code = 0;
};

constexpr const wchar_t* kLine = nullptr;
constexpr const wchar_t* kRecentText = L"&Recientes";

constexpr Entry kEntries[] = {
    {L"&Archivo"},
    {L"Abrir &captura...", kOpenCapture, L"Ctrl+O", kControl, 'O'},
    {kLine},
    {L"&Nueva configuración", kNewLayout, L"Ctrl+N", kControl, 'N'},
    {L"A&brir configuración...", kOpenLayout, L"Ctrl+Mayús+O", kBoth, 'O'},
    {L"&Guardar configuración", kSaveLayout, L"Ctrl+S", kControl, 'S'},
    {L"G&uardar configuración como...", kSaveLayoutAs, L"Ctrl+Mayús+S", kBoth, 'S'},
    {kLine},
    {kRecentText, kRecent},
    {kLine},
    {L"&Salir", kExit, L"Alt+F4"},
    {L"&Edición"},
    {L"&Deshacer", kUndo, L"Ctrl+Z", kControl, 'Z'},
    {L"&Rehacer", kRedo, L"Ctrl+Y", kControl, 'Y'},
    {kLine},
    {L"&Pegar líneas", kPasteCapture, L"Ctrl+V", kControl, 'V'},
    {kLine},
    {L"&Quitar lo que hay en la columna", kRemoveAtCaret, L"Supr"},
    {L"Da&tos del conmutador...", kEditHeader, L"F2", kPlain, VK_F2},
    {L"&Cable...", kEditCable, L"F3", kPlain, VK_F3},
    {L"&Ver"},
    {L"&Acercar", kZoomIn, L"Ctrl++", kControl, VK_ADD},
    {L"A&lejar", kZoomOut, L"Ctrl+-", kControl, VK_SUBTRACT},
    {L"&Tamaño normal", kZoomUsual, L"Ctrl+0", kControl, '0'},
    {kLine},
    {L"Todos los &datos del layout", kShowAllItems, L"F5", kPlain, VK_F5},
    {kLine},
    {L"&Informe de la configuración...", kShowReport, L"F4", kPlain, VK_F4},
    {L"I&nforme de la línea...", kShowLineReport, L"Mayús+F4", kShift, VK_F4},
    {L"&Línea"},
    {L"¿&Qué es lo marcado?...", kAskForMark, L"Intro"},
    {kLine},
    {L"Siguiente &llamada", kNextCall, L"F7", kPlain, VK_F7},
    {L"Ll&amada anterior", kPreviousCall, L"Mayús+F7", kShift, VK_F7},
    {L"Siguiente &sin llamada", kNextNoCall, L"F8", kPlain, VK_F8},
    {L"A&nterior sin llamada", kPreviousNoCall, L"Mayús+F8", kShift, VK_F8},
    {L"Siguiente &error", kNextError, L"F9", kPlain, VK_F9},
    {L"Err&or anterior", kPreviousError, L"Mayús+F9", kShift, VK_F9},
    {kLine},
    {L"&Motivos y tipos...", kShowReasons, L"F6", kPlain, VK_F6},
    {L"&Ir a lo que le falta", kGoToRemedy, L"Ctrl+I", kControl, 'I'},
    {L"&Catálogo"},
    {L"&Adivinar...", kGuess, L"Ctrl+D", kControl, 'D'},
    {L"A&yuda"},
    {L"&Acerca del taller...", kShowAbout, L"F1", kPlain, VK_F1},
};

// The main keyboard's keys for what the numeric one has.
constexpr ACCEL kMore[] = {{kControl, VK_OEM_PLUS, kZoomIn},
                           {kControl, VK_OEM_MINUS, kZoomOut},
                           {kControl, VK_NUMPAD0, kZoomUsual},
                           {kBoth, 'Z', kRedo}};

}  // namespace

HMENU MakeMenuBar() {
  const HMENU bar = CreateMenu();
  HMENU menu = nullptr;
  for (const Entry& entry : kEntries) {
    if (entry.text == kLine) {
      AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
    } else if (entry.command == 0) {
      menu = CreatePopupMenu();
      AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(menu), entry.text);
    } else if (entry.command == kRecent) {
      AppendMenuW(menu, MF_POPUP, reinterpret_cast<UINT_PTR>(CreatePopupMenu()), entry.text);
    } else {
      std::wstring text = entry.text;
      if (entry.key != nullptr) text.append(L"\t").append(entry.key);
      AppendMenuW(menu, MF_STRING, static_cast<UINT_PTR>(entry.command), text.c_str());
    }
  }
  return bar;
}

HMENU RecentMenuOf(HMENU bar) {
  const HMENU file = GetSubMenu(bar, 0);
  for (int i = 0; i < GetMenuItemCount(file); ++i) {
    if (const HMENU recent = GetSubMenu(file, i)) return recent;
  }
  return nullptr;
}

HACCEL MakeAccelerators() {
  std::vector<ACCEL> keys(std::begin(kMore), std::end(kMore));
  for (const Entry& entry : kEntries) {
    if (entry.code == 0) continue;
    keys.push_back({entry.modifiers, entry.code, static_cast<WORD>(entry.command)});
  }
  return CreateAcceleratorTableW(keys.data(), static_cast<int>(keys.size()));
}

}  // namespace conmuta::taller
