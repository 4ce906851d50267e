#include "taller/verdicts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <thread>

#include "conmuta/utf8.h"
#include "platform/platform.h"
#include "support/fake_clock.h"
#include "support/program_run.h"
#include "support/random.h"
#include "taller/captures.h"
#include "taller/judging_run.h"

namespace conmuta::taller {
namespace {

using Numbers = std::vector<std::uint64_t>;

constexpr auto kLong = std::chrono::seconds(60);

using test::Bytes;
using test::kBlock;
using test::kBlockEnd;
using test::kIn;
using test::kLog;
using test::kOut;
using test::Kx;
using test::Norstar;

class VerdictsTest : public testing::Test {
 protected:
  test::FakeClock clock_;
  std::atomic<int> told_ = 0;
  Verdicts verdicts_{clock_, [this] { ++told_; }};

  void Judge(const std::shared_ptr<const CaptureBytes>& bytes,
             const layouts::Layout& layout = Kx()) {
    verdicts_.Judge(bytes, layout);
    ASSERT_TRUE(verdicts_.Wait(kLong));
  }
  std::string Counted() const { return verdicts_.counts().Sentence(); }
};

TEST_F(VerdictsTest, EachLineHasItsVerdictAndTheHeadNone) {
  Judge(Bytes("# fecha: 2019-01-16\r\n" + kOut + kIn + kLog + "cortada"));
  EXPECT_TRUE(verdicts_.Of(1).IsHead());
  EXPECT_EQ(verdicts_.Of(2), LineKind::Call(emLlamadaSaliente));
  EXPECT_EQ(verdicts_.Of(3), LineKind::Call(emLlamadaEntrante));
  EXPECT_TRUE(verdicts_.Of(4).IsNoCall());
  EXPECT_EQ(verdicts_.Of(5), LineKind::None(NoCall::kNoDigits)) << "the last line has no end";
  EXPECT_FALSE(verdicts_.Of(6).IsKnown());
  EXPECT_FALSE(verdicts_.Of(0).IsKnown());
  EXPECT_EQ(Counted(), "4 líneas: 2 llamadas (1 saliente, 1 entrante), 2 sin llamada, 0 errores");
  while (told_ == 0) std::this_thread::yield();
}

TEST_F(VerdictsTest, CountersUnfoldIntoReasonsAndErrors) {
  Judge(Bytes(kLog + kLog + "a\r\n" + kOut));
  const auto parts = verdicts_.counts().PartsOf(Counter::NoCalls());
  ASSERT_EQ(parts.size(), 2u);
  EXPECT_EQ(parts[0].lines, 2u);
  EXPECT_EQ(parts[1].kind, LineKind::None(NoCall::kNoDigits));
  EXPECT_EQ(parts[1].sentence, u"La línea no tiene dígitos.");
  EXPECT_EQ(verdicts_.counts().Of(Counter::Calls()), 1u);

  layouts::Layout broken = Kx();
  broken.items[0].Pos = 254;
  broken.items[0].Tam = 9;
  Judge(Bytes(kOut), broken);
  EXPECT_EQ(verdicts_.counts().PartsOf(Counter::Errors())[0].kind,
            LineKind::Error(LineError::kOverflow));
}

TEST_F(VerdictsTest, ACounterLeadsToItsLines) {
  Judge(Bytes(kOut + kLog + kIn + kLog + kOut));
  EXPECT_EQ(verdicts_.LinesOf(Counter::Calls()), (Numbers{1, 3, 5}));
  EXPECT_EQ(verdicts_.LinesOf(Counter::Calls(), 3), (Numbers{5}));
  EXPECT_EQ(verdicts_.LinesOf(Counter::Of(LineKind::Call(emLlamadaEntrante))), (Numbers{3}));
  EXPECT_EQ(verdicts_.Next(Counter::NoCalls(), 0), 2u);
  EXPECT_EQ(verdicts_.Next(Counter::NoCalls(), 2), 4u);
  EXPECT_EQ(verdicts_.Next(Counter::NoCalls(), 4), std::nullopt);
  EXPECT_EQ(verdicts_.Previous(Counter::NoCalls(), 4), 2u);
  EXPECT_EQ(verdicts_.Previous(Counter::NoCalls(), 2), std::nullopt);
  EXPECT_EQ(verdicts_.Previous(Counter::Calls(), 99), 5u);
}

TEST_F(VerdictsTest, AnotherLayoutGivesOtherVerdictsOfTheSameLines) {
  const auto bytes = Bytes(kOut + kIn);
  Judge(bytes);
  layouts::Layout layout = Kx();
  std::erase_if(layout.items, [](const DATO& item) {
    return item.Param == emParamTroncalEntrante ||
           item.Param == emParamTroncalEntranteInicioTransferida;
  });
  Judge(bytes, layout);
  EXPECT_EQ(verdicts_.Of(1), LineKind::Call(emLlamadaSaliente));
  EXPECT_EQ(verdicts_.Of(2), LineKind::None(NoCall::kNoCaller));
  EXPECT_EQ(Counted(), "2 líneas: 1 llamada (1 saliente), 1 sin llamada, 0 errores");
}

TEST_F(VerdictsTest, WhileALineIsPrintedItHasNoVerdict) {
  const auto bytes = Bytes(kOut + kIn.substr(0, 30), MemoryBytes::Kind::kLive);
  Judge(bytes);
  EXPECT_FALSE(verdicts_.Of(2).IsKnown());
  bytes->Append(kIn.substr(30));
  verdicts_.More();
  ASSERT_TRUE(verdicts_.Wait(kLong));
  EXPECT_EQ(verdicts_.Of(2), LineKind::Call(emLlamadaEntrante));
  EXPECT_EQ(Counted(), "2 líneas: 2 llamadas (1 saliente, 1 entrante), 0 sin llamada, 0 errores");
}

TEST_F(VerdictsTest, ALineThatGoesOnAfterItWasTheLastIsJudgedAnew) {
  const auto bytes = Bytes(kOut + kIn.substr(0, 12));
  Judge(bytes);
  EXPECT_TRUE(verdicts_.Of(2).IsNoCall());
  bytes->Append(kIn.substr(12));
  verdicts_.More();
  ASSERT_TRUE(verdicts_.Wait(kLong));
  EXPECT_EQ(verdicts_.Of(2), LineKind::Call(emLlamadaEntrante));
  EXPECT_EQ(Counted(), "2 líneas: 2 llamadas (1 saliente, 1 entrante), 0 sin llamada, 0 errores");
}

std::string Many(int lines) {
  std::string bytes;
  for (int i = 0; i < lines; ++i) bytes += i % 3 == 0 ? kIn : i % 3 == 1 ? kOut : kLog;
  return bytes;
}

TEST_F(VerdictsTest, WhatIsKnownStaysUntilItIsKnownBetter) {
  const auto bytes = Bytes(Many(30000));
  Judge(bytes);
  const auto before = verdicts_.counts();
  verdicts_.Judge(bytes, Kx());
  verdicts_.Stop();
  EXPECT_TRUE(verdicts_.Wait(kLong));
  EXPECT_EQ(verdicts_.counts(), before);
  EXPECT_TRUE(verdicts_.Of(30000).IsKnown());
}

TEST_F(VerdictsTest, OfManyChangesTheLastOneCounts) {
  const auto bytes = Bytes(Many(20000));
  layouts::Layout other = Kx();
  other.items.clear();
  for (int i = 0; i < 20; ++i) verdicts_.Judge(bytes, i % 2 == 0 ? other : Kx());
  ASSERT_TRUE(verdicts_.Wait(kLong));
  EXPECT_EQ(verdicts_.counts().Of(Counter::Calls()), 13334u);
  EXPECT_EQ(verdicts_.progress().bytes_done, bytes->size());
  EXPECT_TRUE(verdicts_.progress().is_done);
}

TEST_F(VerdictsTest, AnotherCaptureStartsFromNothing) {
  Judge(Bytes(Many(1000)));
  Judge(Bytes(kOut));
  EXPECT_FALSE(verdicts_.Of(2).IsKnown());
  EXPECT_EQ(Counted(), "1 línea: 1 llamada (1 saliente), 0 sin llamada, 0 errores");
}

TEST(Verdicts, EndWhileTheyAreAtWork) {
  test::FakeClock clock;
  for (int i = 0; i < 20; ++i) {
    Verdicts verdicts(clock, [] {});
    verdicts.Judge(Bytes(Many(5000)), Kx());
  }
}

TEST_F(VerdictsTest, ACallThatOnlyTheEndBringsIsCountedAndFoundAtItsBlock) {
  Judge(Bytes(kBlock + kBlockEnd + kBlock + "\r\n"), Norstar());
  EXPECT_EQ(Counted(), "8 líneas: 2 llamadas (2 salientes), 7 sin llamada, 0 errores");
  EXPECT_EQ(verdicts_.counts().Of(Counter::Calls()), 2u);
  EXPECT_EQ(verdicts_.counts().PartsOf(Counter::Calls())[0].lines, 2u);
  EXPECT_EQ(verdicts_.LinesOf(Counter::Calls()), (Numbers{4, 7})) << "the last one is blank";
  EXPECT_EQ(verdicts_.Next(Counter::Calls(), 4), 7u);
  EXPECT_EQ(verdicts_.Previous(Counter::Calls(), 99), 7u);
  EXPECT_TRUE(verdicts_.Of(7).IsNoCall());
}

TEST_F(VerdictsTest, ABlockThatGoesOnAfterItWasTheLastIsJudgedAnew) {
  const auto bytes = Bytes(kBlock);
  Judge(bytes, Norstar());
  EXPECT_EQ(Counted(), "3 líneas: 1 llamada (1 saliente), 3 sin llamada, 0 errores");
  bytes->Append(kBlockEnd);
  verdicts_.More();
  ASSERT_TRUE(verdicts_.Wait(kLong));
  EXPECT_EQ(Counted(), "4 líneas: 1 llamada (1 saliente), 3 sin llamada, 0 errores");
  EXPECT_EQ(verdicts_.LinesOf(Counter::Calls()), (Numbers{4}));
}

TEST_F(VerdictsTest, WhileABlockIsPrintedItIsNoCall) {
  Judge(Bytes(kBlock, MemoryBytes::Kind::kLive), Norstar());
  EXPECT_EQ(Counted(), "3 líneas: 0 llamadas, 3 sin llamada, 0 errores");
}

TEST_F(VerdictsTest, NothingRestsInTheMiddleOfABlock) {
  std::string block = kBlock;
  for (int i = 0; i < 900; ++i) block += "           BC = SPEECH\r\n";
  Judge(Bytes(block + kBlockEnd + Many(400)), Norstar());
  EXPECT_EQ(verdicts_.RestBefore(903), 0u);
  EXPECT_EQ(verdicts_.RestBefore(905), 904u);
  EXPECT_EQ(verdicts_.RestBefore(904 + 400), 904 + JudgingRun::kRestsApart);
}

// What the command says of a capture, but the calls that wait.
std::string SummaryOfCommand(const std::string& folder, const std::string& capture) {
  std::string said = test::RunConmuta({"traduce", folder, "-", "--sin-alternativas"}, capture).err;
  said.erase(std::min(said.find("\n  al terminar, "), said.size() - 1));
  return said;
}

std::string SummaryOf(const LineCounts& counts) {
  std::string said = counts.Sentence();
  for (const Counter counter : {Counter::Errors(), Counter::NoCalls()}) {
    for (const LineCounts::Part& part : counts.PartsOf(counter)) {
      const std::string number = std::to_string(part.lines);
      said += "\n" + std::string(8 - number.size(), ' ') + number + "  ";
      said += host::Utf8(part.sentence);
    }
  }
  return said;
}

// Captures as they come: whole, from an editor, and cut anywhere.
TEST(Verdicts, CountWhatTheCommandCountsForEverySwitch) {
  test::FakeClock clock;
  test::Random random(15);
  int switches = 0;
  for (const auto& folder : test::Entries(test::kSwitches)) {
    const auto layout = layouts::ReadLayout(test::ReadWhole(folder / "layout.toml")).layout;
    if (!layout) continue;
    ++switches;
    const std::string whole = test::ReadWhole(folder / "capture.txt");
    std::vector<std::string> captures = {whole, "\xEF\xBB\xBF" + whole, whole + "\x1A"};
    for (int i = 0; i < 4; ++i) {
      const int size = random.Below(static_cast<int>(whole.size()));
      captures.push_back(whole.substr(0, static_cast<std::size_t>(size)));
    }
    Verdicts verdicts(clock, [] {});
    for (const std::string& capture : captures) {
      SCOPED_TRACE(folder.filename().string() + ", " + std::to_string(capture.size()));
      verdicts.Judge(Bytes(capture), *layout);
      ASSERT_TRUE(verdicts.Wait(kLong));
      EXPECT_EQ(SummaryOf(verdicts.counts()), SummaryOfCommand(folder.string(), capture));
    }
  }
  EXPECT_GT(switches, 30);
}

}  // namespace
}  // namespace conmuta::taller
