#include "layouts/toml_text.h"

#include <algorithm>
#include <cstdio>

#include "layouts/findings.h"
#include "layouts/names.h"
#include "platform/unicode.h"

namespace conmuta::layouts {
namespace {

constexpr bool IsSurrogate(char16_t c) {
  return (c & 0xF800) == 0xD800;
}

constexpr bool IsControl(char16_t c) {
  return c < u' ' || (c >= 0x7F && c < 0xA0);
}

void AppendEscape(Text& text, char16_t c) {
  switch (c) {
    case u'\b':
      text += u"\\b";
      return;
    case u'\t':
      text += u"\\t";
      return;
    case u'\n':
      text += u"\\n";
      return;
    case u'\f':
      text += u"\\f";
      return;
    case u'\r':
      text += u"\\r";
      return;
  }
  char code[8];
  std::snprintf(code, sizeof code, "\\u%04X", unsigned{c});
  text.append(code, code + 6);
}

// A text whose halves of pairs may be alone.
std::string Utf8(Text text) {
  if (const auto bytes = ToUtf8(text)) return *bytes;
  std::replace_if(text.begin(), text.end(), IsSurrogate, u'?');
  return *ToUtf8(text);
}

bool IsBeyond(int pos, int size) {
  return pos > kLastColumn || size > kLastColumn || pos + size - 1 > kLastColumn;
}

constexpr const char* kLeave = ", sin_revisar = true";

std::string Parts(const DATO& item) {
  std::string parts = "pos = " + std::to_string(item.Pos) + ", tam = " + std::to_string(item.Tam);
  if (item.TipoDato != emValorNumerico) parts += ", tipo = " + TypeText(item.TipoDato);
  return parts;
}

std::string Parts(const CTE& constant) {
  std::string parts =
      "pos = " + std::to_string(constant.Pos) + ", texto = " + Quoted(StoredText(constant));
  if (constant.Tam != constant.Constante.Length()) {
    parts += ", tam = " + std::to_string(constant.Tam);
  }
  return parts;
}

}  // namespace

std::string Quoted(TextView text) {
  Text quoted = u"\"";
  for (const char16_t c : text) {
    if (IsControl(c)) {
      AppendEscape(quoted, c);
    } else {
      if (c == u'"' || c == u'\\') quoted += u'\\';
      quoted += c;
    }
  }
  return Utf8(quoted + u"\"");
}

std::string InComment(TextView text) {
  Text comment(text);
  std::replace_if(comment.begin(), comment.end(), IsControl, u' ');
  return Utf8(Text(TrimRight(comment)));
}

std::string TypeText(emTipoDato type) {
  const TextView name = NameOf(type);
  return name.empty() ? std::to_string(type) : Quoted(name);
}

std::string CaseText(emCasos code) {
  const TextView name = NameOf(code);
  return name.empty() ? std::to_string(code) : Quoted(name);
}

TextView StoredText(const CTE& constant) {
  const TextView raw = constant.Constante.Raw();
  return raw.substr(0, raw.find_last_not_of(kNul) + 1);
}

bool NeedsLeave(const DATO& item) {
  return IsBeyond(item.Pos, item.Tam);
}

bool NeedsLeave(const CTE& constant) {
  const TextView text = StoredText(constant);
  return IsBeyond(constant.Pos, constant.Tam) || constant.Tam != constant.Constante.Length() ||
         std::any_of(text.begin(), text.end(), [](char16_t c) { return c < u' '; });
}

std::string CheckedText(const DATO& item) {
  return "{ " + Parts(item) + " }";
}

std::string CheckedText(const CTE& constant) {
  return "{ " + Parts(constant) + " }";
}

std::string SlotText(const DATO& item) {
  return "{ " + Parts(item) + (NeedsLeave(item) ? kLeave : "") + " }";
}

std::string SlotText(const CTE& constant) {
  return "{ " + Parts(constant) + (NeedsLeave(constant) ? kLeave : "") + " }";
}

std::string PinsText(WiringMask mask) {
  std::string list;
  int count = 0;
  for (int pin = 1; pin <= 25; ++pin) {
    if ((mask & PinMask(pin)) == 0) continue;
    if (count++ > 0) list += ", ";
    list += std::to_string(pin);
  }
  return count == 1 ? list : "[" + list + "]";
}

}  // namespace conmuta::layouts
