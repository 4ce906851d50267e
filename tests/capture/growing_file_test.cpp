// A file that grows, is renamed, cut short or written anew.
#include "capture/growing_file.h"

#include <gtest/gtest.h>

#include <fstream>
#include <vector>

#include "support/temporary_folder.h"

namespace conmuta::capture {
namespace {

class GrowingFileTest : public ::testing::Test {
 protected:
  void Append(const std::string& bytes) {
    std::ofstream(path_, std::ios::binary | std::ios::app) << bytes;
  }
  void Write(const std::string& bytes) { std::ofstream(path_, std::ios::binary) << bytes; }
  GrowingFile Open() { return GrowingFile(path_, place_, '\n', 1000); }
  std::vector<std::string> Lines(GrowingFile& file) {
    std::vector<std::string> lines;
    while (file.Poll([&](std::string line, Wholeness wholeness, std::string place) {
      if (wholeness == Wholeness::kTorn) line += "~";
      if (wholeness == Wholeness::kHead) line += " (head)";
      lines.push_back(std::move(line));
      place_ = std::move(place);
    })) {
    }
    return lines;
  }
  using Texts = std::vector<std::string>;

  test::TemporaryFolder folder_;
  std::filesystem::path path_ = folder_.path() / "smdr.txt";
  std::string place_;
};

TEST_F(GrowingFileTest, GivesWholeLinesAsTheyCome) {
  GrowingFile file = Open();
  EXPECT_EQ(Lines(file), Texts());
  Append("uno\nd");
  EXPECT_EQ(Lines(file), Texts{"uno"});
  Append("os\ntres\n");
  EXPECT_EQ(Lines(file), (Texts{"dos", "tres"}));
}

TEST_F(GrowingFileTest, GoesOnBehindTheLastWholeLineAfterARestart) {
  Append("uno\ndos\ntr");
  {
    GrowingFile file = Open();
    EXPECT_EQ(Lines(file), (Texts{"uno", "dos"}));
  }
  Append("es\n");
  GrowingFile file = Open();
  EXPECT_EQ(Lines(file), Texts{"tres"});
}

TEST_F(GrowingFileTest, OneThatIsReplacedWhileItIsEmptyIsReadOn) {
  Append("");
  GrowingFile file = Open();
  EXPECT_EQ(Lines(file), Texts());
  std::filesystem::rename(path_, folder_.path() / "yesterday.txt");
  Append("uno\n");
  EXPECT_EQ(Lines(file), Texts{"uno"});
}

TEST_F(GrowingFileTest, FileThatWasRenamedIsReadToItsEndFirst) {
  Append("uno\n");
  GrowingFile file = Open();
  EXPECT_EQ(Lines(file), Texts{"uno"});
  Append("dos\nmedia");
  std::filesystem::rename(path_, folder_.path() / "smdr.1");
  Append("otra\n");
  EXPECT_EQ(Lines(file), (Texts{"dos", "media~", "otra"}));
}

TEST_F(GrowingFileTest, FileThatWasCutShortIsReadFromItsBeginning) {
  Append("uno\ndos\n");
  GrowingFile file = Open();
  EXPECT_EQ(Lines(file), (Texts{"uno", "dos"}));
  Write("a\n");
  EXPECT_EQ(Lines(file), Texts{"a"});
}

TEST_F(GrowingFileTest, FileThatWasWrittenAnewWhileNobodyLookedIsReadFromItsBeginning) {
  Append("uno\ndos\n");
  {
    GrowingFile file = Open();
    Lines(file);
  }
  Write("tres\ncuatro\ncinco\n");
  GrowingFile file = Open();
  EXPECT_EQ(Lines(file), (Texts{"tres", "cuatro", "cinco"}));
}

TEST_F(GrowingFileTest, LinesThatTellOfACaptureAreNoneOfThePbx) {
  Append("\xEF\xBB\xBF# fecha: 2019-01-16\n# trama: 8N1\nuno\n# dos\n");
  GrowingFile file = Open();
  EXPECT_EQ(Lines(file),
            (Texts{"# fecha: 2019-01-16 (head)", "# trama: 8N1 (head)", "uno", "# dos"}));
  Write("\xEF\xBB\xBFuno\n\xEF\xBB\xBF\n");
  EXPECT_EQ(Lines(file), (Texts{"uno", "\xEF\xBB\xBF"}));
  Write("# a\n#b\n");
  EXPECT_EQ(Lines(file), (Texts{"# a (head)", "#b"}));
}

TEST_F(GrowingFileTest, HeadGoesOnAfterARestartWithinItAndNotBehindIt) {
  Append("\xEF\xBB\xBF# a\n# b");
  {
    GrowingFile file = Open();
    Lines(file);
  }
  Append("\nuno\n");
  {
    GrowingFile file = Open();
    EXPECT_EQ(Lines(file), (Texts{"# b (head)", "uno"}));
  }
  Append("# dos\n");
  GrowingFile file = Open();
  EXPECT_EQ(Lines(file), Texts{"# dos"});
}

TEST_F(GrowingFileTest, LastLineMayLackItsEndWhereTheFileDoesNotGrow) {
  Append("uno\ndos");
  GrowingFile file = Open();
  Lines(file);
  Texts rest;
  file.TakeRest([&](std::string line, Wholeness wholeness, const std::string&) {
    EXPECT_EQ(wholeness, Wholeness::kWhole);
    rest.push_back(std::move(line));
  });
  EXPECT_EQ(rest, Texts{"dos"});
}

}  // namespace
}  // namespace conmuta::capture
