#include "platform/calendar.h"

#include <gtest/gtest.h>

#include <limits>

#include "platform/errors.h"

namespace conmuta {
namespace {

TEST(DayNumber, CountsFromTheLastButOneDayOf1899) {
  EXPECT_EQ(DayNumber(1899, 12, 30), 0);
  EXPECT_EQ(DayNumber(1899, 12, 29), -1);
  EXPECT_EQ(DayNumber(1900, 1, 1), 2);
  EXPECT_EQ(DayNumber(1900, 3, 1), 61);  // 1900 is no leap year here
  EXPECT_EQ(DayNumber(2000, 1, 1), 36526);
  EXPECT_EQ(DayNumber(2000, 2, 29), 36585);
  EXPECT_EQ(DayNumber(2026, 11, 21), 46347);
  EXPECT_EQ(DayNumber(100, 1, 1), -657434);
  EXPECT_EQ(DayNumber(9999, 12, 31), 2958465);
}

TEST(DayNumber, TwoDigitYearsBelongTo1930To2029) {
  EXPECT_EQ(DayNumber(0, 5, 6), DayNumber(2000, 5, 6));
  EXPECT_EQ(DayNumber(29, 12, 31), DayNumber(2029, 12, 31));
  EXPECT_EQ(DayNumber(30, 1, 1), DayNumber(1930, 1, 1));
  EXPECT_EQ(DayNumber(99, 5, 6), DayNumber(1999, 5, 6));
}

TEST(DayNumber, MonthsAndDaysRollOver) {
  struct Row {
    int year, month, day;
    CivilDate meant;
  };
  static constexpr Row kRows[] = {
      {2026, 2, 31, {2026, 3, 3}},      {2024, 2, 31, {2024, 3, 2}},
      {2026, 13, 1, {2027, 1, 1}},      {2026, 0, 1, {2025, 12, 1}},
      {2026, -1, 1, {2025, 11, 1}},     {2026, -11, 1, {2025, 1, 1}},
      {2026, -12, 1, {2024, 12, 1}},    {2026, 24, 1, {2027, 12, 1}},
      {2026, 1, 0, {2025, 12, 31}},     {2026, 3, 0, {2026, 2, 28}},
      {2026, 3, -1, {2026, 2, 27}},     {2026, 1, 366, {2027, 1, 1}},
      {2026, 14, 29, {2027, 3, 1}},     {2026, 0, 0, {2025, 11, 30}},
      {29, 13, 1, {2030, 1, 1}},        {30, 0, 1, {1929, 12, 1}},
      {100, 1, 32767, {189, 9, 17}},    {9999, 12, 0, {9999, 11, 30}},
      {2026, 32767, 1, {4756, 7, 1}},   {9999, -32768, 1, {7268, 4, 1}},
      {2000, 1, -32768, {1910, 4, 14}}, {100, 13, -100, {100, 9, 22}},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(testing::Message() << row.year << "/" << row.month << "/" << row.day);
    const CivilDate date = DateOfDayNumber(DayNumber(row.year, row.month, row.day));
    EXPECT_EQ(date.year, row.meant.year);
    EXPECT_EQ(date.month, row.meant.month);
    EXPECT_EQ(date.day, row.meant.day);
  }
}

TEST(DayNumber, LeavingTheYears100To9999IsAnInvalidArgument) {
  struct Row {
    int year, month, day;
  };
  static constexpr Row kRows[] = {
      {-1, 1, 1},        {10000, 1, 1},      {32767, 1, 1},        {-32768, 1, 1},
      {9999, 13, 1},     {9999, 12, 32},     {9999, 1, 366},       {100, 0, 1},
      {100, 1, 0},       {100, 1, -32768},   {9999, 32767, 32767}, {100, -32768, -32768},
      {9999, 12, 32767}, {10000, -32768, 1}, {-1, 32767, 32767},
  };
  for (const Row& row : kRows) {
    EXPECT_THROW(DayNumber(row.year, row.month, row.day), InvalidArgumentError)
        << row.year << "/" << row.month << "/" << row.day;
  }
}

TEST(DayNumber, NoValueWrapsBackIntoTheCalendar) {
  constexpr int kLowest = std::numeric_limits<int>::min() + 1;
  constexpr int kHighest = std::numeric_limits<int>::max();
  struct Row {
    int year, month, day;
  };
  static constexpr Row kRows[] = {
      {kHighest, 1, 1},
      {kLowest, 1, 1},
      {2000, kHighest, 1},
      {2000, kLowest, 1},
      {2000, 1, kHighest},
      {2000, 1, kLowest},
      {2000, 65536 * 12, 1},  // as many months as 65536
                              // years
      {2000, 1, 23936532},    // and as many days
      {2000, 1, -23936532},
  };
  for (const Row& row : kRows) {
    EXPECT_THROW(DayNumber(row.year, row.month, row.day), InvalidArgumentError)
        << row.year << "/" << row.month << "/" << row.day;
  }
}

TEST(DayNumber, EveryDayFollowsTheOneBefore) {
  const auto days_in = [](int year, int month) {
    if (month == 2) return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0) ? 29 : 28;
    return month == 4 || month == 6 || month == 9 || month == 11 ? 30 : 31;
  };
  std::int64_t expected = DayNumber(1600, 1, 1);
  for (int year = 1600; year <= 2400; ++year) {
    for (int month = 1; month <= 12; ++month) {
      for (int day = 1; day <= days_in(year, month); ++day, ++expected) {
        ASSERT_EQ(DayNumber(year, month, day), expected) << year << "/" << month << "/" << day;
        const CivilDate date = DateOfDayNumber(expected);
        ASSERT_TRUE(date.year == year && date.month == month && date.day == day) << expected;
      }
    }
  }
}

TEST(SecondsOfDay, PartsRollOverWithoutOverflow) {
  EXPECT_EQ(SecondsOfDay(0, 0, 0), 0);
  EXPECT_EQ(SecondsOfDay(23, 59, 59), kSecondsPerDay - 1);
  EXPECT_EQ(SecondsOfDay(25, 0, 0), kSecondsPerDay + 3600);
  EXPECT_EQ(SecondsOfDay(-1, 60, 0), 0);
  constexpr int kHighest = std::numeric_limits<int>::max();
  EXPECT_EQ(SecondsOfDay(kHighest, kHighest, kHighest), std::int64_t{kHighest} * 3661);
}

}  // namespace
}  // namespace conmuta
