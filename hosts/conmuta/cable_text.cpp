#include <algorithm>
#include <array>
#include <string_view>
#include <utility>
#include <vector>

#include "cable/diagram.h"
#include "cable/wiring_text.h"
#include "conmuta/cable_drawing.h"
#include "conmuta/utf8.h"

namespace conmuta::host {
namespace {

// What leaves a cell of the drawing, in which directions.
enum Arm : unsigned { kLeftArm = 1, kRightArm = 2, kUpArm = 4, kDownArm = 8 };

constexpr std::array<std::string_view, 16> kCells = {" ", "─", "─", "─", "│", "┘", "└", "┴",
                                                     "│", "┐", "┌", "┬", "│", "┤", "├", "┼"};

// Cells whose lines join as they are laid.
class Grid {
 public:
  Grid(std::size_t rows, std::size_t columns) : cells_(rows, std::vector<unsigned>(columns)) {}

  void Across(std::size_t row, std::size_t from, std::size_t to) {
    for (std::size_t column = from; column < to; ++column) {
      cells_[row][column] |= kRightArm;
      cells_[row][column + 1] |= kLeftArm;
    }
  }
  void Down(std::size_t column, std::size_t from, std::size_t to) {
    if (from > to) std::swap(from, to);
    for (std::size_t row = from; row < to; ++row) {
      cells_[row][column] |= kDownArm;
      cells_[row + 1][column] |= kUpArm;
    }
  }
  std::string Row(std::size_t row) const {
    std::string text;
    for (const unsigned arms : cells_[row]) text += kCells[arms];
    return text;
  }

 private:
  std::vector<std::vector<unsigned>> cells_;
};

std::vector<int> WiredPins(const Diagram& diagram, Side side) {
  std::vector<int> pins;
  for (const PinShape& pin : diagram.pins) {
    if (pin.side == side && pin.wired) pins.push_back(pin.number);
  }
  std::sort(pins.begin(), pins.end());
  return pins;
}

std::size_t PlaceOf(int pin, const std::vector<int>& pins) {
  return static_cast<std::size_t>(std::find(pins.begin(), pins.end(), pin) - pins.begin());
}

std::string AlignedRight(std::string text, std::size_t width) {
  return text.insert(0, width - std::min(width, text.size()), ' ');
}

}  // namespace

std::string CableText(emPuertoSerial pair, std::span<const WiringMask> table) {
  const Diagram diagram = DrawCable(pair, table, {}, kLeastDiagramWidth);
  const std::vector<int> lefts = WiredPins(diagram, Side::kLeft);
  const std::vector<int> rights = WiredPins(diagram, Side::kRight);
  std::vector<WireShape> wires = diagram.wires;
  std::sort(wires.begin(), wires.end(), [](const WireShape& a, const WireShape& b) {
    return std::pair(a.left, a.right) < std::pair(b.left, b.right);
  });

  // Each wire goes down, or up, in a column of its own; pins of the two sides have rows of their
  // own. So no wire lies on another.
  const std::size_t width = 2 * wires.size() + 2;
  Grid grid(2 * std::max(lefts.size(), rights.size()), width + 1);
  for (std::size_t i = 0; i < wires.size(); ++i) {
    const std::size_t column = 2 * i + 2;
    const std::size_t from = 2 * PlaceOf(wires[i].left, lefts);
    const std::size_t to = 2 * PlaceOf(wires[i].right, rights) + 1;
    grid.Across(from, 0, column);
    grid.Down(column, from, to);
    grid.Across(to, column, width);
  }

  constexpr std::size_t kLabel = 8;
  std::string text = "  computadora" + std::string(width, ' ') + "conmutador\n";
  for (std::size_t row = 0; row < 2 * std::max(lefts.size(), rights.size()); ++row) {
    std::string line(kLabel, ' ');
    if (row % 2 == 0 && row / 2 < lefts.size()) {
      const int pin = lefts[row / 2];
      line = AlignedRight(Utf8(SignalName(pair, {Side::kLeft, pin})), 4) +
             AlignedRight(std::to_string(pin), 4);
    }
    line += ' ' + grid.Row(row);
    if (row % 2 == 1 && row / 2 < rights.size()) line += ' ' + std::to_string(rights[row / 2]);
    line.erase(line.find_last_not_of(' ') + 1);
    text += line + '\n';
  }
  return text;
}

}  // namespace conmuta::host
