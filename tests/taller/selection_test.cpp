#include "taller/selection.h"

#include <gtest/gtest.h>

namespace conmuta::taller {
namespace {

TEST(Selection, APressAndAPullMarkColumnsInEitherDirection) {
  Selection selection;
  selection.SetLines(10);
  selection.Press({3, 27});
  EXPECT_EQ(selection.marked(), std::nullopt);
  selection.PullTo(29);
  EXPECT_EQ(selection.marked(), (Marked{3, 27, 3}));
  selection.PullTo(20);
  EXPECT_EQ(selection.marked(), (Marked{3, 20, 8}));
  selection.Release();
  selection.PullTo(40);
  EXPECT_EQ(selection.marked(), (Marked{3, 20, 8})) << "the button is up";
}

TEST(Selection, ACancelledPullBringsBackWhatWasMarked) {
  Selection selection;
  selection.SetLines(10);
  selection.Press({3, 27});
  selection.PullTo(29);
  selection.Release();
  selection.Press({5, 1});
  selection.PullTo(9);
  selection.Cancel();
  EXPECT_EQ(selection.marked(), (Marked{3, 27, 3}));
  EXPECT_EQ(selection.caret(), (Caret{3, 29}));
}

TEST(Selection, ShiftAndArrowsMarkFromTheCaret) {
  Selection selection;
  selection.Move(0, 4);
  selection.Extend(1);
  EXPECT_EQ(selection.marked(), (Marked{1, 5, 1}));
  selection.Extend(1);
  EXPECT_EQ(selection.marked(), (Marked{1, 5, 2}));
  selection.Extend(-3);
  EXPECT_EQ(selection.marked(), (Marked{1, 3, 3}));
  selection.Move(0, 1);
  EXPECT_EQ(selection.marked(), std::nullopt);
}

TEST(Selection, StaysInsideTheLinesAndColumnsThatThereAre) {
  Selection selection;
  selection.SetLines(5);
  selection.Move(-3, -3);
  EXPECT_EQ(selection.caret(), (Caret{1, 1}));
  selection.Move(9, 999);
  EXPECT_EQ(selection.caret(), (Caret{5, Selection::kLastColumn}));
  selection.Press({99, -5});
  selection.PullTo(999);
  EXPECT_EQ(selection.marked(), (Marked{5, 1, Selection::kLastColumn}));
  selection.Release();
  selection.SetLines(2);
  EXPECT_EQ(selection.caret().line, 2u);
  EXPECT_EQ(selection.marked(), std::nullopt);
}

}  // namespace
}  // namespace conmuta::taller
