// What a layout makes of the damaged lines of its capture.
#pragma once

#include <array>
#include <functional>
#include <string>
#include <vector>

#include "layouts/proof/damage.h"
#include "layouts/proof/family.h"
#include "layouts/proof/harm.h"

namespace conmuta::layouts {

struct DamageCount {
  int lines = 0;
  int detail = 0;
  int duration = 0;
  int wrong = 0;

  void Add(Harm harm);
  DamageCount& operator+=(const DamageCount& other);
};

struct DamageReport {
  std::array<DamageCount, kDamages> by_damage{};

  const DamageCount& operator[](Damage damage) const {
    return by_damage[static_cast<std::size_t>(damage)];
  }
  // All that is damage to a person, too: lost blanks are not.
  DamageCount Total() const;
};

// A damaged line that came to harm.
struct DamageHarm {
  int line;  // number in the capture
  const DamagedLine& damaged;
  Harm harm;
  const std::vector<ExpectedCall>& found;  // the calls of it and of all that depends on it
};
using HarmListener = std::function<void(const DamageHarm&)>;

// The listener is told of each.
DamageReport DamageReportOf(const Family& family, const HarmListener& listener = {});

// What a damage is called in tables: "cortada". Spanish.
TextView WordOf(Damage damage);

// Parts of a thousand, rounded to the nearest whole number; 0 of no lines.
int PerMille(int count, int lines);

// A line a family, in parts of a thousand. Spanish.
std::string DamageTable(const std::vector<Family>& families,
                        const std::vector<DamageReport>& reports);

}  // namespace conmuta::layouts
