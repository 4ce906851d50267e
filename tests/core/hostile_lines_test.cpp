// Lines that no switch should print: none may do harm, in any case, and the next good line counts.
#include <gtest/gtest.h>

#include <ostream>

#include "platform/errors.h"
#include "support/layouts.h"
#include "support/random.h"
#include "support/translation.h"

namespace conmuta {
namespace {

using test::FixedColumns;
using test::MeridianColumns;
using test::NorstarColumns;
using test::Translation;
using test::ValuesOf;

// A case, its layout, and good lines of which the last delivers a call.
struct Switch {
  const char* name;
  test::ConfigBuilder (*layout)();
  std::vector<Text> good;
};

void PrintTo(const Switch& row, std::ostream* out) {
  *out << row.name;
}

template <emCasos kCase>
test::ConfigBuilder FixedColumnsOf() {
  test::ConfigBuilder layout = FixedColumns();
  layout.Case(kCase);
  return layout;
}

std::vector<Switch> Switches() {
  const std::vector<Text> fixed = {test::FixedLine().text()};
  return {{"standard", FixedColumnsOf<emCasoEstandar>, fixed},
          {"samsung", FixedColumnsOf<emCasoSamsungNX_820>, fixed},
          {"meridian", MeridianColumns, {u"N 027 00 DN7425  T052000 04/04 14:03 00:01:32 5551212"}},
          {"norstar",
           NorstarColumns,
           {u"-------- 04/11/27 09:41:11 LINE = 0003 STN = 7344",
            u"-------- 04/11/27 09:41:11 LINE = 0003 STN = 7344", u"00:00:45   CALL RELEASED"}},
          {"date difference", FixedColumnsOf<emCasoRestaFechasDuracion>, fixed}};
}

class HostileLines : public testing::TestWithParam<Switch> {
 protected:
  // A Norstar block is open while the hostile lines arrive.
  HostileLines() { desk_.Translate(GetParam().good.front()); }

  // Whatever the line, only the errors that hosts know come out.
  void Survive(TextView line) {
    try {
      desk_.Translate(line);
    } catch (const OverflowError&) {
    } catch (const InvalidArgumentError&) {
    }
    try {
      desk_.call().EsValido();
      desk_.call().Fecha();
      desk_.call().Hora();
      desk_.call().Duracion();
    } catch (const InvalidArgumentError&) {  // a year beyond the calendar
    }
  }

  void ExpectGoodLinesToWork() {
    for (const Text& line : GetParam().good) desk_.Translate(line);
    EXPECT_EQ(ValuesOf(desk_.call()), good_);
    EXPECT_TRUE(desk_.call().EsValido());
  }

  Translation desk_{GetParam().layout().Build()};
  const test::CallValues good_ = [] {
    Translation fresh(GetParam().layout().Build());
    for (const Text& line : GetParam().good) fresh.Translate(line);
    return ValuesOf(fresh.call());
  }();
};

TEST_P(HostileLines, EmptyAndSingleCharacters) {
  Survive(u"");
  for (unsigned c = 0; c <= 0xFFFF; c += c < 0x300 ? 1 : 37) {
    Survive(Text(1, static_cast<char16_t>(c)));
  }
  ExpectGoodLinesToWork();
}

TEST_P(HostileLines, OneMegabyte) {
  constexpr std::size_t kLength = 1024 * 1024;
  for (const char16_t c : {u'9', u' ', u'-', u'A', u'N', u'\0', u'\n', char16_t{0xD800}}) {
    Survive(Text(kLength, c));
  }
  for (const Text& good : GetParam().good) {
    Survive(good + Text(kLength, u'7'));
    Survive(Text(kLength, u'\r') + good);
  }
  Survive(Text(u"00:00:45   DIGITS DIALED    ") + Text(kLength, u'7'));
  ExpectGoodLinesToWork();
}

TEST_P(HostileLines, NulsAnywhere) {
  for (const Text& good : GetParam().good) {
    for (std::size_t at = 0; at <= good.size(); ++at) {
      Text line = good;
      line.insert(at, 1, kNul);
      Survive(line);
      if (at == good.size()) continue;
      line = good;
      line[at] = kNul;
      Survive(line);
    }
    Survive(Text(3, kNul) + good);
  }
  ExpectGoodLinesToWork();
}

TEST_P(HostileLines, UnpairedSurrogates) {
  for (const char16_t surrogate : Text{0xD800, 0xDBFF, 0xDC00, 0xDFFF}) {
    for (const Text& good : GetParam().good) {
      for (std::size_t at = 0; at < good.size(); ++at) {
        Text line = good;
        line[at] = surrogate;
        Survive(line);
      }
    }
  }
  ExpectGoodLinesToWork();
}

TEST_P(HostileLines, EveryLengthOfAGoodLine) {
  for (const Text& good : GetParam().good) {
    for (std::size_t length = 0; length <= good.size(); ++length) {
      Survive(TextView(good).substr(0, length));
      Survive(TextView(good).substr(length));
      Survive(good + good.substr(0, length));  // two lines glued together
    }
  }
  ExpectGoodLinesToWork();
}

TEST_P(HostileLines, DigitsEverywhere) {
  for (std::size_t length = 1; length <= 300; ++length) {
    Survive(Text(length, u'9'));
    Survive(Text(length, u'0'));
  }
  ExpectGoodLinesToWork();
}

TEST_P(HostileLines, WhatPrintersAndBadCablesAdd) {
  for (const TextView noise :
       {u"\f", u"\x11\x13", u"\x10\x10\x10", u"=========================================",
        u"-----------------------------------------", u"**/**/** **:** ****", u"\u00a0\u3000",
        u"Date     Time    Ext  CO  Dial Number          Ring Duration  Acc code   CD",
        u"01/02/02 08:33AM 1234     In the office", u"LOG IN", u"REPORTS LOST"}) {
    Survive(noise);
    for (const Text& good : GetParam().good) {
      Survive(Text(noise) + good);
      Survive(good + Text(noise));
    }
  }
  ExpectGoodLinesToWork();
}

TEST_P(HostileLines, RandomCharacters) {
  test::Random random(815);
  for (int i = 0; i < 3000; ++i) {
    Text line;
    if (random.Percent(50)) line = random.OneOf(GetParam().good);
    const int changes = random.Between(0, 100);
    for (int change = 0; change < changes; ++change) {
      const auto c = static_cast<char16_t>(random.Percent(70) ? random.Between(0, 255)
                                                              : random.Between(0, 0xFFFF));
      const auto at = static_cast<std::size_t>(random.Below(static_cast<int>(line.size()) + 1));
      if (random.Percent(50) && at < line.size()) {
        line[at] = c;
      } else {
        line.insert(at, 1, c);
      }
    }
    Survive(line);
  }
  ExpectGoodLinesToWork();
}

INSTANTIATE_TEST_SUITE_P(Cases, HostileLines, testing::ValuesIn(Switches()));

}  // namespace
}  // namespace conmuta
