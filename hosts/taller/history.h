// What was, is, and can be again: the steps of a document.
#pragma once

#include <algorithm>
#include <cstddef>
#include <deque>
#include <memory>
#include <string>

#include "platform/text.h"

namespace conmuta::taller {

// States are kept whole. Steps of one run, which is what somebody types into one field, are one.
template <class State>
class History {
 public:
  static constexpr std::size_t kMostSteps = 1000;

  explicit History(State state) { Restart(std::move(state)); }

  // Forgets all steps; the state is the saved one.
  void Restart(State state) {
    steps_.clear();
    steps_.push_back({std::make_shared<const State>(std::move(state)), {}, {}});
    at_ = 0;
    saved_ = steps_[0].state;
    ++revision_;
  }

  const State& present() const { return *steps_[at_].state; }
  // Another number after each change of the present state.
  std::size_t revision() const { return revision_; }

  // `name` is what was done. A run goes on while its key is the same, nothing was undone and
  // nothing saved; an empty key is that of no run.
  void Add(State state, Text name, std::string run = {}) {
    const bool goes_on = !run.empty() && run == steps_[at_].run && at_ + 1 == steps_.size() &&
                         steps_[at_].state != saved_;
    steps_.erase(steps_.begin() + static_cast<std::ptrdiff_t>(at_ + (goes_on ? 0 : 1)),
                 steps_.end());
    steps_.push_back(
        {std::make_shared<const State>(std::move(state)), std::move(name), std::move(run)});
    if (steps_.size() > kMostSteps + 1) steps_.pop_front();
    at_ = steps_.size() - 1;
    ++revision_;
  }
  void EndRun() { steps_[at_].run.clear(); }

  bool CanUndo() const { return at_ != 0; }
  bool CanRedo() const { return at_ + 1 != steps_.size(); }
  // What would be undone or done again; empty for nothing.
  Text UndoName() const { return CanUndo() ? steps_[at_].name : Text(); }
  Text RedoName() const { return CanRedo() ? steps_[at_ + 1].name : Text(); }
  void Undo() { Go(CanUndo() ? at_ - 1 : at_); }
  void Redo() { Go(CanRedo() ? at_ + 1 : at_); }

  // Whether the present state is the one that was saved, though it may be by undoing.
  bool IsSaved() const { return steps_[at_].state == saved_; }
  void MarkSaved() { saved_ = steps_[at_].state; }

 private:
  struct Step {
    std::shared_ptr<const State> state;
    Text name;
    std::string run;
  };

  void Go(std::size_t at) {
    EndRun();
    revision_ += at != at_;
    at_ = at;
  }

  std::deque<Step> steps_;  // the first has no name
  std::size_t at_ = 0;
  std::shared_ptr<const State> saved_;  // may be none of the steps any more
  std::size_t revision_ = 0;
};

}  // namespace conmuta::taller
