#include "taller/judging_run.h"

#include "conmuta/layout_choice.h"
#include "conmuta/translators.h"
#include "conmuta/utf8.h"
#include "layouts/capture_head.h"

namespace conmuta::taller {

JudgingRun::JudgingRun(std::shared_ptr<const CaptureBytes> bytes, const layouts::Layout& layout,
                       const Clock& clock)
    : bytes_(std::move(bytes)), system_(clock), config_(host::MakeConfig(layout)), room_(kChunk) {
  Restart();
}

// What a translator knows of earlier lines is not to be had out of it again.
void JudgingRun::Restart() {
  clock_.emplace(system_);
  translator_ = std::make_unique<clsTradEST>(*clock_);
  translator_->Conmutador(config_.get());
  lines_ = {};
  head_ = {};
  offset_ = 0;
  line_ = last_rest_ = 0;
  end_.reset();
  is_closed_ = false;
}

void JudgingRun::Take(std::string_view line) {
  ++line_;
  if (head_.Take(line)) {
    if (head_.date()) clock_->Set(*head_.date());
    kinds_.push_back(LineKind::Head());
    return;
  }
  host::Widen(line, text_);
  const Verdict verdict = translator_->Judge(text_);
  kinds_.push_back(LineKind::Of(verdict, translator_->InfoLlamada().TipoLlamada()));
  if (line_ - last_rest_ >= kRestsApart && !translator_->Waits()) {
    rests_.push_back(last_rest_ = line_);
  }
}

const std::vector<LineKind>& JudgingRun::Chunk() {
  if (is_closed_ && bytes_->size() > offset_) Restart();
  clock_->LookAgain();
  first_line_ = line_ + 1;
  kinds_.clear();
  rests_.clear();
  const std::size_t count = bytes_->Read(offset_, room_);
  const auto take = [this](std::string_view line) { Take(line); };
  std::string_view bytes(room_.data(), count);
  if (offset_ == 0) bytes.remove_prefix(layouts::SizeOfMark(bytes));
  lines_.Take(bytes, take);
  offset_ += count;
  is_done_ = count < room_.size();
  if (is_done_ && !is_closed_ && !bytes_->IsLive()) TakeEnd();
  return kinds_;
}

void JudgingRun::TakeEnd() {
  if (!lines_.rest().empty()) {
    Take(lines_.rest());
    is_closed_ = true;
  }
  const Verdict verdict = translation::JudgeEnd(*translator_);
  if (verdict.reason == NoCall::kEmptyLine) return;
  is_closed_ = true;
  if (verdict.IsCall()) end_ = LineKind::Of(verdict, translator_->InfoLlamada().TipoLlamada());
}

}  // namespace conmuta::taller
