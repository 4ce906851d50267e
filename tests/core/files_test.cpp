// The file system of the machine, in a temporary folder.
#include "platform/files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>

#include "config/clsCfgConmut.h"
#include "platform/platform.h"
#include "support/config_errors.h"
#include "support/config_snapshot.h"
#include "support/full_config.h"
#include "support/temporary_folder.h"

namespace conmuta {
namespace {

using namespace std::string_literals;
namespace fs = std::filesystem;

constexpr std::size_t kAll = 1 << 20;

class Files : public testing::Test {
 protected:
  // Behind the back of the code under test.
  std::string BytesOf(const Text& path) {
    std::ifstream file(fs::path(path), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  }
  void Put(const Text& path, const std::string& bytes) {
    std::ofstream(fs::path(path), std::ios::binary) << bytes;
  }
  test::TemporaryFolder folder_;
  FileSystem& files_ = SystemPlatform().files;
};

TEST_F(Files, WrittenBytesReadBack) {
  const Text path = folder_.Path(u"a.cfg");
  std::string bytes;
  for (int i = 0; i < 70000; ++i) bytes.push_back(static_cast<char>(i));  // all, "\r\n\x1A\0" too
  EXPECT_TRUE(files_.Write(path, bytes));
  EXPECT_EQ(BytesOf(path), bytes);
  const auto content = files_.Read(path, kAll);
  ASSERT_TRUE(content);
  EXPECT_EQ(content->size, bytes.size());
  EXPECT_EQ(content->bytes, bytes);
}

TEST_F(Files, NamesThatMatchAreListed) {
  for (const TextView name : {u"cnm1.cfg", u"cnm22.cfg", u"cnm.cfg", u"xcnm1.cfg", u"cnm1.txt"}) {
    Put(folder_.Path(name), "");
  }
  const auto listed = [&](TextView pattern) {
    std::vector<Text> names = files_.List(folder_.Path(pattern));
    std::sort(names.begin(), names.end());
    return names;
  };
  EXPECT_EQ(listed(u"cnm*.cfg"), (std::vector<Text>{u"cnm.cfg", u"cnm1.cfg", u"cnm22.cfg"}));
  EXPECT_EQ(listed(u"cnm1*1.cfg"), std::vector<Text>()) << "one letter is not two";
  EXPECT_EQ(listed(u"cnm1.cfg"), std::vector<Text>{u"cnm1.cfg"});
  EXPECT_EQ(files_.List(folder_.Path(u"none") + u"/*"), std::vector<Text>()) << "no such folder";
}

TEST_F(Files, ReadingStopsAtTheLimit) {
  const Text path = folder_.Path(u"a.cfg");
  Put(path, "0123456789");
  for (const std::size_t limit : {0u, 1u, 9u, 10u, 11u}) {
    const auto content = files_.Read(path, limit);
    ASSERT_TRUE(content);
    EXPECT_EQ(content->size, 10u);
    EXPECT_EQ(content->bytes, std::string("0123456789").substr(0, limit));
  }
}

TEST_F(Files, EmptyFileReads) {
  const Text path = folder_.Path(u"a.cfg");
  EXPECT_TRUE(files_.Write(path, ""));
  const auto content = files_.Read(path, kAll);
  ASSERT_TRUE(content);
  EXPECT_EQ(content->size, 0u);
  EXPECT_EQ(content->bytes, "");
}

TEST_F(Files, WritingReplacesALongerFile) {
  const Text path = folder_.Path(u"a.cfg");
  Put(path, std::string(1000, 'x'));
  EXPECT_TRUE(files_.Write(path, "short"));
  EXPECT_EQ(BytesOf(path), "short");
}

TEST_F(Files, WrittenFileHasTheArchiveAttribute) {
  const Text path = folder_.Path(u"a.cfg");
  ASSERT_TRUE(files_.Write(path, "x"));
  const auto attributes = files_.Attributes(path);
  ASSERT_TRUE(attributes);
  EXPECT_EQ(*attributes & (kAttributeArchive | kAttributeDirectory | kAttributeReadOnly),
            kAttributeArchive);
}

TEST_F(Files, FolderIsADirectoryAndNoFile) {
  const Text path = folder_.Path(u"dir");
  fs::create_directory(fs::path(path));
  const auto attributes = files_.Attributes(path);
  ASSERT_TRUE(attributes);
  EXPECT_NE(*attributes & kAttributeDirectory, 0u);
  EXPECT_FALSE(files_.Read(path, kAll));
  EXPECT_FALSE(files_.Write(path, "x"));
  EXPECT_FALSE(files_.Remove(path));
  EXPECT_TRUE(fs::is_directory(fs::path(path)));
}

TEST_F(Files, NothingIsThere) {
  for (const Text& path : {folder_.Path(u"none.cfg"), folder_.Path(u"none/none.cfg"), u""s}) {
    EXPECT_FALSE(files_.Attributes(path));
    EXPECT_FALSE(files_.Read(path, kAll));
    EXPECT_FALSE(files_.Remove(path));
  }
  EXPECT_FALSE(files_.Write(folder_.Path(u"none/none.cfg"), "x"));
  EXPECT_FALSE(files_.Write(u"", "x"));
}

TEST_F(Files, RemovedFileIsGone) {
  const Text path = folder_.Path(u"a.cfg");
  Put(path, "x");
  EXPECT_TRUE(files_.Remove(path));
  EXPECT_FALSE(fs::exists(fs::path(path)));
  EXPECT_FALSE(files_.Remove(path));
}

TEST_F(Files, NamesMayHoldAnyLetter) {
  for (const TextView name : {u"\u00F1and\u00FA \u00BF.cfg", u"\u4E2D\u6587.cfg", u"\U0001F4DE.cfg",
                              u"\u07FF\u0800\uFFFD.cfg", u" a b .cfg"}) {
    const Text path = folder_.Path(name);
    SCOPED_TRACE(test::Shown(name));
    EXPECT_TRUE(files_.Write(path, "x"));
    EXPECT_TRUE(fs::exists(fs::path(path)));
    EXPECT_TRUE(files_.Attributes(path));
    EXPECT_TRUE(files_.Read(path, kAll));
    EXPECT_TRUE(files_.Remove(path));
  }
}

TEST_F(Files, NulInAPathNamesNoFile) {
  Put(folder_.Path(u"a"), "x");
  const Text path = folder_.Path(u"a") + u"\0.cfg"s;
  EXPECT_FALSE(files_.Attributes(path));
  EXPECT_FALSE(files_.Read(path, kAll));
  EXPECT_FALSE(files_.Write(path, "y"));
  EXPECT_FALSE(files_.Remove(path));
  EXPECT_EQ(BytesOf(folder_.Path(u"a")), "x");
}

TEST_F(Files, ConfigurationSurvivesTheRealDisk) {
  clsCfgConmut saved(SystemPlatform());
  test::SwitchFile file = test::FullFile();
  file.brand = "ACME";  // the same bytes in every code page
  file.model = "X1";
  file.comments = "text";
  file.separator = "\r\n";
  test::Fill(saved, file);
  const Text path = folder_.Path(u"\u00F1 1.cfg");
  saved.GuardarComo(path);
  EXPECT_EQ(BytesOf(path), file.Bytes());
  clsCfgConmut opened(SystemPlatform());
  opened.Abrir(path);
  EXPECT_EQ(test::Snapshot::OfContent(opened), test::Snapshot::OfContent(saved));
  saved.GuardarComo(path);  // over the old one
  EXPECT_EQ(BytesOf(path), file.Bytes());
}

TEST_F(Files, ConfigurationReportsARealFailure) {
  clsCfgConmut config(SystemPlatform());
  test::Fill(config, test::SwitchFile());
  const Text path = folder_.Path(u"none/a.cfg");
  test::ExpectConfigError([&] { config.GuardarComo(path); }, 0x800405DC,
                          u"clsConfigConmut.GuardarComo",
                          u"No es posible acceder al archivo o el nombre del archivo no es "
                          u"v\u00E1lido.");
  test::ExpectConfigError([&] { config.Abrir(path); }, 0x800405DD, u"clsConfigConmut.Abrir",
                          u"No es posible encontrar el archivo deseado.\r\n Archivo :" + path);
}

}  // namespace
}  // namespace conmuta
