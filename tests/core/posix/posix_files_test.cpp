// What only this platform's file system has: rights, devices, names that are no text.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "config/clsCfgConmut.h"
#include "platform/platform.h"
#include "support/config_errors.h"
#include "support/full_config.h"
#include "support/temporary_folder.h"

namespace conmuta {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kWhole = 1 << 20;

// Root may write everything: does without that right for as long as it lives.
class WithoutPrivileges {
 public:
  WithoutPrivileges() {
    constexpr uid_t kNobody = 65534;
    if (user_ == 0 && seteuid(kNobody) != 0) ADD_FAILURE() << "root stays root";
  }
  ~WithoutPrivileges() {
    if (seteuid(user_) != 0) ADD_FAILURE() << "root does not come back";
  }
  WithoutPrivileges(const WithoutPrivileges&) = delete;
  WithoutPrivileges& operator=(const WithoutPrivileges&) = delete;

 private:
  const uid_t user_ = geteuid();
};

class PosixFiles : public testing::Test {
 protected:
  std::string BytesOf(const Text& path) {
    std::ifstream file(fs::path(path), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  }
  // A file that may be read but neither written nor removed.
  Text ProtectedFile() {
    const Text path = folder_.Path(u"a.cfg");
    std::ofstream(fs::path(path), std::ios::binary) << "old";
    chmod(fs::path(path).c_str(), 0444);
    folder_of_file_ = fs::path(path).parent_path();
    chmod(folder_of_file_.c_str(), 0555);
    return path;
  }
  ~PosixFiles() override {
    if (!folder_of_file_.empty()) chmod(folder_of_file_.c_str(), 0755);
  }

  test::TemporaryFolder folder_;
  fs::path folder_of_file_;
  FileSystem& files_ = SystemPlatform().files;
};

TEST_F(PosixFiles, HalfASurrogatePairNamesNoFile) {
  for (const Text& half : {Text{u'\xD83D'}, Text{u'\xDCDE'}, Text{u'\xD83D', u'x'}}) {
    const Text path = folder_.Path(u"a") + half;
    EXPECT_FALSE(files_.Write(path, "x"));
    EXPECT_FALSE(files_.Attributes(path));
    EXPECT_FALSE(files_.Read(path, kWhole));
    EXPECT_FALSE(files_.Remove(path));
  }
}

TEST_F(PosixFiles, ReadOnlyFileIsReadAndLeftAlone) {
  const Text path = ProtectedFile();
  {
    const WithoutPrivileges as_nobody;
    const auto attributes = files_.Attributes(path);
    ASSERT_TRUE(attributes);
    EXPECT_NE(*attributes & kAttributeArchive, 0u);
    EXPECT_TRUE(files_.Read(path, kWhole));
    EXPECT_FALSE(files_.Write(path, "new"));
  }
  EXPECT_EQ(BytesOf(path), "old");
}

TEST_F(PosixFiles, FullDiskLeavesNoHalfWrittenFile) {
  const fs::path full = "/dev/full";
  const Text path = folder_.Path(u"a.cfg");
  for (const std::size_t size : {1u, 100000u}) {  // fails on closing, fails on writing
    fs::create_symlink(full, fs::path(path));
    EXPECT_FALSE(files_.Write(path, std::string(size, 'x')));
    EXPECT_FALSE(fs::exists(fs::symlink_status(fs::path(path))));
  }
  EXPECT_TRUE(fs::exists(full));
}

TEST_F(PosixFiles, DeviceIsNoFileToRead) {
  EXPECT_FALSE(files_.Read(u"/dev/zero", kWhole));
}

TEST_F(PosixFiles, ConfigurationKeepsAFileThatCannotBeRemoved) {
  const Text path = ProtectedFile();
  clsCfgConmut config(SystemPlatform());
  test::Fill(config, test::SwitchFile());
  {
    const WithoutPrivileges as_nobody;
    EXPECT_THROW(config.GuardarComo(path), ConfigError);
  }
  EXPECT_EQ(BytesOf(path), "old");
  EXPECT_TRUE(config.Modificado());
}

}  // namespace
}  // namespace conmuta
