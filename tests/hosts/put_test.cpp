// Fields of rows, written into room.
#include "conmuta/put.h"

#include <gtest/gtest.h>

#include "conmuta/plain_text.h"
#include "platform/unicode.h"
#include "translate/bounded_text.h"

namespace conmuta::host {
namespace {

std::string Number(std::uint64_t number) {
  char room[kMostDigits];
  return {room, PutNumber(room, number)};
}

TEST(Put, NumbersAreThoseOfTheLibraryAtEveryCountOfDigits) {
  for (std::uint64_t power = 1; power <= 10'000'000'000'000'000'000U / 10; power *= 10) {
    for (const std::uint64_t number : {power - 1, power, power + 1}) {
      EXPECT_EQ(Number(number), std::to_string(number));
    }
  }
  EXPECT_EQ(Number(~std::uint64_t{0}), std::to_string(~std::uint64_t{0}));
}

TEST(Put, DatesOfAnyNumbersFitTheirRoom) {
  char room[kMostOfMoment];
  const auto date = [&](const Moment& moment) { return std::string(room, PutDate(room, moment)); };
  EXPECT_EQ(date({2019, 1, 6}), "2019-01-06");
  EXPECT_EQ(date({0, 0, 0}), "0000-00-00");
  EXPECT_EQ(date({32767, 32767, 32767}), "32767-32767-32767");
}

constexpr PlainText kCsv{u'"', u','};

// As the texts of a record lie: what is behind a text's end is of no meaning.
template <std::size_t kWidth>
std::optional<std::string> Plain(const Text& text) {
  BoundedText<kWidth> bounded;
  bounded = Text(kWidth, u'"');
  bounded = TextView(text);
  char room[BoundedText<kWidth>::kRoom];
  const char* end = kCsv.Put<BoundedText<kWidth>::kRoom>(room, bounded);
  if (end == nullptr) return std::nullopt;
  return std::string(static_cast<const char*>(room), end);
}

TEST(PlainText, IsNarrowedWhateverItsSize) {
  const Text all = u"0123456789 ABCDEFGHIJKLMNOPQR~!";
  for (std::size_t size = 0; size <= 30; ++size) {
    const Text text = all.substr(0, size);
    EXPECT_EQ(Plain<30>(text), std::string(text.begin(), text.end()));
    if (size <= 10) {
      EXPECT_EQ(Plain<10>(text), std::string(text.begin(), text.end()));
    }
  }
}

TEST(PlainText, IsNotOneWithAnyOtherCharacterAnywhere) {
  for (const char16_t c :
       {u'"', u',', u'\x1F', u'\x01', u'\x7F', u'\x80', u'\xF1', u'\u0141', u'\uFF31'}) {
    for (std::size_t at = 0; at < 30; ++at) {
      Text text(30, u'5');
      text[at] = c;
      EXPECT_EQ(Plain<30>(text), std::nullopt) << unsigned{c} << " at " << at;
      EXPECT_EQ(Plain<30>(text.substr(0, at)), std::string(at, '5'));
    }
  }
}

}  // namespace
}  // namespace conmuta::host
