// Configuration files that were cut, or whose counters lie.
#include <gtest/gtest.h>

#include <random>

#include "config/config_file.h"
#include "support/config_bench.h"
#include "support/config_snapshot.h"
#include "support/full_config.h"

namespace conmuta {
namespace {

using namespace std::string_literals;
using test::Snapshot;
using test::SwitchFile;

class DamagedFile : public testing::Test, protected test::ConfigBench {
 protected:
  void Open(const std::string& bytes) {
    files.entries[u"a.cfg"] = {bytes};
    config.Abrir(u"a.cfg");
  }

  // What a whole file with these records gives.
  static Snapshot Expected(const SwitchFile& file) {
    test::ConfigBench bench;
    test::Fill(bench.config, file);
    return Snapshot::OfContent(bench.config);
  }
};

TEST_F(DamagedFile, CutAnywhereItLoadsTheCompleteRecords) {
  SwitchFile file;
  file.datos = {{2, 1, 5, 2}, {3, 3, 8, 2}, {4, 1, 1, 4}};
  file.ctes = {{4, 2, 1, 2, "IN"}, {7, 2, 1, 3, "OUT"}};
  const std::string whole = file.Bytes();
  for (std::size_t length = 0; length <= whole.size(); ++length) {
    SCOPED_TRACE(length);
    test::ConfigBench bench;
    bench.files.entries[u"a.cfg"] = {whole.substr(0, length)};
    if (length < 660) {
      ASSERT_THROW(bench.config.Abrir(u"a.cfg"), ConfigError);
      ASSERT_TRUE(bench.TakeEvents().empty());
      continue;
    }
    bench.config.Abrir(u"a.cfg");
    SwitchFile expected = file;
    expected.datos.resize(std::min<std::size_t>(3, (length - 660) / 10));
    expected.ctes.resize(length < 690 ? 0 : (length - 690) / 30);
    ASSERT_EQ(Snapshot::OfContent(bench.config), Expected(expected));
  }
}

TEST_F(DamagedFile, NegativeCountersMeanNone) {
  SwitchFile file;
  file.datos = {{2, 1, 5, 2}};
  file.ctes = {{4, 2, 1, 2, "IN"}};
  for (const int count : {-1, -32768}) {
    SwitchFile lying = file;
    lying.ctes.clear();
    lying.dato_count_lie = count - 1;
    Open(lying.Bytes());
    EXPECT_EQ(Snapshot::OfContent(config), Expected(SwitchFile()));

    lying = file;
    lying.cte_count_lie = count - 1;
    Open(lying.Bytes());
    EXPECT_TRUE(config.FindDATO(emParamFechaDia));
    EXPECT_FALSE(config.FindCTE(emDatoCteIdentEntrante));
  }
}

TEST_F(DamagedFile, NoItemsCountedMakesConstantsBeginAtTheItems) {
  SwitchFile file;
  file.ctes = {{4, 2, 1, 2, "IN"}};
  for (const int count : {0, -1, -32768}) {
    file.dato_count_lie = count;
    Open(file.Bytes());
    EXPECT_TRUE(config.FindCTE(emDatoCteIdentEntrante));
  }
}

TEST_F(DamagedFile, CountersLargerThanTheFileReadWhatIsThere) {
  SwitchFile file;
  file.datos = {{2, 1, 5, 2}, {3, 1, 8, 2}};
  const Snapshot expected = Expected(file);
  file.dato_count_lie = 32767 - 2;
  file.cte_count_lie = 32767;
  Open(file.Bytes());
  EXPECT_EQ(Snapshot::OfContent(config), expected);
}

TEST_F(DamagedFile, TooManyConstantsReadWhatIsThere) {
  SwitchFile file;
  file.ctes = {{4, 2, 1, 2, "IN"}};
  const Snapshot expected = Expected(file);
  file.cte_count_lie = 1000;
  Open(file.Bytes() + std::string(29, '\x04'));
  EXPECT_EQ(Snapshot::OfContent(config), expected);
}

TEST_F(DamagedFile, SmallCountersReadLess) {
  SwitchFile file;
  file.datos = {{2, 1, 5, 2}, {3, 1, 8, 2}};
  file.dato_count_lie = -1;
  Open(file.Bytes());
  EXPECT_TRUE(config.FindDATO(emParamFechaDia));
  EXPECT_FALSE(config.FindDATO(emParamFechaMes));
}

TEST_F(DamagedFile, TooManyItemsReadOnIntoTheConstants) {
  SwitchFile file;
  file.datos = {{2, 1, 5, 2}};
  // Seen as three items: kind 4 at 9 for 7, then two of the constant's text.
  file.ctes = {{4, 2, 9, 7, "\x0A\0\0\0\x03\0\0\0\x21\x22"s + "\x0B\0\0\0\x01\0\0\0\x23\x24"s}};
  file.dato_count_lie = 1;
  Open(file.Bytes());
  config.DATOActivo(emParamFechaAnio);
  ASSERT_TRUE(config.HayDATO());
  EXPECT_EQ(config.DATOPos(), 9);
  EXPECT_EQ(config.DATOTam(), 7);
  EXPECT_EQ(config.TipoDatoDATO(), emValorConstante);
  EXPECT_FALSE(config.FindDATO(emParamDuracionAnio));
  EXPECT_FALSE(config.FindCTE(emDatoCteIdentEntrante));  // 20 bytes are no constant

  file.dato_count_lie = 3;
  Open(file.Bytes());
  config.DATOActivo(emParamDuracionAnio);
  ASSERT_TRUE(config.HayDATO());
  EXPECT_EQ(config.DATOPos(), 0x21);
  EXPECT_EQ(config.TipoDatoDATO(), emValorCadena);
  config.DATOActivo(emParamDuracionHoras);
  ASSERT_TRUE(config.HayDATO());
  EXPECT_EQ(config.DATOTam(), 0x24);
}

TEST_F(DamagedFile, ConstantsBeginWhereTooManyItemsStopped) {
  SwitchFile file;
  file.ctes = {{99, 2, 9, 7, "ignored"}, {7, 2, 20, 3, "OUT"}};
  file.dato_count_lie = 3;  // all of the first constant
  file.cte_count_lie = -1;
  Open(file.Bytes());
  EXPECT_TRUE(config.FindCTE(emDatoCteIdentSaliente));
  EXPECT_EQ(config.Constante(), u"OUT");

  // Past the end the items stop at the last complete one.
  file.dato_count_lie = 100;
  file.ctes[1].text = "";
  Open(file.Bytes());
  EXPECT_FALSE(config.FindCTE(emDatoCteIdentSaliente));
}

TEST_F(DamagedFile, AsManyRecordsAsTheCountersCanSay) {
  std::string bytes = SwitchFile().Bytes();
  bytes[656] = bytes[658] = '\xFF';
  bytes[657] = bytes[659] = '\x7F';
  const SwitchFile::Dato dato{2, 1, 5, 2};
  const SwitchFile::Cte cte{4, 2, 1, 2, "IN"};
  SwitchFile last;
  last.datos = {dato, {3, 1, 5, 2}};
  last.ctes = {cte, {23, 2, 1, 2, "IN"}};
  const std::string records = last.Bytes().substr(660);
  for (int i = 1; i < 32767; ++i) bytes.append(records, 0, 10);
  bytes.append(records, 10, 10);
  for (int i = 1; i < 32767; ++i) bytes.append(records, 20, 30);
  bytes.append(records, 50, 30);
  ASSERT_EQ(bytes.size(), kMostBytes);
  bytes.push_back(5);
  Open(bytes);
  EXPECT_TRUE(config.FindDATO(emParamFechaMes));
  EXPECT_TRUE(config.FindCTE(emDatoCteIdentInterTroncalFinTransferida));
}

TEST_F(DamagedFile, AnyByteMayBeWrong) {
  const std::string whole = test::FullFile().Bytes();
  std::mt19937 random(20261121);
  for (int round = 0; round < 1000; ++round) {
    std::string bytes = whole;
    for (int i = 0; i < 4; ++i) bytes[random() % bytes.size()] = static_cast<char>(random());
    if (round % 2 == 0) bytes.resize(random() % (bytes.size() + 1));
    try {
      Open(bytes);
      config.GuardarComo(u"b.cfg");
      const Snapshot loaded = Snapshot::OfContent(config);
      config.Abrir(u"b.cfg");
      ASSERT_EQ(Snapshot::OfContent(config), loaded) << round;
    } catch (const ConfigError&) {
      // refused, or a case of 0 that cannot be saved
    }
  }
}

TEST(FileRecords, ShortBytesGiveNothingAndAreKept) {
  const test::Latin1 code_page;
  const std::string bytes(29, '\x04');
  std::string_view dato = std::string_view(bytes).substr(0, 9);
  EXPECT_FALSE(TakeDATO(dato, code_page));
  EXPECT_EQ(dato.size(), 9u);
  std::string_view cte = bytes;
  EXPECT_FALSE(TakeCTE(cte, code_page));
  EXPECT_EQ(cte.size(), 29u);
  EXPECT_FALSE(ReadHeader(std::string(659, '\x03'), code_page));
}

TEST(FileRecords, AreTakenOneAfterTheOther) {
  const test::Latin1 code_page;
  const std::string bytes = "\x02\0\0\0\xFF\xFF\xFF\xFF\x05\xFF\x03\0\0"s;
  std::string_view rest = bytes;
  const auto dato = TakeDATO(rest, code_page);
  ASSERT_TRUE(dato);
  EXPECT_EQ(dato->Param, emParamFechaDia);
  EXPECT_EQ(dato->TipoDato, -1);
  EXPECT_EQ(dato->Pos, 5);
  EXPECT_EQ(dato->Tam, 255);
  EXPECT_EQ(rest, "\x03\0\0"s);
  EXPECT_FALSE(TakeDATO(rest, code_page));
}

TEST(FileRecords, HeaderAcceptsAnyContent) {
  const test::Latin1 code_page;
  SwitchFile file;
  file.version = -1;
  file.brand = file.model = file.separator = "";
  file.dato_count_lie = -32768;
  file.cte_count_lie = 32767;
  const auto header = ReadHeader(file.Bytes(), code_page);
  ASSERT_TRUE(header);
  EXPECT_EQ(header->config.Version, -1);
  EXPECT_TRUE(header->config.Marca.Empty());
  EXPECT_EQ(header->NumDATO, -32768);
  EXPECT_EQ(header->NumCTE, 32767);
  std::string written;
  AppendHeader(written, *header, code_page);
  EXPECT_EQ(written, file.Bytes());
}

}  // namespace
}  // namespace conmuta
