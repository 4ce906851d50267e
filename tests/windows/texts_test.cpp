// Every text of every window and menu, to the letter.
#include "cable_editor.h"
#include "every_window.h"

namespace conmuta::test {
namespace {

// In bytes, on one line.
std::string Shown(TextView text) {
  std::string bytes(4 * text.size() + 1, '\0');
  const int size = WideCharToMultiByte(CP_UTF8, 0, reinterpret_cast<const wchar_t*>(text.data()),
                                       static_cast<int>(text.size()), bytes.data(),
                                       static_cast<int>(bytes.size()), nullptr, nullptr);
  bytes.resize(static_cast<std::size_t>(size));
  std::string line;
  for (const char c : bytes) {
    if (c == '\r') continue;
    line.append(c == '\n' ? "\\n" : c == '\t' ? "\\t" : std::string(1, c));
  }
  return line;
}

// A line for the window, and one for each control with a text or a tool tip, in the order of Tab:
// number, text, and what else there is to say of it.
std::string TextsOf(HWND window) {
  std::string lines = Shown(TextOf(window)) + "\n";
  for (const HWND control : ChildrenOf(window)) {
    const Text kind = ClassOf(control);
    const bool has_own_text = kind != u"SysTreeView32" && kind != u"ScrollBar";
    const Text text = has_own_text ? TextOf(control) : Text();
    const Text tip = ToolTipOf(control);
    if (text.empty() && tip.empty()) continue;
    lines.append(std::to_string(GetDlgCtrlID(control))).append(" ").append(Shown(text));
    if (!IsShown(control)) lines.append("  (hidden)");
    if (IsShown(control) && !IsUsable(control)) lines.append("  (disabled)");
    if (!tip.empty()) lines.append("  [").append(Shown(tip)).append("]");
    lines.append("\n");
  }
  return lines;
}

class TextsTest : public EveryWindowTest {
 protected:
  TextsTest() {
    // A pin under the pointer would be described.
    SetCursorPos(GetSystemMetrics(SM_CXSCREEN) - 1, GetSystemMetrics(SM_CYSCREEN) - 1);
  }

  // Opens a window, brings it into a state, and reads it.
  template <class Prepare>
  std::string TextsIn(const std::string& name, TextView caption, Prepare&& prepare) {
    std::string texts;
    While([&] { Open(name); },
          [&](const Person& person) {
            const HWND window = person.WaitForWindow(caption);
            prepare(person, window);
            person.host().Rest();
            texts = TextsOf(window);
            PostMessageW(window, WM_CLOSE, 0, 0);
          });
    return texts;
  }
  std::string TextsIn(const std::string& name, TextView caption) {
    return TextsIn(name, caption, [](const Person&, HWND) {});
  }
};

TEST_F(TextsTest, InformationWindow) {
  std::string texts = TextsIn("information", kInfoCaption);
  // The report has tests of its own.
  const auto report = texts.find("100 ");
  ASSERT_NE(report, std::string::npos);
  texts.erase(report, texts.find('\n', report) + 1 - report);
  EXPECT_EQ(texts,
            R"(Información general de configuración
-1 Información general de configuración  (hidden)
2 &Cerrar
)");
}

TEST_F(TextsTest, EditedCable) {
  EXPECT_EQ(TextsIn("edited cable", kCableCaption), R"(Configuración de puerto SMDR
201 Puerto DB9 - DB9
202 Puerto DB9 - DB25
203 Puerto DB25 - DB9
204 Puerto DB25 - DB25
214 Conmutador\nPanasonic, KX-TD1232  [Conmutador\nPanasonic, KX-TD1232]
210 Pin
212 ---> Pines conectados
215 Dibujo del cable. Arrastra de un pin a otro para trazar o quitar un cable; clic derecho: cables usuales
-1 Desplazamiento del dibujo  (hidden)
217 Co&nexiones
218 1 - 4\n2 - 3\n3 - 2\n4 - 1, 6\n5 - 5\n6 - 4\n7 - 8\n8 - 7\n
219 Arrastra de un pin a otro para trazar o quitar un cable; clic derecho: cables usuales  [Arrastra de un pin a otro para trazar o quitar un cable; clic derecho: cables usuales]
1 &Aceptar
2 &Cancelar
)");
}

TEST_F(TextsTest, ViewedCable) {
  EXPECT_EQ(TextsIn("viewed cable", kCableCaption), R"(Configuración de puerto SMDR
201 Puerto DB9 - DB9
202 Puerto DB9 - DB25
203 Puerto DB25 - DB9
204 Puerto DB25 - DB25
214 Conmutador\nPanasonic, KX-TD1232  [Conmutador\nPanasonic, KX-TD1232]
210 Pin  (hidden)
212 ---> Pines conectados  (hidden)
215 Dibujo del cable. Señala un pin para ver adónde van sus cables
-1 Desplazamiento del dibujo  (hidden)
217 Co&nexiones
218 1 - 4\n2 - 3\n3 - 2\n4 - 1, 6\n5 - 5\n6 - 4\n7 - 8\n8 - 7\n
219 Señala un pin para ver adónde van sus cables  [Señala un pin para ver adónde van sus cables]
1 &Aceptar  (hidden)
2 &Cerrar
)");
}

TEST_F(TextsTest, CableThatIsNotKeptWhole) {
  const auto choose = [](const Person& person, HWND window) {
    person.Press(GetDlgItem(window, win32::kOpcPuerto + 2));
  };
  EXPECT_EQ(TextsIn("edited cable", kCableCaption, choose), R"(Configuración de puerto SMDR
201 Puerto DB9 - DB9
202 Puerto DB9 - DB25
203 Puerto DB25 - DB9
204 Puerto DB25 - DB25
214 Conmutador\nPanasonic, KX-TD1232  [Conmutador\nPanasonic, KX-TD1232]
210 Pin
212 ---> Pines conectados
215 Dibujo del cable. Arrastra de un pin a otro para trazar o quitar un cable; clic derecho: cables usuales
-1 Desplazamiento del dibujo  (hidden)
217 Co&nexiones
219 Arrastra de un pin a otro para trazar o quitar un cable; clic derecho: cables usuales  [Arrastra de un pin a otro para trazar o quitar un cable; clic derecho: cables usuales]
220 De este par no se guardan los pines 10 a 25 del conmutador; el 9 queda como el 25.  [De este par no se guardan los pines 10 a 25 del conmutador; el 9 queda como el 25.]
1 &Aceptar
2 &Cancelar
)");
}

TEST_F(TextsTest, Manager) {
  std::string texts = TextsIn("manager", kManagerCaption);
  const std::string folder = Shown(folder_.Path(u""));
  for (std::size_t at; (at = texts.find(folder)) != std::string::npos;) {
    texts.replace(at, folder.size(), "FOLDER");
  }
  EXPECT_EQ(texts, R"(Conmutadores
-1 Conmutadores  (hidden)
304 &Buscar...
305 &Eliminar
308 &Contraer
302 FOLDERcnm1.cfg  [FOLDERcnm1.cfg]
-1 Comentarios  (hidden)
303 En la recepción.\n9600 baudios, 8 bits, sin paridad.
307 &Predeterminar
306 P&uertos...
309 Conmutador pre&determinado:
310 Panasonic, KX-TD1232  [Conmutador predeterminado]
2 Ce&rrar
301 Panasonic, KX-TD1232  [Panasonic, KX-TD1232]
)");
}

TEST_F(TextsTest, ManagerWithoutADefaultSwitch) {
  Do(catalogue_, &Catalogue::put_ArchivoInstalado, u"");
  EXPECT_EQ(TextsIn("manager", kManagerCaption), R"(Conmutadores
-1 Conmutadores  (hidden)
304 &Buscar...
305 &Eliminar  (disabled)
308 &Contraer
-1 Comentarios  (hidden)
307 &Predeterminar  (disabled)
306 P&uertos...  (disabled)
309 Conmutador pre&determinado:
310 <No hay conmutador predeterminado>
2 Ce&rrar
)");
}

// --- the menu of the cable ---

std::string MenuOf(const Editor& editor) {
  constexpr UINT kGetMenu = 0x01E1;  // MN_GETHMENU
  const HWND popup = editor.OpenMenu();
  const auto menu = reinterpret_cast<HMENU>(Send(popup, kGetMenu));
  std::string lines;
  for (UINT i = 0; i < static_cast<UINT>(GetMenuItemCount(menu)); ++i) {
    std::array<wchar_t, 100> text{};
    GetMenuStringW(menu, i, text.data(), static_cast<int>(text.size()), MF_BYPOSITION);
    const UINT state = GetMenuState(menu, i, MF_BYPOSITION);
    if ((state & MF_SEPARATOR) != 0) {
      lines.append("---\n");
    } else {
      lines.append(Shown(FromWide(text.data())));
      lines.append((state & MF_GRAYED) != 0 ? "  (disabled)\n" : "\n");
    }
  }
  editor.LeaveMenu(popup);
  return lines;
}

TEST_F(CableWindowTest, MenuOffersTheCablesOfThePair) {
  Edit(NamedConfig(), [](const Editor& editor) {
    const char* const expected[] = {R"(Módem nulo completo
Directo
De tres hilos
---
Quitar todos los cables
Deshacer\tCtrl+Z  (disabled)
)",
                                    R"(A puerto de impresora
---
Quitar todos los cables
Deshacer\tCtrl+Z  (disabled)
)",
                                    R"(Quitar todos los cables
Deshacer\tCtrl+Z  (disabled)
)",
                                    R"(Módem nulo con ocupado por DTR
Directo a módem
---
Quitar todos los cables
Deshacer\tCtrl+Z  (disabled)
)"};
    for (int pair = 1; pair <= 4; ++pair) {
      editor.Choose(pair);
      EXPECT_EQ(MenuOf(editor), expected[pair - 1]) << pair;
    }
    editor.TypePin(u"1");
    editor.TypeList(u"1");
    EXPECT_EQ(MenuOf(editor), R"(Módem nulo con ocupado por DTR
Directo a módem
---
Quitar todos los cables
Deshacer\tCtrl+Z
)");
    editor.Cancel();
  });
}

}  // namespace
}  // namespace conmuta::test
