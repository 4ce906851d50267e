#include <gtest/gtest.h>

#include <fstream>

#include "support/source_files.h"
#include "support/temporary_folder.h"
#include "taller/autosave.h"
#include "taller/changes.h"
#include "taller/map_disk.h"
#include "taller/recent_files.h"

namespace conmuta::taller {
namespace {

namespace fs = std::filesystem;

using test::Model;

TEST(SystemDisk, WhatCannotBeWrittenLeavesTheFileThatIsThere) {
  const test::TemporaryFolder folder;
  const fs::path path = folder.path() / "a.cfg";
  SystemDisk disk;
  disk.Write(path, "uno");
  fs::create_directories(folder.path() / "a.cfg.nuevo" / "lleno");  // where it is written first
  EXPECT_THROW(disk.Write(path, "dos"), host::UserError);
  EXPECT_EQ(disk.Read(path), "uno");
}

TEST(SystemDisk, ReplacesAFileAndLeavesNothingBesideIt) {
  const test::TemporaryFolder folder;
  SystemDisk disk;
  disk.Write(folder.path() / "a", "uno, y algo más");
  disk.Write(folder.path() / "a", "dos");
  EXPECT_EQ(disk.Read(folder.path() / "a"), "dos");
  EXPECT_EQ(test::Entries(folder.path()).size(), 1u);
}

TEST(SystemDisk, AFolderIsNoFile) {
  const test::TemporaryFolder folder;
  SystemDisk disk;
  EXPECT_THROW(disk.Write(folder.path(), "x"), host::UserError);
  EXPECT_THROW(disk.Read(folder.path()), host::UserError);
  EXPECT_NO_THROW(disk.Remove(folder.path() / "nada"));
}

class AutosaveTest : public testing::Test {
 protected:
  // A session that ends without a word, having changed what the file says.
  void CrashAfter(TextView model, bool has_file) {
    Document document;
    if (has_file) {
      ASSERT_EQ(document.Open(disk_, "l.toml"), Messages());
    }
    Autosave autosave(disk_, "datos");
    ASSERT_EQ(document.Apply(Model(model)), Messages());
    ASSERT_EQ(autosave.Keep(document), Messages());
  }

  test::MapDisk disk_ = [] {
    test::MapDisk disk;
    disk.files["l.toml"] = Document().toml();
    return disk;
  }();
};

TEST_F(AutosaveTest, ACrashComesBackWithTheChangesAndTheFileIsAsItWas) {
  const std::string before = disk_.files["l.toml"];
  CrashAfter(u"perdido", true);
  EXPECT_EQ(disk_.files["l.toml"], before);

  Document document;
  ASSERT_EQ(document.Open(disk_, "l.toml"), Messages());
  Autosave autosave(disk_, "datos");
  ASSERT_TRUE(autosave.HasCopyOf("l.toml"));
  ASSERT_EQ(autosave.Restore(document), Messages());
  EXPECT_EQ(document.layout().header.Modelo.Read(), u"perdido");
  EXPECT_TRUE(document.IsModified());
  document.Undo();
  EXPECT_EQ(document.toml(), before);
}

TEST_F(AutosaveTest, ADocumentWithoutAFileIsKeptInTheProgramsFolder) {
  CrashAfter(u"nuevo", false);
  Autosave autosave(disk_, "datos");
  EXPECT_TRUE(autosave.HasCopyOf({}));
  EXPECT_FALSE(autosave.HasCopyOf("l.toml"));
  Document document;
  EXPECT_EQ(autosave.Restore(document), Messages());
  EXPECT_EQ(document.layout().header.Modelo.Read(), u"nuevo");
}

TEST_F(AutosaveTest, TheCopyGoesWithTheNeedForIt) {
  Document document;
  Autosave autosave(disk_, "datos");
  ASSERT_EQ(document.Apply(Model(u"a")), Messages());
  ASSERT_EQ(autosave.Keep(document), Messages());
  EXPECT_TRUE(autosave.HasCopyOf({}));
  ASSERT_EQ(document.SaveAs(disk_, "b.toml", Format::kLayout), Messages());
  ASSERT_EQ(autosave.Keep(document), Messages());
  EXPECT_FALSE(autosave.HasCopyOf({})) << "saved under a name";
  ASSERT_EQ(document.Apply(Model(u"b")), Messages());
  ASSERT_EQ(autosave.Keep(document), Messages());
  EXPECT_TRUE(autosave.HasCopyOf("b.toml"));
  document.Undo();
  ASSERT_EQ(autosave.Keep(document), Messages());
  EXPECT_FALSE(autosave.HasCopyOf("b.toml")) << "undone";
  ASSERT_EQ(document.Apply(Model(u"c")), Messages());
  ASSERT_EQ(autosave.Keep(document), Messages());
  autosave.Discard("b.toml");
  EXPECT_FALSE(autosave.HasCopyOf("b.toml")) << "not wanted";
}

TEST_F(AutosaveTest, LeavesTheCopyOfAnotherWindowAlone) {
  Document document;
  Autosave autosave(disk_, "datos");
  ASSERT_EQ(document.Apply(Model(u"a")), Messages());
  ASSERT_EQ(autosave.Keep(document), Messages());
  Autosave other(disk_, "datos");
  other.Discard({});
  EXPECT_TRUE(autosave.HasCopyOf({}));
}

TEST_F(AutosaveTest, WritesOnlyWhatIsNew) {
  Document document;
  Autosave autosave(disk_, "datos");
  EXPECT_EQ(autosave.Keep(document), Messages());
  ASSERT_EQ(document.Apply(Model(u"a")), Messages());
  for (int i = 0; i < 3; ++i) EXPECT_EQ(autosave.Keep(document), Messages());
  EXPECT_EQ(disk_.writes, 1);
  ASSERT_EQ(document.Apply(Model(u"b")), Messages());
  EXPECT_EQ(autosave.Keep(document), Messages());
  EXPECT_EQ(disk_.writes, 2);
}

TEST_F(AutosaveTest, ADiskThatFailsIsSaidAndTriedAgain) {
  Document document;
  Autosave autosave(disk_, "datos");
  ASSERT_EQ(document.Apply(Model(u"a")), Messages());
  disk_.fails = true;
  EXPECT_EQ(autosave.Keep(document).size(), 1u);
  disk_.fails = false;
  EXPECT_EQ(autosave.Keep(document), Messages());
  EXPECT_TRUE(autosave.HasCopyOf({}));
}

TEST(RecentFiles, TheLatestIsFirstAndNoneIsTwice) {
  test::MapDisk disk;
  RecentFiles files(disk, "recientes");
  for (const char* name : {"a", "b", "a"}) files.Add(name);
  EXPECT_EQ(files.paths(), (std::vector<fs::path>{"a", "b"}));
  EXPECT_EQ(RecentFiles(disk, "recientes").paths(), files.paths());
  files.Remove("a");
  EXPECT_EQ(RecentFiles(disk, "recientes").paths(), (std::vector<fs::path>{"b"}));
}

TEST(RecentFiles, OnlySoManyAreKept) {
  test::MapDisk disk;
  RecentFiles files(disk, "recientes");
  for (int i = 0; i < 20; ++i) files.Add(fs::path(u"ñ" + ToText(i)));
  ASSERT_EQ(files.paths().size(), RecentFiles::kMost);
  EXPECT_EQ(files.paths()[0], fs::path(u"ñ19"));
  EXPECT_EQ(RecentFiles(disk, "recientes").paths(), files.paths());
}

TEST(RecentFiles, AListThatCannotBeKeptStopsNobody) {
  test::MapDisk disk;
  disk.fails = true;
  RecentFiles files(disk, "recientes");
  files.Add("a");
  EXPECT_EQ(files.paths().size(), 1u);
}

}  // namespace
}  // namespace conmuta::taller
