// Watching a translation: what was looked at in a line, what was made of it, and the verdict.
#pragma once

#include <cstdint>

#include "config/enums.h"
#include "platform/text.h"
#include "translate/verdict.h"

namespace conmuta {

// Views live until the observer returns.
struct ItemRead {
  emParamDato kind = emNoParamDato;
  bool defined = false;  // whether the configuration gives it a place; pos and size are 0 if not
  int pos = 0;           // 1-based column
  int size = 0;          // columns
  TextView found;        // what stands there, cut at the end of the line
  bool is_number = false;
  std::int32_t number = 0;             // what a number item is used as, after the rules of its kind
  TextView text;                       // what a text item is used as
  LineError error = LineError::kNone;  // why it has no value
};

struct ConstantRead {
  emParamDatoConstante kind = emNoParamDatoConstante;
  bool defined = false;
  int pos = 0;
  int size = 0;
  TextView wanted;
  TextView found;
  bool stands = false;
  LineError error = LineError::kNone;
};

// Told of everything in the order in which it happens; must neither throw, nor translate, nor
// change the configuration meanwhile. An error of the verdict belongs to what was told last.
class LineObserver {
 public:
  virtual ~LineObserver() = default;
  virtual void Read(const ItemRead&) {}
  virtual void Looked(const ConstantRead&) {}
  virtual void Ended(const Verdict&) {}
};

// What a translation tells what it does: why it gives no call, and to an observer everything that
// it looks at. Both kinds have the same members; nothing is left of the calls of Read and Looked
// where nobody watches.
class Unwatched {
 public:
  static constexpr bool kWatches = false;
  void Read(const ItemRead&) const {}
  void Looked(const ConstantRead&) const {}

  // Why the line gives no call; the first reason stays.
  void Because(NoCall reason) {
    if (reason_ == NoCall::kNone) reason_ = reason;
  }
  // The line's call, or code, was put on the list of those that wait.
  void Parked() { parked_ = true; }

  NoCall reason() const { return reason_; }
  bool parked() const { return parked_; }

 private:
  NoCall reason_ = NoCall::kNone;
  bool parked_ = false;
};

class Watched : public Unwatched {
 public:
  static constexpr bool kWatches = true;
  explicit Watched(LineObserver& observer) : observer_(observer) {}

  void Read(const ItemRead& item) const { observer_.Read(item); }
  void Looked(const ConstantRead& constant) const { observer_.Looked(constant); }

 private:
  LineObserver& observer_;
};

}  // namespace conmuta
