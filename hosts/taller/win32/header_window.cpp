#include "taller/win32/header_window.h"

#include <algorithm>
#include <array>

#include "config/descriptions.h"
#include "taller/said.h"
#include "ui/win32/control_ids.h"
#include "ui/win32/window.h"

namespace conmuta::taller {
namespace {

using Key = layouts::SetText::Key;

struct Escape {
  char16_t character;
  char16_t letter;
};
constexpr Escape kEscapes[] = {{u'\r', u'r'}, {u'\n', u'n'}, {u'\t', u't'}, {u'\\', u'\\'}};

// The fields, one below the other.
struct Field {
  int id;
  TextView label;
  Key key;
};
constexpr std::array<Field, 4> kFields = {{{kHeaderBrand, u"&Marca:", Key::kBrand},
                                           {kHeaderModel, u"M&odelo:", Key::kModel},
                                           {kHeaderSeparator, u"&Separador:", Key::kSeparator},
                                           {kHeaderComments, u"Come&ntarios:", Key::kComments}}};
constexpr TextView kCaseLabel = u"Caso &de traducción:";

Text ValueOf(const ConfigHeader& header, Key key) {
  switch (key) {
    case Key::kBrand:
      return header.Marca.Read();
    case Key::kModel:
      return header.Modelo.Read();
    case Key::kComments:
      return header.Comentarios.Read();
    default:
      return header.Separador.Read();
  }
}

class HeaderWindow final : public win32::Window {
 public:
  explicit HeaderWindow(Document& document) : document_(document) {
    Create(u"Datos del conmutador");
    const ConfigHeader& header = document.layout().header;
    for (std::size_t i = 0; i < kFields.size(); ++i) {
      const Text value = ValueOf(header, kFields[i].key);
      win32::SetText(fields_[i], kFields[i].key == Key::kSeparator ? TypedSeparator(value) : value);
    }
    for (int code = emCasoEstandar; !CaseName(static_cast<emCasos>(code)).empty(); ++code) {
      const Text name(CaseName(static_cast<emCasos>(code)));
      SendMessageW(case_, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(win32::Wide(name)));
    }
    SendMessageW(case_, CB_SETCURSEL, static_cast<WPARAM>(header.Caso - emCasoEstandar), 0);
  }

  bool has_changed() const { return has_changed_; }

 private:
  void MakeControls() override {
    for (std::size_t i = 0; i < kFields.size(); ++i) {
      if (kFields[i].key == Key::kComments) {
        case_label_ = AddControl(L"STATIC", kCaseLabel, SS_LEFT | SS_CENTERIMAGE, -1);
        case_ =
            AddControl(L"COMBOBOX", u"", WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST, kHeaderCase);
      }
      labels_[i] = AddControl(L"STATIC", kFields[i].label, SS_LEFT | SS_CENTERIMAGE, -1);
      const bool is_long = kFields[i].key == Key::kComments;
      fields_[i] = AddControl(
          L"EDIT", u"",
          WS_TABSTOP | (is_long ? ES_MULTILINE | ES_AUTOVSCROLL | WS_VSCROLL : ES_AUTOHSCROLL),
          kFields[i].id, WS_EX_CLIENTEDGE);
    }
    SendMessageW(fields_[0], EM_SETLIMITTEXT, decltype(ConfigHeader::Marca)::kSize, 0);
    SendMessageW(fields_[1], EM_SETLIMITTEXT, decltype(ConfigHeader::Modelo)::kSize, 0);
    SendMessageW(fields_[3], EM_SETLIMITTEXT, decltype(ConfigHeader::Comentarios)::kSize, 0);
    doubt_ = AddControl(L"STATIC", u"", SS_LEFT | SS_NOPREFIX, kHeaderDoubt);
    accept_ = AddControl(L"BUTTON", u"&Aceptar", WS_TABSTOP | BS_DEFPUSHBUTTON, win32::kBtnAceptar);
    cancel_ = AddControl(L"BUTTON", u"&Cancelar", WS_TABSTOP | BS_PUSHBUTTON, win32::kBtnCancelar);
    SetDefaultButton(win32::kBtnAceptar);
  }

  LONG LabelWidth() const { return measures().Label(kCaseLabel).cx + measures().gap(); }
  LONG RowHeight() const { return measures().Field(1).cy + measures().gap(); }
  SIZE ButtonSize() const { return measures().Button(u"&Cancelar"); }
  LONG DoubtHeight() const { return 2 * measures().line() + 2; }

  SIZE LeastSize(SIZE) override {
    const LONG around = 2 * measures().margin();
    return {around + LabelWidth() + 30 * measures().letter(),
            around + 4 * RowHeight() + 5 * measures().line() + DoubtHeight() +
                2 * measures().gap() + ButtonSize().cy};
  }
  SIZE OpeningSize(SIZE most) override {
    const SIZE least = LeastSize(most);
    return {least.cx + 25 * measures().letter(), least.cy};
  }

  void Layout(SIZE room) override {
    const int margin = measures().margin();
    const SIZE field{room.cx - 2 * margin - LabelWidth(), measures().Field(1).cy};
    const SIZE label{LabelWidth() - measures().gap(), field.cy};
    const SIZE button = ButtonSize();
    const LONG x = margin + LabelWidth();
    LONG bottom = room.cy - margin - button.cy;
    Place(cancel_, room.cx - margin - button.cx, bottom, button);
    Place(accept_, room.cx - margin - 2 * button.cx - measures().gap(), bottom, button);
    bottom -= measures().gap() + DoubtHeight();
    Place(doubt_, margin, bottom, {room.cx - 2 * margin, DoubtHeight()});
    LONG y = margin;
    for (std::size_t i = 0; i < 3; ++i, y += RowHeight()) {
      Place(labels_[i], margin, y, label);
      Place(fields_[i], x, y, field);
    }
    Place(case_label_, margin, y, label);
    Place(case_, x, y, {field.cx, field.cy});
    y += RowHeight();
    Place(labels_[3], margin, y, label);
    Place(fields_[3], x, y, {field.cx, bottom - measures().gap() - y});
  }

  void Take() {
    const ConfigHeader& header = document_.layout().header;
    std::vector<layouts::LayoutChange> changes;
    for (std::size_t i = 0; i < kFields.size(); ++i) {
      Text value = win32::TextOf(fields_[i]);
      if (kFields[i].key == Key::kSeparator) value = ReadSeparator(value);
      if (value != ValueOf(header, kFields[i].key)) {
        changes.push_back(layouts::SetText{kFields[i].key, std::move(value)});
      }
    }
    const auto code =
        static_cast<emCasos>(SendMessageW(case_, CB_GETCURSEL, 0, 0) + emCasoEstandar);
    if (code != header.Caso) changes.push_back(layouts::SetCase{code});
    const Messages said =
        changes.empty() ? Messages() : document_.Apply(changes, u"Datos del conmutador");
    if (!said.empty()) return win32::SetText(doubt_, Said(said));
    has_changed_ = !changes.empty();
    Close();
  }

  void OnCommand(int id, int) override {
    if (id == win32::kBtnAceptar) Take();
    if (id == win32::kBtnCancelar) Close();
  }

  Document& document_;
  bool has_changed_ = false;
  std::array<HWND, kFields.size()> labels_{};
  std::array<HWND, kFields.size()> fields_{};
  HWND case_label_ = nullptr;
  HWND case_ = nullptr;
  HWND doubt_ = nullptr;
  HWND accept_ = nullptr;
  HWND cancel_ = nullptr;
};

}  // namespace

Text TypedSeparator(TextView separator) {
  Text typed;
  for (const char16_t c : separator) {
    const auto escape = std::find_if(std::begin(kEscapes), std::end(kEscapes),
                                     [c](const Escape& e) { return e.character == c; });
    if (escape == std::end(kEscapes)) {
      typed += c;
    } else {
      typed += u'\\';
      typed += escape->letter;
    }
  }
  return typed;
}

Text ReadSeparator(TextView typed) {
  Text separator;
  for (std::size_t i = 0; i < typed.size(); ++i) {
    const auto escape =
        std::find_if(std::begin(kEscapes), std::end(kEscapes), [&](const Escape& e) {
          return typed[i] == u'\\' && i + 1 < typed.size() && typed[i + 1] == e.letter;
        });
    if (escape == std::end(kEscapes)) {
      separator += typed[i];
    } else {
      separator += escape->character;
      ++i;
    }
  }
  return separator;
}

bool AskForHeader(Document& document) {
  HeaderWindow window(document);
  window.RunModal();
  return window.has_changed();
}

}  // namespace conmuta::taller
