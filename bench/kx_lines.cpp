#include "kx_lines.h"

#include <algorithm>

namespace conmuta::bench {
namespace {

constexpr std::size_t kWidth = 80;

// Where the pieces of a line stand, 1-based.
constexpr std::size_t kExtension = 18;
constexpr std::size_t kTrunk = 24;
constexpr std::size_t kDialled = 27;
constexpr std::size_t kRing = 53;
constexpr std::size_t kDuration = 58;
constexpr std::size_t kAccount = 67;
constexpr std::size_t kCondition = 78;

using namespace std::string_view_literals;

constexpr std::array kHeadings = {
    "                     HOTEL MIRADOR   SMDR REPORT   PAGE 1                       "sv,
    "  Date    Time    Ext  CO          Dial Number     Ring  Duration Acc code   CD "sv,
    "--------------------------------------------------------------------------------"sv,
    "================================================================================"sv,
    "%"sv,
    ""sv,
};
constexpr std::array kEvents = {
    "LOG IN"sv, "LOG OUT"sv, "In the office"sv, "Check out"sv, "Timed Reminder/Start"sv,
    "<I>S003"sv};
constexpr std::array kCallers = {"<I>"sv,         "<I>"sv,         "<I>"sv,     "<D>"sv,
                                 "LOPEZ JUAN "sv, "ABC COMPANY"sv, "PEREZ M "sv};
constexpr std::array kConditions = {"TR"sv, "NA"sv, "FW"sv};
constexpr std::array kHidden = {".........."sv, "XXXX"sv, "XX"sv};

}  // namespace

const std::string& KxLines::Next() {
  line_.assign(kWidth, ' ');
  if (OnceIn(25)) {
    PutNoise();
    return line_;
  }
  PutStart();
  const unsigned kind = Below(100);
  if (kind < 48) {
    PutOutgoing();
  } else if (kind < 84) {
    PutIncoming();
  } else if (kind < 95) {
    PutInternal();
  } else {
    Put(kDialled, OneOf(kEvents));
  }
  Damage();
  return line_;
}

std::size_t KxLines::Put(std::size_t column, std::string_view text) {
  std::copy(text.begin(), text.end(), &line_[column - 1]);
  return column + text.size();
}

std::size_t KxLines::PutDigits(std::size_t column, unsigned count) {
  for (unsigned i = 0; i < count; ++i) line_[column - 1 + i] = static_cast<char>('0' + Below(10));
  return column + count;
}

std::size_t KxLines::PutPair(std::size_t column, unsigned first, unsigned last) {
  const unsigned number = first + Below(last - first + 1);
  line_[column - 1] = static_cast<char>('0' + number / 10);
  line_[column] = static_cast<char>('0' + number % 10);
  return column + 2;
}

// Headings, rulers, and what comes through a bad cable.
void KxLines::PutNoise() {
  if (!OnceIn(4)) {
    line_ = OneOf(kHeadings);
    return;
  }
  line_.resize(1 + Below(kWidth));
  for (char& c : line_) c = static_cast<char>(' ' + Below(224));
}

// "01/14/19 09:07AM *1204"
void KxLines::PutStart() {
  Put(1, "  /  /     :");
  PutPair(1, 1, 12);
  PutPair(4, 1, 31);
  PutPair(7, 0, 99);
  PutPair(10, 1, 12);
  PutPair(13, 0, 59);
  Put(15, OnceIn(2) ? "AM" : "PM");
  const std::size_t extension = OnceIn(10) ? Put(kExtension, "*") : kExtension;
  PutDigits(extension, 3 + Below(2));
}

void KxLines::PutNumber(std::size_t column) {
  switch (Below(6)) {
    case 0:
      column = Put(PutDigits(column, 3), "-");
      column = Put(PutDigits(column, 3), "-");
      PutDigits(column, 4);
      break;
    case 1:
      column = PutDigits(column, 3 + Below(4));
      Put(column, OneOf(kHidden));
      break;
    case 2:
      PutDigits(Put(column, "011"), 7 + Below(3));
      break;
    default:
      PutDigits(column, OnceIn(3) ? 10 : 7);
  }
}

void KxLines::PutOutgoing() {
  PutPair(kTrunk, 1, 24);
  PutNumber(kDialled);
  PutDuration(OnceIn(12) ? ";" : "'");
  PutTail();
}

void KxLines::PutIncoming() {
  PutPair(kTrunk, 1, 24);
  const std::size_t number = Put(kDialled, OneOf(kCallers));
  if (!OnceIn(4)) PutNumber(number);
  PutPair(Put(PutDigits(kRing, 1), "'"), 0, 59);
  PutDuration("'");
  PutTail();
}

void KxLines::PutInternal() {
  if (OnceIn(4)) {
    Put(kDialled, "VM500");
  } else {
    PutDigits(Put(kDialled, "EXT"), 3 + Below(2));
  }
}

// "00:12'40"
void KxLines::PutDuration(std::string_view mark) {
  std::size_t column = PutPair(kDuration, 0, OnceIn(50) ? 23 : 2);
  column = PutPair(Put(column, ":"), 0, 59);
  PutPair(Put(column, mark), 0, 59);
}

// What may stand behind the duration.
void KxLines::PutTail() {
  if (!OnceIn(3)) PutDigits(kAccount, 1 + Below(10));
  if (OnceIn(5)) Put(kCondition, OneOf(kConditions));
}

// Some switches send the blanks at the end of a line, some do not; a few lines come cut, with
// the return of the one before, or less a character.
void KxLines::Damage() {
  if (OnceIn(3)) line_.erase(line_.find_last_not_of(' ') + 1);
  switch (Below(100)) {
    case 0:
      line_.resize(Below(static_cast<unsigned>(line_.size())));
      break;
    case 1:
      line_.insert(0, 1, '\r');
      break;
    case 2:
      line_.erase(0, 1);
      break;
    default:
      break;
  }
}

}  // namespace conmuta::bench
