// Which file a path means to the machine's profile files, and when it cannot be written.
#include <gtest/gtest.h>

#include <filesystem>

#include "platform/platform.h"
#include "platform/text_profile.h"
#include "support/fake_code_pages.h"
#include "support/fake_files.h"
#include "support/temporary_folder.h"

namespace conmuta {
namespace {

using namespace std::string_literals;
namespace fs = std::filesystem;

class MachineProfiles : public testing::Test {
 protected:
  static bool Write(TextView path) {
    return SystemPlatform().profiles.Open(path)->Write({"S", "k", "1"});
  }
  static std::string Read(TextView path) {
    return SystemPlatform().profiles.Open(path)->Read("S", "k");
  }

  test::TemporaryFolder folder;
};

TEST_F(MachineProfiles, NewFileLiesWhereThePathSays) {
  EXPECT_TRUE(Write(folder.Path(u"new.ini")));
  EXPECT_TRUE(fs::exists(folder.path() / "new.ini"));
  EXPECT_EQ(Read(folder.Path(u"new.ini")), "1");
}

TEST_F(MachineProfiles, NameOfTheFileMayHaveBlanksAndAccents) {
  EXPECT_TRUE(Write(folder.Path(u"Central del a\u00F1o.ini")));
  EXPECT_TRUE(fs::exists(folder.path() / u"Central del a\u00F1o.ini"));
  EXPECT_EQ(Read(folder.Path(u"Central del a\u00F1o.ini")), "1");
}

TEST_F(MachineProfiles, FolderIsNoFile) {
  EXPECT_FALSE(Write(Text(folder.path().u16string())));
  EXPECT_EQ(Read(Text(folder.path().u16string())), "");
  EXPECT_TRUE(fs::is_directory(folder.path()));
}

TEST_F(MachineProfiles, FileInAMissingFolderIsNotWritten) {
  EXPECT_FALSE(Write(folder.Path(u"missing/new.ini")));
  EXPECT_EQ(Read(folder.Path(u"missing/new.ini")), "");
  EXPECT_FALSE(fs::exists(folder.path() / "missing"));
}

TEST_F(MachineProfiles, PathThatNamesNoFile) {
  for (const Text& path : {u""s, Text(folder.Path(u"a") + kNul + u"b")}) {
    EXPECT_FALSE(Write(path));
    EXPECT_EQ(Read(path), "");
  }
  EXPECT_TRUE(fs::is_empty(folder.path()));
}

// Over files that fail on demand.
class TextProfile : public testing::Test {
 protected:
  bool Write(TextView value = u"1") {
    return profiles.Open(u"f")->Write({"S", "k", code_page.ToBytes(value)});
  }

  test::FakeFiles files;
  test::Latin1 code_page;
  TextProfiles profiles{files, code_page};
};

TEST_F(TextProfile, ReadOnlyFileIsReadButNotWritten) {
  files.entries[u"f"] = {"[S]\r\nk=0\r\n", kAttributeReadOnly};
  EXPECT_EQ(profiles.Open(u"f")->Read("S", "k"), "0");
  EXPECT_FALSE(Write());
  EXPECT_EQ(files.entries[u"f"].bytes, "[S]\r\nk=0\r\n");
}

TEST_F(TextProfile, FullDiskFailsTheWrite) {
  files.room = 5;
  EXPECT_FALSE(Write());
}

TEST_F(TextProfile, FileThatCannotBeReadIsNotReplaced) {
  files.entries[u"f"] = {"[S]\r\nother=0\r\n"};
  files.fail_read = true;
  EXPECT_FALSE(Write());
  EXPECT_EQ(files.entries[u"f"].bytes, "[S]\r\nother=0\r\n");
}

TEST_F(TextProfile, FileIsReadOnceForAnyNumberOfValues) {
  files.entries[u"f"] = {"[S]\r\nk=0\r\n"};
  const auto file = profiles.Open(u"f");
  EXPECT_TRUE(files.operations.empty());
  for (int i = 0; i < 10; ++i) file->Read("S", "k");
  EXPECT_TRUE(file->Write({"S", "k", "1"}));
  EXPECT_EQ(files.operations, (std::vector<std::string>{"read", "write"}));
}

}  // namespace
}  // namespace conmuta
