#include "taller/explainer.h"

#include <algorithm>

#include "conmuta/day.h"
#include "conmuta/layout_choice.h"
#include "conmuta/translators.h"
#include "conmuta/utf8.h"
#include "layouts/host_line.h"

namespace conmuta::taller {
namespace {

using host::Explanation;

bool HasStart(const Explanation& line) {
  return std::any_of(line.items.begin(), line.items.end(), [](const Explanation::Item& item) {
    return item.kind <= emParamFechaSegundos;
  });
}

bool IsOfBlock(const Verdict& verdict) {
  return verdict.reason == NoCall::kBlockBegins || verdict.reason == NoCall::kPartOfBlock ||
         verdict.reason == NoCall::kTransferNotFound;
}

// Takes lines one after the other until it knows all of the wanted one.
class Trace {
 public:
  Trace(const layouts::Layout& layout, const Clock& clock, std::uint64_t wanted)
      : layout_(layout), config_(host::MakeConfig(layout)), translator_(clock), wanted_(wanted) {
    translator_.Conmutador(config_.get());
  }

  const std::optional<Result>& result() const { return result_; }

  void Take(std::uint64_t number, TextView text) {
    if (result_) return;
    Explanation line(number, text);
    const Verdict verdict = translator_.Translate(text, line);
    // A block that ended without an end is delivered by the line that opens the next one.
    const bool opens = verdict.reason == NoCall::kBlockBegins ||
                       (verdict.IsCall() && !block_.empty() && HasStart(line));
    if (verdict.IsCall() && !block_.empty()) {
      if (!opens) block_.push_back(line);
      End(true);
    }
    if (number == wanted_) wanted_line_ = line;
    if (opens) {
      End(false);
      if (number == wanted_ && verdict.IsCall()) Tell(true, block_);
      block_.clear();
    }
    const bool fails = IsLack(verdict.reason) && !block_.empty();
    if (fails) {
      block_.push_back(line);
      End(false);
    }
    if (opens || (IsOfBlock(verdict) && !block_.empty())) {
      block_.push_back(line);
    } else if (verdict.IsCall() || fails) {
      block_.clear();
    }
    if (number == wanted_ && !result_ && !(IsOfBlock(verdict) && !block_.empty())) {
      Tell(verdict.IsCall(), {});
    }
  }

  // There are no more lines, or none are to be looked at; whether the block that is open can end.
  void TakeEnd(bool ends) {
    if (result_ || !wanted_line_) return;
    const bool is_call = ends && translation::JudgeEnd(translator_).IsCall();
    Tell(is_call, block_, ends);
  }

 private:
  // The block ends here, with a call or without one.
  void End(bool has_call) {
    const bool has_wanted = std::any_of(block_.begin(), block_.end(),
                                        [&](const auto& line) { return line.number == wanted_; });
    if (!has_wanted || result_) return;
    if (!wanted_line_) wanted_line_ = block_.back();
    Tell(has_call, block_);
  }

  void Tell(bool has_call, const std::vector<Explanation>& block, bool is_over = true) {
    result_ =
        ResultOf({*wanted_line_, block, translator_.InfoLlamada(), has_call, is_over}, layout_);
  }

  const layouts::Layout& layout_;
  std::unique_ptr<clsCfgConmut> config_;
  clsTradEST translator_;
  std::uint64_t wanted_;
  std::optional<Explanation> wanted_line_;
  std::vector<Explanation> block_;  // that is open, or was given up
  std::optional<Result> result_;
};

Result Unseen(std::uint64_t line, TextView what) {
  Result result;
  result.line = line;
  result.heading = u"Línea " + ToText(static_cast<long long>(line)) + u": " + Text(what);
  return result;
}

}  // namespace

Result Explainer::Explain(const CaptureText& text, const layouts::Layout& layout,
                          std::uint64_t line, std::uint64_t rest) const {
  if (line == 0 || line > text.lines()) return {};
  if (line <= text.head_lines()) return Unseen(line, u"dice cómo se tomó la captura");
  host::DayClock clock(clock_);
  if (text.date()) clock.Set(*text.date());
  Trace trace(layout, clock, line);
  std::uint64_t number =
      std::max({rest, text.head_lines(), line > kMostBefore ? line - kMostBefore : 0});
  std::uint64_t offset = text.Offset(number + 1);
  layouts::HostLines lines;
  Text wide;
  const auto take = [&](std::string_view bytes) {
    ++number;
    host::Widen(bytes, wide);
    trace.Take(number, wide);
  };
  std::string room(std::size_t{1} << 14, '\0');
  const std::uint64_t begin = offset;
  while (!trace.result() && number < line + kMostBehind && offset - begin < kMostBytes) {
    const std::size_t count = text.bytes()->Read(offset, room);
    lines.Take(std::string_view(room).substr(0, count), take);
    offset += count;
    if (count == room.size()) continue;
    if (!text.bytes()->IsLive() && !lines.rest().empty()) take(lines.rest());
    trace.TakeEnd(!text.bytes()->IsLive());
    break;
  }
  trace.TakeEnd(false);
  return trace.result() ? *trace.result() : Unseen(line, u"aún no termina");
}

}  // namespace conmuta::taller
