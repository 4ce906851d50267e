#include "kx_parser.h"

#include <algorithm>

namespace kx {
namespace {

// Columns count from 0 here:
//
//           1         2         3         4         5         6         7
// 01234567890123456789012345678901234567890123456789012345678901234567890123456789
// 01/14/19 09:07AM *1204 03 18005550123                    00:12'40 98765
// 01/14/19 09:15AM 1210  01 <I>5550177                0'12 00:00'20 431211     TR
// 01/14/19 09:21AM 1201     EXT1215
constexpr std::size_t kWidth = 80;

constexpr int kNoNumber = -1;

constexpr unsigned DigitOf(char16_t c) {
  return static_cast<unsigned>(c) - u'0';
}

// Two characters, of which any may be no digit.
inline int Pair(const char16_t* column) {
  const unsigned tens = DigitOf(column[0]);
  const unsigned ones = DigitOf(column[1]);
  if (tens < 10 && ones < 10) [[likely]] {
    return static_cast<int>(tens * 10 + ones);
  }
  return tens < 10 ? static_cast<int>(tens) : ones < 10 ? static_cast<int>(ones) : kNoNumber;
}

inline int Count(const char16_t* column) {
  return std::max(0, Pair(column));
}

inline int SixtiethPart(const char16_t* column) {
  return std::min(59, Count(column));
}

// Without a branch that would have to be guessed.
template <std::size_t kFieldWidth, std::size_t kMost>
inline void KeepDigits(const char16_t* column, Digits<kMost>& digits) {
  static_assert(kFieldWidth <= kMost);
  std::size_t size = 0;
  for (std::size_t i = 0; i < kFieldWidth; ++i) {
    digits.characters[size] = column[i];
    size += DigitOf(column[i]) < 10 ? 1 : 0;
  }
  digits.size = size;
}

template <std::size_t kSize>
inline bool Stands(const char16_t (&text)[kSize], const char16_t* column) {
  for (std::size_t i = 0; i + 1 < kSize; ++i) {
    if (column[i] != text[i]) return false;
  }
  return true;
}

bool HasDigit(std::u16string_view line) {
  return std::any_of(line.begin(), line.end(), [](char16_t c) { return DigitOf(c) < 10; });
}

inline Type TypeOf(const char16_t* line) {
  if (Stands(u"<I>", line + 26) ? line[62] == u'\'' : line[53] == u'\'') return Type::kIncoming;
  if (line[62] == u'\'' ? line[59] == u':' : line[62] == u';') return Type::kOutgoing;
  if (Stands(u"EXT", line + 26) ? Stands(u"  ", line + 23) : Stands(u"VM500", line + 26)) {
    return Type::kInternal;
  }
  return line[2] == u'/' || line[1] == u'/' ? Type::kUnrecognised : Type::kOutgoing;
}

inline Transfer TransferOf(const char16_t* line) {
  return Stands(u"TR", line + 77) ? Transfer::kBegins : Transfer::kNone;
}

}  // namespace

Parser::Parser(const Date& today) : today_(today) {
  for (int digits = 0; digits < 100; ++digits) {
    const int begin = digits < 10   ? today.year - today.year % 10
                      : digits < 80 ? today.year - today.year % 100
                                    : 1900;
    years_[static_cast<std::size_t>(digits)] = std::max(today.year, begin + digits);
  }
}

const Call& Parser::Parse(std::u16string_view raw) {
  while (!raw.empty() && (raw.front() == u'\r' || raw.front() == u'\n')) raw.remove_prefix(1);

  call_.line.assign(raw);

  // A short line is read as one filled up with NULs, which are neither digits nor marks.
  std::array<char16_t, kWidth> filled;
  const char16_t* line = raw.data();
  if (raw.size() < kWidth) {
    const auto end = std::copy(raw.begin(), raw.end(), filled.begin());
    std::fill(end, filled.end(), u'\0');
    line = filled.data();
  }

  call_.transfer = Transfer::kNone;
  call_.phone.size = call_.caller.size = call_.callee.size = 0;
  if (raw.empty()) {
    call_ = Call();
    return call_;
  }

  const int month = Pair(line);
  const int day = Pair(line + 3);
  const int year = Pair(line + 6);
  call_.year = year >= 0 ? years_[static_cast<std::size_t>(year)] : today_.year;
  call_.month = month >= 1 && month <= 12 ? month : today_.month;
  call_.day = day >= 1 && day <= 31 ? day : today_.day;
  const int hour = Count(line + 9);
  call_.hour = hour >= 1 && hour <= 11 && !Stands(u"AM", line + 14) ? hour + 12 : hour;
  call_.minute = SixtiethPart(line + 12);

  const unsigned ring_minutes = DigitOf(line[52]);
  call_.ring =
      (ring_minutes < 10 ? static_cast<int>(ring_minutes) * 60 : 0) + SixtiethPart(line + 54);
  call_.duration = Count(line + 57) * 3600 + SixtiethPart(line + 60) * 60 + SixtiethPart(line + 63);

  call_.type = HasDigit(raw) ? TypeOf(line) : Type::kOutgoing;
  switch (call_.type) {
    case Type::kIncoming:
      call_.transfer = TransferOf(line);
      KeepDigits<25>(line + 26, call_.phone);
      KeepDigits<2>(line + 23, call_.caller);
      KeepDigits<5>(line + 17, call_.callee);
      break;
    case Type::kOutgoing:
      call_.transfer = TransferOf(line);
      if (call_.transfer == Transfer::kNone && line[3] == u'/') [[unlikely]] {
        call_.transfer = Transfer::kEnds;
        break;
      }
      KeepDigits<25>(line + 26, call_.phone);
      KeepDigits<5>(line + 17, call_.caller);
      KeepDigits<2>(line + 23, call_.callee);
      break;
    case Type::kInternal:
      KeepDigits<5>(line + 17, call_.caller);
      KeepDigits<5>(line + 28, call_.callee);
      break;
    default:
      break;
  }
  KeepDigits<10>(line + 66, call_.account);
  return call_;
}

}  // namespace kx
