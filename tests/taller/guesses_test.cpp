#include "taller/guesses.h"

#include <gtest/gtest.h>

#include <atomic>

#include "conmuta/fit.h"
#include "taller/captures.h"
#include "taller/first_lines.h"

namespace conmuta::taller {
namespace {

using test::Bytes;

void WaitFor(const Guesses& guesses) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(120);
  while (!guesses.progress().is_done && std::chrono::steady_clock::now() < end) {
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  ASSERT_TRUE(guesses.progress().is_done);
}

std::string CaptureOfKx() {
  return test::ReadWhole(test::kSwitches / "panasonic-kx" / "capture.txt");
}

TEST(FirstLines, AreThoseBehindTheHeadAsTheTranslatorGetsThem) {
  using Texts = std::vector<Text>;
  const std::string capture = "\xEF\xBB\xBF# fecha: 2019-01-16\r\nu\x02no\r\ndos\r\ntr";
  EXPECT_EQ(FirstLines(*Bytes(capture), 9), (Texts{u"uno", u"dos", u"tr"}));
  EXPECT_EQ(FirstLines(*Bytes(capture), 1), (Texts{u"uno"}));
  EXPECT_EQ(FirstLines(*Bytes(capture, MemoryBytes::Kind::kLive), 9), (Texts{u"uno", u"dos"}));
  EXPECT_EQ(FirstLines(*Bytes(std::string(200000, '\n')), 150000).size(), 150000u);
}

TEST(Guesses, RankTheCatalogueAsTheCommandDoes) {
  std::atomic<int> told = 0;
  Guesses guesses([&] { ++told; });
  guesses.Rank(Bytes(CaptureOfKx()));
  WaitFor(guesses);
  const auto ranked = guesses.guesses();
  std::vector<std::string> names;
  for (const Guess& guess : ranked) names.push_back(guess.name);
  std::vector<std::string> wanted;
  for (const host::Fit& fit : host::RankCatalogue(FirstLines(*Bytes(CaptureOfKx()), 2000))) {
    if (fit.Score() > 0) wanted.push_back(fit.layout().name);
  }
  EXPECT_EQ(names, wanted);
  ASSERT_FALSE(ranked.empty());
  EXPECT_EQ(ranked[0].name, "panasonic-kx");
  EXPECT_TRUE(ranked[0].title.starts_with(u"Panasonic, "));
  EXPECT_GT(ranked[0].calls, 20u);
  EXPECT_EQ(guesses.progress().tried, guesses.progress().of);
  while (told == 0) std::this_thread::yield();
  guesses.Rank(Bytes(""));
  WaitFor(guesses);
  EXPECT_TRUE(guesses.guesses().empty()) << "those of another capture are none of this one";
}

TEST(Guesses, AreSaidInASentence) {
  Guess guess{"", {}, 1, 29, 53, 0};
  EXPECT_EQ(guess.Sentence(), u"29 de 53 líneas");
  guess = {"", {}, 1, 1, 1, 1};
  EXPECT_EQ(guess.Sentence(), u"1 de 1 línea, 1 dudosa");
}

TEST(Guesses, CanBeGivenUpAndBegunAnew) {
  std::string many;
  while (many.size() < 200000) many += CaptureOfKx();
  Guesses guesses([] {});
  guesses.Rank(Bytes(many));
  guesses.Stop();
  EXPECT_TRUE(guesses.progress().is_done);
  const auto before = guesses.guesses().size();
  std::this_thread::sleep_for(std::chrono::milliseconds(30));
  EXPECT_EQ(guesses.guesses().size(), before);
  guesses.Rank(Bytes(many));
  guesses.Rank(Bytes(CaptureOfKx()));
  WaitFor(guesses);
  EXPECT_EQ(guesses.guesses()[0].name, "panasonic-kx");
  EXPECT_LT(guesses.guesses()[0].lines, 200u) << "of the capture that was asked for last";
  guesses.Rank(Bytes(many));  // ends while it is at work
}

TEST(Guesses, TakingOneIsOneStepThatCanBeUndone) {
  Document document;
  const std::string before = document.toml();
  EXPECT_EQ(Take(document, "panasonic-kx"), Messages());
  EXPECT_EQ(document.toml(), test::ReadWhole(test::kSwitches / "panasonic-kx" / "layout.toml"));
  EXPECT_EQ(document.UndoName(), u"Adivinar");
  document.Undo();
  EXPECT_EQ(document.toml(), before);
  EXPECT_FALSE(document.CanUndo());
  EXPECT_FALSE(Take(document, "ninguno").empty());
  EXPECT_FALSE(document.CanUndo());
}

}  // namespace
}  // namespace conmuta::taller
