// The measures of the proof themselves: forms of damage, harm, plausible calls, rivals.
#include <gtest/gtest.h>

#include "layouts/proof/damage_report.h"
#include "layouts/proof/matrix.h"
#include "layouts/proof/plausible.h"
#include "layouts/proof/tally.h"
#include "layouts/read_layout.h"

namespace conmuta::layouts {
namespace {

std::vector<CaptureLine> Lines(std::initializer_list<TextView> texts) {
  std::vector<CaptureLine> lines;
  for (const TextView text : texts) lines.push_back({static_cast<int>(lines.size()), Text(text)});
  return lines;
}

TEST(DamagedForms, EachCutAndEachLossOnce) {
  std::vector<std::pair<Damage, Text>> forms;
  for (const auto& form : DamagedForms(Lines({u"ab ", u"c"}), 0)) {
    forms.emplace_back(form.damage, form.text);
    EXPECT_EQ(form.has_next, form.damage == Damage::kGlued);
  }
  const std::vector<std::pair<Damage, Text>> wanted = {{Damage::kCut, u""},
                                                       {Damage::kCut, u"a"},
                                                       {Damage::kHeadLost, u"b "},
                                                       {Damage::kControl, Text(u"\0ab ", 4)},
                                                       {Damage::kControl,
                                                        u"\x10\x11"
                                                        u"ab "},
                                                       {Damage::kBlanks, u"ab"},
                                                       {Damage::kGlued, u"ab c"},
                                                       {Damage::kGlued, u"abc"}};
  EXPECT_EQ(forms, wanted);
}

TEST(DamagedForms, NothingHappensToAnEmptyLineAndNothingIsGluedBehindTheLast) {
  const auto lines = Lines({u"", u"x"});
  EXPECT_TRUE(DamagedForms(lines, 0).empty());
  EXPECT_EQ(DamagedForms(lines, 1).size(), 4U);  // cut, headless, two with control bytes
}

ExpectedCall Call() {
  ExpectedCall call;
  call.type = emLlamadaEntrante;
  call.year = 2026;
  call.month = 1;
  call.day = 14;
  call.hours = 9;
  call.duration = 20;
  call.ring = 5;
  call.caller = u"01";
  call.callee = u"1210";
  call.phone = u"5550177";
  call.account = u"77";
  return call;
}

template <class Change>
Harm HarmOf(Change change) {
  ExpectedCall found = Call();
  change(found);
  return Compare({Call()}, {found});
}

TEST(Harm, NoCallAndTheSameCallAreNone) {
  EXPECT_EQ(Compare({Call()}, {}), Harm::kNone);
  EXPECT_EQ(Compare({Call()}, {Call()}), Harm::kNone);
  EXPECT_EQ(HarmOf([](ExpectedCall& call) { call.account += u"  "; }), Harm::kNone);
}

TEST(Harm, PartiesNumberAndTimeAreWorseThanTheDurationAndThatIsWorseThanTheRest) {
  EXPECT_EQ(HarmOf([](ExpectedCall& call) { call.ring = 0; }), Harm::kDetail);
  EXPECT_EQ(HarmOf([](ExpectedCall& call) { call.account = u"7"; }), Harm::kDetail);
  EXPECT_EQ(HarmOf([](ExpectedCall& call) { call.attribute = emAtributoIniTransferida; }),
            Harm::kDetail);
  EXPECT_EQ(HarmOf([](ExpectedCall& call) { call.duration = 2, call.ring = 0; }), Harm::kDuration);
  EXPECT_EQ(HarmOf([](ExpectedCall& call) { call.type = emLlamadaSaliente; }), Harm::kWrong);
  EXPECT_EQ(HarmOf([](ExpectedCall& call) { call.caller = u"1"; }), Harm::kWrong);
  EXPECT_EQ(HarmOf([](ExpectedCall& call) { call.callee = u"121"; }), Harm::kWrong);
  EXPECT_EQ(HarmOf([](ExpectedCall& call) { call.transferred_to = u"1"; }), Harm::kWrong);
  EXPECT_EQ(HarmOf([](ExpectedCall& call) { call.phone = u"55501"; }), Harm::kWrong);
  EXPECT_EQ(HarmOf([](ExpectedCall& call) { call.day = 15; }), Harm::kWrong);
  EXPECT_EQ(HarmOf([](ExpectedCall& call) { call.minutes = 1; }), Harm::kWrong);
}

TEST(Harm, ACallThatComesTwiceOrFromNowhereIsWrong) {
  EXPECT_EQ(Compare({Call()}, {Call(), Call()}), Harm::kWrong);
  EXPECT_EQ(Compare({}, {Call()}), Harm::kWrong);
  ExpectedCall shorter = Call();
  shorter.duration = 1;
  // Each has its twin, whatever their order.
  EXPECT_EQ(Compare({Call(), shorter}, {shorter, Call()}), Harm::kNone);
  EXPECT_EQ(Compare({Call(), Call()}, {shorter, Call()}), Harm::kDuration);
}

bool IsPlausible(emParamDato kind, TextView found) {
  ItemRead item;
  item.kind = kind;
  item.defined = true;
  item.found = found;
  Plausibility plausibility;
  plausibility.Read(item);
  return plausibility.Take();
}

TEST(Plausibility, ClocksStayInTheirRangeAndPartiesAreOneWord) {
  EXPECT_TRUE(IsPlausible(emParamFechaMes, u"12"));
  EXPECT_TRUE(IsPlausible(emParamFechaMes, u" 1"));
  EXPECT_FALSE(IsPlausible(emParamFechaMes, u"13"));
  EXPECT_FALSE(IsPlausible(emParamFechaMes, u"  "));
  EXPECT_FALSE(IsPlausible(emParamFechaMinutos, u":1"));
  EXPECT_TRUE(IsPlausible(emParamDuracionMinutos, u"  "));
  EXPECT_FALSE(IsPlausible(emParamDuracionSegundos, u"60"));
  EXPECT_TRUE(IsPlausible(emParamExtensionEntrante, u"*123 "));
  EXPECT_FALSE(IsPlausible(emParamExtensionEntrante, u"12 34"));
  EXPECT_TRUE(IsPlausible(emParamTelefonoEntrante, u"JUAN 555 0177"));
  EXPECT_FALSE(IsPlausible(emParamTelefonoEntrante, u"555 00:12"));
}

TEST(Plausibility, ALineBeginsAnewWhenItIsTaken) {
  Plausibility plausibility;
  ItemRead month;
  month.kind = emParamFechaMes;
  month.defined = true;
  month.found = u"99";
  plausibility.Read(month);
  month.found = u"09";
  plausibility.Read(month);
  EXPECT_FALSE(plausibility.Take());
  EXPECT_TRUE(plausibility.Take());
}

TEST(Matrix, ARivalExplainsACaptureAsWell) {
  const Matrix matrix = {{{5, 5, 5}, {9, 4, 0}}, {{5, 5, 0}, {3, 3, 3}}};
  EXPECT_EQ(Rivals(matrix, 0), std::vector<std::size_t>{1});
  EXPECT_EQ(Rivals(matrix, 1), std::vector<std::size_t>{});
}

// "1204 03 0915": extension, trunk, time.
Family SmallFamily() {
  Family family;
  family.name = "acme";
  family.layout =
      *ReadLayout(
           "marca = \"ACME\"\nmodelo = \"X1\"\ncomentarios = \"\"\nseparador = \"\\r\\n\"\n"
           "caso = \"Estandar\"\n[datos]\nExtensionSaliente = { pos = 1, tam = 4 }\n"
           "TroncalSaliente = { pos = 6, tam = 2 }\nFechaHoras = { pos = 9, tam = 2 }\n"
           "FechaMinutos = { pos = 11, tam = 2 }\n")
           .layout;
  family.capture.lines = Lines({u"1204 03 0915", u"TITLE"});
  Outcome call;
  call.call.emplace();
  call.call->type = emLlamadaSaliente;
  call.call->caller = u"1204";
  call.call->callee = u"03";
  call.call->hours = 9;
  call.call->minutes = 15;
  call.call->duration = 0;
  call.call = call.call->On({2026, 11, 21});
  Outcome none;
  none.reason = NoCall::kNoDigits;
  family.expected = {call, none};
  return family;
}

TEST(DamageReport, CountsWhatCutsAndLossesMakeOfALine) {
  const DamageReport report = DamageReportOf(SmallFamily());
  EXPECT_EQ(report[Damage::kCut].lines, 17);
  // Behind the trunk's first digit: trunk, hour and minute are wrong, one after the other.
  EXPECT_EQ(report[Damage::kCut].wrong, 6);
  EXPECT_EQ(report[Damage::kHeadLost].wrong, 1);
  EXPECT_EQ(report[Damage::kControl].wrong, 2);
  EXPECT_EQ(report[Damage::kGlued].wrong, 0);
  EXPECT_EQ(report.Total().lines, 24);
  EXPECT_EQ(report.Total().wrong, 9);
  EXPECT_EQ(PerMille(9, 24), 375);
  EXPECT_EQ(PerMille(1, 1500), 1);
}

TEST(DamageReport, BlanksThatAreMissingMustNotCostACall) {
  Family family = SmallFamily();
  family.capture.lines[0].text += u"  ";
  EXPECT_EQ(DamageReportOf(family)[Damage::kBlanks].wrong, 0);
  CTE mark;
  mark.Param = emDatoCteIdentSaliente;
  mark.TipoDato = emValorConstante;
  mark.Pos = 13;
  mark.Tam = 1;
  mark.Constante.Assign(u" ");
  CTE trap = mark;
  trap.Param = emDatoCteIdentInterTroncal;
  trap.Pos = 5;
  family.layout.constants = {mark, trap};
  EXPECT_EQ(DamageReportOf(family)[Damage::kBlanks].wrong, 1);
}

TEST(Tally, ACallThatIsNotTheExpectedOneIsTold) {
  Family family = SmallFamily();
  EXPECT_EQ(TallyOf(family).differences.size(), 0U);
  family.expected[0].call->callee = u"04";
  const Tally tally = TallyOf(family);
  ASSERT_EQ(tally.differences.size(), 1U);
  EXPECT_EQ(Sentence("acme", tally.differences[0]),
            "acme: línea 0\n"
            "  se espera: 0 | Saliente | - | 21/11/2026 | 09:15:00 | 0 | 0 | 1204 | 04 |  |  | \n"
            "  sale:      0 | Saliente | - | 21/11/2026 | 09:15:00 | 0 | 0 | 1204 | 03 |  |  | ");
  EXPECT_EQ(tally.calls.at(emLlamadaSaliente), 1);
  EXPECT_EQ(tally.without_call.at(NoCall::kNoDigits), 1);
}

}  // namespace
}  // namespace conmuta::layouts
