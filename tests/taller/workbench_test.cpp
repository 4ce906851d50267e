// What lies on the bench of the workshop, and what is done there.
#include "taller/workbench.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>

#include "map_disk.h"
#include "support/fake_clock.h"
#include "support/temporary_folder.h"

namespace conmuta::taller {
namespace {

constexpr std::string_view kThreeLines =
    "# fecha: 2019-01-16\n"
    "01/14/19 09:07AM 1204 03\r\n"
    "01/15/19 09:15AM 1210 01\r\n";

class WorkbenchTest : public ::testing::Test {
 protected:
  void Mark(int pos, int size) {
    bench_.selection().Press({2, pos});
    bench_.selection().PullTo(pos + size - 1);
    bench_.selection().Release();
  }
  void Choose(int pos, int size, const SlotKind& kind) {
    Mark(pos, size);
    ASSERT_TRUE(bench_.Choose(kind).empty());
  }

  test::MapDisk disk_;
  test::FakeClock clock_;
  Workbench bench_{disk_, clock_, "propia", [] {}};
};

TEST_F(WorkbenchTest, PastedLinesAreThereAtOnceAndTheCaretStandsBehindTheHead) {
  bench_.PasteCapture(std::string(kThreeLines));
  EXPECT_EQ(bench_.lines(), 3u);
  EXPECT_EQ(bench_.selection().caret(), (Caret{2, 1}));
  EXPECT_EQ(bench_.LineAt(2).text, u"01/14/19 09:07AM 1204 03");
  EXPECT_EQ(bench_.PercentCounted(), 100);
}

TEST_F(WorkbenchTest, CaptureThatCannotBeReadLeavesTheOneThatIsThere) {
  bench_.PasteCapture(std::string(kThreeLines));
  EXPECT_FALSE(bench_.OpenCapture("no/hay/tal.txt").empty());
  EXPECT_EQ(bench_.lines(), 3u);
}

TEST_F(WorkbenchTest, CaptureThatChangesIsReadAnewWhereTheCaretStands) {
  const test::TemporaryFolder folder;
  const auto path = folder.path() / "captura.txt";
  const auto write = [&](std::string_view text) { std::ofstream(path, std::ios::binary) << text; };
  write(kThreeLines);
  ASSERT_TRUE(bench_.OpenCapture(path).empty());
  bench_.selection().Move(1, 5);
  EXPECT_FALSE(bench_.LookAtCapture());
  write(std::string(kThreeLines) + "01/16/19 10:00AM 1201 02\r\n");
  EXPECT_TRUE(bench_.LookAtCapture());
  EXPECT_EQ(bench_.lines(), 4u);
  EXPECT_EQ(bench_.selection().caret(), (Caret{3, 6}));
  EXPECT_FALSE(bench_.LookAtCapture());
  write("01/17/19 11:00AM 1202 04\r\n");
  EXPECT_TRUE(bench_.LookAtCapture());
  EXPECT_EQ(bench_.lines(), 1u);
  EXPECT_EQ(bench_.LineAt(1).text, u"01/17/19 11:00AM 1202 04");
  std::filesystem::remove(path);
  EXPECT_FALSE(bench_.LookAtCapture());
  EXPECT_EQ(bench_.lines(), 1u);
}

TEST_F(WorkbenchTest, ItemThatIsMarkedAgainKeepsItsType) {
  bench_.PasteCapture(std::string(kThreeLines));
  const layouts::SetItem text{{emParamCodigoCuenta, emValorCadena, 1, 2}};
  ASSERT_TRUE(bench_.document().Apply(text).empty());
  Choose(4, 3, emParamCodigoCuenta);
  ASSERT_EQ(bench_.document().layout().items.size(), 1u);
  EXPECT_EQ(bench_.document().layout().items[0].TipoDato, emValorCadena);
  EXPECT_EQ(bench_.document().layout().items[0].Pos, 4);
}

TEST_F(WorkbenchTest, MarkedColumnsAreOfferedByWhatStandsInThem) {
  bench_.PasteCapture(std::string(kThreeLines));
  Mark(1, 2);
  const auto offers = bench_.OffersForMark();
  ASSERT_FALSE(offers.empty());
  EXPECT_EQ(NameOf(offers.front().kind), u"FechaMes");
  bench_.selection().Unmark();
  EXPECT_TRUE(bench_.OffersForMark().empty());
}

TEST_F(WorkbenchTest, ConstantIsOfferedTheTextOfTheMarkedLine) {
  bench_.PasteCapture(std::string(kThreeLines));
  Choose(15, 2, emDatoCteIdentificadorHorarioMatutinoFecha);
  ASSERT_EQ(bench_.document().layout().constants.size(), 1u);
  EXPECT_EQ(bench_.document().layout().constants[0].Constante.Read(), u"AM");
}

TEST_F(WorkbenchTest, AllThatHasTheCaretsColumnIsRemovedAsOneStep) {
  bench_.PasteCapture(std::string(kThreeLines));
  Choose(18, 4, emParamExtensionEntrante);
  Choose(18, 4, emParamExtensionSaliente);
  Choose(1, 2, emParamFechaMes);
  bench_.selection().Press({2, 19});
  bench_.selection().Release();
  EXPECT_EQ(bench_.NamesAt(19), u"ExtensionEntrante, ExtensionSaliente");
  EXPECT_TRUE(bench_.RemoveAtCaret().empty());
  EXPECT_EQ(bench_.NamesAt(19), u"");
  EXPECT_EQ(bench_.NamesAt(2), u"FechaMes");
  bench_.document().Undo();
  EXPECT_EQ(bench_.document().layout().items.size(), 3u);
  bench_.selection().Press({2, 17});
  EXPECT_TRUE(bench_.RemoveAtCaret().empty());  // nothing is there
  EXPECT_EQ(bench_.document().layout().items.size(), 3u);
}

TEST_F(WorkbenchTest, ChangesAreJudgedAnew) {
  using namespace std::chrono_literals;
  bench_.PasteCapture(std::string(kThreeLines));
  ASSERT_TRUE(bench_.verdicts().Wait(30s));
  EXPECT_EQ(bench_.verdicts().counts().Of(Counter::Calls()), 0u);
  Choose(18, 4, emParamExtensionSaliente);
  Choose(23, 2, emParamTroncalSaliente);
  Choose(18, 7, emParamTelefonoSaliente);
  bench_.JudgeChanges();
  ASSERT_TRUE(bench_.verdicts().Wait(30s));
  EXPECT_EQ(bench_.verdicts().counts().Of(Counter::Calls()), 2u);
}

TEST_F(WorkbenchTest, LineBehindTheLastHasNoResult) {
  EXPECT_FALSE(bench_.ResultOfLine().has_value());
  bench_.PasteCapture(std::string(kThreeLines));
  ASSERT_TRUE(bench_.ResultOfLine().has_value());
  EXPECT_EQ(bench_.ResultOfLine()->line, 2u);
}

TEST_F(WorkbenchTest, CopyThatACrashLeftComesBackAsAStepThatCanBeUndone) {
  EXPECT_FALSE(bench_.Recover());
  bench_.PasteCapture(std::string(kThreeLines));
  Choose(1, 2, emParamFechaMes);
  ASSERT_TRUE(bench_.document().SaveAs(disk_, "mio.toml", Format::kLayout).empty());
  Choose(4, 2, emParamFechaDia);
  ASSERT_TRUE(bench_.autosave().Keep(bench_.document()).empty());

  Workbench next(disk_, clock_, "propia", [] {});
  const auto opening = next.OpenLayout("mio.toml");
  EXPECT_TRUE(opening.messages.empty());
  EXPECT_TRUE(opening.recovered);
  EXPECT_EQ(next.document().layout().items.size(), 2u);
  next.document().Undo();
  EXPECT_EQ(next.document().layout().items.size(), 1u);
  EXPECT_FALSE(next.document().IsModified());
}

}  // namespace
}  // namespace conmuta::taller
