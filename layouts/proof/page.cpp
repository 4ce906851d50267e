#include "layouts/proof/page.h"

#include <algorithm>
#include <initializer_list>

#include "layouts/names.h"
#include "layouts/proof/identifiers.h"
#include "layouts/proof/sample_lines.h"
#include "layouts/toml_text.h"
#include "platform/unicode.h"

namespace conmuta::layouts {
namespace {

constexpr TextView kIntroduction =
    uR"(<!-- Se hace con las carpetas de switches/: docs/developing.md dice cómo. -->
# Los conmutadores del catálogo

Cada conmutador es una carpeta de `switches/`: la configuración (`layout.toml`), una captura con lo que
imprime y lo que debe salir de cada línea. Se busca por la marca y por la forma de una línea; la que se
elige se compara con unas líneas del sitio, columna por columna, antes de usarla: la última columna de la
tabla dice cuánto se sabe de cada una.

El que no esté se describe [en diez pasos](diez-pasos.md), y `conmuta adivina` dice a cuál se parece.
`scripts/build catalogue` hace de cada carpeta el archivo que abre el administrador de conmutadores:

![El administrador con el catálogo](catalogo.png)

- **Año.** Un año de dos cifras es del siglo presente (de 80 a 99, del pasado), uno de 00 a 09 es de la
  década presente (07 leído en 2026 es 2027), y ninguno queda antes del presente: lo que salga menor, o no
  se imprima, se vuelve el año en curso, también en las llamadas de diciembre que se leen en enero.
- **Hora.** Es la del inicio o la del fin de la llamada, como la imprima el conmutador.
- **Líneas dañadas.** Cada línea de la captura se cortó en cada columna, perdió su primer carácter, llevó
  delante bytes de control y se pegó con la que sigue. La tabla dice cuántas de cada mil de esas líneas
  salen como una llamada con otra parte, otro número u otra hora. Las demás no salen, o salen igual; las
  que sólo cambian de duración se cuentan aparte, en cada sección. Que falten los blancos del final no
  cambia nada en ninguna.
- **Trampa.** Una línea que ningún identificador reconoce sale como saliente. Por eso algunos
  identificadores sólo atrapan lo que no es llamada, o una línea dañada: el tipo o la transferencia que
  nombran no tiene columnas de partes, y lo que cae en ellos no sale. Donde dice trampa, el nombre no
  significa nada: no es la marca de una transferencia ni de otro tipo de llamada.

)";

// As Markdown shows it, whatever signs are in it.
Text Plain(TextView text) {
  Text plain;
  for (const char16_t c : text) {
    if (TextView(u"\\`*_<>[]|~").find(c) != TextView::npos) plain += u'\\';
    plain += c;
  }
  return plain;
}

Text Joined(std::initializer_list<TextView> parts) {
  Text joined;
  for (const TextView part : parts) joined += part;
  return joined;
}

// A whole sentence, with its dot.
Text Sentence(TextView text) {
  Text sentence = Plain(text);
  if (!sentence.ends_with(u'.')) sentence += u'.';
  return sentence;
}

TextView TimeText(const Sheet& sheet) {
  return sheet.time_of == Sheet::TimeOf::kEnd ? u"fin" : u"inicio";
}

Text Name(const Family& family) {
  const ConfigHeader& header = family.layout.header;
  return Joined({basConmuta::FijaACadena(header.Marca.Raw()), u" ",
                 basConmuta::FijaACadena(header.Modelo.Raw())});
}

// An address, and where in it.
Text Link(TextView source) {
  const std::size_t end = std::min(source.find(u' '), source.size());
  return Joined({u"<", source.substr(0, end), u">", Plain(source.substr(end))});
}

// To another section.
Text SectionLink(TextView folder) {
  return Joined({u"[", folder, u"](#", folder, u")"});
}

Text Share(const DamageCount& count) {
  return ToText(PerMille(count.wrong, count.lines));
}

class PageWriter {
 public:
  void Write(const std::vector<Family>& families, const std::vector<DamageReport>& reports) {
    Add({kIntroduction,
         u"| conmutador | carpeta | fecha y hora | duración | la hora es | transferencias | "
         u"dañadas "
         u"que engañan, de mil | hasta dónde está probada "
         u"|\n|---|---|---|---|---|---|---:|---|\n"});
    for (std::size_t i = 0; i < families.size(); ++i) Row(families[i], reports[i].Total());
    for (std::size_t i = 0; i < families.size(); ++i) Section(families[i], reports[i]);
  }
  const Text& page() const { return page_; }

 private:
  void Add(std::initializer_list<TextView> parts) { page_ += Joined(parts); }

  void Row(const Family& family, const DamageCount& damage) {
    const Sheet& sheet = family.layout.sheet;
    Add({u"| ", Plain(Name(family)), u" | ", SectionLink(FromUtf8(family.name)), u" | ",
         Plain(sheet.date), u" | ", Plain(sheet.duration), u" | ", TimeText(sheet), u" | ",
         Plain(sheet.transfers), u" | ", Share(damage), u" | ", Plain(sheet.proof), u" |\n"});
  }

  void Section(const Family& family, const DamageReport& report) {
    const Sheet& sheet = family.layout.sheet;
    const Text folder = FromUtf8(family.name);
    Add({u"\n<a id=\"", folder, u"\"></a>\n\n## ", Plain(Name(family)), u"\n\nCubre ",
         Sentence(sheet.covers), u" Está en [`switches/", folder, u"`](../switches/", folder,
         u"/layout.toml).\n\n"});
    Samples(family);
    Constants(family.layout);
    Add({u"- **Fecha y hora:** ", Plain(sheet.date), u"; la hora es la del ", TimeText(sheet),
         u" de la llamada.\n"});
    Add({u"- **Duración:** ", Sentence(sheet.duration), u"\n"});
    Add({u"- **Transferencias:** ", Sentence(sheet.transfers), u"\n"});
    Add({u"- **Probada con** ", Sentence(sheet.proof), u"\n"});
    Damaged(report);
    Alternatives(sheet);
    Sources(sheet);
    Add({u"\nSe pierde o se lee mal:\n\n"});
    for (const Text& loss : sheet.losses) Add({u"- ", Sentence(loss), u"\n"});
  }

  void Samples(const Family& family) {
    const auto lines = SampleLines(family);
    std::size_t columns = 0;
    for (const Text& line : lines) columns = std::max(columns, line.size());
    Add({u"```text\n", Ruler(columns)});
    for (const Text& line : lines) Add({line, u"\n"});
    Add({u"```\n\n"});
  }

  void Constants(const Layout& layout) {
    if (layout.constants.empty()) return;
    Add({u"| texto | columna | qué dice |\n|---|---:|---|\n"});
    for (const CTE& constant : layout.constants) {
      Add({u"| `\"", StoredText(constant), u"\"` | ", ToText(constant.Pos), u" | "});
      if (IsTrap(constant.Param, layout)) {
        Add({u"**trampa** (", NameOf(constant.Param), u") |\n"});
      } else {
        Add({Purpose(constant.Param), u" |\n"});
      }
    }
    Add({u"\n"});
  }

  void Damaged(const DamageReport& report) {
    const DamageCount total = report.Total();
    Add({u"- **Líneas dañadas:** de cada mil, ", Share(total),
         u" salen como otra llamada (cortadas ", Share(report[Damage::kCut]),
         u", sin el primer carácter ", Share(report[Damage::kHeadLost]),
         u", con bytes de control delante ", Share(report[Damage::kControl]), u", pegadas ",
         Share(report[Damage::kGlued]), u") y ", ToText(PerMille(total.duration, total.lines)),
         u" con otra duración.\n"});
  }

  void Alternatives(const Sheet& sheet) {
    if (sheet.alternatives.empty()) return;
    Add({u"- **Con ella se usa** "});
    for (const Text& name : sheet.alternatives) {
      Add({&name != sheet.alternatives.data() ? u", " : u"", SectionLink(name)});
    }
    Add({u": cada línea va a la primera que haga de ella una llamada.\n"});
  }

  void Sources(const Sheet& sheet) {
    Add({u"- **Fuentes:** "});
    for (const Text& source : sheet.sources) {
      Add({&source != sheet.sources.data() ? u", " : u"", Link(source)});
    }
    Add({u".\n"});
  }

  Text page_;
};

}  // namespace

std::string CataloguePage(const std::vector<Family>& families,
                          const std::vector<DamageReport>& reports) {
  PageWriter writer;
  writer.Write(families, reports);
  return ToUtf8(writer.page()).value_or(std::string());
}

}  // namespace conmuta::layouts
