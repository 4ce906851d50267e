#include "conmuta/fit.h"

#include <algorithm>
#include <bitset>
#include <memory>

#include "layouts/expected_calls.h"
#include "layouts/numbers.h"
#include "platform/platform.h"

namespace conmuta::host {
namespace {

constexpr std::size_t kColumns = 256;
constexpr std::int32_t kLongestCall = 24 * 60 * 60;  // seconds

bool IsWordCharacter(char16_t c) {
  return IsDigit(c) || (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z');
}

// A party with more than one is none: "12/09 002".
int NumbersIn(TextView text) {
  int numbers = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    numbers += IsDigit(text[i]) && (i == 0 || !IsDigit(text[i - 1]));
  }
  return numbers;
}

}  // namespace

class Fit::Look final : public LineObserver {
 public:
  explicit Look(TextView line) : line_(line.substr(0, kColumns)) {}

  void Read(const ItemRead& item) override {
    if (!item.defined || item.found.empty()) return;
    Use(item.pos, item.found.size());
    const bool is_part_of_time = item.kind <= emParamRingSegundos;
    if (is_part_of_time && item.is_number) {
      if (!IsPlausibleNumber(item)) plausible_ = false;
    } else if (!Trim(item.found).empty()) {
      fields_.push_back({item.pos, item.found.size()});
      if (item.kind >= emParamTroncalEntrante && NumbersIn(item.found) > 1) plausible_ = false;
    }
  }
  void Looked(const ConstantRead& constant) override {
    if (constant.defined && constant.stands) Use(constant.pos, constant.wanted.size());
  }

  // Whether what was read may be what the switch meant: a word that goes on in a column that nobody
  // uses is cut.
  bool IsPlausible() const {
    return plausible_ && std::none_of(fields_.begin(), fields_.end(), [&](const Field& field) {
             const auto begin = static_cast<std::size_t>(field.pos - 1);
             return IsCutAt(begin) || IsCutAt(begin + field.size);
           });
  }

  // The share of the line's digits that stand in used columns; raised, since a layout that leaves a
  // date or a number unread is hardly the one.
  double Share() const {
    std::size_t digits = 0;
    std::size_t used = 0;
    for (std::size_t i = 0; i < line_.size(); ++i) {
      digits += IsDigit(line_[i]);
      used += IsDigit(line_[i]) && used_[i];
    }
    const double share = digits != 0 ? static_cast<double>(used) / static_cast<double>(digits) : 0;
    return share * share * share;
  }

 private:
  struct Field {
    int pos;
    std::size_t size;
  };

  void Use(int pos, std::size_t size) {
    const auto begin = static_cast<std::size_t>(pos - 1);
    for (std::size_t i = begin; i < std::min(begin + size, kColumns); ++i) used_.set(i);
  }

  bool IsCutAt(std::size_t column) const {
    if (column == 0 || column >= line_.size()) return false;
    return IsWordCharacter(line_[column - 1]) && IsWordCharacter(line_[column]) &&
           !(used_[column - 1] && used_[column]);
  }

  // Nothing but digits, as far as it is filled, and no more of them than there are.
  static bool IsPlausibleNumber(const ItemRead& item) {
    const TextView digits = Trim(item.found);
    if (digits.empty()) return item.kind >= emParamDuracionDia;
    if (!std::all_of(digits.begin(), digits.end(), IsDigit)) return false;
    const auto number = layouts::ReadDigitsOnly(digits);
    if (!number) return false;
    switch (item.kind) {
      case emParamFechaDia:
        return *number >= 1 && *number <= 31;
      case emParamFechaMes:
        return *number >= 1 && *number <= 12;
      case emParamFechaHoras:
        return *number <= 23;
      case emParamFechaMinutos:
      case emParamFechaSegundos:
      case emParamDuracionMinutos:
      case emParamDuracionSegundos:
      case emParamRingSegundos:
        return *number <= 59;
      default:
        return true;
    }
  }

  TextView line_;
  std::bitset<kColumns> used_;
  std::vector<Field> fields_;
  bool plausible_ = true;
};

Fit::Fit(const NamedLayout& layout)
    : layout_(&layout),
      config_(MakeConfig(layout.layout)),
      translator_(std::make_unique<clsTradEST>(SystemPlatform().clock)) {
  translator_->Conmutador(config_.get());
}

void Fit::Take(TextView line) {
  Look look(line);
  const Verdict verdict = translator_->Translate(line, look);
  if (!HasDigit(line)) return;
  ++lines_;
  const bool is_plausible = verdict.error == LineError::kNone && look.IsPlausible();
  // The lines of a block count when its call comes.
  if (verdict.reason == NoCall::kPartOfBlock || verdict.reason == NoCall::kBlockBegins) {
    if (verdict.reason == NoCall::kBlockBegins) of_block_ = 0, block_is_plausible_ = true;
    of_block_ += 1;  // what its words say is not told
    block_is_plausible_ = block_is_plausible_ && is_plausible;
    return;
  }
  if (verdict.reason == NoCall::kAccountCode && is_plausible) explained_ += look.Share();
  if (!verdict.IsCall()) return;
  ++calls_;
  const auto duration = layouts::KnownDuration(translator_->InfoLlamada());
  if (is_plausible && block_is_plausible_ && duration && *duration <= kLongestCall) {
    explained_ += look.Share() + of_block_;
  } else {
    ++implausible_;
  }
  of_block_ = 0;
  block_is_plausible_ = true;
}

double Fit::Score() const {
  return lines_ != 0 ? explained_ / static_cast<double>(lines_) : 0;
}

std::vector<Fit> RankCatalogue(const std::vector<Text>& lines) {
  std::vector<Fit> fits;
  fits.reserve(Catalogue().size());
  for (const NamedLayout& layout : Catalogue()) {
    Fit& fit = fits.emplace_back(layout);
    for (const Text& line : lines) fit.Take(line);
  }
  std::stable_sort(fits.begin(), fits.end(),
                   [](const Fit& a, const Fit& b) { return a.Score() > b.Score(); });
  return fits;
}

}  // namespace conmuta::host
