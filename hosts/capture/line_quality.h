// Whether a serial line is set as its PBX is.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "capture/backlog.h"
#include "capture/messages.h"
#include "capture/system.h"
#include "capture/unprintable.h"

namespace conmuta::capture {

// Counts and tells what is wrong with a line. What the port knows comes before what can be guessed
// from the bytes.
class LineQuality {
 public:
  LineQuality(Backlog& backlog, Messages& messages, std::size_t source, const std::string& name,
              const std::string& port);

  void Take(std::string_view bytes) { guess_.Take(bytes); }
  // Now and then; `errors` are those of the port since the last time, nothing when it cannot tell.
  void Look(const std::optional<SerialErrors>& errors);

 private:
  void Count(Incident incident, std::int64_t count);

  Backlog& backlog_;
  std::size_t source_;
  std::string name_;
  std::string port_;
  Complaint complaint_;
  UnprintableGuess guess_;
  bool port_knows_ = false;
};

}  // namespace conmuta::capture
