// Files that nobody meant to be imported: each is either taken or refused as stated, never worse.
#include <gtest/gtest.h>

#include <functional>

#include "support/exchange_bench.h"
#include "support/random.h"

namespace conmuta {
namespace {

using namespace std::string_literals;
using test::SiteKind;
using test::Snapshot;

constexpr std::size_t kMegabytes = 10'000'000;

const std::string kHeader =
    "[Conmutador]\r\nVersion=3\r\nMarca=ACME\r\nModelo=X1\r\nCaso=1\r\nSeparador=59,\r\n";

std::string Utf16(const std::string& ascii, bool big_endian) {
  std::string bytes = big_endian ? "\xFE\xFF" : "\xFF\xFE";
  for (const char c : ascii) {
    if (big_endian) bytes.push_back('\0');
    bytes.push_back(c);
    if (!big_endian) bytes.push_back('\0');
  }
  return bytes;
}

std::string Replaced(std::string text, const std::string& from, const std::string& to) {
  for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size()) {
    text.replace(at, from.size(), to);
  }
  return text;
}

struct HostileCase {
  const char* name;
  std::function<std::string()> bytes;
  TextView detail;  // of the refusal; empty when it is taken
  Text brand;       // afterwards
};

void PrintTo(const HostileCase& row, std::ostream* out) {
  *out << row.name;
}

class HostileFile : public testing::TestWithParam<std::tuple<SiteKind, HostileCase>>,
                    protected test::ExchangeBench {
 protected:
  HostileFile() : ExchangeBench(std::get<0>(GetParam())) {}
};

TEST_P(HostileFile, IsTakenOrRefused) {
  const HostileCase& row = std::get<1>(GetParam());
  const std::string bytes = row.bytes();
  if (row.detail.empty()) {
    ImportText(bytes);
    EXPECT_EQ(listener.events.back(), "ConfiguracionCargada");
  } else {
    ExpectImportError(bytes, row.detail);
  }
  EXPECT_EQ(config.Marca(), row.brand);
}

INSTANTIATE_TEST_SUITE_P(
    , HostileFile,
    testing::Combine(
        testing::ValuesIn(test::kEverySite),
        testing::Values(
            HostileCase{"OneLongLine", [] { return std::string(kMegabytes, 'x'); },
                        test::kWrongVersion, u""},
            HostileCase{"OneLongLineOfBrackets", [] { return std::string(kMegabytes, '['); },
                        test::kWrongVersion, u""},
            HostileCase{"OneLongLineBehindTheRest",
                        [] { return kHeader + std::string(kMegabytes, '='); }, u"", u"ACME"},
            HostileCase{"NothingButNuls", [] { return std::string(100'000, '\0'); },
                        test::kWrongVersion, u""},
            HostileCase{"LongName",
                        [] {
                          return Replaced(kHeader, "ACME", std::string(kMegabytes, 'A'));
                        },
                        u"", Text(50, u'A')},
            HostileCase{"NoLineEnds", [] { return Replaced(kHeader, "\r\n", " "); },
                        test::kWrongVersion, u""},
            HostileCase{"LineFeedsOnly", [] { return Replaced(kHeader, "\r\n", "\n"); }, u"",
                        u"ACME"},
            HostileCase{"CarriageReturnsOnly", [] { return Replaced(kHeader, "\r\n", "\r"); }, u"",
                        u"ACME"},
            HostileCase{"CutInTheMiddle", [] { return kHeader.substr(0, 34); }, test::kNoModel,
                        u"ACM"},
            HostileCase{"NulInAName",
                        [] { return Replaced(kHeader, "ACME", "AC\0ME"s); }, u"", u"AC"},
            HostileCase{"NulBehindTheVersion",
                        [] { return Replaced(kHeader, "=3", "=3\0x"s); }, u"", u"ACME"},
            HostileCase{"NulAsAName", [] { return Replaced(kHeader, "ACME", "\0ME"s); },
                        test::kNoBrand, u""},
            HostileCase{"Utf8", [] { return "\xEF\xBB\xBF" + kHeader; }, u"", u"ACME"},
            HostileCase{"Utf16LittleEndian", [] { return Utf16(kHeader, false); }, u"", u"ACME"},
            HostileCase{"Utf16BigEndian", [] { return Utf16(kHeader, true); }, u"", u"ACME"},
            HostileCase{"Utf16WithoutAMark", [] { return Utf16(kHeader, false).substr(2); },
                        test::kWrongVersion, u""},
            HostileCase{"AnotherSectionOfTheSameName",
                        [] { return "[conmutador]\r\nVersion=1\r\n" + kHeader; }, test::kNoBrand,
                        u""},
            HostileCase{"BinaryConfiguration",
                        [] {
                          std::string bytes(660, '\0');
                          bytes[0] = 3;
                          return bytes + kHeader;
                        },
                        test::kWrongVersion, u""},
            HostileCase{"LongNumber",
                        [] { return kHeader + "[Puertos]\r\nDB9DB9=" + std::string(400, '9'); },
                        u"", u"ACME"},
            HostileCase{"OverflowingNumber",
                        [] { return kHeader + "[Puertos]\r\nDB9DB9=4294967296"; },
                        test::kNoSeparator, u"ACME"})),
    [](const auto& info) {
      return test::SiteName(std::get<0>(info.param)) + std::get<1>(info.param).name;
    });

class HostileItems : public testing::TestWithParam<SiteKind>, protected test::ExchangeBench {
 protected:
  HostileItems() : ExchangeBench(GetParam()) {}
};

INSTANTIATE_TEST_SUITE_P(, HostileItems, testing::ValuesIn(test::kEverySite),
                         [](const auto& info) { return test::SiteName(info.param); });

TEST_P(HostileItems, ThousandsOfLinesAreReadToTheLast) {
  // The system reads the file anew for each value, so its share is smaller.
  const int count = GetParam() == SiteKind::kMemory ? 20'000 : 300;
  std::string bytes = kHeader + "[Datos]\r\n";
  for (int i = 1; i <= count; ++i) {
    bytes += "Dato" + std::to_string(i) + "=" + std::to_string(2 + i % 52) + ",1," +
             std::to_string(1 + i % 255) + ",9,\r\n";
  }
  bytes += "[Constantes]\r\n";
  for (int i = 1; i <= count; ++i) {
    // Kinds that only items have, too: each leaves a released slot for the next.
    bytes +=
        "Constante" + std::to_string(i) + "=" + std::to_string(2 + i % 52) + ",2,1,2,$(73,78,)\r\n";
  }
  ImportText(bytes);
  config.DATOActivo(static_cast<emParamDato>(2 + count % 52));
  EXPECT_EQ(config.DATOPos(), 1 + count % 255);
  EXPECT_TRUE(config.HayDATO());
  config.CTEActivo(emDatoCteIdentEntrante);
  EXPECT_EQ(config.Constante(), u"IN");
}

TEST_P(HostileItems, NestedMarksOfAList) {
  std::string nested;
  while (nested.size() < 200) nested += "$(";
  ImportText(kHeader + "[Constantes]\r\nConstante1=4,2,1,2," + nested + "65,66,)\r\n" +
             "Constante2=7,2,1,2,)" + nested + "65,66,)\r\nConstante3=9,2,1,1,$(67,68,)\r\n");
  config.CTEActivo(emDatoCteIdentEntrante);
  EXPECT_EQ(config.Constante(), u"B");
  config.CTEActivo(emDatoCteIdentSaliente);
  EXPECT_EQ(config.Constante(), u"");
  config.CTEActivo(emDatoCteIdentSalienteOR);
  EXPECT_EQ(config.Constante(), u"CD");
}

TEST_P(HostileItems, LineIsReadAsFarAsTheSystemSeesIt) {
  const std::string blanks(300, ' ');
  ImportText(kHeader + "[Datos]\r\nDato1=2,1,5," + blanks + "2,\r\nDato2=3,1,5,2," + blanks +
             "\r\nDato3=4,1,5,2," + std::string(300, ',') + "\r\n");
  config.DATOActivo(emParamFechaDia);
  EXPECT_FALSE(config.HayDATO());
  config.DATOActivo(emParamFechaMes);
  EXPECT_TRUE(config.HayDATO());
  config.DATOActivo(emParamFechaAnio);
  EXPECT_TRUE(config.HayDATO());
}

// Random damage: whatever comes out, it is a loaded configuration or the one error.
TEST(DamagedExchangeFile, IsTakenOrRefused) {
  test::Random random(1504);
  test::ExchangeBench whole(SiteKind::kMemory);
  whole.Name();
  test::DefineItem(whole.config, emParamFechaDia, 1, 2);
  test::DefineConstant(whole.config, emDatoCteIdentEntrante, 9, u"IN");
  whole.Export();
  const std::string bytes = *whole.site->Bytes(test::ExchangeBench::kName);
  const std::string alphabet = "[]=,$()\r\n 0123456789DdC\"'\0\xFF;-."s;
  int taken = 0;
  int refused = 0;
  for (int round = 0; round < 3000; ++round) {
    std::string damaged = bytes;
    for (int count = random.Between(1, 4); count > 0; --count) {
      const auto at = static_cast<std::size_t>(random.Below(static_cast<int>(damaged.size())));
      if (random.Percent(30)) {
        damaged.erase(at, static_cast<std::size_t>(random.Between(1, 20)));
      } else {
        damaged.insert(at, 1, random.OneOf(alphabet));
      }
    }
    test::ExchangeBench bench(SiteKind::kMemory);
    try {
      bench.ImportText(damaged);
      ++taken;
      EXPECT_FALSE(bench.config.Modificado());
      EXPECT_EQ(bench.listener.events.back(), "ConfiguracionCargada");
    } catch (const ConfigError& error) {
      ++refused;
      EXPECT_EQ(error.number(), 0x800405E0);
      EXPECT_TRUE(error.description().starts_with(Text(test::kImportFailed) + u"\r\n"));
    }
  }
  EXPECT_GT(taken, 100);
  EXPECT_GT(refused, 100);
}

}  // namespace
}  // namespace conmuta
