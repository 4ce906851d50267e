// What is shown of one line.
#include <gtest/gtest.h>

#include <algorithm>

#include "support/fake_clock.h"
#include "taller/captures.h"
#include "taller/explainer.h"
#include "taller/verdicts.h"

namespace conmuta::taller {
namespace {

using test::Bytes;
using Parts = std::vector<LinePart>;

Result Explain(const std::string& capture, std::uint64_t line,
               const layouts::Layout& layout = test::Kx(),
               MemoryBytes::Kind kind = MemoryBytes::Kind::kPasted) {
  const test::FakeClock clock;
  CaptureText text(Bytes(capture, kind));
  while (text.Step()) {
  }
  return Explainer(clock).Explain(text, layout, line);
}

const ResultField& Field(const Result& result, TextView name) {
  const auto field = std::find_if(result.fields.begin(), result.fields.end(),
                                  [&](const ResultField& row) { return row.name == name; });
  static const ResultField none;
  return field != result.fields.end() ? *field : none;
}

const ResultConstant& Constant(const Result& result, emParamDatoConstante kind) {
  return *std::find_if(result.constants.begin(), result.constants.end(),
                       [&](const ResultConstant& row) { return row.kind == kind; });
}

template <class Slots, class Kind>
void Remove(Slots& slots, Kind kind) {
  std::erase_if(slots, [&](const auto& slot) { return slot.Param == kind; });
}

TEST(Result, ACallIsToldByItsFieldsWithTheirColumns) {
  const Result result = Explain("# fecha: 2019-01-16\n" + test::kOut + test::kIn, 3);
  EXPECT_TRUE(result.has_call);
  EXPECT_EQ(result.heading, u"Línea 3: llamada entrante, inicio de transferencia");
  EXPECT_EQ(result.obstacle, u"");
  EXPECT_EQ(Field(result, u"Fecha").text, u"14/01/2019");
  EXPECT_EQ(Field(result, u"Fecha").parts, (Parts{{3, 7, 2}, {3, 1, 2}, {3, 4, 2}}));
  EXPECT_EQ(Field(result, u"Hora").text, u"09:15:00");
  EXPECT_EQ(Field(result, u"Duración").text, u"00:00:20");
  EXPECT_EQ(Field(result, u"Timbre").text, u"12 s");
  EXPECT_EQ(Field(result, u"Emisor").text, u"01");
  EXPECT_EQ(Field(result, u"Emisor").parts, (Parts{{3, 24, 2}}));
  EXPECT_EQ(Field(result, u"Receptor").text, u"1210");
  EXPECT_EQ(Field(result, u"Receptor").parts, (Parts{{3, 18, 5}}));
  EXPECT_EQ(Field(result, u"Teléfono").parts, (Parts{{3, 27, 25}}));
  EXPECT_EQ(Field(result, u"Cuenta").text, u"431211");
}

TEST(Result, PartiesOfTheSameNumberHaveTheirOwnColumns) {
  std::string line = test::kIn;
  line.replace(17, 5, "01   ");
  const Result result = Explain(line, 1);
  EXPECT_EQ(Field(result, u"Receptor").text, u"01");
  EXPECT_EQ(Field(result, u"Emisor").parts, (Parts{{1, 24, 2}}));
  EXPECT_EQ(Field(result, u"Receptor").parts, (Parts{{1, 18, 5}}));
}

TEST(Result, IdentifiersAreToldAsWantedAndFound) {
  const Result in = Explain(test::kIn, 1);
  EXPECT_EQ(Constant(in, emDatoCteIdentEntrante).sentence, u"Entrante \"<I>\" en 27 ✓");
  EXPECT_EQ(Constant(in, emDatoCteIdentEntranteAND).sentence, u"Entrante y \"'\" en 63 ✓");
  EXPECT_EQ(Constant(in, emDatoCteIdentEntranteInicioTransferida).sentence,
            u"Inicio \"TR\" en 78 ✓");
  EXPECT_EQ(Constant(in, emDatoCteIdentEntrante).part, (LinePart{1, 27, 3}));
  EXPECT_EQ(in.constants[0].sentence, u"Mañana \"AM\" en 15 ✓");
  const Result out = Explain(test::kOut, 1);
  EXPECT_EQ(Constant(out, emDatoCteIdentEntrante).sentence,
            u"Entrante esperaba \"<I>\" en 27 y encontró \"180\"");
  EXPECT_FALSE(Constant(out, emDatoCteIdentEntrante).stands);
  std::string late = test::kIn;
  late[15 - 1] = 'P';
  EXPECT_EQ(Explain(late, 1).constants[0].sentence, u"Tarde: \"PM\" en 15 en lugar de \"AM\"");
}

TEST(Result, ALineWithoutACallIsToldWhatIsInItsWay) {
  const Result log = Explain(test::kLog, 1);
  EXPECT_EQ(log.heading, u"Línea 1: sin llamada");
  EXPECT_EQ(log.obstacle,
            u"Falta el emisor. El layout no dice en qué columnas está: Troncal1InterTroncal.");
  EXPECT_EQ(log.remedy, SlotKind(emParamTroncal1InterTroncal));
  EXPECT_EQ(log.note, u"Se toma como llamada entre troncales.");

  layouts::Layout layout = test::Kx();
  layout.constants.clear();
  EXPECT_EQ(Explain("01/14/19 09:20AM ext    01\n", 1, layout).obstacle,
            u"Falta el emisor. Las columnas 18 a 22 no tienen dígitos en esta línea.");
  EXPECT_EQ(Explain("01/14/19 09:20AM        01\n", 1, layout).obstacle,
            u"Falta el emisor. Las columnas 18 a 22 están vacías en esta línea.");
  const Result cut = Explain("01/14/19 09:20AM 1200\n", 1, layout);
  EXPECT_EQ(cut.obstacle, u"Falta el receptor. La línea termina en la columna 21, antes de la 24.");
  EXPECT_EQ(cut.remedy, SlotKind(emParamTroncalSaliente));
  EXPECT_EQ(Explain("\n", 1).obstacle, u"La línea está vacía.");
  EXPECT_EQ(Explain("---\n", 1, layout).obstacle, u"La línea no tiene dígitos.");
}

TEST(Result, ALineThatNoConstantRecognisesIsSaidToBeTakenAsOutgoing) {
  layouts::Layout layout = test::Kx();
  EXPECT_EQ(Explain(test::kOut, 1, layout).note, u"") << "its constant stands";
  std::erase_if(layout.constants,
                [](const CTE& constant) { return constant.Param != emDatoCteIdentEntrante; });
  const Result result = Explain(test::kOut, 1, layout);
  EXPECT_TRUE(result.has_call);
  EXPECT_EQ(result.note, u"Ninguna constante de tipo coincide: se toma como saliente.");
  EXPECT_EQ(Explain(test::kIn, 1, layout).note, u"");
  layout.constants.clear();
  EXPECT_EQ(Explain(test::kOut, 1, layout).note,
            u"El layout no tiene constantes de tipo: se toma como saliente.");
  EXPECT_EQ(Explain("---\n", 1, layout).note, u"") << "none was looked for";
}

TEST(Result, AnErrorLeadsToTheItemThatRaisedIt) {
  layouts::Layout layout = test::Kx();
  Remove(layout.items, emParamFechaHoras);
  layout.items.push_back({emParamFechaHoras, emValorNumerico, 24, 25});
  const Result result = Explain("01/14/19         1210  99999999999999999999999 <I>\n", 1, layout);
  EXPECT_EQ(result.heading, u"Línea 1: error");
  EXPECT_TRUE(result.obstacle.starts_with(u"Desbordamiento")) << result.obstacle.size();
  EXPECT_NE(result.obstacle.find(u"Las columnas 24 a 48"), Text::npos);
  EXPECT_EQ(result.remedy, SlotKind(emParamFechaHoras));
}

TEST(Result, ALineOfABlockShowsItsBlocksCall) {
  const std::string capture = test::kBlock + test::kBlockEnd;
  for (std::uint64_t line = 1; line <= 4; ++line) {
    const Result result = Explain(capture + capture, line + 4, test::Norstar());
    SCOPED_TRACE(line);
    EXPECT_EQ(result.heading, u"Línea " + ToText(static_cast<int>(line + 4)) +
                                  u", del bloque de las líneas 5 a 8: llamada saliente");
    EXPECT_EQ(Field(result, u"Emisor").text, u"7344");
    ASSERT_EQ(Field(result, u"Emisor").parts.size(), 1u);
    EXPECT_EQ(Field(result, u"Emisor").parts[0].line, 5u);
    EXPECT_EQ(Field(result, u"Duración").text, u"00:12:59");
    ASSERT_FALSE(Field(result, u"Duración").parts.empty());
    EXPECT_EQ(Field(result, u"Duración").parts[0].line, 8u);
    EXPECT_EQ(Field(result, u"Teléfono").text, u"5551212");
  }
}

TEST(Result, ABlockWithoutItsEndShowsTheCallThatComesOfIt) {
  const std::string next = "-------- 04/12/97 10:00:00 LINE = 0004 STN = 7000\r\n";
  const Result second = Explain(test::kBlock + next, 2, test::Norstar());
  EXPECT_TRUE(second.has_call);
  EXPECT_EQ(Field(second, u"Emisor").text, u"7344");
  // The line that brings it out, and opens another one.
  const Result bringer = Explain(test::kBlock + next, 4, test::Norstar());
  EXPECT_TRUE(bringer.has_call);
  EXPECT_EQ(Field(bringer, u"Emisor").text, u"7344");
  EXPECT_EQ(Field(bringer, u"Emisor").parts, (Parts{{1, 46, 7}}));
  // That other one is whole.
  const Result other =
      Explain(test::kBlock + next + test::kBlock.substr(51) + test::kBlockEnd, 5, test::Norstar());
  EXPECT_TRUE(other.has_call);
  EXPECT_EQ(Field(other, u"Emisor").text, u"7000");
  // The end of the capture brings it out, that of a line that is printed does not.
  EXPECT_TRUE(Explain(test::kBlock, 2, test::Norstar()).has_call);
  const Result live = Explain(test::kBlock, 2, test::Norstar(), MemoryBytes::Kind::kLive);
  EXPECT_FALSE(live.has_call);
  EXPECT_EQ(live.obstacle, u"Es parte de un bloque que aún no termina.");
}

TEST(Result, ABlockOfNoCallSaysSo) {
  const std::string capture =
      "-------- 12/03/99 14:36:00 LINE = 0035\r\n"
      "00:00:00   NO ANSWER        RINGING 0:02\r\n" +
      test::kBlock;
  const Result result = Explain(capture, 2, test::Norstar());
  EXPECT_FALSE(result.has_call);
  EXPECT_EQ(result.obstacle, u"El bloque termina sin dar una llamada.");
}

// Its parties are not where the layout has those of an incoming call: no item is to blame.
TEST(Result, ABlockThatLacksAPartyIsToldByWhatItLacks) {
  const std::string capture =
      "-------- 04/11/97 09:41:11             STN = 7344\r\n"
      "00:00:00   INCOMING CALL    RINGING 0:06\r\n" +
      test::kBlockEnd;
  for (const std::uint64_t line : {1U, 2U, 3U}) {
    const Result result = Explain(capture, line, test::Norstar());
    EXPECT_FALSE(result.has_call);
    EXPECT_EQ(result.obstacle, u"El bloque termina sin dar una llamada. Falta el emisor.");
    EXPECT_EQ(result.remedy, std::nullopt);
  }
}

TEST(Result, TheHeadOfACaptureIsNoLine) {
  EXPECT_EQ(Explain("# fecha: 2019-01-16\n" + test::kIn, 1).heading,
            u"Línea 1: dice cómo se tomó la captura");
  EXPECT_EQ(Explain(test::kIn, 2).heading, u"");
}

// Also far behind the beginning, where only the lines since the last rest are looked at.
TEST(Result, SaysOfEveryLineOfEverySwitchWhatItsVerdictSays) {
  const test::FakeClock clock;
  for (const auto& folder : test::Entries(test::kSwitches)) {
    const auto layout = layouts::ReadLayout(test::ReadWhole(folder / "layout.toml")).layout;
    if (!layout) continue;
    SCOPED_TRACE(folder.filename().string());
    std::string capture = test::ReadWhole(folder / "capture.txt");
    const std::size_t once = capture.size();
    while (capture.size() < once * 4) capture += capture.substr(0, once);
    const auto bytes = Bytes(capture);
    Verdicts verdicts(clock, [] {});
    verdicts.Judge(bytes, *layout);
    ASSERT_TRUE(verdicts.Wait(std::chrono::seconds(60)));
    CaptureText text(bytes);
    while (text.Step()) {
    }
    for (std::uint64_t line = 1; line <= text.lines(); line += line < 40 ? 1 : 23) {
      const Result result =
          Explainer(clock).Explain(text, *layout, line, verdicts.RestBefore(line));
      const LineKind kind = verdicts.Of(line);
      EXPECT_EQ(result.line, line);
      if (kind.IsHead()) continue;
      EXPECT_EQ(LineKind::Of({result.verdict.error, result.verdict.reason, false}, kind.type()),
                kind)
          << line;
      EXPECT_NE(result.has_call, result.fields.empty()) << line;
      EXPECT_NE(result.has_call, !result.obstacle.empty()) << line;
      EXPECT_TRUE(result.has_call || !kind.IsCall()) << line;
    }
  }
}

}  // namespace
}  // namespace conmuta::taller
