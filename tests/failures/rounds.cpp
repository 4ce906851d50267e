#include "rounds.h"

#include <gtest/gtest.h>
#include <objbase.h>

#include <algorithm>
#include <cstdlib>
#include <initializer_list>
#include <random>
#include <sstream>

#include "component/dll.h"
#include "progress.h"

namespace conmuta::test {
namespace {

int failed_calls = 0;

std::string Environment(const char* name) {
  const char* value = std::getenv(name);
  return value != nullptr ? value : "";
}

std::string Hex(HRESULT result) {
  std::ostringstream text;
  text << "0x" << std::hex << static_cast<unsigned long>(result);
  return text.str();
}

std::string Shown(const Fault& fault) {
  std::ostringstream text;
  text << "call " << fault.point << (fault.from_there_on ? " and all behind it" : "");
  if (fault.error != ERROR_NOT_ENOUGH_MEMORY) text << " with error " << fault.error;
  if (fault.cut_short) text << ", cut short";
  return text.str();
}

int WindowsOfThread() {
  int count = 0;
  EnumThreadWindows(
      GetCurrentThreadId(),
      [](HWND, LPARAM counter) CALLBACK -> BOOL {
        ++*reinterpret_cast<int*>(counter);
        return TRUE;
      },
      reinterpret_cast<LPARAM>(&count));
  return count;
}

// All that may be left behind.
faults::Holdings Holdings() {
  auto held = faults::Held();
  if (const int windows = WindowsOfThread()) held["window"] = windows;
  return held;
}

std::string Shown(const faults::Holdings& held) {
  std::string text;
  for (const auto& [kind, count] : held) text += std::to_string(count) + " x " + kind + ", ";
  return text;
}

// At most so many, drawn at random, unless all are wanted.
std::vector<Fault> Sample(std::vector<Fault> faults) {
  constexpr std::size_t kMost = 24;
  if (faults.size() <= kMost || Environment("CONMUTA_FAULTS") == "all") return faults;
  const auto seed = static_cast<unsigned>(::testing::UnitTest::GetInstance()->random_seed());
  std::printf("seed %u: %u of %u rounds (CONMUTA_FAULTS=all for all)\n", seed,
              static_cast<unsigned>(kMost), static_cast<unsigned>(faults.size()));
  std::mt19937 random(seed);
  std::shuffle(faults.begin(), faults.end(), random);
  faults.resize(kMost);
  return faults;
}

// Each of the ways to fail at each of the calls.
std::vector<Fault> FaultsAt(int calls, std::initializer_list<Fault> ways) {
  std::vector<Fault> faults;
  for (int point = 1; point <= calls; ++point) {
    for (Fault fault : ways) {
      fault.point = point;
      faults.push_back(fault);
    }
  }
  return faults;
}

}  // namespace

void Host::Verify(HRESULT) {
  EXPECT_EQ(Act(), usual_) << "it cannot be done any more";
}

class Rounds {
 public:
  Rounds(Supply supply, const std::string& what, const MakeHost& make)
      : supply_(supply), what_(what), make_(make) {}

  // Gives how many calls can fail. The first time is for what is only done once.
  int Measure() {
    for (int i = 0; i < 2; ++i) {
      BeginRound(what_ + ", without a failure");
      calls_ = Act(*make_(), {});
      usual_ = answered_;
      if (!Settle()) ADD_FAILURE() << "an object is still alive";
    }
    EndRound();
    before_ = Holdings();
    return calls_;
  }

  void Run(const Fault& fault) {
    const std::string round = what_ + ", " + Shown(fault);
    SCOPED_TRACE(round);
    BeginRound(round);
    {
      const auto host = make_();
      host->usual_ = usual_;
      Act(*host, fault);
      const std::string failed = faults::FirstFailed();
      SCOPED_TRACE(failed);
      if (!failed.empty()) ++failed_calls;
      const bool allowed = answered_ == usual_ ||
                           (supply_ == Supply::kMemory && answered_ == E_OUTOFMEMORY) ||
                           host->MayAnswer(answered_);
      EXPECT_TRUE(allowed) << "answered " << Hex(answered_);
      host->Verify(answered_);
    }
    if (!Settle()) ADD_FAILURE() << "an object is still alive";
    EndRound();
    const auto after = Holdings();
    if (after == before_) return;
    ADD_FAILURE() << "before: " << Shown(before_) << "now: " << Shown(after);
    before_ = after;
  }

 private:
  int Act(Host& host, const Fault& fault) {
    faults::Arm(supply_, fault);
    answered_ = host.Act();
    return faults::Disarm();
  }

  // What is kept for the next one goes, and with it all that may be kept.
  bool Settle() const {
    SetErrorInfo(0, nullptr);
    return LoadedDll().CanUnloadNow() == S_OK;
  }

  const Supply supply_;
  const std::string what_;
  const MakeHost make_;
  int calls_ = 0;
  HRESULT usual_ = S_OK;
  HRESULT answered_ = S_OK;
  faults::Holdings before_;
};

void RunRounds(Supply supply, const std::string& what, const MakeHost& make) {
  EXPECT_TRUE(RunRoundsIfAny(supply, what, make)) << what << ": nothing can fail in it";
}

bool RunRoundsIfAny(Supply supply, const std::string& what, const MakeHost& make) {
  SCOPED_TRACE(what);
  Rounds rounds(supply, what, make);
  const int calls = rounds.Measure();
  const std::string chosen = Environment("CONMUTA_FAULT");
  if (!chosen.empty()) {
    const Fault fault{std::atoi(chosen.c_str()), chosen.ends_with('+')};
    std::printf("calls: %s\n", faults::Calls().c_str());
    std::fflush(stdout);
    if (fault.point <= calls) rounds.Run(fault);
    return calls > 0;
  }
  for (const Fault& fault : Sample(FaultsAt(calls, {{0, false}, {0, true}}))) rounds.Run(fault);
  return calls > 0;
}

void RunFileRounds(const std::string& what, const MakeHost& make) {
  SCOPED_TRACE(what);
  Rounds rounds(Supply::kFiles, what, make);
  const int calls = rounds.Measure();
  EXPECT_GT(calls, 0) << "nothing can fail in it";
  const auto faults = FaultsAt(calls, {{0, false, ERROR_SHARING_VIOLATION, false},
                                       {0, false, ERROR_ACCESS_DENIED, false},
                                       {0, false, ERROR_DISK_FULL, false},
                                       {0, false, ERROR_DISK_FULL, true},
                                       {0, true, ERROR_BAD_NETPATH, false}});
  for (const Fault& fault : Sample(faults)) rounds.Run(fault);
}

int FailedCalls() {
  return failed_calls;
}

}  // namespace conmuta::test
