// The catalogue's folder: names, listing, and the copies that make the default switch.
#include "catalogue/switch_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/config_snapshot.h"
#include "support/failing_files.h"
#include "support/fake_files.h"

namespace conmuta {
namespace {

using test::FakeFiles;
using testing::ElementsAre;

class Folder : public testing::Test {
 protected:
  void Put(TextView path, const std::string& bytes, std::uint32_t attributes = kAttributeArchive) {
    files.entries[Text(path)] = {bytes, attributes};
  }
  std::string BytesOf(TextView path) const {
    const auto found = files.entries.find(Text(path));
    return found != files.entries.end() ? found->second.bytes : "(no file)";
  }

  FakeFiles files;
  const SwitchFolder folder{u"C:\\cat\\", u"cnm", u"cfg", u"C:\\app\\actual.cfg"};
};

TEST_F(Folder, DirectoryEndsWithABackslash) {
  EXPECT_EQ(SwitchFolder::WithBackslash(u"C:\\cat"), u"C:\\cat\\");
  EXPECT_EQ(SwitchFolder::WithBackslash(u"C:\\cat\\"), u"C:\\cat\\");
  EXPECT_EQ(SwitchFolder::WithBackslash(u""), u"\\");
}

TEST_F(Folder, FilesAreNamedByTheirNumbers) {
  EXPECT_EQ(folder.FileOf(12), u"C:\\cat\\cnm12.cfg");
  EXPECT_EQ(folder.FileOf(-1), u"C:\\cat\\cnm-1.cfg");
  EXPECT_EQ(folder.TemporaryFile(), u"C:\\cat\\cfg.tmp");
}

TEST_F(Folder, NumberStandsBetweenPrefixAndExtension) {
  const struct {
    TextView name;
    std::optional<std::int32_t> number;
  } rows[] = {{u"cnm12.cfg", 12},
              {u"cnm0003.cfg", 3},
              {u"cnm-4.cfg", -4},
              {u"cnm2147483647.cfg", 2147483647},
              {u"cnm2147483648.cfg", std::nullopt},
              {u"cnmA1.cfg", std::nullopt},
              {u"cnm.cfg", std::nullopt},
              {u"cnm", std::nullopt},
              {u"", std::nullopt}};
  for (const auto& row : rows) EXPECT_EQ(folder.NumberOf(row.name), row.number);
}

TEST_F(Folder, ListsNumberedFilesThatHaveTheArchiveAttribute) {
  Put(u"C:\\cat\\cnm12.cfg", "a");
  Put(u"C:\\cat\\cnm7.cfg", "b", 0);
  Put(u"C:\\cat\\cnmA1.cfg", "c");
  Put(u"C:\\cat\\cnm0003.cfg", "d");
  Put(u"C:\\cat\\otro5.cfg", "e");
  std::vector<std::string> listed;
  for (const SwitchFolder::Entry& entry : folder.Scan(files)) {
    listed.push_back(std::to_string(entry.number) + " " + test::Shown(entry.path));
  }
  EXPECT_THAT(listed,
              testing::UnorderedElementsAre("12 C:\\cat\\cnm12.cfg", "3 C:\\cat\\cnm0003.cfg"));
}

TEST_F(Folder, TemporaryCopyIsReplaced) {
  Put(u"D:\\new.cfg", "new");
  Put(folder.TemporaryFile(), "old");
  EXPECT_TRUE(folder.CopyToTemporary(files, u"D:\\new.cfg"));
  EXPECT_EQ(BytesOf(folder.TemporaryFile()), "new");
  files.fail_copy = true;
  EXPECT_FALSE(folder.CopyToTemporary(files, u"D:\\new.cfg"));
}

TEST_F(Folder, DefaultSwitchIsReplaced) {
  Put(folder.FileOf(1), "one");
  folder.Install(files, folder.FileOf(1));
  EXPECT_EQ(BytesOf(folder.installed_file), "one");
  Put(folder.FileOf(2), "two");
  folder.Install(files, folder.FileOf(2));
  EXPECT_EQ(BytesOf(folder.installed_file), "two");
}

TEST_F(Folder, DefaultSwitchFollowsOnlyWhereItCanBeDeleted) {
  Put(folder.FileOf(1), "new");
  Put(folder.installed_file, "old");
  files.fail_remove = true;
  folder.UpdateInstalled(files, folder.FileOf(1));
  EXPECT_EQ(BytesOf(folder.installed_file), "old");
  files.fail_remove = false;
  folder.UpdateInstalled(files, folder.FileOf(1));
  EXPECT_EQ(BytesOf(folder.installed_file), "new");
}

// The default switch may be one of the catalogue's own files.
TEST_F(Folder, DefaultSwitchIsNeverDeletedForItself) {
  SwitchFolder same = folder;
  same.installed_file = u"c:\\CAT\\CNM1.cfg";
  Put(same.FileOf(1), "written anew");
  EXPECT_TRUE(same.IsInstalledFile(same.FileOf(1)));
  same.UpdateInstalled(files, same.FileOf(1));
  EXPECT_EQ(BytesOf(same.FileOf(1)), "written anew");
}

}  // namespace
}  // namespace conmuta
