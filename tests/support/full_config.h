// A configuration that uses all a file can hold, and the same written down as a file.
#pragma once

#include "support/config_builder.h"
#include "support/file_images.h"

namespace conmuta::test {

// Every kind in a slot, every pair wired, every text filled to its last character.
inline SwitchFile FullFile() {
  SwitchFile file;
  file.brand = std::string(49, 'b') + "\xD1";
  file.model = std::string(49, 'm') + "\xF1";
  file.comments = std::string(249, 'c') + "\xFC";
  file.separator = "0123\r\n\t \xBF;";
  file.caso = 5;
  for (std::uint32_t pin = 1; pin < 10; ++pin) {
    file.db9_db9[pin] = 1u << (pin - 1);
    file.db9_db25[pin] = 0x1000001u << (9 - pin) & 0x1FFFFFFu;
  }
  for (std::uint32_t pin = 1; pin < 26; ++pin) {
    file.db25_db9[pin] = 0x1FFu >> (pin % 9);
    file.db25_db25[pin] = 0x1FFFFFFu >> (25 - pin);
  }
  for (int kind = 53; kind >= 2; --kind) {
    file.datos.push_back({kind, kind % 3 + 1, 255 - kind, kind});
  }
  for (int kind = 2; kind <= 23; ++kind) {
    const std::string text(static_cast<std::size_t>(kind - 1), static_cast<char>('A' + kind));
    file.ctes.push_back({kind, 2, 100 + kind, std::min(kind - 1, 20), text});
  }
  return file;
}

// The same, through the properties.
inline void Fill(clsCfgConmut& config, const SwitchFile& file) {
  const auto text = [](const std::string& bytes) {
    Text converted;
    for (const char b : bytes) converted.push_back(static_cast<unsigned char>(b));
    return converted;
  };
  config.Marca(text(file.brand));
  config.Modelo(text(file.model));
  config.Comentarios(text(file.comments));
  config.Separador(text(file.separator));
  config.Caso(static_cast<emCasos>(file.caso));
  const auto wire = [&](emPuertoSerial pair, const auto& masks) {
    for (std::size_t left = 1; left < masks.size(); ++left) {
      for (std::int16_t right = 1; right <= 25; ++right) {
        config.PuertoActivo(emPuertoSerialDB25DB25);
        config.PinIZQ(static_cast<std::int16_t>(left));
        config.PinDER(right);
        config.PuertoActivo(pair);
        config.PinesConectados((masks[left] >> (right - 1) & 1) != 0);
      }
    }
  };
  wire(emPuertoSerialDB9DB9, file.db9_db9);
  wire(emPuertoSerialDB9DB25, file.db9_db25);
  wire(emPuertoSerialDB25DB9, file.db25_db9);
  wire(emPuertoSerialDB25DB25, file.db25_db25);
  for (const auto& dato : file.datos) {
    DefineItem(config, static_cast<emParamDato>(dato.kind), dato.pos, dato.size,
               static_cast<emTipoDato>(dato.type));
  }
  for (const auto& cte : file.ctes) {
    DefineConstant(config, static_cast<emParamDatoConstante>(cte.kind), cte.pos, text(cte.text));
  }
}

}  // namespace conmuta::test
