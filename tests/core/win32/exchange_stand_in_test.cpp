// A path that the profile functions cannot name goes through a file that they can, among the
// temporary ones.
#include <windows.h>

#include <gtest/gtest.h>

#include <array>
#include <filesystem>

#include "support/config_errors.h"
#include "support/exchange_bench.h"

namespace conmuta {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;

constexpr TextView kUnnameable = u"\u0421\u0432\u044F\u0437\u044C \u96FB\u8A71.ini";

// With a folder of its own for temporary files.
class StandIn : public testing::Test, protected test::ExchangeBench {
 protected:
  StandIn() : ExchangeBench(test::SiteKind::kDisk) {
    GetEnvironmentVariableW(L"TMP", tmp_.data(), static_cast<DWORD>(tmp_.size()));
    SetTemporaryFolder(temporary.path());
    Name();
  }
  ~StandIn() override { SetEnvironmentVariableW(L"TMP", tmp_.data()); }

  static void SetTemporaryFolder(const fs::path& path) {
    SetEnvironmentVariableW(L"TMP", path.c_str());
  }
  Text Target() const { return site->Path(kUnnameable); }

  test::TemporaryFolder temporary;

 private:
  std::array<wchar_t, MAX_PATH + 1> tmp_{};
};

TEST_F(StandIn, LeavesNoFileBehind) {
  config.Exportar(Target());
  config.Importar(Target());
  EXPECT_TRUE(fs::is_empty(temporary.path()));
}

TEST_F(StandIn, MayLieInAFolderThatCannotBeNamedEither) {
  const fs::path folder = temporary.path() / fs::path(std::u16string(kUnnameable));
  fs::create_directory(folder);
  SetTemporaryFolder(folder);
  config.Exportar(Target());
  config.Importar(Target());
  EXPECT_EQ(config.NombreConmutador(), u"ACME, X1");
  EXPECT_TRUE(fs::is_empty(folder));
}

TEST_F(StandIn, ReplacesAFileWithAllItsKeys) {
  site->Put(kUnnameable, "[Stale]\r\na=1\r\n");
  config.Exportar(Target());
  EXPECT_EQ(site->Lines(kUnnameable).front(), "[Conmutador]");
  EXPECT_EQ(site->Bytes(kUnnameable)->find("Stale"), std::string::npos);
}

TEST_F(StandIn, FileIsKeptWhenThereCanBeNone) {
  SetTemporaryFolder(temporary.path() / "missing");
  site->Put(kUnnameable, "[Conmutador]\r\nVersion=3\r\n");
  ExpectExportError(Target());
  EXPECT_EQ(site->Bytes(kUnnameable), "[Conmutador]\r\nVersion=3\r\n");
}

TEST_F(StandIn, NothingIsImportedWhenThereCanBeNone) {
  config.Exportar(Target());
  SetTemporaryFolder(temporary.path() / "missing");
  EXPECT_THROW(config.Importar(Target()), ConfigError);
  EXPECT_EQ(config.NombreConmutador(), u"ACME, X1");
}

TEST_F(StandIn, ReadOnlyFileIsImported) {
  config.Exportar(Target());
  const fs::path path{std::u16string(Target())};
  SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY);
  config.Importar(Target());
  EXPECT_TRUE(fs::is_empty(temporary.path()));
  SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(StandIn, FolderIsNoFile) {
  const fs::path folder{std::u16string(Target())};
  fs::create_directory(folder);
  ExpectExportError(Target());
  EXPECT_THROW(config.Importar(Target()), ConfigError);
  EXPECT_TRUE(fs::is_directory(folder));
  EXPECT_TRUE(fs::is_empty(temporary.path()));
}

}  // namespace
}  // namespace conmuta
