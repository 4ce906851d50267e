#include "config/profile_values.h"

#include <gtest/gtest.h>

#include "support/fake_code_pages.h"

namespace conmuta::basConmuta {
namespace {

using namespace std::string_literals;

// Answers what it is told and keeps what it was asked.
class StandInFile final : public ProfileFile {
 public:
  std::string Read(std::string_view section, std::string_view key) override {
    asked = std::string(section).append("/").append(key);
    return answer;
  }
  bool Write(const ProfileValue&) override { return false; }

  std::string answer;
  std::string asked;
};

class ProfileValues : public testing::Test {
 protected:
  Text Read(std::string answer) {
    file.answer = std::move(answer);
    return LeeValorPerfil(code_page, file, u"S", u"k");
  }

  test::Latin1 code_page;
  StandInFile file;
};

TEST_F(ProfileValues, AreBytesOfTheCodePageInTheFile) {
  const auto value = ValorPerfil(code_page, u"S\u00F1", u"k\u00E9", u"\u00BF\u4E2D");
  EXPECT_EQ(value.section, "S\xF1");
  EXPECT_EQ(value.key, "k\xE9");
  EXPECT_EQ(value.value, "\xBF?");
  file.answer = "A\xF1o";
  EXPECT_EQ(LeeValorPerfil(code_page, file, u"S\u00F1", u"k\u00E9"), u"A\u00F1o");
  EXPECT_EQ(file.asked, "S\xF1/k\xE9");
}

TEST_F(ProfileValues, LoseTheBlanksAtTheirEndOnly) {
  EXPECT_EQ(Read(""), u"");
  EXPECT_EQ(Read("   "), u"");
  EXPECT_EQ(Read("  a b  "), u"  a b");
  EXPECT_EQ(Read("a\t"), u"a\t");
}

TEST_F(ProfileValues, EndAtANul) {
  EXPECT_EQ(Read("ab\0cd"s), u"ab");
  EXPECT_EQ(Read("ab  \0cd"s), u"ab");
  EXPECT_EQ(Read("\0cd"s), u"");
}

TEST(CortaEnNulo, KeepsWhatStandsBeforeTheFirstNul) {
  EXPECT_EQ(CortaEnNulo(u""), u"");
  EXPECT_EQ(CortaEnNulo(u"abc"), u"abc");
  EXPECT_EQ(CortaEnNulo(u"a\0b\0c"s), u"a");
  EXPECT_EQ(CortaEnNulo(u"\0b"s), u"");
  EXPECT_EQ(CortaEnNulo(u"ab \0"s), u"ab ");
}

}  // namespace
}  // namespace conmuta::basConmuta
