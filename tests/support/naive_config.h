// A configuration told as plainly as possible: linear walks over plain lists, a set of wires, no
// index, nothing in common with the code under test. Slow, and meant to be read.
#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <tuple>
#include <vector>

#include "support/file_images.h"
#include "support/shown_text.h"

namespace conmuta::test {

class NaiveConfig {
 public:
  struct Slot {
    int param = 0;
    int type = 0;
    int pos = 0;
    int size = 0;
    Text constant = Text(20, u'\0');
  };

  struct SlotRules {
    int first_kind;
    int last_kind;
    int type_when_written;
    bool has_constant;
  };
  static constexpr SlotRules kDato{2, 53, 1, false};
  static constexpr SlotRules kCte{2, 23, 2, true};

  static bool IsValid(const SlotRules& rules, const Slot& slot) {
    if (slot.pos == 0 || slot.type == 0) return false;
    if (slot.param < rules.first_kind || slot.param > rules.last_kind) return false;
    return rules.has_constant ? !WithoutNuls(slot.constant).empty() : slot.size != 0;
  }

  // Index of the slot, or -1.
  static int Find(const SlotRules& rules, const std::vector<Slot>& slots, int kind) {
    if (kind < rules.first_kind || kind > rules.last_kind) return -1;
    for (std::size_t i = 0; i < slots.size(); ++i) {
      if (slots[i].param == kind) return static_cast<int>(i);
    }
    return -1;
  }

  static Slot& FindOrMake(const SlotRules& rules, std::vector<Slot>& slots, int kind) {
    int found = Find(rules, slots, kind);
    if (found < 0) {
      std::size_t place = 0;
      while (place < slots.size() && slots[place].param != kind && slots[place].type != 0) ++place;
      if (place == slots.size()) slots.push_back(Slot());
      slots[place].param = kind;
      slots[place].type = rules.type_when_written;
      found = static_cast<int>(place);
    }
    return slots[static_cast<std::size_t>(found)];
  }

  // What each of the writes does.
  void WriteText(Text& field, std::size_t width, const Text& value, bool is_name) {
    const Text fixed = Fixed(value, width);
    if (fixed == field) return;
    field = fixed;
    modified = true;
    if (is_name) events.push_back("CambioNombreConmutador");
    events.push_back("Cambios");
  }
  void WriteCase(int value) {
    if (value == caso) return;
    caso = value;
    Change();
  }
  void WriteByte(const SlotRules& rules, std::vector<Slot>& slots, int kind, int Slot::*byte,
                 int value) {
    Slot& slot = FindOrMake(rules, slots, kind);
    if (slot.*byte != value) {
      slot.*byte = value;
      Change();
    }
    slot.type = rules.type_when_written;
    if (!IsValid(rules, slot)) slot.type = 0;
  }
  void WriteType(int value) {
    Slot& slot = FindOrMake(kDato, datos, active_dato);
    if (slot.type == value) return;
    slot.type = value;
    if (!IsValid(kDato, slot)) slot.type = 0;
    Change();
  }
  void WriteConstant(const Text& value) {
    Slot& slot = FindOrMake(kCte, ctes, active_cte);
    const Text fixed = Fixed(value, 20);
    if (fixed != slot.constant) {
      slot.constant = fixed;
      Change();
    }
    slot.size = static_cast<int>(WithoutNuls(slot.constant).size());
    slot.type = 2;
    if (!IsValid(kCte, slot)) slot.type = 0;
  }
  void WritePin(int& pin, int value) {
    if (pair == 0) return;
    const int most = pair == 1 || pair == 2 ? 9 : 25;
    if (value >= 1 && value <= most) pin = value;
  }
  void WriteWire(bool value) {
    if (pair == 0 || !PinsAreValid()) return;
    if (pair >= 1 && pair <= 4) {
      const std::tuple wire(pair, left, right);
      if (value == (wires.count(wire) != 0)) return;
      if (value) {
        wires.insert(wire);
      } else {
        wires.erase(wire);
      }
    }
    Change();
  }
  void Reset() {
    wires.clear();
    WriteText(comments, 250, u"", false);
    WriteText(brand, 50, u"", true);
    WriteText(model, 50, u"", true);
    WriteText(separator, 10, u"", false);
    left = right = 0;
    active_dato = active_cte = 0;
    caso = 1;
    for (Slot& slot : datos) slot.type = 0;
    for (Slot& slot : ctes) slot.type = 0;
    modified = false;
  }
  void Iniciar() {
    Reset();
    events.push_back("Inicializado");
  }

  bool CanBeSaved() const {
    return caso != 0 && !WithoutNuls(brand).empty() && !WithoutNuls(model).empty() &&
           !WithoutNuls(separator).empty();
  }

  // The file that saving gives, in Latin-1.
  SwitchFile File() const {
    SwitchFile file;
    file.brand = Latin1Bytes(brand);
    file.model = Latin1Bytes(model);
    file.comments = Latin1Bytes(comments);
    file.separator = Latin1Bytes(separator);
    file.caso = caso;
    for (const auto& [p, l, r] : wires) {
      const auto entry = static_cast<std::size_t>(l);
      const std::uint32_t bit = 1u << (r - 1);
      if (p == 1) file.db9_db9[entry] |= bit;
      if (p == 2) file.db9_db25[entry] |= bit;
      if (p == 3) file.db25_db9[entry] |= bit;
      if (p == 4) file.db25_db25[entry] |= bit;
    }
    for (const Slot& slot : datos) {
      if (IsValid(kDato, slot)) file.datos.push_back({slot.param, slot.type, slot.pos, slot.size});
    }
    for (const Slot& slot : ctes) {
      if (!IsValid(kCte, slot)) continue;
      file.ctes.push_back({slot.param, slot.type, slot.pos, slot.size, Latin1Bytes(slot.constant)});
    }
    return file;
  }

  // What opening a file does that File() of another one gave.
  void Open(const SwitchFile& file) {
    Reset();
    brand = Fixed(FromLatin1(file.brand), 50);
    model = Fixed(FromLatin1(file.model), 50);
    comments = Fixed(FromLatin1(file.comments), 250);
    separator = Fixed(FromLatin1(file.separator), 10);
    caso = static_cast<int>(file.caso);
    AddWires(1, file.db9_db9);
    AddWires(2, file.db9_db25);
    AddWires(3, file.db25_db9);
    AddWires(4, file.db25_db25);
    for (const auto& dato : file.datos) {
      active_dato = dato.kind;
      WriteByte(kDato, datos, active_dato, &Slot::pos, dato.pos);
      WriteByte(kDato, datos, active_dato, &Slot::size, dato.size);
      WriteType(dato.type);
    }
    for (const auto& cte : file.ctes) {
      active_cte = cte.kind;
      WriteByte(kCte, ctes, active_cte, &Slot::pos, cte.pos);
      WriteConstant(FromLatin1(cte.text));
    }
    modified = false;
    events.push_back("ConfiguracionCargada");
  }

  // The same lines as Snapshot::OfState of the real one.
  std::map<std::string, std::string> State() const {
    std::map<std::string, std::string> lines;
    lines["Modificado"] = std::to_string(modified);
    lines["IDCfg"] = std::to_string(id);
    lines["Version"] = "3";
    lines["Caso"] = std::to_string(caso);
    lines["Marca"] = Shown(WithoutNuls(brand));
    lines["Modelo"] = Shown(WithoutNuls(model));
    lines["Comentarios"] = Shown(WithoutNuls(comments));
    lines["Separador"] = Shown(WithoutNuls(separator));
    const int dato = Find(kDato, datos, active_dato);
    const Slot item = dato < 0 ? Slot() : datos[static_cast<std::size_t>(dato)];
    lines["DATOActivo"] = std::to_string(active_dato);
    lines["HayDATO"] = std::to_string(dato >= 0 && IsValid(kDato, item));
    lines["TipoDatoDATO"] = std::to_string(item.type);
    lines["DATOPos"] = std::to_string(item.pos);
    lines["DATOTam"] = std::to_string(item.size);
    const int cte = Find(kCte, ctes, active_cte);
    const Slot constant = cte < 0 ? Slot() : ctes[static_cast<std::size_t>(cte)];
    lines["CTEActivo"] = std::to_string(active_cte);
    lines["HayCTE"] = std::to_string(cte >= 0 && IsValid(kCte, constant));
    lines["TipoDatoCTE"] = std::to_string(constant.type);
    lines["CTEPos"] = std::to_string(constant.pos);
    lines["CTETam"] = std::to_string(constant.size);
    lines["Constante"] = Shown(WithoutNuls(constant.constant));
    lines["PuertoActivo"] = std::to_string(pair);
    lines["PinIZQ"] = std::to_string(left);
    lines["PinDER"] = std::to_string(right);
    lines["PinesConectados"] =
        std::to_string(PinsAreValid() && wires.count({pair, left, right}) != 0);
    return lines;
  }

  bool modified = false;
  int id = 0;
  int caso = 1;
  Text brand = Text(50, u'\0');
  Text model = Text(50, u'\0');
  Text comments = Text(250, u'\0');
  Text separator = Text(10, u'\0');
  int pair = 0;
  int left = 0;
  int right = 0;
  std::set<std::tuple<int, int, int>> wires;
  int active_dato = 0;
  std::vector<Slot> datos;
  int active_cte = 0;
  std::vector<Slot> ctes;
  std::vector<std::string> events;

 private:
  static Text Fixed(const Text& text, std::size_t width) {
    Text fixed;
    for (std::size_t i = 0; i < width; ++i) fixed.push_back(i < text.size() ? text[i] : u'\0');
    return fixed;
  }
  static Text WithoutNuls(const Text& text) {
    Text kept;
    for (const char16_t c : text) {
      if (c != u'\0') kept.push_back(c);
    }
    return kept;
  }
  static std::string Latin1Bytes(const Text& text) {
    std::string bytes;
    for (const char16_t c : text) bytes.push_back(c < 256 ? static_cast<char>(c) : '?');
    return bytes;
  }
  static Text FromLatin1(const std::string& bytes) {
    Text text;
    for (const char b : bytes) text.push_back(static_cast<unsigned char>(b));
    return text;
  }

  template <class Masks>
  void AddWires(int p, const Masks& masks) {
    for (std::size_t entry = 1; entry < masks.size(); ++entry) {
      for (int r = 1; r <= 25; ++r) {
        if ((masks[entry] >> (r - 1) & 1) != 0) wires.insert({p, static_cast<int>(entry), r});
      }
    }
  }

  void Change() {
    modified = true;
    events.push_back("Cambios");
  }
  bool PinsAreValid() const {
    return left >= 1 && left <= (pair == 1 || pair == 2 ? 9 : 25) && right >= 1 &&
           right <= (pair == 1 || pair == 3 ? 9 : 25);
  }
};

}  // namespace conmuta::test
