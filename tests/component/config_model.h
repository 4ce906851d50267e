// A configuration written down a second time, as plainly as possible, to hold the component
// against: lists that are searched from the front, texts that are padded, a file built byte by
// byte.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/text.h"

namespace conmuta::test {

// Characters of the model's texts: ASCII, and what the ANSI code page lacks.
inline char ToAnsi(char16_t c) {
  return c < 0x80 ? static_cast<char>(c) : '?';
}

class ConfigModel {
 public:
  static constexpr int kItems = 0;
  static constexpr int kConstants = 1;

  struct Slot {
    int kind = 0;
    int type = 0;
    int pos = 0;
    int size = 0;
    Text constant = Text(20, u'\0');
  };
  struct List {
    std::vector<Slot> slots;
    int active = 0;
    int highest;       // kind
    int written_type;  // of a slot whose position was written
  };

  int id = 0;
  int version = 3;
  int special_case = 1;
  Text brand = Text(50, u'\0');
  Text model = Text(50, u'\0');
  Text comments = Text(250, u'\0');
  Text separator = Text(10, u'\0');
  std::array<std::array<std::uint32_t, 26>, 4> wires{};
  int pair = 0;
  int left = 0;
  int right = 0;
  bool modified = false;
  std::array<List, 2> lists = {List{{}, 0, 53, 1}, List{{}, 0, 23, 2}};
  std::vector<int> events;

  static Text Shown(const Text& stored) {
    Text shown;
    for (const char16_t c : stored) {
      if (c != u'\0') shown += c;
    }
    return shown;
  }

  void WriteBrand(Text& field, const Text& value) {
    if (!Store(field, value)) return;
    events.push_back(1);
    events.push_back(4);
  }
  void WriteText(Text& field, const Text& value) {
    if (Store(field, value)) events.push_back(4);
  }
  void WriteCase(int value) {
    if (special_case == value) return;
    special_case = value;
    Change();
  }

  bool IsValid(const List& list, const Slot& slot) const {
    if (slot.pos == 0 || slot.type == 0 || slot.kind < 2 || slot.kind > list.highest) return false;
    return list.highest == 53 ? slot.size != 0 : !Shown(slot.constant).empty();
  }
  // Null when there is none.
  const Slot* Active(const List& list) const {
    if (list.active < 2 || list.active > list.highest) return nullptr;
    for (const Slot& slot : list.slots) {
      if (slot.kind == list.active) return &slot;
    }
    return nullptr;
  }
  bool HasActive(const List& list) const {
    const Slot* slot = Active(list);
    return slot != nullptr && IsValid(list, *slot);
  }

  void WriteByte(List& list, int Slot::*byte, int value) {
    Slot& slot = ActiveOrNew(list);
    if (slot.*byte != value) {
      slot.*byte = value;
      Change();
    }
    slot.type = list.written_type;
    ReleaseUnlessValid(list, slot);
  }
  void WriteType(int value) {
    List& list = lists[kItems];
    Slot& slot = ActiveOrNew(list);
    if (slot.type == value) return;
    slot.type = value;
    ReleaseUnlessValid(list, slot);
    Change();
  }
  void WriteConstant(const Text& value) {
    List& list = lists[kConstants];
    Slot& slot = ActiveOrNew(list);
    if (Store(slot.constant, value)) events.push_back(4);
    slot.size = static_cast<int>(Shown(slot.constant).size());
    slot.type = list.written_type;
    ReleaseUnlessValid(list, slot);
  }

  int LeftPins() const { return pair == 1 || pair == 2 ? 9 : 25; }
  int RightPins() const { return pair == 1 || pair == 3 ? 9 : 25; }
  void WritePin(int& pin, int value) {
    if (pair != 0 && value >= 1 && value <= LeftPins()) pin = value;
  }
  bool HasPins() const {
    return pair != 0 && left >= 1 && left <= LeftPins() && right >= 1 && right <= RightPins();
  }
  bool IsWired() const {
    return HasPins() && pair >= 1 && pair <= 4 && (Mask() >> (right - 1) & 1) != 0;
  }
  void WriteWire(bool wired) {
    if (!HasPins()) return;
    if (pair >= 1 && pair <= 4) {
      if (IsWired() == wired) return;
      wires[static_cast<std::size_t>(pair - 1)][static_cast<std::size_t>(left)] ^= 1u
                                                                                   << (right - 1);
    }
    Change();
  }

  void Reset() {
    version = 3;
    for (auto& table : wires) table.fill(0);
    WriteText(comments, u"");
    WriteBrand(brand, u"");
    WriteBrand(model, u"");
    WriteText(separator, u"");
    left = right = 0;
    special_case = 1;
    for (List& list : lists) {
      list.active = 0;
      for (Slot& slot : list.slots) slot.type = 0;
    }
    modified = false;
  }
  void Iniciar() {
    Reset();
    events.push_back(3);
  }

  bool CanBeSaved() const {
    return special_case != 0 && !Shown(brand).empty() && !Shown(model).empty() &&
           !Shown(separator).empty();
  }

  std::string Save() {
    std::string bytes;
    Append(bytes, 3, 4);
    for (const Text* text : {&brand, &model, &comments, &separator}) Append(bytes, *text);
    Append(bytes, static_cast<std::uint32_t>(special_case), 4);
    for (std::size_t table = 0; table < 4; ++table) {
      for (std::size_t pin = 0; pin < (table < 2 ? 10u : 26u); ++pin) {
        Append(bytes, wires[table][pin], 4);
      }
    }
    std::string records;
    for (const List& list : lists) {
      std::uint32_t count = 0;
      for (const Slot& slot : list.slots) {
        if (!IsValid(list, slot)) continue;
        ++count;
        Append(records, static_cast<std::uint32_t>(slot.kind), 4);
        Append(records, static_cast<std::uint32_t>(slot.type), 4);
        Append(records, static_cast<std::uint32_t>(slot.pos), 1);
        Append(records, static_cast<std::uint32_t>(slot.size), 1);
        if (&list == &lists[kConstants]) Append(records, slot.constant);
      }
      Append(bytes, count, 2);
    }
    modified = false;
    return bytes + records;
  }

  // Of a file that Save made.
  void Open(const std::string& bytes) {
    Reset();
    version = static_cast<int>(Number(bytes, 0, 4));
    brand = Characters(bytes, 4, 50);
    model = Characters(bytes, 54, 50);
    comments = Characters(bytes, 104, 250);
    separator = Characters(bytes, 354, 10);
    special_case = static_cast<int>(Number(bytes, 364, 4));
    std::size_t place = 368;
    for (std::size_t table = 0; table < 4; ++table) {
      for (std::size_t pin = 0; pin < (table < 2 ? 10u : 26u); ++pin, place += 4) {
        wires[table][pin] = Number(bytes, place, 4);
      }
    }
    place = 660;
    for (std::uint32_t i = 0; i < Number(bytes, 656, 2); ++i, place += 10) {
      lists[kItems].active = static_cast<int>(Number(bytes, place, 4));
      WriteByte(lists[kItems], &Slot::pos, static_cast<int>(Number(bytes, place + 8, 1)));
      WriteByte(lists[kItems], &Slot::size, static_cast<int>(Number(bytes, place + 9, 1)));
      WriteType(static_cast<int>(Number(bytes, place + 4, 4)));
    }
    for (std::uint32_t i = 0; i < Number(bytes, 658, 2); ++i, place += 30) {
      lists[kConstants].active = static_cast<int>(Number(bytes, place, 4));
      WriteByte(lists[kConstants], &Slot::pos, static_cast<int>(Number(bytes, place + 8, 1)));
      WriteConstant(Characters(bytes, place + 10, 20));
    }
    modified = false;
    events.push_back(2);
  }

 private:
  void Change() {
    modified = true;
    events.push_back(4);
  }

  bool Store(Text& field, const Text& value) {
    Text stored = value.substr(0, field.size());
    stored.resize(field.size(), u'\0');
    if (stored == field) return false;
    field = stored;
    modified = true;
    return true;
  }

  Slot& ActiveOrNew(List& list) {
    if (list.active >= 2 && list.active <= list.highest) {
      for (Slot& slot : list.slots) {
        if (slot.kind == list.active) return slot;
      }
    }
    std::size_t place = 0;
    while (place < list.slots.size() && list.slots[place].kind != list.active &&
           list.slots[place].type != 0) {
      ++place;
    }
    if (place == list.slots.size()) list.slots.emplace_back();
    list.slots[place].kind = list.active;
    list.slots[place].type = list.written_type;
    return list.slots[place];
  }

  void ReleaseUnlessValid(const List& list, Slot& slot) const {
    if (!IsValid(list, slot)) slot.type = 0;
  }

  std::uint32_t Mask() const {
    return wires[static_cast<std::size_t>(pair - 1)][static_cast<std::size_t>(left)];
  }

  static void Append(std::string& bytes, std::uint32_t number, int size) {
    for (int i = 0; i < size; ++i) bytes += static_cast<char>(number >> (8 * i) & 0xFF);
  }
  static void Append(std::string& bytes, const Text& text) {
    for (const char16_t c : text) bytes += ToAnsi(c);
  }
  static std::uint32_t Number(const std::string& bytes, std::size_t place, std::size_t size) {
    std::uint32_t number = 0;
    for (std::size_t i = size; i-- > 0;) {
      number = number << 8 | static_cast<unsigned char>(bytes[place + i]);
    }
    return number;
  }
  static Text Characters(const std::string& bytes, std::size_t place, std::size_t size) {
    const std::string part = bytes.substr(place, size);
    return {part.begin(), part.end()};
  }
};

}  // namespace conmuta::test
