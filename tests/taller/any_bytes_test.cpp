// Any bytes as a capture, any layout and any bytes as a configuration: nothing breaks, nothing is
// lost, and what is told of lines agrees.
#include <gtest/gtest.h>

#include <algorithm>

#include "layouts/write_layout.h"
#include "platform/unicode.h"
#include "support/fake_clock.h"
#include "support/random_layout.h"
#include "taller/captures.h"
#include "taller/explainer.h"
#include "taller/first_lines.h"
#include "taller/guesses.h"
#include "taller/layout_outline.h"
#include "taller/map_disk.h"
#include "taller/offers.h"
#include "taller/shown_line.h"
#include "taller/verdicts.h"

namespace conmuta::taller {
namespace {

// Bytes of a switch with some of them changed, taken out and put in; or nothing but chance.
std::string AnyBytes(test::Random& random, const std::string& seed, int most) {
  std::string bytes = random.Percent(80) ? seed.substr(0, static_cast<std::size_t>(most)) : "";
  for (int left = random.Below(bytes.empty() ? most : 60); left > 0; --left) {
    const auto at = static_cast<std::size_t>(random.Below(static_cast<int>(bytes.size()) + 1));
    const char byte = random.Percent(30) ? "\r\n\t\0 \x7F\xFF"[random.Below(7)]
                                         : static_cast<char>(random.Below(256));
    if (at == bytes.size() || random.Percent(40)) {
      bytes.insert(at, 1, byte);
    } else if (random.Percent(50)) {
      bytes[at] = byte;
    } else {
      bytes.erase(at, static_cast<std::size_t>(random.Below(40)));
    }
  }
  return bytes;
}

// What all that looks at a capture says of it.
void Look(const std::string& bytes, const layouts::Layout& layout, test::Random& random) {
  const auto kind = random.Percent(50) ? MemoryBytes::Kind::kPasted : MemoryBytes::Kind::kLive;
  const auto capture = test::Bytes(bytes, kind);
  const test::FakeClock clock;
  Verdicts verdicts(clock, [] {});
  verdicts.Judge(capture, layout);
  CaptureText text(capture);
  while (text.Step(1 + static_cast<std::size_t>(random.Below(5000)))) {
  }
  ASSERT_TRUE(verdicts.Wait(std::chrono::seconds(60)));
  const LineCounts counts = verdicts.counts();
  std::uint64_t known = 0;
  for (std::uint64_t line = 1; line <= text.lines(); ++line) {
    const LineKind verdict = verdicts.Of(line);
    known += verdict.IsKnown() && !verdict.IsHead();
    const ShownLine shown = Show(text.Line(line));
    EXPECT_EQ(shown.seen.size(), shown.text.size());
    if (!verdict.IsKnown() || verdict.IsHead() || !random.Percent(10)) continue;
    const Result result = Explainer(clock).Explain(text, layout, line, verdicts.RestBefore(line));
    EXPECT_EQ(result.verdict.error, verdict.verdict().error) << line;
    EXPECT_EQ(result.verdict.reason, verdict.verdict().reason) << line;
    EXPECT_NE(result.has_call, !result.obstacle.empty()) << line;
  }
  const std::uint64_t sum =
      counts.Of(Counter::Calls()) + counts.Of(Counter::NoCalls()) + counts.Of(Counter::Errors());
  EXPECT_GE(sum, known);
  EXPECT_LE(sum, known + 1) << "a call that only the end brings";
  EXPECT_EQ(counts.WithFigures().sentence, FromUtf8(counts.Sentence()));

  const auto lines = FirstLines(*capture, 50);
  const Marked marked = {1, random.Between(1, 254), random.Between(1, 40)};
  EXPECT_EQ(OffersFor(marked, lines.empty() ? Text() : lines[0], lines, layout).size(), 74u);
}

TEST(AnyBytes, AreACaptureForAnyLayout) {
  test::Random random(2015);
  const auto folders = test::Entries(test::kSwitches);
  for (int round = 0; round < 150; ++round) {
    SCOPED_TRACE(round);
    const auto& folder =
        folders[static_cast<std::size_t>(random.Below(static_cast<int>(folders.size())))];
    const std::string seed = test::ReadWhole(folder / "capture.txt");
    const auto own = layouts::ReadLayout(test::ReadWhole(folder / "layout.toml")).layout;
    const bool is_own = own && random.Percent(60);
    Look(AnyBytes(random, seed, 6000), is_own ? *own : test::RandomLayout(random), random);
    if (HasFailure()) return;
  }
}

TEST(AnyBytes, AreGuessedAt) {
  test::Random random(7);
  Guesses guesses([] {});
  for (int round = 0; round < 5; ++round) {
    guesses.Rank(test::Bytes(AnyBytes(random, "", 3000)));
    while (!guesses.progress().is_done) std::this_thread::yield();
    for (const Guess& guess : guesses.guesses()) {
      EXPECT_GT(guess.score, 0);
      EXPECT_LE(guess.score, 1);
    }
  }
}

// What was read is said again by the file that it is saved to; what cannot be read leaves the
// document as it was.
TEST(AnyBytes, AreAConfigurationOrAreSaidToBeNone) {
  test::Random random(21);
  test::MapDisk disk;
  int read = 0;
  int refused = 0;
  for (int round = 0; round < 250; ++round) {
    SCOPED_TRACE(round);
    const layouts::Layout layout = test::RandomLayout(random);
    const auto format = static_cast<Format>(random.Below(3));
    const FileWriting seed = WriteFile(layouts::WriteLayout(layout), layout, format);
    if (!seed.bytes) continue;
    disk.files["x.toml"] = AnyBytes(random, *seed.bytes, 100000);
    Document document;
    ASSERT_EQ(document.Apply(layouts::SetCase{emCasoSamsungNX_820}), Messages());
    const std::string before = document.toml();
    if (const Messages said = document.Open(disk, "x.toml"); !said.empty()) {
      ++refused;
      EXPECT_FALSE(said[0].text.empty());
      EXPECT_EQ(document.toml(), before);
      EXPECT_TRUE(document.IsModified());
      continue;
    }
    ++read;
    EXPECT_FALSE(document.IsModified());
    LayoutOutline outline(document);
    EXPECT_EQ(outline.Groups().size(), kSlotGroups);
    const auto items = document.layout().items;
    const auto constants = document.layout().constants;
    if (!document.SaveAs(disk, "y.cfg", Format::kConfiguration).empty()) continue;
    ASSERT_EQ(document.Open(disk, "y.cfg"), Messages());
    EXPECT_EQ(document.layout().items, items);
    EXPECT_EQ(document.layout().constants.size(), constants.size());
  }
  EXPECT_GT(read, 20);
  EXPECT_GT(refused, 20);
}

}  // namespace
}  // namespace conmuta::taller
