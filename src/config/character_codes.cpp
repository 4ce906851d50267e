#include "config/character_codes.h"

#include "platform/number.h"
#include "platform/pieces.h"

namespace conmuta::basConmuta {

Text CadenaACodigos(const CodePage& code_page, TextView text, int count) {
  Text codes;
  for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
    codes += ToText(i < text.size() ? CharacterCode(code_page, text[i]) : 0);
    codes += u',';
  }
  return codes;
}

Text CodigosACadena(const CodePage& code_page, TextView list) {
  constexpr std::size_t kMostCharacters = 3;
  constexpr std::int64_t kFirstRefused = 255;
  Text text;
  for (Pieces pieces(list); const auto piece = pieces.Next();) {
    if (piece->size() > kMostCharacters) continue;
    const auto code = ReadWholeNumber(*piece);
    if (!code || *code < 0 || *code >= kFirstRefused) continue;
    text += CharacterOfCode(code_page, static_cast<unsigned char>(*code));
  }
  return text;
}

}  // namespace conmuta::basConmuta
