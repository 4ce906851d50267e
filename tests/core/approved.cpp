#include "support/approved.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <sstream>

#include "support/approved_file.h"

namespace conmuta::test {
namespace {

bool AlikeWords(const std::string& a, const std::string& b, double tolerance) {
  if (a == b) return true;
  char* end_a = nullptr;
  char* end_b = nullptr;
  const double x = std::strtod(a.c_str(), &end_a);
  const double y = std::strtod(b.c_str(), &end_b);
  return *end_a == '\0' && *end_b == '\0' && std::abs(x - y) <= tolerance;
}

bool AlikeLines(const std::string& a, const std::string& b, double tolerance) {
  std::istringstream words_a(a);
  std::istringstream words_b(b);
  std::string word_a;
  std::string word_b;
  while (words_a >> word_a) {
    if (!(words_b >> word_b) || !AlikeWords(word_a, word_b, tolerance)) return false;
  }
  return !(words_b >> word_b);
}

}  // namespace

std::string Approved(const std::string& name, const std::string& made) {
  return ApprovedFile(std::filesystem::path(CONMUTA_APPROVED) / name, made);
}

void ExpectLikeApproved(const std::string& name, const std::string& made, double tolerance) {
  std::istringstream approved(Approved(name, made));
  std::istringstream now(made);
  std::string wanted;
  std::string line;
  for (int number = 1; std::getline(approved, wanted); ++number) {
    ASSERT_TRUE(std::getline(now, line)) << name << " ended before line " << number;
    ASSERT_TRUE(AlikeLines(wanted, line, tolerance))
        << name << ", line " << number << "\napproved: " << wanted << "\nnow:      " << line;
  }
  ASSERT_FALSE(std::getline(now, line)) << name << " goes on with: " << line;
}

}  // namespace conmuta::test
