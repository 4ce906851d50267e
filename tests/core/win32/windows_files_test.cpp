// What only this platform's file system has: attributes, sharing, long names, its words for errors.
#include <windows.h>

#include <gtest/gtest.h>

#include "config/clsCfgConmut.h"
#include "platform/platform.h"
#include "support/config_errors.h"
#include "support/full_config.h"
#include "support/temporary_folder.h"

namespace conmuta {
namespace {

constexpr std::size_t kWhole = 1 << 20;

class WindowsFiles : public testing::Test {
 protected:
  static const wchar_t* Wide(const Text& path) {
    return reinterpret_cast<const wchar_t*>(path.c_str());
  }
  std::string BytesOf(const Text& path) {
    const auto content = files_.Read(path, kWhole);
    return content ? content->bytes : "(no file)";
  }
  bool IsReadOnly(const Text& path) {
    return (files_.Attributes(path).value_or(0) & kAttributeReadOnly) != 0;
  }

  test::TemporaryFolder folder_;
  const Text path_ = folder_.Path(u"a.cfg");
  FileSystem& files_ = SystemPlatform().files;
};

TEST_F(WindowsFiles, CopyOfAReadOnlyFileCanBeWritten) {
  ASSERT_TRUE(files_.Write(path_, "x"));
  ASSERT_TRUE(SetFileAttributesW(Wide(path_), FILE_ATTRIBUTE_READONLY));
  const Text copy = folder_.Path(u"b.cfg");
  EXPECT_TRUE(files_.Copy(path_, copy));
  EXPECT_TRUE(IsReadOnly(path_));
  EXPECT_FALSE(IsReadOnly(copy));
  EXPECT_TRUE(files_.Write(copy, "y"));
  SetFileAttributesW(Wide(path_), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(WindowsFiles, ReadOnlyFileIsReadAndNotRemoved) {
  ASSERT_TRUE(files_.Write(path_, "old"));
  ASSERT_TRUE(SetFileAttributesW(Wide(path_), FILE_ATTRIBUTE_READONLY));
  EXPECT_FALSE(files_.Remove(path_));
  EXPECT_EQ(BytesOf(path_), "old");
  SetFileAttributesW(Wide(path_), FILE_ATTRIBUTE_NORMAL);
}

// A file that another program has for itself.
TEST_F(WindowsFiles, FileThatIsOpenElsewhereIsLeftAlone) {
  ASSERT_TRUE(files_.Write(path_, "old"));
  const HANDLE other =
      CreateFileW(Wide(path_), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
  ASSERT_NE(other, INVALID_HANDLE_VALUE);
  EXPECT_FALSE(files_.Exists(path_));
  EXPECT_FALSE(files_.Write(path_, "new"));
  EXPECT_FALSE(files_.Remove(path_));
  EXPECT_FALSE(files_.Copy(path_, folder_.Path(u"b.cfg")));
  clsCfgConmut config(SystemPlatform());
  test::Fill(config, test::SwitchFile());
  EXPECT_THROW(config.GuardarComo(path_), ConfigError);
  EXPECT_THROW(config.Abrir(path_), ConfigError);
  EXPECT_TRUE(config.Modificado());
  CloseHandle(other);
  EXPECT_EQ(BytesOf(path_), "old");
}

TEST_F(WindowsFiles, NameBeyondTheUsualLengthIsAName) {
  const Text folder = Text(u"\\\\?\\") + folder_.Path(Text(200, u'd'));
  ASSERT_TRUE(CreateDirectoryW(Wide(folder), nullptr));
  const Text path = folder + u"\\" + Text(200, u'f');
  EXPECT_TRUE(files_.Write(path, "x"));
  EXPECT_EQ(BytesOf(path), "x");
  EXPECT_TRUE(files_.Copy(path, path + u"2"));
  EXPECT_TRUE(files_.Remove(path + u"2"));
  EXPECT_TRUE(files_.Remove(path));
  RemoveDirectoryW(Wide(folder));
}

TEST_F(WindowsFiles, NameLongerThanAnyIsNone) {
  for (const std::size_t length : {32767u, 32768u, 40000u, 100000u}) {
    const Text path = Text(u"\\\\?\\") + Text(length - 4, u'x');
    EXPECT_FALSE(files_.Write(path, "x"));
    EXPECT_FALSE(files_.Attributes(path));
    EXPECT_FALSE(files_.Read(path, kWhole));
    EXPECT_FALSE(files_.Remove(path));
    EXPECT_FALSE(files_.Copy(path, path));
  }
}

// Message boxes show it at the end of a line.
TEST_F(WindowsFiles, WordsForAnErrorEndWithTheLastOfThem) {
  for (const DWORD error : {ERROR_FILE_NOT_FOUND, ERROR_ACCESS_DENIED, ERROR_SHARING_VIOLATION}) {
    SetLastError(error);
    const Text words = files_.LastError();
    ASSERT_FALSE(words.empty());
    EXPECT_GT(words.back(), u' ');
  }
}

}  // namespace
}  // namespace conmuta
