// Reading expected.txt: what must come out of each line of a capture.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "layouts/capture.h"
#include "layouts/mistake.h"
#include "translate/clsLlamadaTRD.h"
#include "translate/enums.h"
#include "translate/verdict.h"

namespace conmuta::layouts {

struct ExpectedCall {
  emTiposLlamadas type = emLlamadaIndefinida;
  emAtributosLlamadas attribute = emSinAtributo;
  // Year 0 is the present one, and a date of nothing but zeros today.
  int year = 0;
  int month = 0;
  int day = 0;
  int hours = 0;
  int minutes = 0;
  int seconds = 0;
  std::optional<int> duration;  // seconds; nothing when it is still a date, or negative
  int ring = 0;                 // seconds
  Text caller;
  Text callee;
  Text phone;
  Text transferred_to;
  Text account;

  // The same with the date that it means on a day.
  ExpectedCall On(CivilDate today) const;

  bool operator==(const ExpectedCall&) const = default;
};

// A call, or why there is none, or the error that the line raises.
struct Outcome {
  std::optional<ExpectedCall> call;
  NoCall reason = NoCall::kNone;
  LineError error = LineError::kNone;

  bool operator==(const Outcome&) const = default;
};

struct ExpectedRow {
  int line = 0;  // number in the capture
  Outcome outcome;
};

struct ExpectedReading {
  std::optional<std::vector<ExpectedRow>> rows;  // when there is no mistake
  std::vector<Mistake> mistakes;                 // by place
};

// Takes any bytes. Each line of the capture must have its row, and each row its line.
ExpectedReading ReadExpected(std::string_view bytes, const Capture& capture,
                             TextView file = u"expected.txt");

// In seconds; nothing when it is still a date, or negative.
std::optional<std::int32_t> KnownDuration(const clsLlamadaTRD& call);

// What a translator made of a line, as a row would say it.
Outcome OutcomeOf(const Verdict& verdict, const clsLlamadaTRD& call);

// A row for people and for comparing: the fields between bars.
Text RowText(int line, const Outcome& outcome);

}  // namespace conmuta::layouts
