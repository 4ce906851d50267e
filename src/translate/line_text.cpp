#include "translate/line_text.h"

#include <emmintrin.h>

#include <algorithm>
#include <functional>
#include <new>
#include <utility>

namespace conmuta {
namespace {

// Columns that are looked at together.
constexpr std::size_t kBlock = 16;
static_assert(LineText::kReach % kBlock == 0);

// Lines up to here are cleared alike, so that their length need not be guessed.
constexpr std::size_t kUsual = 6 * kBlock;

class Block {
 public:
  explicit Block(const char16_t* columns)
      : low_(_mm_loadu_si128(reinterpret_cast<const __m128i*>(columns))),
        high_(_mm_loadu_si128(reinterpret_cast<const __m128i*>(columns) + 1)) {}

  void Store(char16_t* columns) const {
    _mm_storeu_si128(reinterpret_cast<__m128i*>(columns), low_);
    _mm_storeu_si128(reinterpret_cast<__m128i*>(columns) + 1, high_);
  }

  // A bit for each column, set for a digit.
  std::uint16_t Digits() const {
    return static_cast<std::uint16_t>(
        _mm_movemask_epi8(_mm_packs_epi16(AreDigits(low_), AreDigits(high_))));
  }

 private:
  static __m128i AreDigits(__m128i columns) {
    // Shifted so that the digits are the lowest of all signed numbers.
    const __m128i shift = _mm_set1_epi16(static_cast<std::int16_t>(INT16_MIN - u'0'));
    return _mm_cmplt_epi16(_mm_add_epi16(columns, shift), _mm_set1_epi16(INT16_MIN + 10));
  }

  __m128i low_;
  __m128i high_;
};

}  // namespace

void LineText::Assign(TextView text) {
  const bool fits = text.size() <= capacity_ && !Holds(text);
  const bool gives_back = capacity_ > kOrdinary && text.size() <= kOrdinary;
  if (!fits || gives_back) [[unlikely]] {
    const std::size_t capacity = std::max(text.size(), kReach);
    std::unique_ptr<char16_t[]> characters(new (std::nothrow) char16_t[capacity]());
    if (!characters && !fits) throw std::bad_alloc();
    if (characters) {
      std::swap(characters_, characters);  // the text may stand in the old ones
      capacity_ = capacity;
      size_ = 0;
      return Take(text);
    }
  }
  Clear();
  Take(text);
}

// To where nothing but NULs are. Digits are looked for in what is copied: looking at the copy would
// mean waiting for it.
void LineText::Take(TextView text) {
  char16_t* to = characters_.get();
  size_ = text.size();
  digits_.fill(0);
  const auto put_digits = [this](std::size_t begin, unsigned digits) {
    const auto sixteen = static_cast<std::uint16_t>(digits);
    std::memcpy(&digits_[begin / 8], &sixteen, sizeof sixteen);
  };
  const char16_t* from = text.data();
  const std::size_t reach = std::min(text.size(), kReach);
  // Whole blocks, and one to sixteen columns more.
  const std::size_t end = reach != 0 ? (reach - 1) / kBlock * kBlock : 0;
  const std::size_t left = reach - end;
  for (std::size_t begin = 0; begin < end; begin += kBlock) {
    const Block block(from + begin);
    block.Store(to + begin);
    put_digits(begin, block.Digits());
  }
  if (end != 0) {
    // The last sixteen, of which some may be known.
    const Block block(from + reach - kBlock);
    block.Store(to + reach - kBlock);
    put_digits(end, unsigned{block.Digits()} >> (kBlock - left));
  } else {
    std::copy_n(from, left, to);
    put_digits(0, Block(to).Digits());
  }
  if (text.size() > kReach) std::copy(from + kReach, from + text.size(), to + kReach);
}

bool LineText::Holds(TextView text) const {
  const std::less<const char16_t*> before;
  const char16_t* begin = characters_.get();
  return !before(text.data(), begin) && before(text.data(), begin + capacity_);
}

void LineText::Clear() {
  constexpr std::array<char16_t, kBlock> kNothing{};
  const Block nothing(kNothing.data());
#pragma GCC unroll 6  // a call for so little costs more
  for (std::size_t i = 0; i < kUsual; i += kBlock) nothing.Store(&characters_[i]);
  for (std::size_t i = kUsual; i < std::min(size_, kReach); i += kBlock) {
    nothing.Store(&characters_[i]);
  }
}

bool LineText::HasDigit() const {
  return std::any_of(digits_.begin(), digits_.end(), [](std::uint8_t d) { return d != 0; }) ||
         (size_ > kReach && conmuta::HasDigit(View().substr(kReach)));
}

}  // namespace conmuta
