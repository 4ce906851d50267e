// A second translator, written as plainly as possible and without a line of the real one: what the
// real one does is compared with it. Slow, and small enough to be checked by reading.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>

namespace conmuta::test::naive {

using String = std::u16string;

struct Overflow {};
struct InvalidArgument {};

inline long long In16Bits(long long value) {
  if (value < -32768 || value > 32767) throw Overflow();
  return value;
}

inline long long In32Bits(long long value) {
  if (value < -2147483648LL || value > 2147483647LL) throw Overflow();
  return value;
}

inline bool IsDigit(char16_t c) {
  return u'0' <= c && c <= u'9';
}

inline String WithoutNuls(String text) {
  text.erase(std::remove(text.begin(), text.end(), u'\0'), text.end());
  return text;
}

inline String Cut(const String& text, std::size_t width) {
  return WithoutNuls(text.substr(0, width));
}

// Nothing when the text is not a number; the nearest whole number otherwise, halves to even.
inline std::optional<long long> Number(String text) {
  while (!text.empty() && text.front() == u' ') text.erase(0, 1);
  while (!text.empty() && text.back() == u' ') text.pop_back();
  bool negative = false;
  if (!text.empty() && (text[0] == u'-' || text[0] == u'+')) {
    negative = text[0] == u'-';
    text.erase(0, 1);
  }
  const std::size_t point = text.find(u'.');
  const String whole = text.substr(0, point);
  const String fraction = point == String::npos ? String() : text.substr(point + 1);
  if (whole.empty() && fraction.empty()) return std::nullopt;
  if (!std::all_of(whole.begin(), whole.end(), IsDigit)) return std::nullopt;
  if (!std::all_of(fraction.begin(), fraction.end(), IsDigit)) return std::nullopt;
  long long value = 0;
  for (const char16_t c : whole) {
    if (value < 1000000000000LL) value = value * 10 + (c - u'0');
  }
  const String padded = fraction + u"0";
  const String half = String(u"5") + String(padded.size() - 1, u'0');
  if (padded > half || (padded == half && value % 2 == 1)) ++value;
  return negative ? -value : value;
}

// ---- Configuration

struct Item {
  int pos = 0, size = 0, type = 0;
};

struct Constant {
  int pos = 0;
  String text;
};

struct Config {
  int translation = 1;  // the case
  std::map<int, Item> items;
  std::map<int, Constant> constants;
  int active_item = 0;
  int active_constant = 0;
};

// ---- Call record

enum Part { kYear, kMonth, kDay, kHours, kMinutes, kSeconds };
enum Group { kStart = 0, kDuration = 1, kRing = 2 };

struct Call {
  std::array<std::array<long long, 6>, 2> moments{};
  long long ring = 0;
  int type = 1;
  int attribute = 0;
  String phone, transferred_to, caller, callee, account;

  bool Valid() const {
    return type != 1 && !caller.empty() && !callee.empty() && moments[kStart][kYear] > 0 &&
           moments[kStart][kMonth] > 0 && moments[kStart][kDay] > 0;
  }
};

struct Date {
  int year, month, day;
};

// Days since 1 January 100.
inline long long Days(long long year, long long month, long long day) {
  if (year < 30) {
    year += 2000;
  } else if (year < 100) {
    year += 1900;
  }
  if (year > 9999) throw InvalidArgument();
  long long days = 0;
  const auto is_leap = [](long long y) { return (y % 4 == 0 && y % 100 != 0) || y % 400 == 0; };
  for (long long y = 100; y < year; ++y) days += is_leap(y) ? 366 : 365;
  const int lengths[] = {31, is_leap(year) ? 29 : 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  for (long long m = 1; m < month; ++m) days += lengths[m - 1];
  days += day - 1;
  if (days >= 3615900) throw InvalidArgument();  // beyond 31 December 9999
  return days;
}

// ---- Translator

class Translator {
 public:
  explicit Translator(Date today) : today_(today) {}

  Config config;
  Call info;  // what the host sees
  String line;

  void Translate(String text) {
    while (!text.empty() && (text[0] == u'\r' || text[0] == u'\n')) text.erase(0, 1);
    line = text;
    info = Call();
    if (line.empty()) return;
    const int translation = config.translation;
    if (translation == 1 || translation == 2 || translation == 5) Standard();
    if (translation == 3) Meridian();
    if (translation == 4) Norstar();
  }

 private:
  // ---- Readers

  bool HasItem(int kind) {
    config.active_item = kind;
    if (config.items.count(kind) == 0) return false;
    const Item& item = config.items[kind];
    return item.pos != 0 && item.size != 0 && item.type != 0;
  }

  bool HasConstant(int kind) {
    config.active_constant = kind;
    return config.constants.count(kind) != 0 && config.constants[kind].pos != 0 &&
           !config.constants[kind].text.empty();
  }

  String ReadText(int kind) {
    if (!HasItem(kind)) return u"";
    const Item& item = config.items[kind];
    if (item.pos + item.size > 255) throw Overflow();
    String text;
    for (int column = item.pos; column < item.pos + item.size; ++column) {
      if (column > static_cast<int>(line.size())) break;
      const char16_t c = line[static_cast<std::size_t>(column - 1)];
      if (item.type != 1 || IsDigit(c)) text += c;
    }
    return text;
  }

  bool Stands(int kind) {
    if (!HasConstant(kind)) return false;
    const Constant& constant = config.constants[kind];
    const int size = static_cast<int>(constant.text.size());
    if (constant.pos + size > 255) throw Overflow();
    if (constant.pos + size - 1 > static_cast<int>(line.size())) return false;
    return line.substr(static_cast<std::size_t>(constant.pos - 1), constant.text.size()) ==
           constant.text;
  }

  long long ReadYear(int kind) {
    if (!HasItem(kind) || config.items[kind].type != 1) return 0;
    const String digits = ReadText(kind);
    if (digits.empty()) return 0;
    const long long n = In16Bits(*Number(digits));
    const long long y = today_.year;
    long long year = n;
    if (n <= 9) {
      year = y - y % 10 + n;
    } else if (n <= 79) {
      year = y - y % 100 + n;
    } else if (n <= 99) {
      year = 1900 + n;
    } else if (n <= 999) {
      year = y - y % 1000 + n;
    } else if (n <= 9999) {
      year = y - y % 10000 + n;
    }
    In16Bits(year);
    return y > year ? y : year;
  }

  long long ReadMonthOrDay(int kind, int last, int todays) {
    if (!HasItem(kind) || config.items[kind].type != 1) return 0;
    const std::optional<long long> number = Number(ReadText(kind));
    if (!number) return todays;
    In16Bits(*number);
    return 1 <= *number && *number <= last ? *number : todays;
  }

  long long ReadHours(int kind) {
    const std::optional<long long> number = Number(ReadText(kind));
    if (!number) return 0;
    In32Bits(*number);
    return *number < 0 ? 0 : *number;
  }

  long long ReadMinutes(int kind) {
    const long long minutes = ReadHours(kind);
    return minutes > 59 ? 59 : minutes;
  }

  int ReadType() {
    if (std::none_of(line.begin(), line.end(), IsDigit)) return 1;
    for (int type = 2; type <= 5; ++type) {
      const int plain = 4 + (type - 2) * 3;
      const int also = plain + 1;
      const int instead = plain + 2;
      if (!HasConstant(plain)) continue;
      if (Stands(plain)) {
        if (!HasConstant(also)) return type;
        if (Stands(also)) return type;
      } else {
        if (HasConstant(instead) && Stands(instead)) return type;
      }
    }
    return 1;
  }

  int ReadAttribute(int type) {
    if (type < 2 || type > 5) return 0;
    const int start = 16 + (type - 2) * 2;
    if (Stands(start)) return 1;
    if (Stands(start + 1)) return 3;
    return 0;
  }

  enum Party { kPhone, kCaller, kCallee };

  String ReadParty(Party party, int type, int attribute) {
    static const std::map<std::pair<int, int>, std::array<int, 3>> kinds = {
        {{2, 0}, {18, 30, 31}}, {{2, 1}, {22, 38, 39}}, {{2, 3}, {23, 40, 41}},
        {{3, 0}, {19, 33, 32}}, {{3, 1}, {24, 43, 42}}, {{3, 3}, {25, 45, 44}},
        {{4, 0}, {20, 34, 35}}, {{4, 1}, {26, 46, 47}}, {{4, 3}, {27, 48, 49}},
        {{5, 0}, {21, 36, 37}}, {{5, 1}, {28, 50, 51}}, {{5, 3}, {29, 52, 53}}};
    const auto row = kinds.find({type, attribute});
    return row == kinds.end() ? String() : ReadText(row->second[party]);
  }

  // ---- Groups of items

  void ReadDate(Call& call, Group group, int year, int month, int day) {
    std::array<long long, 6>& moment = call.moments[group];
    const auto store = [&](Part part, long long value, int todays) {
      moment[part] = value == 0 && group == kStart ? todays : value;
    };
    store(kYear, ReadYear(year), today_.year);
    store(kMonth, ReadMonthOrDay(month, 12, today_.month), today_.month);
    store(kDay, ReadMonthOrDay(day, 31, today_.day), today_.day);
  }

  void ReadTime(Call& call, Group group, int hours, int minutes, int seconds) {
    const auto store = [&](Part part, long long value, long long in_seconds) {
      if (group == kRing) {
        if (part == kHours) In16Bits(value * in_seconds);
        call.ring = In32Bits(call.ring + value * in_seconds);
      } else {
        call.moments[group][part] = value;
      }
    };
    store(kHours, In16Bits(ReadHours(hours)), 3600);
    store(kMinutes, ReadMinutes(minutes), 60);
    store(kSeconds, ReadMinutes(seconds), 1);
  }

  void ReadStart(Call& call) {
    ReadDate(call, kStart, 4, 3, 2);
    ReadTime(call, kStart, 5, 6, 7);
  }

  void ReadDuration(Call& call) {
    ReadDate(call, kDuration, 10, 9, 8);
    ReadTime(call, kDuration, 11, 12, 13);
  }

  void ReadParties(Call& call, int attribute) {
    call.caller = Cut(ReadParty(kCaller, call.type, attribute), 10);
    call.callee = Cut(ReadParty(kCallee, call.type, attribute), 10);
  }

  // ---- Pending calls

  static char16_t Upper(char16_t c) {
    if ((c >= u'a' && c <= u'z') || c == u'ñ') return static_cast<char16_t>(c - 32);
    return c;
  }
  static String Upper(String text) {
    for (char16_t& c : text) c = Upper(c);
    return text;
  }

  void Park(const Call& call) {
    const String trunk = call.type == 2 ? call.caller : call.callee;
    for (int slot = 1; slot <= 100; ++slot) {
      if (parked_.count(slot) == 0) continue;
      const Call& old = parked_[slot];
      if (old.type == 1 || (old.type == 2 && old.caller == trunk) ||
          ((old.type == 3 || old.type == 6) && old.callee == trunk)) {
        parked_[slot] = call;
        return;
      }
    }
    for (int slot = 1; slot <= 100; ++slot) {
      if (parked_.count(slot) != 0) continue;
      parked_[slot] = call;
      return;
    }
  }

  int Find(String key) {
    while (!key.empty() && key.front() == u' ') key.erase(0, 1);
    while (!key.empty() && key.back() == u' ') key.pop_back();
    key = Upper(key);
    for (int slot = 1; slot <= 100; ++slot) {
      if (parked_.count(slot) == 0) continue;
      const Call& call = parked_[slot];
      if ((call.type == 2 || call.type == 5) && Upper(call.caller) == key) return slot;
      if ((call.type == 3 || call.type == 5 || call.type == 6) && Upper(call.callee) == key) {
        return slot;
      }
    }
    return 0;
  }

  int FindByTrunkOf(const Call& call) {
    if (call.type == 2) return Find(call.caller);
    if (call.type == 3) return Find(call.callee);
    return 0;
  }

  void Free(int slot) {
    if (parked_.count(slot) != 0) parked_[slot].type = 1;
  }

  // ---- Standard translation

  void Afternoon(int marker, Group group) {
    if (!HasConstant(marker) || Stands(marker)) return;
    long long& hours = info.moments[group][kHours];
    if (1 <= hours && hours <= 11) hours += 12;
  }

  void Subtract() {
    for (const auto& moment : info.moments) {
      for (const long long part : moment) {
        if (part <= 0) return;
      }
    }
    const auto seconds = [](const std::array<long long, 6>& m) {
      return Days(m[kYear], m[kMonth], m[kDay]) * 86400 + m[kHours] * 3600 + m[kMinutes] * 60 +
             m[kSeconds];
    };
    const long long difference =
        In32Bits(seconds(info.moments[kStart]) - seconds(info.moments[kDuration]));
    std::array<long long, 6>& duration = info.moments[kDuration];
    duration[kYear] = duration[kMonth] = duration[kDay] = 0;
    duration[kHours] = In16Bits(difference / 3600);
    const long long rest = difference - duration[kHours] * 3600;
    duration[kMinutes] = rest / 60;
    duration[kSeconds] = rest - duration[kMinutes] * 60;
  }

  void Standard() {
    ReadStart(info);
    Afternoon(2, kStart);
    ReadDuration(info);
    Afternoon(3, kDuration);
    if (config.translation == 5) Subtract();
    ReadTime(info, kRing, 14, 15, 16);
    info.type = ReadType();
    if (info.type == 1) info.type = 3;
    info.attribute = ReadAttribute(info.type);
    info.phone = Cut(ReadParty(kPhone, info.type, info.attribute), 30);
    ReadParties(info, info.attribute);
    info.account = Cut(ReadText(17), 30);
    if (config.translation == 2 && info.Valid()) PairTransfers();
  }

  void PairTransfers() {
    if (info.attribute == 1) {
      Park(info);
    } else if (info.attribute == 3) {
      const int slot = FindByTrunkOf(info);
      if (slot == 0) return;
      const Call old = parked_[slot];
      info.phone = old.phone;
      if (old.type == 2) info.transferred_to = old.callee;
      if (old.type == 3) info.transferred_to = old.caller;
      if (old.type == 2 || old.type == 3) info.type = old.type;
      info.account = old.account;
      Free(slot);
      ReadParties(info, info.attribute);
    } else if (info.type == 3 && info.phone.empty()) {
      info = Call();
    }
  }

  // ---- Meridian translation

  void Meridian() {
    ReadStart(info);
    info.type = ReadType();
    if (info.type == 1) return;
    info.phone = Cut(ReadParty(kPhone, info.type, info.attribute), 30);
    ReadParties(info, info.attribute);
    const char16_t letter = Upper(line[0]);
    if (letter == u'A') {
      info.account = Cut(ReadText(17), 30);
      info.type = 6;
      Park(info);
      info = Call();
      return;
    }
    ReadDuration(info);
    const int slot = FindByTrunkOf(info);
    if (letter == u'N') {
      if (slot == 0) return;
      info.account = parked_[slot].account;
      Free(slot);
    } else if (letter == u'S') {
      info.attribute = 1;
      if (slot == 0) {
        Park(info);
      } else {
        info.account = parked_[slot].account;
        parked_[slot] = info;
      }
    } else if (letter == u'X') {
      if (slot == 0) return;
      info.account = parked_[slot].account;
      info.attribute = 2;
    } else if (letter == u'E') {
      info.attribute = 3;
      if (slot == 0) return;
      info.account = parked_[slot].account;
      info.transferred_to = parked_[slot].type == 2 ? parked_[slot].callee : parked_[slot].caller;
      Free(slot);
    } else {
      info = Call();
    }
  }

  // ---- Norstar translation

  static String DigitsFrom(const String& text, std::size_t column) {
    String digits;
    for (std::size_t i = column - 1; i < text.size(); ++i) {
      if (IsDigit(text[i])) digits += text[i];
    }
    return digits;
  }

  void Norstar() {
    if (line.substr(0, 8) == u"--------") {
      info = block_;
      block_ = Call();
      ReadStart(block_);
      block_.type = 3;
      block_.attribute = 0;
      ReadParties(block_, info.attribute);
      open_ = true;
      return;
    }
    if (!open_) return;
    if (line.size() < 11) throw InvalidArgument();
    const String event = line.substr(11);
    const auto is = [&](const String& keyword) {
      return event.substr(0, keyword.size()) == keyword;
    };
    if (is(u"TRANSFERRED")) {
      ReadTime(block_, kDuration, 11, 12, 13);
      block_.attribute = block_.attribute != 0 ? 2 : 1;
      info = block_;
      Park(info);
      block_ = Call();
      open_ = false;
    } else if (is(u"INCOMING CALL")) {
      std::swap(block_.caller, block_.callee);
      block_.type = 2;
    } else if (is(u"FROM TRANSFER")) {
      const int slot = Find(block_.callee);
      if (slot == 0) {
        open_ = false;
        return;
      }
      const String extension = block_.type == 2 ? block_.callee : block_.caller;
      block_ = parked_[slot];
      Free(slot);
      (block_.type == 2 ? block_.callee : block_.caller) = extension;
      block_.attribute = 2;
    } else if (is(u"CALL RELEASED")) {
      ReadTime(block_, kDuration, 11, 12, 13);
      if (block_.attribute == 2) block_.attribute = 3;
      info = block_;
      block_ = Call();
      open_ = false;
    } else if (is(u"DIGITS DIALED")) {
      if (event.size() >= 18 && block_.type == 3) block_.phone = Cut(DigitsFrom(event, 18), 30);
    } else if (is(u"RESTRICTION PASSWORD")) {
      if (event.size() >= 22) block_.account = Cut(DigitsFrom(event, 22), 30);
    }
  }

  Date today_;
  std::map<int, Call> parked_;
  Call block_;
  bool open_ = false;

 public:
  bool block_is_open() const { return open_; }
};

}  // namespace conmuta::test::naive
