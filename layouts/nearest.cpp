#include "layouts/nearest.h"

#include <algorithm>
#include <numeric>
#include <utility>
#include <vector>

namespace conmuta::layouts {
namespace {

std::size_t Distance(TextView a, TextView b) {
  std::vector<std::size_t> row(b.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 0; i < a.size(); ++i) {
    std::size_t diagonal = std::exchange(row[0], i + 1);
    for (std::size_t j = 0; j < b.size(); ++j) {
      const std::size_t replaced = diagonal + (ToUpper(a[i]) == ToUpper(b[j]) ? 0 : 1);
      diagonal = row[j + 1];
      row[j + 1] = std::min({row[j] + 1, diagonal + 1, replaced});
    }
  }
  return row.back();
}

}  // namespace

TextView Nearest(TextView written, std::span<const TextView> names) {
  constexpr std::size_t kLongestName = 60;  // nothing longer is a slip of one of these
  if (written.size() > kLongestName) return {};
  TextView nearest;
  std::size_t least = written.size() / 3 + 2;
  for (const TextView name : names) {
    const std::size_t distance = Distance(written, name);
    if (distance >= least || distance >= name.size()) continue;
    least = distance;
    nearest = name;
  }
  return nearest;
}

}  // namespace conmuta::layouts
