// The information window with both of its reports.
#include <string>

#include "samples.h"
#include "ui/win32/control_ids.h"
#include "window_test.h"

namespace conmuta::test {
namespace {

constexpr TextView kCaption = u"Información general de configuración";

Text Lines(std::initializer_list<TextView> lines) {
  Text text;
  for (const TextView line : lines) text.append(line).append(kLineBreak);
  return text;
}

Text TypicalReport() {
  return Lines({
      u"",
      u"   Conmutador  : Panasonic, KX-TD1232",
      u"   Versión     : 3.0",
      u"   Caso        : Estandar",
      u"   Separadores : 13,10,0,0,0,0,0,0,0,0,",
      u"",
      u"",
      u"     VARIABLES (DATOS)                                            POS  TAM  T-DATO",
      u"------------------------------------------------------------------------------------",
      u"01.- Día de la fecha ............................................   1    2  Numérico",
      u"02.- Mes de la fecha.............................................   4    2  Numérico",
      u"03.- Hora de la fecha............................................   7    2  Numérico",
      u"04.- Minuto de la fecha..........................................  10    2  Numérico",
      u"05.- Hora de la duración.........................................  13    2  Numérico",
      u"06.- Minuto de la duración.......................................  16    2  Numérico",
      u"07.- Segundo de la duración......................................  19    2  Numérico",
      u"08.- Numero telefónico entrante..................................  24   10  Cadena",
      u"09.- Extensión entrante..........................................  35    3  Numérico",
      u"",
      u"",
      u"     VARIABLES (CONSTANTES)                                       POS  TAM  CONSTANTE",
      u"-------------------------------------------------------------------------------------",
      u"01.- Identificador de entrante...................................  22    1  $(E)",
      u"02.- Identificador de saliente...................................  22    1  $(S)",
  });
}

int Scaled(int pixels) {
  const HDC screen = GetDC(nullptr);
  const int dpi = GetDeviceCaps(screen, LOGPIXELSY);
  ReleaseDC(nullptr, screen);
  return MulDiv(pixels, dpi, 96);
}

std::wstring Clipboard() {
  std::wstring text;
  WaitUntil("clipboard", [] { return OpenClipboard(nullptr) != 0; });
  if (const HANDLE held = GetClipboardData(CF_UNICODETEXT)) {
    text = static_cast<const wchar_t*>(GlobalLock(held));
    GlobalUnlock(held);
  }
  CloseClipboard();
  return text;
}

class InfoWindowTest : public WindowTest {
 protected:
  // Works the report of a configuration. The person is to close it.
  template <class Work>
  void WhileShown(const ComPtr<Cfg>& config, Work&& work) {
    While([&] { Do(config, &Cfg::MostrarInformacionConfiguracion); },
          [&](const Person& person) {
            const HWND window = person.WaitForWindow(kCaption);
            work(person, window, GetDlgItem(window, win32::kTxtInfo),
                 GetDlgItem(window, win32::kBtnCerrar));
          });
  }
};

TEST_F(InfoWindowTest, ShowsTheConfigurationReportAsItIs) {
  WhileShown(TypicalConfig(), [](const Person& person, HWND window, HWND text, HWND close) {
    EXPECT_EQ(TextOf(text), TypicalReport());
    EXPECT_TRUE(HasStyle(text, ES_READONLY | ES_MULTILINE));
    EXPECT_EQ(TextOf(close), u"&Cerrar");
    EXPECT_EQ(OuterSizeOf(window).cx, Scaled(567));
    EXPECT_EQ(OuterSizeOf(window).cy, Scaled(367));
    person.Press(close);
  });
}

TEST_F(InfoWindowTest, ConfigurationWithoutItemsSaysSo) {
  WhileShown(NewConfig(), [](const Person& person, HWND, HWND text, HWND close) {
    const Text shown = TextOf(text);
    EXPECT_NE(shown.find(u"   Conmutador  : Desconocido\r\n"), Text::npos);
    const auto first = shown.find(u"\r\nNo hay datos.\r\n");
    ASSERT_NE(first, Text::npos);
    EXPECT_NE(shown.find(u"\r\nNo hay datos.\r\n", first + 1), Text::npos);
    person.Press(close);
  });
}

TEST_F(InfoWindowTest, ReportAddressesEveryKindAndChangesNothing) {
  const auto config = NamedConfig();
  const auto modified = Read(config, &Cfg::get_Modificado);
  WhileShown(config, [](const Person& person, HWND, HWND, HWND close) { person.Press(close); });
  EXPECT_EQ(Read(config, &Cfg::get_Modificado), modified);
  EXPECT_EQ(Read(config, &Cfg::get_DATOActivo), Code<::emParamDato>(53));
  EXPECT_EQ(Read(config, &Cfg::get_CTEActivo), Code<::emParamDatoConstante>(23));
}

TEST_F(InfoWindowTest, ShowsTheTranslationReportAsItIs) {
  const auto translator = NewTranslator();
  Do(translator, &Trad::putref_Conmutador, TypicalConfig().get());
  Do(translator, &Trad::put_Llamada, u"21/11 10:05 00:07:20 E 5551234567 205  ");
  SYSTEMTIME now;
  GetLocalTime(&now);
  wchar_t month[40] = L"";
  GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SABBREVMONTHNAME11, month, 40);
  const Text date = u"21/" + FromWide(month).substr(0, 3) + u"/" + ToText(now.wYear);
  While([&] { Do(translator, &Trad::MuestraInfoTrad); },
        [&](const Person& person) {
          const HWND window = person.WaitForWindow(kCaption);
          EXPECT_EQ(TextOf(GetDlgItem(window, win32::kTxtInfo)),
                    Lines({
                        u"",
                        u"    Conmutador :Panasonic, KX-TD1232",
                        u"    Version    :3.0",
                        u"    Caso       :Estandar",
                        u"",
                        u"  Llamada original : {/21/11 10:05 00:07:20 E 5551234567 205  /}",
                        u"",
                        u"",
                        u"  Fecha .............: " + date,
                        u"  Hora ..............: 10:05:00",
                        u"  Duración ..........: 440",
                        u"  Ring ..............: 0",
                        u"  Teléfono ..........: 5551234567",
                        u"  Cuenta de usuario .: ",
                        u"  Emisor ............: ",
                        u"  Receptor ..........: 205",
                        u"",
                        u"  Tipo de llamada....: Entrante",
                        u"  Atributos .........: Sin atributo",
                        u"",
                        u"  Llamada válida ....: NO",
                    }));
          EXPECT_EQ(OuterSizeOf(window).cx, Scaled(500));
          EXPECT_EQ(OuterSizeOf(window).cy, Scaled(367));
          person.Press(GetDlgItem(window, win32::kBtnCerrar));
        });
}

TEST_F(InfoWindowTest, LongAndBinaryLineIsShownWhole) {
  const auto translator = NewTranslator();
  Do(translator, &Trad::putref_Conmutador, TypicalConfig().get());
  Text line(100000, u'x');
  line[10] = kNul;
  line.back() = u'y';
  Do(translator, &Trad::put_Llamada, line);
  While([&] { Do(translator, &Trad::MuestraInfoTrad); },
        [&](const Person& person) {
          const HWND window = person.WaitForWindow(kCaption);
          const Text shown = TextOf(GetDlgItem(window, win32::kTxtInfo));
          EXPECT_NE(shown.find(u"{/xxxxxxxxxx xxx"), Text::npos) << "a NUL shows as a blank";
          EXPECT_NE(shown.find(u"xxy/}\r\n"), Text::npos);
          EXPECT_TRUE(shown.ends_with(u"  Llamada válida ....: NO\r\n"));
          person.Press(GetDlgItem(window, win32::kBtnCerrar));
        });
}

TEST_F(InfoWindowTest, ColumnsAlign) {
  WhileShown(TypicalConfig(), [](const Person& person, HWND, HWND text, HWND close) {
    TEXTMETRICW metrics{};
    SIZE narrow{}, wide{};
    const HDC dc = GetDC(text);
    const HGDIOBJ before = SelectObject(dc, reinterpret_cast<HFONT>(Send(text, WM_GETFONT)));
    GetTextMetricsW(dc, &metrics);
    GetTextExtentPoint32W(dc, L"iiiiiiiiii", 10, &narrow);
    GetTextExtentPoint32W(dc, L"MMMMMMMMMM", 10, &wide);
    SelectObject(dc, before);
    ReleaseDC(text, dc);
    EXPECT_EQ(metrics.tmPitchAndFamily & TMPF_FIXED_PITCH, 0) << "the bit means variable pitch";
    EXPECT_EQ(narrow.cx, wide.cx);
    person.Press(close);
  });
}

TEST_F(InfoWindowTest, TextCanBeSelectedAndCopied) {
  WhileShown(TypicalConfig(), [](const Person& person, HWND, HWND text, HWND close) {
    Send(text, EM_SETSEL, 5, 18);
    Send(text, WM_COPY);
    EXPECT_EQ(Clipboard(), L"Conmutador  :");
    person.Press(close);
  });
}

TEST_F(InfoWindowTest, ControlASelectsAll) {
  WhileShown(TypicalConfig(), [](const Person& person, HWND, HWND text, HWND close) {
    EXPECT_EQ(person.Focus(), text);
    DWORD from = 1, to = 1;
    Send(text, EM_GETSEL, reinterpret_cast<WPARAM>(&from), &to);
    EXPECT_EQ(from, to) << "nothing is selected at first";
    person.KeyWith(VK_CONTROL, 'A');
    Send(text, EM_GETSEL, reinterpret_cast<WPARAM>(&from), &to);
    EXPECT_EQ(from, 0u);
    EXPECT_EQ(to, TypicalReport().size());
    person.KeyWith(VK_CONTROL, 'C');
    EXPECT_EQ(FromWide(Clipboard()), TypicalReport());
    person.Press(close);
  });
}

TEST_F(InfoWindowTest, TypingChangesNothing) {
  WhileShown(TypicalConfig(), [](const Person& person, HWND, HWND text, HWND close) {
    person.Type(text, u"abc");
    person.Key('A');
    person.Key(VK_DELETE);
    EXPECT_EQ(TextOf(text), TypicalReport());
    person.Press(close);
  });
}

TEST_F(InfoWindowTest, ArrowsMoveThroughTheText) {
  WhileShown(CrowdedConfig(), [](const Person& person, HWND, HWND text, HWND close) {
    EXPECT_EQ(Send(text, EM_GETFIRSTVISIBLELINE), 0);
    person.Key(VK_NEXT);
    EXPECT_GT(Send(text, EM_GETFIRSTVISIBLELINE), 0);
    person.KeyWith(VK_CONTROL, VK_HOME);
    EXPECT_EQ(Send(text, EM_GETFIRSTVISIBLELINE), 0);
    person.Press(close);
  });
}

// --- scroll bars and size ---

struct Fit {
  bool down;    // the vertical bar shows
  bool across;  // the horizontal one
  double rows;  // of the text to those that have room
  double columns;
};

Fit FitOf(HWND text) {
  SIZE cell{};
  const HDC dc = GetDC(text);
  const HGDIOBJ before = SelectObject(dc, reinterpret_cast<HFONT>(Send(text, WM_GETFONT)));
  GetTextExtentPoint32W(dc, L"M", 1, &cell);
  SelectObject(dc, before);
  ReleaseDC(text, dc);
  std::size_t longest = 0;
  const Text shown = TextOf(text);
  int lines = 0;
  for (std::size_t from = 0, end; (end = shown.find(kLineBreak, from)) != Text::npos;
       from = end + 2) {
    longest = std::max(longest, end - from);
    ++lines;
  }
  const SIZE client = ClientSizeOf(text);
  return {
      HasStyle(text, WS_VSCROLL), HasStyle(text, WS_HSCROLL),
      static_cast<double>(lines * cell.cy) / static_cast<double>(client.cy),
      static_cast<double>(longest) * static_cast<double>(cell.cx) / static_cast<double>(client.cx)};
}

TEST_F(InfoWindowTest, ScrollBarsShowOnlyWhenNeeded) {
  for (const auto& config : {NewConfig(), TypicalConfig(), CrowdedConfig()}) {
    WhileShown(config, [](const Person& person, HWND window, HWND text, HWND close) {
      for (int width = 300; width <= 900; width += 150) {
        for (int height = 200; height <= 1000; height += 200) {
          person.Resize(window, Scaled(width), Scaled(height));
          const Fit fit = FitOf(text);
          SCOPED_TRACE(std::to_string(width) + "x" + std::to_string(height) + ": " +
                       std::to_string(fit.rows) + " rows, " + std::to_string(fit.columns) +
                       " columns");
          if (fit.rows > 1) {
            EXPECT_TRUE(fit.down);
          }
          if (fit.columns > 1) {
            EXPECT_TRUE(fit.across);
          }
          // A bar takes some room of its own; well below that, none is needed.
          if (fit.rows < 0.8 && !fit.across) {
            EXPECT_FALSE(fit.down);
          }
          if (fit.columns < 0.9 && !fit.down) {
            EXPECT_FALSE(fit.across);
          }
        }
      }
      person.Press(close);
    });
  }
}

TEST_F(InfoWindowTest, TextTakesWhatTheWindowGains) {
  WhileShown(TypicalConfig(), [](const Person& person, HWND window, HWND text, HWND close) {
    const SIZE client = ClientSizeOf(window);
    const RECT text_before = PlaceOf(text);
    const RECT close_before = PlaceOf(close);
    const SIZE outer = OuterSizeOf(window);
    person.Resize(window, outer.cx + 120, outer.cy + 70);
    EXPECT_EQ(ClientSizeOf(window).cx, client.cx + 120);
    const RECT text_after = PlaceOf(text);
    const RECT close_after = PlaceOf(close);
    EXPECT_EQ(text_after.left, text_before.left);
    EXPECT_EQ(text_after.top, text_before.top);
    EXPECT_EQ(text_after.right, text_before.right + 120);
    EXPECT_EQ(text_after.bottom, text_before.bottom + 70);
    EXPECT_EQ(close_after.left, close_before.left + 120);
    EXPECT_EQ(close_after.top, close_before.top + 70);
    EXPECT_LT(text_after.bottom, close_after.top);
    EXPECT_LT(close_after.bottom, ClientSizeOf(window).cy);
    person.Press(close);
  });
}

TEST_F(InfoWindowTest, HasALeastSize) {
  WhileShown(TypicalConfig(), [](const Person& person, HWND window, HWND text, HWND close) {
    MINMAXINFO limits{};
    Send(window, WM_GETMINMAXINFO, 0, &limits);
    EXPECT_GE(limits.ptMinTrackSize.x, Scaled(200));
    person.Resize(window, limits.ptMinTrackSize.x, limits.ptMinTrackSize.y);
    EXPECT_GT(ClientSizeOf(text).cx, 0);
    EXPECT_GT(ClientSizeOf(text).cy, 0);
    EXPECT_GE(PlaceOf(close).left, 0);
    EXPECT_GE(PlaceOf(close).top, PlaceOf(text).bottom);
    person.Press(close);
  });
}

TEST_F(InfoWindowTest, FollowsTheScreensResolution) {
  WhileShown(TypicalConfig(), [](const Person& person, HWND window, HWND text, HWND close) {
    const LONG font_before = FontOf(text).lfHeight;
    const SIZE close_before = OuterSizeOf(close);
    RECT place{};
    GetWindowRect(window, &place);
    const UINT twice = 2 * static_cast<UINT>(Scaled(96));
    place.right = place.left + 2 * (place.right - place.left);
    place.bottom = place.top + 2 * (place.bottom - place.top);
    Send(window, WM_DPICHANGED, MAKEWPARAM(twice, twice), &place);
    // Fonts come in whole pixels.
    EXPECT_NEAR(static_cast<double>(FontOf(text).lfHeight), 2.0 * font_before, 2);
    EXPECT_NEAR(static_cast<double>(OuterSizeOf(close).cx), 2.0 * close_before.cx, 8);
    EXPECT_EQ(OuterSizeOf(window).cx, 2 * Scaled(567));
    person.Press(close);
  });
}

// --- the ways out ---

TEST_F(InfoWindowTest, EscapeCloses) {
  WhileShown(TypicalConfig(), [](const Person& person, HWND window, HWND, HWND) {
    person.Key(VK_ESCAPE);
    person.WaitUntilClosed(window);
  });
}

TEST_F(InfoWindowTest, EnterCloses) {
  WhileShown(TypicalConfig(), [](const Person& person, HWND window, HWND, HWND) {
    person.Key(VK_RETURN);
    person.WaitUntilClosed(window);
  });
}

TEST_F(InfoWindowTest, CloseBoxCloses) {
  WhileShown(TypicalConfig(), [](const Person& person, HWND window, HWND, HWND) {
    person.PressCloseBox(window);
    person.WaitUntilClosed(window);
  });
}

TEST_F(InfoWindowTest, MnemonicCloses) {
  WhileShown(TypicalConfig(), [](const Person& person, HWND window, HWND, HWND) {
    person.Alt(L'c');
    person.WaitUntilClosed(window);
  });
}

TEST_F(InfoWindowTest, TabGoesFromTextToButtonAndBack) {
  WhileShown(TypicalConfig(), [](const Person& person, HWND window, HWND text, HWND close) {
    EXPECT_EQ(person.Focus(), text);
    person.Key(VK_TAB);
    EXPECT_EQ(person.Focus(), close);
    person.Key(VK_TAB);
    EXPECT_EQ(person.Focus(), text);
    person.KeyWith(VK_SHIFT, VK_TAB);
    EXPECT_EQ(person.Focus(), close);
    EXPECT_EQ(TextOf(text), TypicalReport()) << "no tab went into the text";
    person.Key(VK_SPACE);
    person.WaitUntilClosed(window);
  });
}

TEST_F(InfoWindowTest, OpensAgainAsBefore) {
  const auto config = TypicalConfig();
  for (int i = 0; i < 2; ++i) {
    WhileShown(config, [](const Person& person, HWND window, HWND text, HWND close) {
      EXPECT_EQ(TextOf(text), TypicalReport());
      EXPECT_EQ(OuterSizeOf(window).cx, Scaled(567));
      person.Resize(window, 900, 700);
      person.Press(close);
    });
  }
}

}  // namespace
}  // namespace conmuta::test
