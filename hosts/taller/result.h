// What the component makes of one line, for showing.
#pragma once

#include <optional>
#include <vector>

#include "conmuta/explanation.h"
#include "layouts/layout.h"
#include "taller/slot_kind.h"

namespace conmuta::taller {

// Columns of one line.
struct LinePart {
  std::uint64_t line = 0;
  int pos = 0;
  int size = 0;

  bool operator==(const LinePart&) const = default;
};

// "Emisor", "01", and where that was read.
struct ResultField {
  Text name;
  Text text;
  // In the order of reading; empty for what no column says: the present year, what came of another
  // call.
  std::vector<LinePart> parts;
};

// A constant that was looked for.
struct ResultConstant {
  emParamDatoConstante kind;
  Text sentence;  // 'Entrante "<I>" en 27 ✓', 'Entrante esperaba "<I>" en 27 y encontró "<D>"'
  LinePart part;
  Text wanted;
  Text found;
  bool stands;
};

struct Result {
  std::uint64_t line = 0;
  Verdict verdict;
  bool has_call = false;  // of its own, or its block's
  Text heading;           // "Línea 9: llamada entrante, inicio de transferencia"
  // Of a line without a call: the first thing in its way. "Falta el emisor. Las columnas 18 a 22 no
  // tienen dígitos en esta línea."
  Text obstacle;
  std::optional<SlotKind> remedy;  // where that can be put right
  Text note;                       // "Ninguna constante de tipo coincide: se toma como saliente."
  std::vector<ResultField> fields;
  std::vector<ResultConstant> constants;
};

// What was seen of a line: it alone, or the lines of its block so far.
struct Traced {
  const host::Explanation& line;
  const std::vector<host::Explanation>& block;  // empty for a line of no block
  const clsLlamadaTRD& call;                    // of the block, where there is one
  bool has_call;
  bool is_over = true;  // whether a block will bring no call any more
};

Result ResultOf(const Traced& traced, const layouts::Layout& layout);

// Why a line is no call, for whom it is not enough to be told that; and where that can be put
// right.
struct Obstacle {
  Text sentence;
  std::optional<SlotKind> remedy;
};
Obstacle ObstacleOf(const host::Explanation& line, const clsLlamadaTRD& call,
                    const layouts::Layout& layout);

// Whether a call was read that lacks something.
bool IsLack(NoCall reason);

// What a constant that is not there is told as.
Text SentenceOf(const host::Explanation::Constant& constant);

}  // namespace conmuta::taller
