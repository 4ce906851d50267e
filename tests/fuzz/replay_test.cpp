// The fuzzers' targets without a fuzzer: over every seed, and over the same random mutations of
// them each time.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "fuzz/targets.h"
#include "support/random.h"

namespace conmuta::fuzz {
namespace {

std::vector<std::string> Seeds(const Target& target) {
  std::vector<std::filesystem::path> paths;
  const std::filesystem::path corpus = CONMUTA_CORPUS;
  for (const auto& entry : std::filesystem::directory_iterator(corpus / target.name)) {
    paths.push_back(entry.path());
  }
  std::sort(paths.begin(), paths.end());  // the same order everywhere
  std::vector<std::string> seeds;
  for (const auto& path : paths) {
    std::ifstream file(path, std::ios::binary);
    seeds.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
  }
  return seeds;
}

std::size_t Place(test::Random& random, const std::string& bytes) {
  return static_cast<std::size_t>(random.Below(static_cast<int>(bytes.size()) + 1));
}

// What a careless editor or a bad disk does to a file.
void Mutate(test::Random& random, std::string& bytes, const std::string& other) {
  const std::size_t at = Place(random, bytes);
  const auto some = static_cast<std::size_t>(random.Between(1, 16));
  switch (random.Below(7)) {
    case 0:
      if (at < bytes.size()) bytes[at] = static_cast<char>(random.Below(256));
      break;
    case 1:
      if (at < bytes.size()) bytes[at] = static_cast<char>(bytes[at] ^ (1 << random.Below(8)));
      break;
    case 2:
      bytes.insert(at, some, static_cast<char>(random.Below(256)));
      break;
    case 3:
      bytes.erase(at, some);
      break;
    case 4:
      bytes.resize(at);
      break;
    case 5:
      bytes.insert(at, other.substr(Place(random, other), some * 4));
      break;
    default: {
      const std::string digits = random.OneOf(
          std::vector<std::string>{"0", "255", "256", "32768", "2147483648", "-1", "99999999999"});
      bytes.replace(std::min(at, bytes.size()), digits.size(), digits);
    }
  }
}

class Replay : public testing::TestWithParam<Target> {};

TEST_P(Replay, Seeds) {
  const auto seeds = Seeds(GetParam());
  ASSERT_FALSE(seeds.empty());
  for (const std::string& seed : seeds) GetParam().run(seed);
  GetParam().run("");
}

TEST_P(Replay, Mutations) {
  const auto seeds = Seeds(GetParam());
  test::Random random(1);
  for (int round = 0; round < GetParam().mutations; ++round) {
    std::string bytes = random.OneOf(seeds);
    for (int count = random.Between(1, 8); count > 0; --count) {
      Mutate(random, bytes, random.OneOf(seeds));
    }
    GetParam().run(bytes);
  }
}

INSTANTIATE_TEST_SUITE_P(, Replay, testing::ValuesIn(kTargets),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace conmuta::fuzz
