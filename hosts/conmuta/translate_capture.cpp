#include "conmuta/translate_capture.h"

#include "conmuta/line_source.h"
#include "conmuta/user_error.h"
#include "conmuta/utf8.h"
#include "platform/platform.h"
#include "platform/unicode.h"

namespace conmuta::host {

Tally TranslateCapture(const CaptureJob& job, std::istream& bytes, RowFormat& format,
                       OutBuffer& out) {
  DayClock clock(SystemPlatform().clock);
  LayoutTranslators translators(job.layouts, clock);
  LineSource lines(bytes);
  Tally tally(job.layouts.size());
  Text line;
  bool is_first = true;
  std::uint64_t last = 0;
  const auto take = [&](std::uint64_t number, std::string_view text) {
    if (is_first) job.today.Set(clock, lines, job.file);
    is_first = false;
    last = number;
    Widen(text, line);
    const Outcome outcome = translators->Translate(line);
    tally.CountLine(outcome);
    if (outcome.verdict.IsCall() || job.every_line) format.Row(out, number, outcome);
  };

  std::uint64_t bytes_told = 0;
  std::uint64_t lines_told = 0;
  // It may be another day when a switch goes on.
  const auto arrived = [&clock] { clock.LookAgain(); };
  while (lines.Next(take, arrived)) {
    if (job.flush) out.Flush();
    job.advance(lines.bytes_read() - bytes_told, tally.lines() - lines_told);
    bytes_told = lines.bytes_read();
    lines_told = tally.lines();
  }
  if (bytes.bad()) throw UserError(Shown(FromUtf8(job.file)) + ": no se puede leer hasta el final");
  translators->Finish([&](const Outcome& outcome) {
    tally.CountCall(outcome);
    format.Row(out, last, outcome);
  });
  tally.CountWaiting(translators->CallsWaiting());
  return tally;
}

}  // namespace conmuta::host
