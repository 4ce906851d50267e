// What profile files read and how they are written, by our own reader and writer and by what the
// machine uses: the same tables for both.
#include "platform/profile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <tuple>

#include "support/profile_site.h"

namespace conmuta {
namespace {

using namespace std::string_literals;
using test::ProfileSite;
using test::SiteKind;
using testing::Contains;
using testing::ElementsAre;

constexpr TextView kFile = u"profile.ini";

struct ReadCase {
  const char* name;
  std::string bytes;
  std::string section;
  std::string key;
  std::string expected;
};

// Else the whole structure is printed byte by byte.
void PrintTo(const ReadCase& row, std::ostream* out) {
  *out << row.name;
}

const ReadCase kReads[] = {
    {"Plain", "[S]\r\nk=value\r\n", "S", "k", "value"},
    {"SectionWithoutRegardToCase", "[sEcTion]\r\nk=1\r\n", "SeCtion", "k", "1"},
    {"KeyWithoutRegardToCase", "[S]\r\nKeY=1\r\n", "S", "kEy", "1"},
    {"MissingSection", "[S]\r\nk=1\r\n", "T", "k", ""},
    {"MissingKey", "[S]\r\nk=1\r\n", "S", "l", ""},
    {"KeyOfAnotherSection", "[S]\r\nk=1\r\n[T]\r\nl=2\r\n", "S", "l", ""},
    {"KeyThatBeginsAlike", "[S]\r\nkey1=1\r\nkey10=2\r\n", "S", "key10", "2"},
    {"KeyThatGoesOn", "[S]\r\nkey10=1\r\nkey1=2\r\n", "S", "key1", "2"},
    {"EmptyFile", "", "S", "k", ""},
    {"FirstOfTwoEqualKeys", "[S]\r\nk=1\r\nk=2\r\nK=3\r\n", "S", "k", "1"},
    {"FirstOfTwoEqualSections", "[S]\r\na=1\r\n[T]\r\n[s]\r\na=2\r\n", "S", "a", "1"},
    {"SecondOfTwoEqualSectionsIsPassedOver", "[S]\r\na=1\r\n[T]\r\n[s]\r\nb=2\r\n", "S", "b", ""},
    {"WhiteSpaceAroundTheKey", "[S]\r\n \t\v\f k \t\v\f=1\r\n", "S", "k", "1"},
    {"WhiteSpaceAroundTheValue", "[S]\r\nk= \t\v\f 1 2 \t\v\f\r\n", "S", "k", "1 2"},
    {"EndMarkOfOldTextFilesIsWhiteSpace", "[S]\r\nk=1\r\n\x1A", "S", "k", "1"},
    {"EndMarkOfOldTextFilesBehindAValue", "[S]\r\nk=1\x1A", "S", "k", "1"},
    {"OtherControlsStay", "[S]\r\nk=\x01 1\x02\r\n", "S", "k", "\x01 1\x02"},
    {"WhiteSpaceAroundTheSection", " \t[S] \t\r\nk=1\r\n", "S", "k", "1"},
    {"WhiteSpaceInsideTheBrackets", "[ S ]\r\nk=1\r\n", "S", "k", "1"},
    {"TextBehindTheBracket", "[S]x\r\nk=1\r\n", "S", "k", "1"},
    {"LastBracketEndsTheName", "[S]x]\r\nk=1\r\n", "S]x", "k", "1"},
    {"UnclosedBracketIsNoSection", "[S]\r\n[T\r\nk=1\r\n", "S", "k", "1"},
    {"NothingInAnUnclosedSection", "[S\r\nk=1\r\n", "S", "k", ""},
    {"KeysBeforeTheFirstSection", "k=1\r\n[S]\r\nl=2\r\n", "S", "k", ""},
    {"SectionBehindKeysWithoutOne", "k=1\r\n[S]\r\nk=2\r\n", "S", "k", "2"},
    {"DoubleQuotes", "[S]\r\nk=\" 1 \"\r\n", "S", "k", " 1 "},
    {"SingleQuotes", "[S]\r\nk=' 1 '\r\n", "S", "k", " 1 "},
    {"OnePairOfQuotesOnly", "[S]\r\nk=\"\"1\"\"\r\n", "S", "k", "\"1\""},
    {"UnequalQuotes", "[S]\r\nk=\"1'\r\n", "S", "k", "\"1'"},
    {"OpenQuote", "[S]\r\nk=\"1\r\n", "S", "k", "\"1"},
    {"LoneQuote", "[S]\r\nk=\"\r\n", "S", "k", "\""},
    {"QuotesAroundNothing", "[S]\r\nk=\"\"\r\n", "S", "k", ""},
    {"QuotesInside", "[S]\r\nk=a \"b\" c\r\n", "S", "k", "a \"b\" c"},
    {"EmptyValue", "[S]\r\nk=\r\n", "S", "k", ""},
    {"EmptyValueCountsAsTheFirst", "[S]\r\nk=\r\nk=2\r\n", "S", "k", ""},
    {"EqualsSignsInTheValue", "[S]\r\nk=a=b==c\r\n", "S", "k", "a=b==c"},
    {"KeyWithoutEqualsSign", "[S]\r\nk\r\n", "S", "k", ""},
    {"KeyWithoutEqualsSignCountsAsTheFirst", "[S]\r\nk\r\nk=2\r\n", "S", "k", ""},
    {"CommentIsNoKey", "[S]\r\n;k=1\r\nk=2\r\n", "S", "k", "2"},
    {"CommentAloneIsNoKey", "[S]\r\n;k=1\r\n", "S", "k", ""},
    {"IndentedCommentIsNoKey", "[S]\r\n  ; k=1\r\nk=2\r\n", "S", "k", "2"},
    {"CommentedSectionIsNone", "[S]\r\n;[T]\r\nk=1\r\n", "S", "k", "1"},
    {"SemicolonInTheValue", "[S]\r\nk=1 ; 2\r\n", "S", "k", "1 ; 2"},
    {"BlankLines", "\r\n\r\n[S]\r\n\r\n  \r\nk=1\r\n\r\n", "S", "k", "1"},
    {"LineFeeds", "[S]\na=1\nb=2\n", "S", "b", "2"},
    {"LoneCarriageReturns", "[S]\ra=1\rb=2\r", "S", "b", "2"},
    {"ValueBeforeALoneCarriageReturn", "[S]\ra=1\rb=2\r", "S", "a", "1"},
    {"NoLineEndAtTheEnd", "[S]\r\nk=1", "S", "k", "1"},
    {"SectionWithoutLineEnd", "[S]", "S", "k", ""},
    {"MixedLineEnds", "[S]\na=1\rb=2\r\nc=3\n", "S", "b", "2"},
    {"DoubledCarriageReturns", "[S]\r\r\nk=1\r\r\nl=2\r\r\n", "S", "l", "2"},
    {"ValueIsCutAtANul", "[S]\r\nk=12\0 34\r\nl=5\r\n"s, "S", "k", "12"},
    {"LinesBehindANulAreRead", "[S]\r\nk=12\0 34\r\nl=5\r\n"s, "S", "l", "5"},
    {"BytesAboveAscii", "[S]\r\nk=A\xF1o \xBFqu\xE9?\r\n", "S", "k", "A\xF1o \xBFqu\xE9?"},
    {"ValueOf254Characters", "[S]\r\nk=" + std::string(254, 'x') + "\r\n", "S", "k",
     std::string(254, 'x')},
    {"ValueOf300CharactersIsCut", "[S]\r\nk=" + std::string(300, 'x') + "\r\n", "S", "k",
     std::string(254, 'x')},
    {"LongValueInQuotesIsCut", "[S]\r\nk=\"" + std::string(300, 'x') + "\"\r\n", "S", "k",
     std::string(254, 'x')},
    {"KeyIsCutAtANul", "[S]\r\nk\0x=1\r\n"s, "S", "k", "1"},
    {"SectionIsCutAtANul", "[S\0x]\r\nk=1\r\n"s, "S", "k", "1"},
    {"NulBeforeTheValueLeavesNone", "[S]\r\nk= \0 b\r\n"s, "S", "k", ""},
    {"WhiteSpaceBeforeANulStays", "[S]\r\nk=1\t\0b\r\n"s, "S", "k", "1\t"},
    {"Utf8Mark", "\xEF\xBB\xBF[S]\r\nk=A\xC3\xB1o\r\n", "S", "k", "A\xF1o"},
    {"Utf8MarkBeforeAKey", "\xEF\xBB\xBFk=1\r\n[S]\r\nl=2\r\n", "S", "l", "2"},
    {"Utf16LittleEndianMark", "\xFF\xFE[\0S\0]\0\r\0\n\0k\0=\0A\0\xF1\0o\0\r\0\n\0"s, "S", "k",
     "A\xF1o"},
    {"Utf16BigEndianMark", "\xFE\xFF\0[\0S\0]\0\r\0\n\0k\0=\0A\0\xF1\0o\0\r\0\n"s, "S", "k",
     "A\xF1o"},
    {"Utf16OfAnOddLength", "\xFF\xFE[\0S\0]\0\n\0k\0=\0001\0\n\0x"s, "S", "k", "1"},
    {"OnlyAMark", "\xFF\xFE", "S", "k", ""},
};

class ProfileReads : public testing::TestWithParam<std::tuple<SiteKind, ReadCase>> {};

TEST_P(ProfileReads, Answer) {
  const auto& [kind, row] = GetParam();
  const auto site = test::MakeSite(kind);
  site->Put(kFile, row.bytes);
  const auto file = site->platform().profiles.Open(site->Path(kFile));
  EXPECT_EQ(file->Read(row.section, row.key), row.expected);
  EXPECT_EQ(file->Read(row.section, row.key), row.expected) << "the second time";
  EXPECT_EQ(site->Bytes(kFile), row.bytes) << "reading changed the file";
}

INSTANTIATE_TEST_SUITE_P(, ProfileReads,
                         testing::Combine(testing::ValuesIn(test::kEverySite),
                                          testing::ValuesIn(kReads)),
                         [](const auto& info) {
                           return test::SiteName(std::get<0>(info.param)) +
                                  std::get<1>(info.param).name;
                         });

struct Answer {
  std::string section;
  std::string key;
  std::string value;
};

struct WriteCase {
  const char* name;
  std::optional<std::string> before;  // nothing for no file
  std::vector<Answer> writes;
  std::vector<Answer> reads;       // afterwards
  std::vector<std::string> lines;  // that are in the file afterwards, in this order
};

void PrintTo(const WriteCase& row, std::ostream* out) {
  *out << row.name;
}

const WriteCase kWrites[] = {
    {"NewFile", std::nullopt, {{"S", "k", "1"}}, {{"S", "k", "1"}}, {"[S]", "k=1"}},
    {"EmptyFile", "", {{"S", "k", "1"}}, {{"S", "k", "1"}}, {"[S]", "k=1"}},
    {"ReplacesInPlace",
     "[S]\r\na=1\r\nk=2\r\nb=3\r\n",
     {{"S", "k", "9"}},
     {{"S", "k", "9"}},
     {"[S]", "a=1", "k=9", "b=3"}},
    {"AddsToItsSection",
     "[S]\r\na=1\r\n\r\n[T]\r\nb=2\r\n",
     {{"S", "k", "9"}},
     {{"S", "k", "9"}, {"T", "b", "2"}},
     {"[S]", "a=1", "k=9", "[T]", "b=2"}},
    {"AddsToAnEmptySection",
     "[S]\r\n[T]\r\nb=2\r\n",
     {{"S", "k", "9"}},
     {{"S", "k", "9"}, {"T", "k", ""}},
     {"[S]", "k=9", "[T]", "b=2"}},
    {"AddsASection",
     "[S]\r\na=1\r\n",
     {{"T", "k", "9"}},
     {{"S", "a", "1"}, {"T", "k", "9"}},
     {"[S]", "a=1", "[T]", "k=9"}},
    {"AddsASectionToAFileWithoutLineEnd",
     "[S]\r\na=1",
     {{"T", "k", "9"}},
     {{"S", "a", "1"}, {"T", "k", "9"}},
     {"[S]", "a=1", "[T]", "k=9"}},
    {"AddsAKeyToAFileWithoutLineEnd",
     "[S]\r\na=1",
     {{"S", "k", "9"}},
     {{"S", "a", "1"}, {"S", "k", "9"}},
     {"[S]", "a=1", "k=9"}},
    {"FindsNamesWithoutRegardToCase",
     "[sect]\r\nKEY=1\r\n",
     {{"SECT", "key", "9"}},
     {{"sect", "KEY", "9"}},
     {}},
    {"ReplacesTheFirstOfTwoEqualKeys",
     "[S]\r\nk=1\r\nk=2\r\n",
     {{"S", "k", "9"}},
     {{"S", "k", "9"}},
     {"[S]", "k=9", "k=2"}},
    {"WritesIntoTheFirstOfTwoEqualSections",
     "[S]\r\na=1\r\n[T]\r\nb=2\r\n[S]\r\nk=3\r\n",
     {{"S", "k", "9"}},
     {{"S", "k", "9"}, {"S", "a", "1"}},
     {"[S]", "a=1", "k=9", "[T]", "b=2", "[S]", "k=3"}},
    {"KeepsCommentsAndUnknownLines",
     "; top\r\n[S]\r\n; inside\r\nk=1\r\nunknown=2\r\nno sign\r\n[T]\r\n; other\r\nb=2\r\n",
     {{"S", "k", "9"}},
     {{"S", "k", "9"}, {"S", "unknown", "2"}, {"T", "b", "2"}},
     {"; top", "[S]", "; inside", "k=9", "unknown=2", "no sign", "[T]", "; other", "b=2"}},
    {"SameValueAgain", "[S]\r\nk=1\r\n", {{"S", "k", "1"}}, {{"S", "k", "1"}}, {"[S]", "k=1"}},
    {"DropsLeadingWhiteSpace",
     std::nullopt,
     {{"S", "k", " \t value"}},
     {{"S", "k", "value"}},
     {"k=value"}},
    {"KeepsWhiteSpaceInside", std::nullopt, {{"S", "k", "a  b"}}, {{"S", "k", "a  b"}}, {"k=a  b"}},
    {"WhiteSpaceAtTheEndIsLostOnReading",
     std::nullopt,
     {{"S", "k", "value  "}},
     {{"S", "k", "value"}},
     {}},
    {"BlankValue", std::nullopt, {{"S", "k", "   "}}, {{"S", "k", ""}}, {}},
    {"EmptyValue", "[S]\r\nk=1\r\n", {{"S", "k", ""}}, {{"S", "k", ""}}, {"k="}},
    {"QuotesAreLostOnReading", std::nullopt, {{"S", "k", "\"a\""}}, {{"S", "k", "a"}}, {"k=\"a\""}},
    {"BytesAboveAscii", std::nullopt, {{"S", "k", "A\xF1o"}}, {{"S", "k", "A\xF1o"}}, {"k=A\xF1o"}},
    {"EqualsSignInTheValue", std::nullopt, {{"S", "k", "a=b"}}, {{"S", "k", "a=b"}}, {"k=a=b"}},
    {"LongValueIsWrittenWhole",
     std::nullopt,
     {{"S", "k", std::string(300, 'x')}},
     {{"S", "k", std::string(254, 'x')}},
     {"k=" + std::string(300, 'x')}},
    {"OneAfterTheOther",
     std::nullopt,
     {{"S", "a", "1"}, {"T", "b", "2"}, {"S", "c", "3"}, {"S", "a", "4"}},
     {{"S", "a", "4"}, {"T", "b", "2"}, {"S", "c", "3"}},
     {"[S]", "a=4", "c=3", "[T]", "b=2"}},
    {"LineEndInAValueBeginsAnotherLine",
     std::nullopt,
     {{"S", "a", "1\r\nk=2"}, {"S", "k", "9"}},
     {{"S", "a", "1"}, {"S", "k", "9"}},
     {"[S]", "a=1", "k=9"}},
    {"LineFeedsOnly",
     "[S]\na=1\n[T]\nb=2\n",
     {{"S", "k", "9"}},
     {{"S", "a", "1"}, {"S", "k", "9"}, {"T", "b", "2"}},
     {"[S]", "a=1", "k=9", "[T]", "b=2"}},
    {"UnicodeFile",
     "\xEF\xBB\xBF[S]\r\na=A\xC3\xB1o\r\n",
     {{"S", "k", "\xF1"}},
     {{"S", "a", "A\xF1o"}, {"S", "k", "\xF1"}},
     {}},
};

class ProfileWrites : public testing::TestWithParam<std::tuple<SiteKind, WriteCase>> {};

TEST_P(ProfileWrites, ReadBackAndLeaveTheRest) {
  const auto& [kind, row] = GetParam();
  const auto site = test::MakeSite(kind);
  if (row.before) site->Put(kFile, *row.before);
  const auto file = site->platform().profiles.Open(site->Path(kFile));
  for (const Answer& write : row.writes) {
    EXPECT_TRUE(file->Write({write.section, write.key, write.value}));
  }
  const auto reopened = site->platform().profiles.Open(site->Path(kFile));
  for (const Answer& read : row.reads) {
    EXPECT_EQ(file->Read(read.section, read.key), read.value) << read.key;
    EXPECT_EQ(reopened->Read(read.section, read.key), read.value) << read.key << ", reopened";
  }
  // In between there may be more, but nothing of these is lost or moved.
  const auto lines = site->Lines(kFile);
  auto next = lines.begin();
  for (const std::string& line : row.lines) {
    next = std::find(next, lines.end(), line);
    ASSERT_NE(next, lines.end()) << line << " is not in its place among "
                                 << testing::PrintToString(lines);
    ++next;
  }
}

INSTANTIATE_TEST_SUITE_P(, ProfileWrites,
                         testing::Combine(testing::ValuesIn(test::kEverySite),
                                          testing::ValuesIn(kWrites)),
                         [](const auto& info) {
                           return test::SiteName(std::get<0>(info.param)) +
                                  std::get<1>(info.param).name;
                         });

class Profile : public testing::TestWithParam<SiteKind> {
 protected:
  std::unique_ptr<ProfileFile> Open(TextView name) {
    return site->platform().profiles.Open(site->Path(name));
  }

  std::unique_ptr<ProfileSite> site = test::MakeSite(GetParam());
};

TEST_P(Profile, MissingFileReadsEmptyAndIsNotMade) {
  EXPECT_EQ(Open(kFile)->Read("S", "k"), "");
  EXPECT_EQ(site->Bytes(kFile), std::nullopt);
}

TEST_P(Profile, OneLineOfTenMegabytes) {
  constexpr std::size_t kSize = 10'000'000;
  site->Put(kFile, "[S]\r\nk=" + std::string(kSize, 'x') + "\r\nl=1\r\n");
  EXPECT_EQ(Open(kFile)->Read("S", "k"), std::string(254, 'x'));
  EXPECT_EQ(Open(kFile)->Read("S", "l"), "1");
  site->Put(u"brackets", "[S]\r\n" + std::string(kSize, '[') + "\r\nl=1\r\n");
  EXPECT_EQ(Open(u"brackets")->Read("S", "l"), "1");
  site->Put(u"blanks", "[S]\r\n" + std::string(kSize, ' ') + "\r\nl=1\r\n");
  EXPECT_EQ(Open(u"blanks")->Read("S", "l"), "1");
}

TEST_P(Profile, AMegabyteOfLineEnds) {
  site->Put(kFile, std::string(1'000'000, '\n') + "[S]\nk=1");
  EXPECT_EQ(Open(kFile)->Read("S", "k"), "1");
}

TEST_P(Profile, ThousandsOfKeysAndSections) {
  std::string bytes;
  for (int i = 0; i < 3000; ++i) {
    bytes += "[S" + std::to_string(i) + "]\r\n";
    for (int k = 0; k < 10; ++k) {
      bytes += "k" + std::to_string(k) + "=" + std::to_string(i) + "\r\n";
    }
  }
  site->Put(kFile, bytes);
  const auto file = Open(kFile);
  EXPECT_EQ(file->Read("S0", "k0"), "0");
  EXPECT_EQ(file->Read("S2999", "k9"), "2999");
  EXPECT_EQ(file->Read("S3000", "k0"), "");
  EXPECT_TRUE(file->Write({"S1500", "k5", "new"}));
  EXPECT_TRUE(file->Write({"S1500", "k10", "added"}));
  EXPECT_EQ(file->Read("S1500", "k5"), "new");
  EXPECT_EQ(file->Read("S1500", "k10"), "added");
  EXPECT_EQ(file->Read("S1501", "k0"), "1501");
}

INSTANTIATE_TEST_SUITE_P(, Profile, testing::ValuesIn(test::kEverySite),
                         [](const auto& info) { return test::SiteName(info.param); });

}  // namespace
}  // namespace conmuta
