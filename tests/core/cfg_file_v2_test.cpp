// Opening files of version 2.0.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "config/config_file_v2.h"
#include "support/config_bench.h"
#include "support/config_errors.h"
#include "support/config_snapshot.h"
#include "support/file_images.h"

namespace conmuta {
namespace {

using namespace std::string_literals;
using test::Snapshot;
using test::SwitchFile2;
using testing::ElementsAre;
using testing::IsEmpty;

// The kinds in the order of the record, a second time.
constexpr int kConstantKinds[] = {4, 7, 10, 13, 16, 17, 18, 19, 20, 21, 22, 23};
constexpr int kItemKinds[] = {2,  3,  4,  5,  6,  7,  18, 22, 23, 19, 24, 25, 20,
                              26, 27, 21, 28, 29, 30, 33, 34, 36, 31, 32, 35, 37,
                              38, 43, 46, 50, 39, 42, 47, 51, 40, 45, 48, 52, 41,
                              44, 49, 53, 8,  9,  10, 11, 12, 13, 14, 15, 16, 17};

class Version2 : public testing::Test, protected test::ConfigBench {
 protected:
  void Open(const std::string& bytes) {
    files.entries[u"old.cfg"] = {bytes};
    config.Abrir(u"old.cfg");
  }
  void Open(const SwitchFile2& file) { Open(file.Bytes()); }

  void ExpectRefused(const std::string& bytes) {
    const Snapshot content = Snapshot::OfContent(config);
    const Snapshot state = Snapshot::OfState(config);
    TakeEvents();
    test::ExpectConfigError(
        [&] { Open(bytes); }, 0x800405E1, u"clsConfigConmut.Abrir",
        u"No es posible abrir al archivo de configuraci\u00F3n, no se reconoce.\r\n Archivo :"
        u"old.cfg");
    EXPECT_EQ(Snapshot::OfState(config), state);
    EXPECT_EQ(Snapshot::OfContent(config), content);
    EXPECT_THAT(TakeEvents(), IsEmpty());
  }
};

TEST_F(Version2, KeepsItsConstantsAndItemsInAFrozenOrder) {
  EXPECT_TRUE(std::equal(kVersion2Constants.begin(), kVersion2Constants.end(),
                         std::begin(kConstantKinds), std::end(kConstantKinds)));
  EXPECT_TRUE(std::equal(kVersion2Items.begin(), kVersion2Items.end(), std::begin(kItemKinds),
                         std::end(kItemKinds)));
}

TEST_F(Version2, HoldsEveryItemOnce) {
  auto kinds = kVersion2Items;
  std::sort(kinds.begin(), kinds.end());
  for (std::size_t i = 0; i < kinds.size(); ++i) EXPECT_EQ(kinds[i], static_cast<int>(i) + 2);
}

TEST_F(Version2, EveryConstantIsReadFromItsPlace) {
  for (std::size_t i = 0; i < std::size(kConstantKinds); ++i) {
    SCOPED_TRACE(i);
    SwitchFile2 file;
    file.constants[i] = {200 + static_cast<int>(i),
                         std::string("NOMBRE\xD1").append(std::to_string(i))};
    test::ConfigBench bench;
    bench.files.entries[u"old.cfg"] = {file.Bytes()};
    bench.config.Abrir(u"old.cfg");
    for (int kind = 2; kind <= 23; ++kind) {
      bench.config.CTEActivo(static_cast<emParamDatoConstante>(kind));
      ASSERT_EQ(bench.config.HayCTE(), kind == kConstantKinds[i]) << kind;
      if (!bench.config.HayCTE()) continue;
      EXPECT_EQ(bench.config.CTEPos(), 200 + static_cast<int>(i));
      EXPECT_EQ(bench.config.Constante(),
                Text(u"NOMBRE\u00D1").append(ToText(static_cast<int>(i))));
      EXPECT_EQ(bench.config.CTETam(), i < 10 ? 8 : 9);
      EXPECT_EQ(bench.config.TipoDatoCTE(), emValorConstante);
    }
  }
}

TEST_F(Version2, EveryItemIsReadFromItsPlace) {
  for (std::size_t i = 0; i < std::size(kItemKinds); ++i) {
    SCOPED_TRACE(i);
    SwitchFile2 file;
    file.items[i] = {255 - static_cast<int>(i), 1 + static_cast<int>(i),
                     1 + static_cast<int>(i % 3)};
    test::ConfigBench bench;
    bench.files.entries[u"old.cfg"] = {file.Bytes()};
    bench.config.Abrir(u"old.cfg");
    for (int kind = 2; kind <= 53; ++kind) {
      bench.config.DATOActivo(static_cast<emParamDato>(kind));
      ASSERT_EQ(bench.config.HayDATO(), kind == kItemKinds[i]) << kind;
      if (!bench.config.HayDATO()) continue;
      EXPECT_EQ(bench.config.DATOPos(), file.items[i].pos);
      EXPECT_EQ(bench.config.DATOTam(), file.items[i].size);
      EXPECT_EQ(bench.config.TipoDatoDATO(), file.items[i].type);
    }
  }
}

TEST_F(Version2, AllOfItAtOnce) {
  SwitchFile2 file;
  for (std::size_t i = 0; i < file.constants.size(); ++i) {
    file.constants[i] = {1 + static_cast<int>(i), std::string(20, static_cast<char>('A' + i))};
  }
  for (std::size_t i = 0; i < file.items.size(); ++i) {
    file.items[i] = {10 + static_cast<int>(i), 2, 3};
  }
  Open(file);
  for (std::size_t i = 0; i < std::size(kConstantKinds); ++i) {
    config.CTEActivo(static_cast<emParamDatoConstante>(kConstantKinds[i]));
    ASSERT_TRUE(config.HayCTE());
    EXPECT_EQ(config.CTEPos(), 1 + static_cast<int>(i));
    EXPECT_EQ(config.Constante(), Text(20, static_cast<char16_t>(u'A' + i)));
  }
  for (std::size_t i = 0; i < std::size(kItemKinds); ++i) {
    config.DATOActivo(static_cast<emParamDato>(kItemKinds[i]));
    ASSERT_TRUE(config.HayDATO());
    EXPECT_EQ(config.DATOPos(), 10 + static_cast<int>(i));
    EXPECT_EQ(config.TipoDatoDATO(), emValorCadena);
  }
}

TEST_F(Version2, TextsAreCutToTheirPresentWidths) {
  SwitchFile2 file;
  file.comments = std::string(250, 'c') + "LOST!";
  file.brand = std::string(49, 'b') + "\xD1";
  file.model = std::string(50, 'm');
  file.separator = "0123456789XY";
  Open(file);
  EXPECT_EQ(config.Comentarios(), Text(250, u'c'));
  EXPECT_EQ(config.Marca(), Text(49, u'b') + u"\u00D1");
  EXPECT_EQ(config.Modelo(), Text(50, u'm'));
  EXPECT_EQ(config.Separador(), u"0123456789");
}

TEST_F(Version2, BecomesAConfigurationOfThePresentVersion) {
  config.Caso(emCasoSamsungNX_820);
  config.IDCfg(7);
  Open(SwitchFile2());
  EXPECT_EQ(config.Version(), emVersion3_0);
  EXPECT_EQ(config.Caso(), emCasoEstandar);
  EXPECT_EQ(config.NombreConmutador(), u"ACME, OLD");
  EXPECT_EQ(config.Separador(), u"\r\n");
  EXPECT_EQ(config.IDCfg(), 7);
  EXPECT_TRUE(config.HayConfig());
  EXPECT_FALSE(config.Modificado());
}

TEST_F(Version2, ReplacesWhatWasThere) {
  test::DefineItem(config, emParamCodigoCuenta, 5, 2);
  test::DefineConstant(config, emDatoCteIdentEntranteAND, 5, u"x");
  config.PuertoActivo(emPuertoSerialDB9DB9);
  config.PinIZQ(1);
  config.PinDER(1);
  config.PinesConectados(true);
  config.Comentarios(u"before");
  Open(SwitchFile2());
  EXPECT_EQ(config.Comentarios(), u"");
  EXPECT_FALSE(config.FindDATO(emParamCodigoCuenta));
  EXPECT_FALSE(config.FindCTE(emDatoCteIdentEntranteAND));
  config.PinIZQ(1);
  config.PinDER(1);
  EXPECT_FALSE(config.PinesConectados());
}

TEST_F(Version2, TextsAreWrittenWithTheirEvents) {
  Open(SwitchFile2());
  const auto events = TakeEvents();
  ASSERT_GE(events.size(), 6u);
  EXPECT_THAT(test::Events(events.begin(), events.begin() + 5),
              ElementsAre("CambioNombreConmutador", "Cambios", "CambioNombreConmutador", "Cambios",
                          "Cambios"));
  EXPECT_EQ(events.back(), "ConfiguracionCargada");
  EXPECT_EQ(std::count(events.begin(), events.end(), "ConfiguracionCargada"), 1);
  EXPECT_EQ(std::count(events.begin(), events.end(), "Inicializado"), 0);
}

TEST_F(Version2, IncompleteItemsLeaveNoTrace) {
  SwitchFile2 file;
  file.items[0] = {5, 0, 1};
  file.items[1] = {0, 5, 1};
  file.items[2] = {5, 5, 0};
  file.items[3] = {0, 0, 3};
  file.items[4] = {9, 1, 1};
  file.constants[0] = {5, ""};
  file.constants[1] = {0, "x"};
  file.constants[2] = {6, "y"};
  Open(file);
  for (int kind = 2; kind <= 53; ++kind) {
    EXPECT_EQ(config.FindDATO(static_cast<emParamDato>(kind)) != nullptr,
              kind == emParamFechaMinutos);
  }
  for (int kind = 2; kind <= 23; ++kind) {
    EXPECT_EQ(config.FindCTE(static_cast<emParamDatoConstante>(kind)) != nullptr,
              kind == emDatoCteIdentInterExtension);
  }
}

TEST_F(Version2, ReservedBytesDoNotMatter) {
  std::string bytes = SwitchFile2().Bytes();
  std::fill(bytes.end() - 7, bytes.end(), '\xFF');
  Open(bytes);
  for (int kind = 2; kind <= 53; ++kind) {
    EXPECT_FALSE(config.FindDATO(static_cast<emParamDato>(kind)));
  }
}

TEST_F(Version2, OtherLengthsAreRefused) {
  Name();
  const std::string bytes = SwitchFile2().Bytes();
  for (const std::size_t length : {0u, 4u, 371u, 659u, 660u, 785u}) {
    SCOPED_TRACE(length);
    ExpectRefused(bytes.substr(0, length));
  }
  ExpectRefused(bytes + "\0"s);
  ExpectRefused(bytes + bytes);
}

TEST_F(Version2, OtherVersionsAreRefused) {
  Name();
  for (const std::int64_t version : {0, 1, 4, -1, 0x0200, 0x01000002}) {
    SwitchFile2 file;
    file.version = version;
    SCOPED_TRACE(version);
    ExpectRefused(file.Bytes());
  }
}

TEST_F(Version2, FileWithoutBrandModelOrSeparatorIsRefused) {
  Name();
  for (const int missing : {0, 1, 2}) {
    SwitchFile2 file;
    (missing == 0 ? file.brand : missing == 1 ? file.model : file.separator) = "";
    SCOPED_TRACE(missing);
    ExpectRefused(file.Bytes());
  }
}

TEST_F(Version2, FileOfThePresentLayoutAndTheSameLengthIsReadAsSuch) {
  test::SwitchFile file;
  file.comments = std::string(250, 'c');
  file.datos.assign(3, {2, 1, 5, 2});
  file.ctes.assign(3, {4, 2, 1, 2, "IN"});
  Open(file.Bytes() + std::string(786 - file.Bytes().size(), 'x'));
  EXPECT_EQ(config.Modelo(), u"X1");
  EXPECT_TRUE(config.FindDATO(emParamFechaDia));
}

TEST_F(Version2, HostileBytesAreHarmless) {
  std::mt19937 random(786);
  for (int round = 0; round < 500; ++round) {
    std::string bytes(786, '\0');
    for (char& b : bytes) b = static_cast<char>(random());
    bytes.replace(0, 4, "\2\0\0\0"s);
    Open(bytes);
    for (std::size_t i = 0; i < std::size(kItemKinds); ++i) {
      const auto byte = [&](std::size_t k) {
        return static_cast<int>(static_cast<unsigned char>(bytes[623 + 3 * i + k]));
      };
      const DATO* slot = config.FindDATO(static_cast<emParamDato>(kItemKinds[i]));
      ASSERT_EQ(slot != nullptr, byte(0) != 0 && byte(1) != 0 && byte(2) != 0) << round;
      if (slot == nullptr) continue;
      ASSERT_EQ(slot->Pos, byte(0));
      ASSERT_EQ(slot->Tam, byte(1));
      ASSERT_EQ(slot->TipoDato, byte(2));
    }
    config.GuardarComo(u"new.cfg");
    const Snapshot loaded = Snapshot::OfContent(config);
    config.Abrir(u"new.cfg");
    ASSERT_EQ(Snapshot::OfContent(config), loaded) << round;
  }
}

TEST(Version2Record, KeepsTextsWithTheirNuls) {
  const test::Latin1 code_page;
  SwitchFile2 file;
  file.comments = "a\0b"s;
  file.constants[11].text = "\0x"s;
  const auto record = ReadVersion2(file.Bytes(), code_page);
  ASSERT_TRUE(record);
  EXPECT_EQ(record->Version, 2);
  EXPECT_EQ(record->Comentarios, basConmuta::CadenaAFija(u"a\0b"s, 255));
  EXPECT_EQ(record->Separador, basConmuta::CadenaAFija(u"\r\n", 12));
  EXPECT_EQ(record->constants[11].Constante, basConmuta::CadenaAFija(u"\0x"s, 20));
}

}  // namespace
}  // namespace conmuta
