// A technician's way from an empty layout to a working configuration: marks on the lines, what is
// offered for them, and fields that are typed, without a window.
#include <gtest/gtest.h>

#include <algorithm>

#include "support/fake_clock.h"
#include "support/program_run.h"
#include "taller/captures.h"
#include "taller/explainer.h"
#include "taller/first_lines.h"
#include "taller/layout_outline.h"
#include "taller/map_disk.h"
#include "taller/offers.h"
#include "taller/shown_line.h"
#include "taller/verdicts.h"

namespace conmuta::taller {
namespace {

class FromNothing : public testing::TestWithParam<const char*> {
 protected:
  FromNothing() {
    while (text_.Step()) {
    }
    selection_.SetLines(text_.lines());
  }

  // With the mouse: press, pull, and what the list that opens has under the typed words.
  void Mark(std::uint64_t line, int pos, int size, const SlotKind& kind) {
    selection_.Press({line, pos});
    selection_.PullTo(pos + size - 1);
    selection_.Release();
    if (!selection_.marked()) {  // one column is marked with the keyboard
      selection_.Extend(1);
    }
    const Marked marked = selection_.marked().value();
    ASSERT_EQ(marked, (Marked{line, pos, size}));
    const Text shown = Show(text_.Line(line)).text;
    const auto offers =
        Matching(OffersFor(marked, shown, samples_, document_.layout()), NameOf(kind));
    const auto offer = std::find_if(offers.begin(), offers.end(),
                                    [&](const Offer& row) { return row.kind == kind; });
    ASSERT_NE(offer, offers.end());
    ASSERT_EQ(Choose(document_, offer->kind, marked, shown), Messages());
  }

  // The first line of the capture that has that text there; 0 for none.
  std::uint64_t LineWith(TextView wanted, int pos) const {
    for (std::uint64_t line = text_.head_lines() + 1; line <= text_.lines(); ++line) {
      const Text shown = Show(text_.Line(line)).text;
      const auto begin = static_cast<std::size_t>(pos - 1);
      if (begin < shown.size() && TextView(shown).substr(begin, wanted.size()) == wanted) {
        return line;
      }
    }
    return 0;
  }

  void TypeText(layouts::SetText::Key key, TextView typed) {
    for (std::size_t length = 1; length <= typed.size(); ++length) {
      ASSERT_EQ(document_.Apply(layouts::SetText{key, Text(typed.substr(0, length))},
                                Document::As::kTyping),
                Messages());
    }
    document_.EndTyping();
  }

  const std::string folder_ = test::SwitchFolder(GetParam());
  const std::shared_ptr<MemoryBytes> bytes_ =
      test::Bytes(test::ReadWhole(test::CaptureOf(GetParam())));
  const layouts::Layout wanted_ = test::LayoutOf(GetParam());
  const std::vector<Text> samples_ = FirstLines(*bytes_, 200);
  CaptureText text_{bytes_};
  Selection selection_;
  Document document_;
};

TEST_P(FromNothing, AMitelIsDescribedByPointingAndItsConfigurationIsTheCatalogues) {
  const std::string empty = document_.toml();
  TypeText(layouts::SetText::Key::kBrand, wanted_.header.Marca.Read());
  TypeText(layouts::SetText::Key::kModel, wanted_.header.Modelo.Read());
  const layouts::SetText comments = {layouts::SetText::Key::kComments,
                                     wanted_.header.Comentarios.Read()};
  ASSERT_EQ(document_.Apply(comments), Messages());
  int steps = 3;
  for (const DATO& item : wanted_.items) {
    Mark(text_.head_lines() + 1, item.Pos, item.Tam, item.Param);
    ++steps;
  }
  LayoutOutline outline(document_);
  int marked = 0;
  for (const CTE& constant : wanted_.constants) {
    const Text wanted = constant.Constante.Read();
    if (const std::uint64_t line = LineWith(wanted, constant.Pos); line != 0) {
      Mark(line, constant.Pos, constant.Tam, constant.Param);
      ++marked;
    } else {
      outline.Type(constant.Param, LayoutOutline::Field::kPos, ToText(constant.Pos));
      EXPECT_EQ(outline.Type(constant.Param, LayoutOutline::Field::kText, wanted), Messages());
      document_.EndTyping();
    }
    ++steps;
  }
  EXPECT_GT(marked, 5);

  test::MapDisk disk;
  ASSERT_EQ(document_.SaveAs(disk, "mio.cfg", Format::kConfiguration), Messages());
  const auto catalogue =
      WriteFile(test::ReadWhole(folder_ + "/layout.toml"), wanted_, Format::kConfiguration);
  EXPECT_EQ(disk.files["mio.cfg"], catalogue.bytes);
  EXPECT_FALSE(document_.IsModified());

  // It works: the lines are what the command makes of them.
  const test::FakeClock clock;
  Verdicts verdicts(clock, [] {});
  verdicts.Judge(bytes_, document_.layout());
  ASSERT_TRUE(verdicts.Wait(std::chrono::seconds(60)));
  const std::string said = test::RunConmuta({"traduce", folder_, test::CaptureOf(GetParam())}).err;
  EXPECT_EQ(verdicts.counts().Sentence(), said.substr(0, said.find('\n')));
  EXPECT_GT(verdicts.counts().Of(Counter::Calls()), 5u);
  const auto call = verdicts.Next(Counter::Calls(), 0).value();
  EXPECT_TRUE(Explainer(clock).Explain(text_, document_.layout(), call).has_call);

  // And every step can be taken back.
  for (int step = 0; step < steps; ++step) document_.Undo();
  EXPECT_EQ(document_.toml(), empty);
  EXPECT_FALSE(document_.CanUndo());
}

INSTANTIATE_TEST_SUITE_P(Mitel, FromNothing,
                         testing::Values("mitel-standard", "mitel-extended",
                                         "mitel-extended-seconds"));

}  // namespace
}  // namespace conmuta::taller
