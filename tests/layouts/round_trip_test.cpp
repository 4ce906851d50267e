// Layout, configuration and text: none of the ways between them loses anything.
#include <gtest/gtest.h>

#include <algorithm>

#include "layouts/read_layout.h"
#include "layouts/write_layout.h"
#include "support/random_layout.h"
#include "support/saved_config.h"
#include "support/source_files.h"

namespace conmuta::layouts {
namespace {

using test::RandomLayout;
using test::SavedConfig;

Layout Read(const std::string& toml) {
  auto reading = ReadLayout(toml);
  for (const Mistake& mistake : reading.mistakes) {
    ADD_FAILURE() << testing::PrintToString(Sentence(mistake)) << "\n" << toml;
  }
  return reading.layout.value_or(Layout());
}

// From the configuration through a text into another one; then both files and both texts are equal.
void ExpectNothingLost(SavedConfig& saved, TextView sample = {}) {
  const std::string toml = WriteLayout(LayoutOf(saved.config), sample);
  SavedConfig again(Read(toml));
  ASSERT_EQ(again.Bytes(), saved.Bytes()) << toml;
  ASSERT_EQ(WriteLayout(LayoutOf(again.config), sample), toml);
}

TEST(LayoutRoundTrip, RandomConfigurations) {
  test::Random random(1);
  for (int round = 0; round < 150; ++round) {
    const Layout layout = RandomLayout(random);
    SavedConfig saved(layout);
    ASSERT_EQ(LayoutOf(saved.config), layout);
    ASSERT_NO_FATAL_FAILURE(ExpectNothingLost(saved));
  }
}

TEST(LayoutRoundTrip, WhatHasBeenOpened) {
  test::Random random(2);
  for (int round = 0; round < 60; ++round) {
    SavedConfig saved(RandomLayout(random));
    SavedConfig opened;
    ASSERT_TRUE(opened.Open(saved.Bytes()));
    ASSERT_NO_FATAL_FAILURE(ExpectNothingLost(opened));
  }
}

TEST(LayoutRoundTrip, DamagedFilesThatStillOpen) {
  test::Random random(3);
  int opened_files = 0;
  for (int round = 0; round < 150; ++round) {
    std::string bytes = SavedConfig(RandomLayout(random)).Bytes();
    for (int count = random.Between(1, 200); count > 0; --count) {
      const int last = static_cast<int>(bytes.size()) - 1;
      bytes[static_cast<std::size_t>(random.Between(4, last))] =
          static_cast<char>(random.Below(256));
    }
    if (random.Percent(30)) bytes.resize(bytes.size() - static_cast<std::size_t>(random.Below(40)));
    SavedConfig opened;
    if (!opened.Open(bytes) || !opened.CanBeSaved()) continue;
    ++opened_files;
    ASSERT_NO_FATAL_FAILURE(ExpectNothingLost(opened));
  }
  EXPECT_GT(opened_files, 100);
}

// A configuration that never was in a file may hold what no file can.
TEST(LayoutRoundTrip, CharactersOutsideTheCodePageAreWhatAFileMakesOfThem) {
  SavedConfig saved;
  saved.config.Marca(u"日本");
  saved.config.Modelo(u"a\xD800");
  saved.config.Separador(u"\r\n");
  saved.config.CTEActivo(emDatoCteIdentEntrante);
  saved.config.CTEPos(1);
  saved.config.Constante(u"λ");
  ExpectNothingLost(saved);
  EXPECT_EQ(LayoutOf(saved.config).header.Marca.Read(), u"??");
}

TEST(LayoutRoundTrip, ASampleLineIsKeptAboveTheKeys) {
  test::Random random(4);
  SavedConfig saved(RandomLayout(random));
  ExpectNothingLost(saved, u"01/14/19 09:15AM\t1210\x01 ñ \xD800");
}

TEST(LayoutRoundTrip, AUsedConfigurationBecomesWhatTheLayoutSays) {
  test::Random random(5);
  SavedConfig used;
  for (int round = 0; round < 50; ++round) {
    const Layout layout = RandomLayout(random);
    Apply(layout, used.config);
    Layout found = LayoutOf(used.config);
    EXPECT_EQ(found.header, layout.header);
    for (const DATO& item : layout.items) {
      EXPECT_EQ(std::count(found.items.begin(), found.items.end(), item), 1);
    }
    EXPECT_EQ(found.items.size(), layout.items.size());
    EXPECT_EQ(found.constants.size(), layout.constants.size());
  }
}

// Drawn, the order may be another one.
template <class Slot>
std::vector<Slot> ByKind(std::vector<Slot> slots) {
  std::sort(slots.begin(), slots.end(),
            [](const Slot& a, const Slot& b) { return a.Param < b.Param; });
  return slots;
}

std::vector<SampleLine> RandomSamples(test::Random& random) {
  std::vector<SampleLine> samples;
  for (const TextView type : {u"entrante", u"saliente", u"interna", u"inter_troncal"}) {
    if (random.Percent(70)) {
      samples.push_back({type, random.String(u"0123456789 :/AM", random.Below(120))});
    }
  }
  return samples;
}

TEST(LayoutRoundTrip, DrawnItSaysTheSame) {
  test::Random random(6);
  std::size_t drawn = 0;
  for (int round = 0; round < 150; ++round) {
    const Layout layout = RandomLayout(random);
    const auto samples = RandomSamples(random);
    const std::string toml = DrawLayout(layout, samples);
    const Layout again = Read(toml);
    ASSERT_EQ(again.header, layout.header) << toml;
    ASSERT_EQ(ByKind(again.items), ByKind(layout.items)) << toml;
    ASSERT_EQ(ByKind(again.constants), ByKind(layout.constants)) << toml;
    ASSERT_EQ(DrawLayout(again, samples), toml);
    drawn += again.drawings.size();
  }
  EXPECT_GT(drawn, 150u);
}

}  // namespace
}  // namespace conmuta::layouts
