// What an observer of a translation is told, and that its presence changes nothing.
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <optional>
#include <ostream>
#include <vector>

#include "support/call_values.h"
#include "support/layouts.h"
#include "support/random.h"
#include "support/translation.h"

namespace conmuta {
namespace {

using test::Ascii;
using test::ConfigBuilder;
using test::FixedColumns;
using test::FixedLine;
using test::MeridianColumns;
using test::NorstarColumns;
using test::Translation;
using test::ValuesOf;

// Keeps what it was told; views do not outlive the telling.
class Notes final : public LineObserver {
 public:
  struct Item {
    ItemRead told;
    Text found;
    Text text;
  };
  struct Look {
    ConstantRead told;
    Text wanted;
    Text found;
  };

  void Read(const ItemRead& item) override {
    items.push_back({item, Text(item.found), Text(item.text)});
  }
  void Looked(const ConstantRead& constant) override {
    looks.push_back({constant, Text(constant.wanted), Text(constant.found)});
  }
  void Ended(const Verdict& told) override {
    verdict = told;
    ++endings;
  }

  const Item& Of(emParamDato kind) const {
    const auto item = std::find_if(items.begin(), items.end(),
                                   [&](const Item& i) { return i.told.kind == kind; });
    if (item == items.end()) ADD_FAILURE() << "item " << kind << " was not read";
    return item != items.end() ? *item : kNothing;
  }

  std::vector<Item> items;
  std::vector<Look> looks;
  Verdict verdict;
  int endings = 0;

 private:
  static inline const Item kNothing{};
};

class WatchedLine : public testing::Test {
 protected:
  void Use(std::unique_ptr<clsCfgConmut> config) { desk_.emplace(std::move(config)); }

  const Notes& Watch(TextView line) {
    notes_ = Notes();
    const Verdict verdict = desk_->translator.Translate(line, notes_);
    EXPECT_EQ(notes_.endings, 1);
    EXPECT_EQ(verdict.reason, notes_.verdict.reason);
    EXPECT_EQ(verdict.error, notes_.verdict.error);
    EXPECT_EQ(verdict.parked, notes_.verdict.parked);
    return notes_;
  }
  NoCall ReasonOf(TextView line) { return Watch(line).verdict.reason; }

  std::optional<Translation> desk_;
  Notes notes_;
};

TEST_F(WatchedLine, TellsEveryItemWithItsPlaceAndValue) {
  Use(FixedColumns().Build());
  const Notes& notes = Watch(FixedLine{.time = u"10:75:30", .number = u"55-1234   "}.text());
  EXPECT_TRUE(notes.verdict.IsCall());

  const auto& minutes = notes.Of(emParamFechaMinutos);
  EXPECT_TRUE(minutes.told.defined);
  EXPECT_EQ(minutes.told.pos, 15);
  EXPECT_EQ(minutes.told.size, 2);
  EXPECT_TRUE(minutes.told.is_number);
  EXPECT_EQ(Ascii(minutes.found), "75");
  EXPECT_EQ(minutes.told.number, 59);

  const auto& phone = notes.Of(emParamTelefonoEntrante);
  EXPECT_FALSE(phone.told.is_number);
  EXPECT_EQ(Ascii(phone.found), "55-1234   ");
  EXPECT_EQ(Ascii(phone.text), "551234");

  const auto& undefined = notes.Of(emParamDuracionDia);
  EXPECT_FALSE(undefined.told.defined);
  EXPECT_EQ(undefined.told.pos, 0);
  EXPECT_EQ(undefined.told.size, 0);
  EXPECT_EQ(undefined.told.number, 0);
}

TEST_F(WatchedLine, TellsItemsInTheOrderInWhichTheyAreRead) {
  Use(FixedColumns().Build());
  std::vector<int> kinds;
  for (const auto& item : Watch(FixedLine().text()).items) kinds.push_back(item.told.kind);
  const std::vector<int> expected = {4,  3,  2,  5,  6,  7,  10, 9,  8, 11,
                                     12, 13, 14, 15, 16, 18, 30, 31, 17};
  EXPECT_EQ(kinds, expected);
}

TEST_F(WatchedLine, TellsEveryConstantThatIsLookedAt) {
  Use(FixedColumns().Build());
  const Notes& notes = Watch(FixedLine{.kind = u"OE"}.text());
  struct Expected {
    int kind, pos;
    const char *wanted, *found;
    bool defined, stands;
  };
  const Expected expected[] = {
      {emDatoCteIdentificadorHorarioMatutinoFecha, 0, "", "", false, false},
      {emDatoCteIdentificadorHorarioMatutinoDuracion, 0, "", "", false, false},
      {emDatoCteIdentEntrante, 36, "I", "O", true, false},
      {emDatoCteIdentEntranteOR, 0, "", "", false, false},
      {emDatoCteIdentSaliente, 36, "O", "O", true, true},
      {emDatoCteIdentSalienteAND, 0, "", "", false, false},
      {emDatoCteIdentSalienteInicioTransferida, 37, "S", "E", true, false},
      {emDatoCteIdentSalienteFinTransferida, 37, "E", "E", true, true},
  };
  ASSERT_EQ(notes.looks.size(), std::size(expected));
  for (std::size_t i = 0; i < std::size(expected); ++i) {
    SCOPED_TRACE(i);
    const auto& look = notes.looks[i];
    EXPECT_EQ(look.told.kind, expected[i].kind);
    EXPECT_EQ(look.told.pos, expected[i].pos);
    EXPECT_EQ(Ascii(look.wanted), expected[i].wanted);
    EXPECT_EQ(Ascii(look.found), expected[i].found);
    EXPECT_EQ(look.told.defined, expected[i].defined);
    EXPECT_EQ(look.told.stands, expected[i].stands);
  }
}

TEST_F(WatchedLine, NamesTheErrorAndWhatItIsAbout) {
  Use(FixedColumns().Item(emParamFechaSegundos, 49, 10).Build());
  const Notes& notes = Watch(FixedLine().text());
  EXPECT_EQ(notes.verdict.error, LineError::kOverflow);
  EXPECT_FALSE(notes.verdict.IsCall());
  EXPECT_EQ(notes.items.back().told.kind, emParamFechaSegundos);
  EXPECT_EQ(notes.items.back().told.error, LineError::kOverflow);
  EXPECT_EQ(desk_->config->DATOActivo(), emParamFechaSegundos);
}

TEST_F(WatchedLine, NamesAConstantThatCannotBeLookedAt) {
  Use(FixedColumns().Constant(emDatoCteIdentEntrante, 255, u"I").Build());
  const Notes& notes = Watch(FixedLine().text());
  EXPECT_EQ(notes.verdict.error, LineError::kOverflow);
  EXPECT_EQ(notes.looks.back().told.kind, emDatoCteIdentEntrante);
  EXPECT_EQ(notes.looks.back().told.error, LineError::kOverflow);
}

TEST_F(WatchedLine, SaysWhyThereIsNoCallInFixedColumns) {
  Use(FixedColumns().Build());
  EXPECT_EQ(ReasonOf(u""), NoCall::kEmptyLine);
  EXPECT_EQ(ReasonOf(u"\r\n\r\n"), NoCall::kEmptyLine);
  EXPECT_EQ(ReasonOf(u"Fecha  Hora  Ext"), NoCall::kNoDigits);
  EXPECT_EQ(ReasonOf(FixedLine{.from = u""}.text().substr(0, 38)), NoCall::kNoCaller);
  EXPECT_EQ(ReasonOf(FixedLine().text().substr(0, 43)), NoCall::kNoCallee);
  EXPECT_EQ(ReasonOf(FixedLine().text()), NoCall::kNone);
  desk_->clock.today = {0, 11, 21};
  EXPECT_EQ(ReasonOf(FixedLine{.date = u"    /11/21"}.text()), NoCall::kNoDate);
}

TEST_F(WatchedLine, SaysWhatIsMissingToTranslateWith) {
  const test::FakeClock clock;
  clsTradEST translator(clock);
  EXPECT_EQ(translator.Translate(u"1", notes_).reason, NoCall::kNoConfiguration);
  Use(FixedColumns().Build());
  desk_->config->Marca(u"");
  EXPECT_EQ(ReasonOf(FixedLine().text()), NoCall::kIncompleteConfiguration);
  desk_->config->Marca(u"ACME");
  desk_->config->Caso(static_cast<emCasos>(77));
  EXPECT_EQ(ReasonOf(FixedLine().text()), NoCall::kNoTranslation);
}

TEST_F(WatchedLine, TellsSamsungsTransfersAndDiscardedCalls) {
  Use(FixedColumns().Case(emCasoSamsungNX_820).Build());
  EXPECT_EQ(ReasonOf(FixedLine{.kind = u"O ", .number = u"          "}.text()), NoCall::kNoNumber);
  const Verdict start = Watch(FixedLine{.kind = u"IS"}.text()).verdict;
  EXPECT_TRUE(start.IsCall());
  EXPECT_TRUE(start.parked);
  const Verdict end = Watch(FixedLine{.kind = u"IE"}.text()).verdict;
  EXPECT_TRUE(end.IsCall());
  EXPECT_FALSE(end.parked);
}

TEST_F(WatchedLine, TellsMeridiansRecords) {
  Use(MeridianColumns().Build());
  const Verdict code = Watch(u"A 029 00 DN7447  T038000 04/04 15:02 00:00:00 4321").verdict;
  EXPECT_EQ(code.reason, NoCall::kAccountCode);
  EXPECT_TRUE(code.parked);
  EXPECT_TRUE(Watch(u"N 029 00 DN7447  T038000 04/04 15:02 00:00:00 4321").verdict.IsCall());
  EXPECT_TRUE(Watch(u"S 029 00 DN7447  T038000 04/04 15:02 00:00:00 4321").verdict.parked);
  EXPECT_TRUE(Watch(u"S 029 00 DN7447  T038000 04/04 15:02 00:00:00 4321").verdict.parked);
  EXPECT_EQ(ReasonOf(u"Z 029 00 DN7447  T038000 04/04 15:02 00:00:00 4321"),
            NoCall::kUnknownRecord);
  EXPECT_EQ(ReasonOf(u"N 029 00 DN7447  DN38000 04/04 15:02 00:00:00 4321"), NoCall::kUnknownType);
  EXPECT_EQ(ReasonOf(u"LOG"), NoCall::kNoDigits);
}

TEST_F(WatchedLine, TellsNorstarsBlocks) {
  Use(NorstarColumns().Build());
  const Text separator = u"-------- 04/11/27 09:41:11 LINE = 0003 STN = 7344";
  EXPECT_EQ(ReasonOf(u"00:00:00   OUTGOING CALL"), NoCall::kOutsideBlock);
  EXPECT_EQ(ReasonOf(separator), NoCall::kBlockBegins);
  EXPECT_EQ(ReasonOf(u"00:00:00   OUTGOING CALL"), NoCall::kPartOfBlock);
  EXPECT_EQ(ReasonOf(u"00:00:00   FROM TRANSFER"), NoCall::kTransferNotFound);
  EXPECT_EQ(ReasonOf(u"00:00:00   CALL RELEASED"), NoCall::kOutsideBlock);
  EXPECT_EQ(ReasonOf(separator), NoCall::kNone) << "the block without an end";
  EXPECT_EQ(Watch(u"short").verdict.error, LineError::kInvalidArgument);
  EXPECT_TRUE(Watch(u"00:00:45   TRANSFERRED").verdict.parked);
  EXPECT_EQ(ReasonOf(u"-------- 04/11/27 09:41:11 LINE =      STN =     "), NoCall::kBlockBegins);
  EXPECT_EQ(ReasonOf(u"00:00:45   CALL RELEASED"), NoCall::kNoCaller);
}

// The whole list is dropped in silence for hosts; whoever watches can see it.
TEST_F(WatchedLine, TellsThatAFullListParksNothing) {
  Use(FixedColumns().Case(emCasoSamsungNX_820).Build());
  for (int i = 0; i < 100; ++i) {
    const Text trunk = Text(u"L") + ToText(100 + i);
    EXPECT_TRUE(Watch(FixedLine{.kind = u"IS", .from = trunk}.text()).verdict.parked);
  }
  const Verdict full = Watch(FixedLine{.kind = u"IS", .from = u"L300"}.text()).verdict;
  EXPECT_TRUE(full.IsCall());
  EXPECT_FALSE(full.parked);
}

TEST_F(WatchedLine, TellsThatAnAccountCodeFindsNoRoom) {
  Use(MeridianColumns().Build());
  for (int i = 0; i < 100; ++i) {
    const Text trunk = Text(u"T") + ToText(100000 + i);
    EXPECT_EQ(ReasonOf(u"A 029 00 DN7447  " + trunk + u" 04/04 15:02 00:00:00 4321"),
              NoCall::kAccountCode);
  }
  EXPECT_EQ(ReasonOf(u"A 029 00 DN7447  T999999 04/04 15:02 00:00:00 4321"), NoCall::kListFull);
}

TEST_F(WatchedLine, EndsWithWhatAnErrorIsAbout) {
  Use(FixedColumns().Item(emParamRingHoras, 30, 2).Build());
  const Notes& notes = Watch(FixedLine{.ring = u"10:05"}.text());
  EXPECT_EQ(notes.verdict.error, LineError::kOverflow);
  EXPECT_EQ(notes.items.back().told.kind, emParamRingHoras);
  EXPECT_EQ(notes.items.back().told.number, 10);
}

class WatchedCase : public testing::TestWithParam<emCasos> {};

// Same road: calls, errors and what hosts see of the configuration come out alike.
TEST_P(WatchedCase, IsTranslatedAsIfNobodyWatched) {
  test::Random random(2601);
  const auto layout = [&] {
    ConfigBuilder builder = GetParam() == emCasoNortelMeridian01         ? MeridianColumns()
                            : GetParam() == emCasoNortelNorstar0x32SMDR6 ? NorstarColumns()
                                                                         : FixedColumns();
    builder.Case(GetParam());
    if (random.Percent(20)) builder.Item(emParamFechaMinutos, random.Between(1, 20), 9);
    if (random.Percent(20)) builder.TextItem(emParamDuracionHoras, random.Between(1, 30), 3);
    if (random.Percent(5)) builder.TextItem(emParamCodigoCuenta, 250, 9);
    return builder;
  };
  const std::vector<Text> seeds = {FixedLine().text(),
                                   FixedLine{.kind = u"OS"}.text(),
                                   FixedLine{.kind = u"OE"}.text(),
                                   u"S 029 00 DN7447  T038000 04/04 15:02 00:00:10 8761344",
                                   u"E 031 00 T038000 DN2221  04/04 15:07 00:00:10",
                                   u"-------- 04/11/27 09:41:11 LINE = 0003 STN = 7344",
                                   u"00:00:00   INCOMING CALL    RINGING 0:06",
                                   u"00:00:45   TRANSFERRED",
                                   u"00:00:00   FROM TRANSFER",
                                   u"00:02:18   CALL RELEASED"};
  for (int round = 0; round < 20; ++round) {
    const test::Random same = random;
    Translation plain(layout().Build());
    random = same;
    Translation watched(layout().Build());
    random = same;
    Translation judged(layout().Build());
    for (int i = 0; i < 60; ++i) {
      Text line = random.OneOf(seeds);
      for (int changes = random.Below(4); changes > 0; --changes) {
        line[static_cast<std::size_t>(random.Below(static_cast<int>(line.size())))] =
            random.OneOf(std::u16string_view(u"0123456789 ISOETX.-:"));
      }
      if (random.Percent(20)) line.resize(static_cast<std::size_t>(random.Below(70)), u' ');
      Notes notes;
      const LineError error = plain.translator.Translate(line);
      const Verdict verdict = watched.translator.Translate(line, notes);
      ASSERT_EQ(verdict.error, error) << Ascii(line);
      ASSERT_EQ(judged.translator.Judge(line), verdict) << Ascii(line);
      ASSERT_EQ(ValuesOf(watched.call()), ValuesOf(plain.call())) << Ascii(line);
      ASSERT_EQ(verdict.IsCall(), error == LineError::kNone && plain.call().EsValido())
          << Ascii(line);
      ASSERT_EQ(watched.config->DATOActivo(), plain.config->DATOActivo()) << Ascii(line);
      ASSERT_EQ(watched.config->CTEActivo(), plain.config->CTEActivo()) << Ascii(line);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Cases, WatchedCase,
                         testing::Values(emCasoEstandar, emCasoSamsungNX_820,
                                         emCasoNortelMeridian01, emCasoNortelNorstar0x32SMDR6,
                                         emCasoRestaFechasDuracion));

TEST(VerdictSentence, IsOneOfItsOwnForEachReason) {
  std::vector<Text> sentences;
  for (int code = 0; code <= static_cast<int>(NoCall::kTransferNotFound); ++code) {
    const Text sentence(Sentence(static_cast<NoCall>(code)));
    EXPECT_TRUE(sentence.ends_with(u'.')) << code;
    EXPECT_EQ(std::count(sentences.begin(), sentences.end(), sentence), 0) << code;
    sentences.push_back(sentence);
  }
  for (const LineError error :
       {LineError::kNone, LineError::kOverflow, LineError::kInvalidArgument}) {
    EXPECT_FALSE(Sentence(error).empty());
  }
}

TEST(VerdictSentence, TellsACallThatWaitsFromOneThatDoesNot) {
  const Text call(Sentence(Verdict{}));
  const Text waiting(Sentence(Verdict{.parked = true}));
  EXPECT_EQ(call, Text(Sentence(NoCall::kNone)));
  EXPECT_NE(waiting, call);
  EXPECT_EQ(Text(Sentence(Verdict{.reason = NoCall::kAccountCode, .parked = true})),
            Text(Sentence(NoCall::kAccountCode)));
  EXPECT_EQ(Text(Sentence(Verdict{.error = LineError::kOverflow})),
            Text(Sentence(LineError::kOverflow)));
}

}  // namespace
}  // namespace conmuta
