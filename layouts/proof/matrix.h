// Every layout over every capture.
#pragma once

#include <string>
#include <vector>

#include "layouts/proof/family.h"

namespace conmuta::layouts {

struct Explained {
  int calls = 0;
  int plausible = 0;  // of them (plausible.h)
  int expected = 0;   // of them: exactly the call that the capture's own family expects of the line

  // How well a layout explains a capture, without knowing what is expected.
  int Score() const { return plausible - (calls - plausible); }
};

// By layout, then by capture, both in the order of the families.
using Matrix = std::vector<std::vector<Explained>>;

Matrix MatrixOf(const std::vector<Family>& families);

// Which other layouts explain the capture of a family at least as well as its own does.
std::vector<std::size_t> Rivals(const Matrix& matrix, std::size_t family);

// The calls, and how many of them are plausible where that are not all. Spanish.
std::string MatrixTable(const std::vector<Family>& families, const Matrix& matrix);

}  // namespace conmuta::layouts
