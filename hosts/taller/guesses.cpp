#include "taller/guesses.h"

#include <algorithm>

#include "conmuta/builtin_layouts.h"
#include "conmuta/fit.h"
#include "taller/first_lines.h"

namespace conmuta::taller {
namespace {

Guess GuessOf(const host::Fit& fit) {
  const ConfigHeader& header = fit.layout().layout.header;
  return {fit.layout().name, header.Marca.Read() + u", " + header.Modelo.Read(),
          fit.Score(),       fit.calls(),
          fit.lines(),       fit.implausible()};
}

}  // namespace

Text Guess::Sentence() const {
  Text sentence = ToText(static_cast<long long>(calls)) + u" de " +
                  ToText(static_cast<long long>(lines)) + (lines == 1 ? u" línea" : u" líneas");
  if (implausible != 0) {
    sentence += u", " + ToText(static_cast<long long>(implausible)) +
                (implausible == 1 ? u" dudosa" : u" dudosas");
  }
  return sentence;
}

Guesses::Guesses(std::function<void()> told)
    : told_(std::move(told)), thread_([this] { Work(); }) {}

Guesses::~Guesses() {
  {
    const std::scoped_lock lock(mutex_);
    ends_ = true;
    ++ranking_;
  }
  wake_.notify_one();
  thread_.join();
}

void Guesses::Rank(std::shared_ptr<const CaptureBytes> bytes) {
  {
    const std::scoped_lock lock(mutex_);
    bytes_ = std::move(bytes);
    ++ranking_;
    progress_ = {0, host::BuiltinLayouts().size(), false};
    guesses_.clear();
  }
  wake_.notify_one();
}

void Guesses::Stop() {
  const std::scoped_lock lock(mutex_);
  bytes_.reset();
  ++ranking_;
  progress_.is_done = true;
}

void Guesses::Work() {
  std::unique_lock lock(mutex_);
  for (;;) {
    wake_.wait(lock, [this] { return ends_ || bytes_; });
    if (ends_) return;
    const std::shared_ptr<const CaptureBytes> bytes = std::move(bytes_);
    const std::size_t ranking = ranking_;
    lock.unlock();
    TryAll(ranking, *bytes);
    lock.lock();
  }
}

void Guesses::TryAll(std::size_t ranking, const CaptureBytes& bytes) {
  const std::vector<Text> lines = FirstLines(bytes, host::kEnoughLines);
  for (const host::NamedLayout& layout : host::Catalogue()) {
    host::Fit fit(layout);
    for (const Text& line : lines) fit.Take(line);
    {
      const std::scoped_lock lock(mutex_);
      if (ranking != ranking_) return;
      ++progress_.tried;
      progress_.is_done = progress_.tried == progress_.of;
      if (const Guess guess = GuessOf(fit); guess.score > 0) {
        const auto place =
            std::upper_bound(guesses_.begin(), guesses_.end(), guess,
                             [](const Guess& a, const Guess& b) { return a.score > b.score; });
        guesses_.insert(place, guess);
      }
    }
    told_();
  }
}

std::vector<Guess> Guesses::guesses() const {
  const std::scoped_lock lock(mutex_);
  return guesses_;
}

Guesses::Progress Guesses::progress() const {
  const std::scoped_lock lock(mutex_);
  return progress_;
}

Messages Take(Document& document, const std::string& name) {
  for (const host::BuiltinLayout& layout : host::BuiltinLayouts()) {
    if (layout.name == name) return document.Replace(std::string(layout.toml), u"Adivinar");
  }
  return {{{}, {}, u"no está en el catálogo"}};
}

}  // namespace conmuta::taller
