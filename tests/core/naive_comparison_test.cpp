// The translations against a second, plain implementation, over random configurations and lines.
#include <gtest/gtest.h>

#include <ostream>
#include <vector>

#include "platform/errors.h"
#include "support/call_values.h"
#include "support/naive_translator.h"
#include "support/random.h"
#include "support/translation.h"

namespace conmuta {
namespace {

using test::Ascii;
using test::CallValues;
using test::Random;
using test::Translation;
namespace naive = test::naive;
using namespace std::string_view_literals;

CallValues ValuesOf(const naive::Call& call) {
  CallValues values;
  for (std::size_t part = 0; part < 6; ++part) {
    values.start[part] = static_cast<int>(call.moments[0][part]);
    values.duration[part] = static_cast<int>(call.moments[1][part]);
  }
  values.ring = static_cast<int>(call.ring);
  values.type = call.type;
  values.attribute = call.attribute;
  values.phone = call.phone;
  values.transferred_to = call.transferred_to;
  values.caller = call.caller;
  values.callee = call.callee;
  values.account = call.account;
  return values;
}

enum class Outcome { kDone, kOverflow, kInvalidArgument };

void PrintTo(Outcome outcome, std::ostream* out) {
  constexpr const char* kNames[] = {"done", "overflow", "invalid argument"};
  *out << kNames[static_cast<int>(outcome)];
}

constexpr auto kCharacters = u"00112233456789123 .-+:/ABXaxIO\0\r\nñÑ"sv;

class NaiveComparison : public testing::TestWithParam<emCasos> {
 protected:
  void NewConfiguration() {
    naive_.config = naive::Config{};
    naive_.config.translation = GetParam();
    auto config = test::ConfigBuilder().Case(GetParam()).Build();
    for (int kind = emPrimerParamDato + 1; kind < emUltimoParamDato; ++kind) {
      if (random_.Percent(8)) continue;
      naive::Item item = {random_.Between(1, 40), random_.Between(1, 2),
                          random_.Percent(80) ? 1 : random_.Between(1, 3)};
      // Short parties at few places, so that trunks meet again.
      if (kind >= emParamTroncalEntrante) item = {random_.Between(12, 15), 1, emValorCadena};
      if (random_.Percent(1)) item.size = random_.Between(1, 100);
      if (random_.Below(300) == 0) item.pos = random_.Between(150, 255);
      if (random_.Percent(2)) item.type = 0;
      naive_.config.items[kind] = item;
      test::DefineItem(*config, static_cast<emParamDato>(kind), item.pos, item.size,
                       static_cast<emTipoDato>(item.type));
    }
    constants_.clear();
    for (int kind = emPrimerParamDatoConstante + 1; kind < emUltimoParamDatoConstante; ++kind) {
      if (random_.Percent(50)) continue;
      naive::Constant constant = {random_.Between(1, 40),
                                  random_.String(u"01ABI ", random_.Between(1, 2))};
      if (random_.Percent(1)) constant.pos = random_.Between(240, 255);
      naive_.config.constants[kind] = constant;
      constants_.push_back(constant);
      test::DefineConstant(*config, static_cast<emParamDatoConstante>(kind), constant.pos,
                           constant.text);
    }
    config->DATOActivo(emNoParamDato);
    config->CTEActivo(emNoParamDatoConstante);
    // The host gives the next configuration while a line is present: that translates it anew.
    Both([&] { real_.translator.Conmutador(config.get()); },
         [&] {
           if (!naive_.line.empty()) naive_.Translate(naive_.line);
         });
    real_.config = std::move(config);
  }

  // A line in which some of the constants stand at their places; of several in a row, each begins
  // with another keyword of its case.
  Text NewLine(std::size_t row) {
    Text line = random_.String(kCharacters, random_.Percent(90) ? 60 : random_.Between(0, 60));
    for (const naive::Constant& constant : constants_) {
      const auto at = static_cast<std::size_t>(constant.pos - 1);
      if (!random_.Percent(40) || at + constant.text.size() > line.size()) continue;
      line.replace(at, constant.text.size(), constant.text);
    }
    if (GetParam() == emCasoNortelMeridian01 && !line.empty()) {
      line[0] = kLetters[row % kLetters.size()];
    }
    if (GetParam() == emCasoNortelNorstar0x32SMDR6) {
      if (row % 4 != 0) {
        line = random_.String(u"01:", random_.Percent(95) ? 11 : random_.Between(0, 11)) +
               Text(kEvents[row % std::size(kEvents)]) + line;
      } else {
        line.replace(0, 8, u"--------");
      }
    }
    return line;
  }

  void Change(Text& line) {
    const int changes = random_.Percent(50) ? 0 : random_.Between(1, 3);
    for (int i = 0; i < changes && !line.empty(); ++i) {
      line[static_cast<std::size_t>(random_.Below(static_cast<int>(line.size())))] =
          random_.OneOf(kCharacters);
    }
  }

  void Translate(const Text& line) {
    Both([&] { real_.translator.Llamada(line); }, [&] { naive_.Translate(line); });
    ASSERT_EQ(real_.translator.Llamada(), naive_.line) << Ascii(line);
  }

  template <class Real, class Naive>
  void Both(Real real, Naive plain) {
    Outcome expected = Outcome::kDone;
    try {
      plain();
    } catch (const naive::Overflow&) {
      expected = Outcome::kOverflow;
    } catch (const naive::InvalidArgument&) {
      expected = Outcome::kInvalidArgument;
    }
    Outcome outcome = Outcome::kDone;
    try {
      real();
    } catch (const OverflowError&) {
      outcome = Outcome::kOverflow;
    } catch (const InvalidArgumentError&) {
      outcome = Outcome::kInvalidArgument;
    }
    ASSERT_EQ(outcome, expected) << Ascii(naive_.line);
    ASSERT_EQ(test::ValuesOf(real_.call()), ValuesOf(naive_.info)) << Ascii(naive_.line);
    ASSERT_EQ(real_.call().EsValido(), naive_.info.Valid()) << Ascii(naive_.line);
    const clsCfgConmut* config = real_.translator.Conmutador();
    ASSERT_EQ(config->DATOActivo(), naive_.config.active_item) << Ascii(naive_.line);
    ASSERT_EQ(config->CTEActivo(), naive_.config.active_constant) << Ascii(naive_.line);
    ++outcomes_[static_cast<std::size_t>(outcome)];
    if (naive_.info.Valid()) ++valid_;
    if (!naive_.info.transferred_to.empty()) ++transferred_;
    if (naive_.info.attribute == emAtributoFinTransferida) ++ends_;
    const auto& duration = naive_.info.moments[naive::kDuration];
    if (std::any_of(duration.begin(), duration.end(), [](long long part) { return part < 0; })) {
      ++differences_;
    }
  }

  static constexpr std::u16string_view kLetters = u"ASESEXNSEanZ-";
  static constexpr std::u16string_view kEvents[] = {u"TRANSFERRED",
                                                    u"FROM TRANSFER",
                                                    u"CALL RELEASED",
                                                    u"HOLD",
                                                    u"INCOMING CALL",
                                                    u"FROM TRANSFER",
                                                    u"TRANSFERRED",
                                                    u"DIGITS DIALED    ",
                                                    u"CALL RELEASED",
                                                    u"FROM TRANSFER",
                                                    u"LINE",
                                                    u"RESTRICTION PASSWORD ",
                                                    u"OUTGOING CALL",
                                                    u"TRANSFERRED",
                                                    u"call released",
                                                    u"NO ANSWER",
                                                    u""};

  Random random_{20261121};
  std::vector<naive::Constant> constants_;
  Translation real_{test::ConfigBuilder().Build()};
  naive::Translator naive_{{2026, 11, 21}};
  std::array<int, 3> outcomes_{};
  int valid_ = 0;
  int transferred_ = 0;
  int ends_ = 0;         // of transfers
  int differences_ = 0;  // negative ones, which come from nowhere else
};

TEST_P(NaiveComparison, AgreesOnRandomLinesOfRandomConfigurations) {
  std::size_t row = 0;
  for (int round = 0; round < 400; ++round) {
    NewConfiguration();
    if (HasFatalFailure()) FAIL() << "configuration " << round;
    // Few lines in many variants, for the same reason.
    std::vector<Text> lines;
    for (int i = 0; i < 6; ++i) lines.push_back(NewLine(row++));
    for (int i = 0; i < 40; ++i) {
      Text line = random_.OneOf(lines);
      Change(line);
      Translate(line);
      if (HasFatalFailure()) FAIL() << "configuration " << round << ", line " << i;
    }
  }
  // What was compared was not all alike.
  EXPECT_GT(outcomes_[0], 10000);
  EXPECT_GT(outcomes_[1], 100);
  EXPECT_GT(valid_, 500);
  EXPECT_GT(ends_, 20);
  const bool tells_extension =
      GetParam() == emCasoSamsungNX_820 || GetParam() == emCasoNortelMeridian01;
  EXPECT_EQ(transferred_ > 20, tells_extension) << transferred_;
  EXPECT_EQ(differences_ > 20, GetParam() == emCasoRestaFechasDuracion) << differences_;
}

INSTANTIATE_TEST_SUITE_P(Cases, NaiveComparison,
                         testing::Values(emCasoEstandar, emCasoSamsungNX_820,
                                         emCasoNortelMeridian01, emCasoNortelNorstar0x32SMDR6,
                                         emCasoRestaFechasDuracion));

}  // namespace
}  // namespace conmuta
