#include "config/profile_values.h"

namespace conmuta::basConmuta {

ProfileValue ValorPerfil(const CodePage& code_page, TextView section, TextView key,
                         TextView value) {
  return {code_page.ToBytes(section), code_page.ToBytes(key), code_page.ToBytes(value)};
}

Text LeeValorPerfil(const CodePage& code_page, ProfileFile& file, TextView section, TextView key) {
  const Text value =
      code_page.FromBytes(file.Read(code_page.ToBytes(section), code_page.ToBytes(key)));
  return Text(TrimRight(CortaEnNulo(value)));
}

TextView CortaEnNulo(TextView text) {
  return text.substr(0, text.find(kNul));
}

}  // namespace conmuta::basConmuta
