#include "handwritten_kx.h"

#include <algorithm>
#include <array>

namespace conmuta::bench {
namespace {

TextView Column(TextView line, std::size_t position, std::size_t size) {
  return line.substr(std::min(position - 1, line.size()), size);
}

bool Stands(TextView line, std::size_t position, TextView text) {
  return line.size() >= position - 1 + text.size() &&
         line.compare(position - 1, text.size(), text) == 0;
}

// -1 without a digit.
int Number(TextView field) {
  int number = 0;
  bool any = false;
  for (const char16_t c : field) {
    if (!IsDigit(c)) continue;
    number = number * 10 + (c - u'0');
    any = true;
  }
  return any ? number : -1;
}

std::int16_t Time(TextView line, std::size_t position, std::size_t size, int most) {
  return static_cast<std::int16_t>(std::clamp(Number(Column(line, position, size)), 0, most));
}

class Digits {
 public:
  explicit Digits(TextView field) {
    for (const char16_t c : field) {
      if (IsDigit(c)) characters_[size_++] = c;
    }
  }
  operator TextView() const { return {characters_.data(), size_}; }

 private:
  std::array<char16_t, 32> characters_;
  std::size_t size_ = 0;
};

emTiposLlamadas TypeOf(TextView line) {
  if (!HasDigit(line)) return emLlamadaSaliente;
  if (Stands(line, 27, u"<I>") ? Stands(line, 63, u"'") : Stands(line, 54, u"'")) {
    return emLlamadaEntrante;
  }
  if (Stands(line, 63, u"'") ? Stands(line, 60, u":") : Stands(line, 63, u";")) {
    return emLlamadaSaliente;
  }
  if (Stands(line, 27, u"EXT") ? Stands(line, 34, u" ") : Stands(line, 27, u"VM500 ")) {
    return emLlamadaInterExtension;
  }
  if (Stands(line, 3, u"/") || Stands(line, 2, u"/")) return emLlamadaInterTroncal;
  return emLlamadaSaliente;
}

}  // namespace

void HandwrittenKx::Translate(TextView raw) {
  line_ = raw;
  TextView line = line_;
  while (!line.empty() && (line.front() == u'\r' || line.front() == u'\n')) line.remove_prefix(1);
  call_.Inicializa();
  if (line.empty()) return;

  const CivilDate today = clock_.Today();
  int year = Number(Column(line, 7, 2));
  if (year < 0) {
    year = today.year;
  } else if (year < 10) {
    year += today.year - today.year % 10;
  } else if (year < 80) {
    year += today.year - today.year % 100;
  } else {
    year += 1900;
  }
  int month = Number(Column(line, 1, 2));
  if (month < 1 || month > 12) month = today.month;
  int day = Number(Column(line, 4, 2));
  if (day < 1 || day > 31) day = today.day;
  call_.Anio(emParamFecha, static_cast<std::int16_t>(std::max(year, today.year)));
  call_.Mes(emParamFecha, static_cast<std::int16_t>(month));
  call_.Dia(emParamFecha, static_cast<std::int16_t>(day));
  call_.Horas(emParamFecha, Time(line, 10, 2, 99));
  call_.Minutos(emParamFecha, Time(line, 13, 2, 59));
  if (!Stands(line, 15, u"AM")) call_.AjustarHoraVespertina12Hrs24Hrs(emParamFecha);

  call_.Horas(emParamDuracion, Time(line, 58, 2, 99));
  call_.Minutos(emParamDuracion, Time(line, 61, 2, 59));
  call_.Segundos(emParamDuracion, Time(line, 64, 2, 59));
  call_.Minutos(emParamRING, Time(line, 53, 1, 59));
  call_.Segundos(emParamRING, Time(line, 55, 2, 59));

  const emTiposLlamadas type = TypeOf(line);
  call_.TipoLlamada(type);
  const bool on_trunk = type == emLlamadaEntrante || type == emLlamadaSaliente;
  if (on_trunk && Stands(line, 78, u"TR")) call_.Atributos(emAtributoIniTransferida);
  if (on_trunk) {
    const Digits extension(Column(line, 18, 5));
    const Digits trunk(Column(line, 24, 2));
    call_.Telefono(Digits(Column(line, 27, 25)));
    call_.Emisor(type == emLlamadaEntrante ? trunk : extension);
    call_.Receptor(type == emLlamadaEntrante ? extension : trunk);
  } else if (type == emLlamadaInterExtension) {
    call_.Emisor(Digits(Column(line, 18, 5)));
    call_.Receptor(Digits(Column(line, 29, 5)));
  }
  call_.CodigoCuenta(Digits(Column(line, 67, 10)));
}

}  // namespace conmuta::bench
