// A path means the same file to Exportar and Importar as to GuardarComo and Abrir.
#include <gtest/gtest.h>

#include <filesystem>

#include "config/clsCfgConmut.h"
#include "support/temporary_folder.h"

namespace conmuta {
namespace {

namespace fs = std::filesystem;

// With a folder of its own as the current one.
class ExchangePath : public testing::TestWithParam<TextView> {
 protected:
  ExchangePath() : home_(fs::current_path()) {
    fs::create_directory(folder.path() / "current");
    fs::create_directory(folder.path() / "current" / "below");
    fs::create_directory(folder.path() / "current" / u"\u96FB\u8A71");
    fs::current_path(folder.path() / "current");
    config.Marca(u"ACME");
    config.Modelo(u"X1");
    config.Separador(u"\r\n");
  }
  ~ExchangePath() override { fs::current_path(home_); }

  static std::size_t Files(const fs::path& path) {
    std::size_t files = 0;
    for (const auto& entry : fs::recursive_directory_iterator(path)) {
      files += entry.is_regular_file();
    }
    return files;
  }

  test::TemporaryFolder folder;
  clsCfgConmut config{SystemPlatform()};

 private:
  const fs::path home_;
};

TEST_P(ExchangePath, IsWrittenBesideWhatIsSaved) {
  const fs::path given{std::u16string(GetParam())};
  config.Exportar(GetParam());
  EXPECT_TRUE(fs::is_regular_file(given));
  EXPECT_EQ(Files(folder.path()), 1u);
  fs::remove(given);
  config.GuardarComo(GetParam());
  EXPECT_TRUE(fs::is_regular_file(given));
  EXPECT_EQ(Files(folder.path()), 1u);
}

TEST_P(ExchangePath, IsReadBack) {
  config.Exportar(GetParam());
  clsCfgConmut other(SystemPlatform());
  other.Importar(GetParam());
  EXPECT_EQ(other.NombreConmutador(), u"ACME, X1");
  other.Importar(Text(fs::absolute(fs::path(std::u16string(GetParam()))).u16string()));
}

TEST_P(ExchangePath, ReplacesWhatWasSavedAndTheOtherWayRound) {
  config.GuardarComo(GetParam());
  EXPECT_THROW(config.Importar(GetParam()), ConfigError);
  config.Exportar(GetParam());
  EXPECT_THROW(config.Abrir(GetParam()), ConfigError);
  config.Importar(GetParam());
  config.GuardarComo(GetParam());
  config.Abrir(GetParam());
  EXPECT_EQ(Files(folder.path()), 1u);
}

INSTANTIATE_TEST_SUITE_P(, ExchangePath,
                         testing::Values(u"exchange.ini", u"./exchange.ini", u"below/exchange.ini",
                                         u"../exchange.ini", u"exchange", u"two words.txt",
                                         u"a\u00F1o.ini",
                                         // What no ANSI code page has together.
                                         u"\u0421\u0432\u044F\u0437\u044C \u96FB\u8A71.ini",
                                         u"\u96FB\u8A71/\u00F1.ini", u"\u96FB\u8A71/exchange.ini"));

TEST_F(ExchangePath, FollowsTheCurrentFolder) {
  config.Exportar(u"exchange.ini");
  fs::current_path(folder.path() / "current" / "below");
  EXPECT_THROW(config.Importar(u"exchange.ini"), ConfigError);
  config.Importar(u"../exchange.ini");
}

}  // namespace
}  // namespace conmuta
