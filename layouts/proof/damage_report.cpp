#include "layouts/proof/damage_report.h"

#include "layouts/proof/player.h"
#include "layouts/proof/text_table.h"
#include "platform/unicode.h"

namespace conmuta::layouts {
namespace {

constexpr std::array<TextView, kDamages> kWords = {u"cortada", u"sin el primero", u"con control",
                                                   u"pegada", u"sin blancos"};

// Plays a capture with one of its lines damaged.
class DamagePlayer {
 public:
  explicit DamagePlayer(const Family& family)
      : family_(family),
        played_(family.layout),
        lonely_(played_),
        outcomes_(layouts::Play(played_, family.capture)) {}

  // The calls of the capture as it is, and damaged: those of the line, and those of lines behind it
  // that become different by it.
  struct Calls {
    std::vector<ExpectedCall> whole;
    std::vector<ExpectedCall> found;
  };
  Calls Play(std::size_t index, const DamagedLine& damaged) {
    const auto& lines = family_.capture.lines;
    const std::size_t next = index + (damaged.has_next ? 2 : 1);
    Calls calls;
    for (std::size_t i = index; i < next; ++i) Keep(outcomes_[i], calls.whole);
    if (!played_.HasMemory()) {
      Keep(lonely_.Take(damaged.text), calls.found);
      return calls;
    }
    Player player(played_);
    for (std::size_t i = 0; i < index; ++i) player.Pass(lines[i].text);
    Keep(player.Take(damaged.text), calls.found);
    for (std::size_t i = next; i < lines.size(); ++i) {
      const Outcome outcome = player.Take(lines[i].text);
      if (outcome == outcomes_[i]) continue;
      Keep(outcomes_[i], calls.whole);
      Keep(outcome, calls.found);
    }
    return calls;
  }

 private:
  static void Keep(const Outcome& outcome, std::vector<ExpectedCall>& calls) {
    if (outcome.call) calls.push_back(*outcome.call);
  }

  const Family& family_;
  PlayedSwitch played_;
  Player lonely_;
  std::vector<Outcome> outcomes_;
};

}  // namespace

void DamageCount::Add(Harm harm) {
  ++lines;
  detail += harm == Harm::kDetail ? 1 : 0;
  duration += harm == Harm::kDuration ? 1 : 0;
  wrong += harm == Harm::kWrong ? 1 : 0;
}

DamageCount& DamageCount::operator+=(const DamageCount& other) {
  lines += other.lines;
  detail += other.detail;
  duration += other.duration;
  wrong += other.wrong;
  return *this;
}

DamageCount DamageReport::Total() const {
  DamageCount total;
  for (const Damage damage : {Damage::kCut, Damage::kHeadLost, Damage::kControl, Damage::kGlued}) {
    total += (*this)[damage];
  }
  return total;
}

DamageReport DamageReportOf(const Family& family, const HarmListener& listener) {
  DamagePlayer player(family);
  DamageReport report;
  const auto& lines = family.capture.lines;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    for (const DamagedLine& damaged : DamagedForms(lines, i)) {
      const auto calls = player.Play(i, damaged);
      // A line that looks the same to a person must not lose its call either.
      const bool lost =
          damaged.damage == Damage::kBlanks && calls.found.size() < calls.whole.size();
      const Harm harm = lost ? Harm::kWrong : Compare(calls.whole, calls.found);
      report.by_damage[static_cast<std::size_t>(damaged.damage)].Add(harm);
      if (listener && harm != Harm::kNone) listener({lines[i].number, damaged, harm, calls.found});
    }
  }
  return report;
}

TextView WordOf(Damage damage) {
  return kWords[static_cast<std::size_t>(damage)];
}

int PerMille(int count, int lines) {
  return lines == 0 ? 0 : (count * 1000 + lines / 2) / lines;
}

std::string DamageTable(const std::vector<Family>& families,
                        const std::vector<DamageReport>& reports) {
  TextTable table;
  std::vector<Text> heading = {u"conmutador", u"dañadas", u"equivocadas"};
  for (const TextView word : kWords) heading.emplace_back(word);
  heading.insert(heading.end(), {u"otra duración", u"otro detalle"});
  table.Add(std::move(heading));
  for (std::size_t i = 0; i < families.size(); ++i) {
    const DamageReport& report = reports[i];
    const DamageCount total = report.Total();
    const auto share = [](const DamageCount& count) {
      return ToText(PerMille(count.wrong, count.lines));
    };
    std::vector<Text> row = {FromUtf8(families[i].name), ToText(total.lines), share(total)};
    for (const DamageCount& count : report.by_damage) row.push_back(share(count));
    row.push_back(ToText(PerMille(total.duration, total.lines)));
    row.push_back(ToText(PerMille(total.detail, total.lines)));
    table.Add(std::move(row));
  }
  return table.Lines();
}

}  // namespace conmuta::layouts
