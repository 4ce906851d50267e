// A configuration that is exported, imported into a new one and exported again, and again.
#include <gtest/gtest.h>

#include "support/exchange_bench.h"
#include "support/full_config.h"
#include "support/random.h"

namespace conmuta {
namespace {

using test::Random;
using test::SiteKind;
using test::Snapshot;

using Lines = std::vector<std::string>;

// The file that a new configuration exports after importing this one.
Lines NextRound(SiteKind kind, const std::string& bytes, std::string* next) {
  test::ExchangeBench bench(kind);
  bench.ImportText(bytes);
  bench.Export();
  *next = *bench.site->Bytes(bench.kName);
  return bench.Lines();
}

// Any characters, but none that profile files drop: no blanks or quotes at the ends.
Text RandomText(Random& random, int most) {
  const TextView inside = u"abcXYZ019 \u00F1\u00D1\u20AC;[]=,'\"$()";
  const TextView ends = u"abcXYZ019\u00F1\u00D1;]=,$()";
  Text text(1, random.OneOf(ends));
  text += random.String(inside, random.Below(most - 1));
  text.back() = random.OneOf(ends);
  return text;
}

void Randomise(Random& random, clsCfgConmut& config) {
  config.Marca(RandomText(random, 50));
  config.Modelo(RandomText(random, 50));
  config.Comentarios(RandomText(random, 250));
  config.Separador(random.String(u"\r\n;\u00F1 \t", random.Between(1, 10)));
  for (int wires = random.Below(300); wires > 0; --wires) {
    config.PuertoActivo(emPuertoSerialDB25DB25);
    config.PinIZQ(static_cast<std::int16_t>(random.Between(1, 25)));
    config.PinDER(static_cast<std::int16_t>(random.Between(1, 25)));
    config.PuertoActivo(static_cast<emPuertoSerial>(random.Between(1, 4)));
    config.PinesConectados(true);
  }
  for (int items = random.Below(60); items > 0; --items) {
    test::DefineItem(config, static_cast<emParamDato>(random.Between(2, 53)),
                     random.Between(0, 255), random.Between(0, 255),
                     static_cast<emTipoDato>(random.Between(1, 3)));
  }
  for (int constants = random.Below(30); constants > 0; --constants) {
    test::DefineConstant(config, static_cast<emParamDatoConstante>(random.Between(2, 23)),
                         random.Between(0, 255),
                         random.String(u"ABC \u00F1\u00FE\0", random.Below(21)));
    if (random.Percent(20)) config.CTETam(static_cast<std::uint8_t>(random.Between(1, 255)));
  }
}

// The lines of the next round, by the rules: items become numeric, constants get the length of
// their text as size.
Lines Expected(Lines lines, clsCfgConmut& config) {
  for (std::string& line : lines) {
    const std::size_t value = line.find('=') + 1;
    const std::size_t type = line.find(',', value) + 1;
    const std::size_t position = line.find(',', type) + 1;
    if (line.starts_with("Dato")) {
      line.replace(type, position - type, "1,");
    } else if (line.starts_with("Constante")) {
      const std::size_t size = line.find(',', position) + 1;
      config.CTEActivo(static_cast<emParamDatoConstante>(std::stoi(line.substr(value))));
      line.replace(size, line.find(',', size) - size, std::to_string(config.Constante().size()));
    }
  }
  return lines;
}

class RoundTrip : public testing::TestWithParam<SiteKind> {};

TEST_P(RoundTrip, ChangesTypesAndSizesOnceAndNothingAfterwards) {
  const int rounds = GetParam() == SiteKind::kMemory ? 300 : 6;
  for (int seed = 1; seed <= rounds; ++seed) {
    SCOPED_TRACE(seed);
    Random random(static_cast<unsigned>(seed));
    test::ExchangeBench first(GetParam());
    Randomise(random, first.config);
    first.Export();
    std::string second;
    const Lines lines = NextRound(GetParam(), *first.site->Bytes(first.kName), &second);
    ASSERT_EQ(lines, Expected(first.Lines(), first.config));
    std::string third;
    NextRound(GetParam(), second, &third);
    ASSERT_EQ(third, second);
    std::string fourth;
    NextRound(GetParam(), third, &fourth);
    ASSERT_EQ(fourth, third);
  }
}

TEST_P(RoundTrip, BringsAFullConfigurationOver) {
  test::ExchangeBench first(GetParam());
  test::SwitchFile full = test::FullFile();
  full.caso = 1;
  for (auto& item : full.datos) item.type = emValorNumerico;
  test::Fill(first.config, full);
  first.Export();
  test::ExchangeBench second(GetParam());
  second.ImportText(*first.site->Bytes(first.kName));
  EXPECT_EQ(Snapshot::OfContent(second.config), Snapshot::OfContent(first.config));
}

TEST_P(RoundTrip, LosesTheLineBreaksOfAComment) {
  test::ExchangeBench first(GetParam());
  first.Name();
  first.config.Comentarios(u"uno\r\ndos");
  first.Export();
  first.Import();
  EXPECT_EQ(first.config.Comentarios(), u"uno  dos");
}

TEST_P(RoundTrip, LosesBlanksAndQuotesAtTheEndsOfATextBitByBit) {
  test::ExchangeBench bench(GetParam());
  bench.Name();
  bench.config.Comentarios(u"  \"' uno '\"  ");
  for (const TextView expected : {u"' uno '", u" uno", u"uno", u"uno"}) {
    bench.Export();
    bench.Import();
    EXPECT_EQ(bench.config.Comentarios(), expected);
  }
}

TEST_P(RoundTrip, LosesAMaskOfElevenCharacters) {
  test::SwitchFile file;
  file.db9_db9 = {0, 0x80000000u, 0x7FFFFFFFu, 0xFFFFFFFFu};
  test::ExchangeBench bench(GetParam());
  bench.site->Put(u"switch.cfg", file.Bytes());
  bench.config.Abrir(bench.site->Path(u"switch.cfg"));
  bench.Export();
  bench.Import();
  bench.Export();
  EXPECT_EQ(bench.Line("DB9DB9"), "DB9DB9=0,2147483647,-1,0,0,0,0,0,0,");
}

INSTANTIATE_TEST_SUITE_P(, RoundTrip, testing::ValuesIn(test::kEverySite),
                         [](const auto& info) { return test::SiteName(info.param); });

}  // namespace
}  // namespace conmuta
