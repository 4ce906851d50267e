#include "fuzz/targets.h"
#include "layouts/expected_calls.h"
#include "platform/unicode.h"

namespace conmuta::fuzz {

void Capture(std::string_view bytes) {
  const auto capture = layouts::ReadCapture(bytes);
  Require(capture.capture.has_value() == capture.mistakes.empty(), "a capture or mistakes");

  // The bytes as rows, too; of the lines that they name themselves, in case that is all of them.
  layouts::Capture lines;
  for (int number = 1; number < 20; ++number) lines.lines.push_back({number, u"x"});
  const auto expected = layouts::ReadExpected(bytes, lines);
  Require(expected.rows.has_value() == expected.mistakes.empty(), "rows or mistakes");
  if (!expected.rows) return;
  std::string again(bytes.substr(0, bytes.find('\n') + 1));
  for (const auto& row : *expected.rows) {
    again += ToUtf8(layouts::RowText(row.line, row.outcome)).value() + "\n";
  }
  const auto twice = layouts::ReadExpected(again, lines);
  Require(twice.rows.has_value(), "a row that was written can be read");
  for (std::size_t i = 0; i < expected.rows->size(); ++i) {
    Require(twice.rows->at(i).outcome == expected.rows->at(i).outcome, "a row loses nothing");
  }
}

}  // namespace conmuta::fuzz
