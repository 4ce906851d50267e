#include "conmuta/tally.h"

#include <algorithm>
#include <functional>
#include <numeric>
#include <string_view>

#include "conmuta/call_words.h"
#include "conmuta/utf8.h"
#include "platform/unicode.h"

namespace conmuta::host {
namespace {

struct Words {
  std::string_view one;
  std::string_view many;
};

std::string Counted(std::uint64_t number, Words words) {
  return std::to_string(number).append(" ").append(number == 1 ? words.one : words.many);
}

void AddPart(std::string& parts, const std::string& part) {
  if (!parts.empty()) parts += ", ";
  parts += part;
}

std::string InBrackets(const std::string& parts) {
  return parts.empty() ? parts : " (" + parts + ")";
}

// The number, and what each of them is: most frequent first.
template <class Counts, class Sentence>
std::string Lines(const Counts& counts, Sentence sentence) {
  std::vector<std::size_t> order(counts.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::stable_sort(order.begin(), order.end(),
                   [&](std::size_t a, std::size_t b) { return counts[a] > counts[b]; });
  std::string lines;
  for (const std::size_t i : order) {
    if (counts[i] == 0) continue;
    std::string number = std::to_string(counts[i]);
    number.insert(0, number.size() < 8 ? 8 - number.size() : 0, ' ');
    lines += "\n" + number + "  " + Utf8(sentence(i));
  }
  return lines;
}

template <class Counts>
std::uint64_t Sum(const Counts& counts) {
  return std::accumulate(counts.begin(), counts.end(), std::uint64_t{0});
}

}  // namespace

void Tally::Add(const Tally& other) {
  lines_ += other.lines_;
  waiting_ += other.waiting_;
  const auto add = [](auto& to, const auto& from) {
    std::transform(to.begin(), to.end(), from.begin(), to.begin(), std::plus<>());
  };
  add(by_type_, other.by_type_);
  add(by_reason_, other.by_reason_);
  add(by_error_, other.by_error_);
  add(by_layout_, other.by_layout_);
}

std::uint64_t Tally::calls() const {
  return Sum(by_type_);
}
std::uint64_t Tally::errors() const {
  return Sum(by_error_);
}

std::string Tally::Headline() const {
  std::string types;
  for (const auto& [type, one, many] : kTypeWords) {
    const std::uint64_t count = by_type_[static_cast<std::size_t>(type)];
    if (count != 0) AddPart(types, Counted(count, {one, many}));
  }
  return Counted(lines_, {"línea", "líneas"}) + ": " + Counted(calls(), {"llamada", "llamadas"}) +
         InBrackets(types) + ", " + std::to_string(Sum(by_reason_)) + " sin llamada, " +
         Counted(errors(), {"error", "errores"});
}

std::string Tally::Summary(std::span<const NamedLayout> layouts) const {
  std::string text = Headline();
  if (layouts.size() > 1) {
    std::string parts;
    for (std::size_t i = 0; i < layouts.size(); ++i) {
      AddPart(parts, Shown(FromUtf8(layouts[i].name)) + " " + std::to_string(by_layout_[i]));
    }
    text += "\n  llamadas por conmutador: " + parts;
  }
  text += Lines(by_error_, [](std::size_t i) { return Sentence(static_cast<LineError>(i)); });
  text += Lines(by_reason_, [](std::size_t i) { return Sentence(static_cast<NoCall>(i)); });
  if (waiting_ != 0) {
    text +=
        "\n  al terminar, " + Counted(waiting_, {"llamada esperaba el fin de su transferencia",
                                                 "llamadas esperaban el fin de su transferencia"});
  }
  return text;
}

}  // namespace conmuta::host
