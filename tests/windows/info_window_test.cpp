// The information window with both of its reports.
#include "info_window.h"

#include <string>

namespace conmuta::test {
namespace {

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
          const HWND window = person.WaitForWindow(kInfoCaption);
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
          const HWND window = person.WaitForWindow(kInfoCaption);
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
