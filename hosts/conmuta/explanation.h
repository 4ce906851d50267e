// What a translation looked at in a line, kept and told.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "layouts/layout.h"
#include "translate/clsTradEST.h"

namespace conmuta::host {

// Only what the layout gives a place.
class Explanation final : public LineObserver {
 public:
  struct Item {
    emParamDato kind = emNoParamDato;
    int pos = 0;   // 1-based column
    int size = 0;  // columns
    Text found;    // what stands there
    Text value;    // what it is used as
    LineError error = LineError::kNone;
  };
  struct Constant {
    emParamDatoConstante kind = emNoParamDatoConstante;
    int pos = 0;
    int size = 0;
    Text wanted;
    Text found;
    bool stands = false;
  };

  Explanation(std::uint64_t number, TextView line) : number(number), line(line) {}

  void Read(const ItemRead& item) override;
  void Looked(const ConstantRead& constant) override;
  void Ended(const Verdict& told) override { verdict = told; }

  std::uint64_t number;  // of the line
  Text line;
  std::vector<Item> items;  // once each, in the order of reading
  std::vector<Constant> constants;
  Verdict verdict;
};

// What an item holds, in a word: "mes", "troncal".
TextView ShortName(emParamDato kind);

// "18-22", or "18" for one column.
std::string Places(int pos, int size);

// For people; with colours where they are wanted.
std::string ExplanationText(const Explanation& explanation, const clsLlamadaTRD& call,
                            bool colours);

// One line of JSON.
std::string ExplanationJson(const Explanation& explanation, const clsLlamadaTRD& call);

}  // namespace conmuta::host
