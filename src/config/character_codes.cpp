#include "config/character_codes.h"

namespace conmuta::basConmuta {

Text CadenaACodigos(const CodePage& code_page, TextView text, int count) {
  Text codes;
  for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
    codes += ToText(i < text.size() ? CharacterCode(code_page, text[i]) : 0);
    codes += u',';
  }
  return codes;
}

}  // namespace conmuta::basConmuta
