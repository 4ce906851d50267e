// The picture of a cable: where everything stands and what it looks like.
#include "cable/diagram.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <set>

#include "platform/format.h"
#include "support/drawn_cable.h"

namespace conmuta {
namespace {

using test::Cable;
using test::Distance;
using test::kPairs;
using test::kWidths;

class CableDiagram : public test::DrawnCable {};

INSTANTIATE_TEST_SUITE_P(EveryPair, CableDiagram, testing::ValuesIn(kPairs));

TEST_P(CableDiagram, HasEveryPinOnceWithItsTwoDigits) {
  const Diagram diagram = Cable(GetParam()).Draw();
  EXPECT_EQ(std::ssize(diagram.pins), PinsOf(Side::kLeft) + PinsOf(Side::kRight));
  for (const Side side : {Side::kLeft, Side::kRight}) {
    for (int number = 1; number <= PinsOf(side); ++number) {
      const PinShape* pin = diagram.Find(side, number);
      ASSERT_NE(pin, nullptr) << number;
      EXPECT_EQ(pin->side, side);
      EXPECT_EQ(pin->number, number);
      EXPECT_EQ(pin->label, PaddedNumber(number, 2));
      EXPECT_EQ(pin->label.size(), 2u);
    }
    for (const int number : {0, -1, PinsOf(side) + 1, 1000}) {
      EXPECT_EQ(diagram.Find(side, number), nullptr) << number;
    }
  }
}

TEST_P(CableDiagram, EveryPinLiesInsideItsShell) {
  for (const double width : kWidths) {
    const Diagram diagram = Cable(GetParam()).Draw(0, width);
    for (const PinShape& pin : diagram.pins) {
      SCOPED_TRACE(testing::Message() << "pin " << pin.number << " of side "
                                      << static_cast<int>(pin.side) << ", width " << width);
      const ShellShape& shell = ShellOf(diagram, pin.side);
      const double left = std::min(Outer(shell), Inner(shell));
      const double right = std::max(Outer(shell), Inner(shell));
      EXPECT_GT(pin.center.x - pin.radius, left);
      EXPECT_LT(pin.center.x + pin.radius, right);
      for (const double x : {pin.center.x - pin.radius, pin.center.x + pin.radius}) {
        const double top = TopAt(shell, x);
        EXPECT_GT(pin.center.y - pin.radius, top);
        EXPECT_LT(pin.center.y + pin.radius, diagram.height - top);
      }
    }
  }
}

TEST_P(CableDiagram, PinsOfASideDoNotTouch) {
  const Diagram diagram = Cable(GetParam()).Draw();
  for (const PinShape& a : diagram.pins) {
    for (const PinShape& b : diagram.pins) {
      if (&a == &b) continue;
      EXPECT_GT(Distance(a.center, b.center), a.radius + b.radius) << a.number << ", " << b.number;
    }
  }
}

TEST_P(CableDiagram, EveryPinOfASideHasAHeightOfItsOwn) {
  const Diagram diagram = Cable(GetParam()).Draw();
  for (const Side side : {Side::kLeft, Side::kRight}) {
    std::set<double> heights;
    for (int number = 1; number <= PinsOf(side); ++number) {
      heights.insert(diagram.Find(side, number)->center.y);
    }
    ASSERT_EQ(std::ssize(heights), PinsOf(side));
    double before = -100;
    for (const double height : heights) {
      EXPECT_GT(height, before + 5);
      before = height;
    }
  }
}

TEST_P(CableDiagram, NumbersRunDownwardsInTwoRows) {
  const Diagram diagram = Cable(GetParam()).Draw();
  for (const Side side : {Side::kLeft, Side::kRight}) {
    const int outer = (PinsOf(side) + 1) / 2;
    for (int number = 2; number <= PinsOf(side); ++number) {
      const Point above = diagram.Find(side, number - 1)->center;
      const Point pin = diagram.Find(side, number)->center;
      if (number == outer + 1) {
        EXPECT_NE(pin.x, above.x);
      } else {
        EXPECT_EQ(pin.x, above.x);
        EXPECT_GT(pin.y, above.y);
      }
    }
  }
}

TEST_P(CableDiagram, BothShellsStandApartInTheMiddleOfTheHeight) {
  for (const double width : kWidths) {
    const Diagram diagram = Cable(GetParam()).Draw(0, width);
    const ShellShape& left = diagram.shells[0];
    const ShellShape& right = diagram.shells[1];
    EXPECT_LT(Outer(left), Inner(left));
    EXPECT_LT(Inner(left), Inner(right));
    EXPECT_LT(Inner(right), Outer(right));
    for (const ShellShape& shell : diagram.shells) {
      EXPECT_DOUBLE_EQ(shell.corners[0].y, diagram.height - shell.corners[3].y);
      EXPECT_DOUBLE_EQ(shell.corners[1].y, diagram.height - shell.corners[2].y);
      EXPECT_LT(shell.corners[0].y, shell.corners[1].y);  // D-shaped: narrower inside
      EXPECT_GT(shell.rounding, 0);
    }
  }
}

TEST_P(CableDiagram, LabelsStandBesideTheirConnectors) {
  const Diagram diagram = Cable(GetParam()).Draw();
  EXPECT_EQ(diagram.labels[0].text, u"C o m p u t a d o r a");
  EXPECT_EQ(diagram.labels[1].text, u"C o n m u t a d o r");
  EXPECT_GT(diagram.labels[0].center.x, 0);
  EXPECT_LT(diagram.labels[0].center.x, Outer(diagram.shells[0]));
  EXPECT_GT(diagram.labels[1].center.x, Outer(diagram.shells[1]));
  EXPECT_LT(diagram.labels[1].center.x, diagram.width);
  for (const LabelShape& label : diagram.labels) {
    EXPECT_DOUBLE_EQ(label.center.y, diagram.height / 2);
  }
}

TEST_P(CableDiagram, NothingStandsOutsideThePicture) {
  for (const double width : kWidths) {
    const Diagram diagram = Cable(GetParam()).WireAll().Draw(1, width);
    const auto inside = [&](Point point, double radius) {
      return point.x - radius >= 0 && point.x + radius <= diagram.width && point.y - radius >= 0 &&
             point.y + radius <= diagram.height;
    };
    int outside = 0;
    for (const ShellShape& shell : diagram.shells) {
      for (const Point corner : shell.corners) outside += !inside(corner, 0);
    }
    for (const PinShape& pin : diagram.pins) outside += !inside(pin.center, pin.radius);
    for (const LabelShape& label : diagram.labels) outside += !inside(label.center, 0);
    for (const WireShape& wire : diagram.wires) {
      for (const Point point : {wire.start, wire.curve_start, wire.FirstControl(),
                                wire.SecondControl(), wire.curve_end, wire.end}) {
        outside += !inside(point, wire.width / 2);
      }
    }
    EXPECT_EQ(outside, 0) << width;
  }
}

TEST_P(CableDiagram, WidthStaysWithinWhatIsComfortable) {
  const Cable cable = Cable(GetParam()).WireAll();
  for (const double width : kWidths) {
    EXPECT_EQ(cable.Draw(0, width).width, std::clamp(width, kLeastDiagramWidth, kMostDiagramWidth));
    EXPECT_EQ(cable.Draw(0, width).height, DiagramHeight(GetParam()));
  }
}

TEST_P(CableDiagram, EveryWireRunsFromItsPinToItsPin) {
  const Diagram diagram = Cable(GetParam()).WireAll().Draw(2);
  ASSERT_EQ(std::ssize(diagram.wires), PinsOf(Side::kLeft) * PinsOf(Side::kRight));
  std::set<std::pair<int, int>> seen;
  for (const WireShape& wire : diagram.wires) {
    seen.emplace(wire.left, wire.right);
    const PinShape& left = *diagram.Find(Side::kLeft, wire.left);
    const PinShape& right = *diagram.Find(Side::kRight, wire.right);
    EXPECT_NEAR(Distance(wire.start, left.center), left.radius, 1e-9);
    EXPECT_NEAR(Distance(wire.end, right.center), right.radius, 1e-9);
    EXPECT_GT(wire.start.x, left.center.x) << "on the side of the other connector";
    EXPECT_LT(wire.end.x, right.center.x);
    EXPECT_GT(wire.width, 0);
  }
  EXPECT_EQ(seen.size(), diagram.wires.size());
}

TEST_P(CableDiagram, EveryWireLeavesItsShellsBeforeItBends) {
  for (const double width : kWidths) {
    const Diagram diagram = Cable(GetParam()).WireAll().Draw(0, width);
    for (const WireShape& wire : diagram.wires) {
      EXPECT_EQ(wire.curve_start.y, wire.start.y);
      EXPECT_EQ(wire.curve_end.y, wire.end.y);
      EXPECT_GT(wire.curve_start.x, Inner(diagram.shells[0]));
      EXPECT_LT(wire.curve_end.x, Inner(diagram.shells[1]));
      EXPECT_LT(wire.curve_start.x, wire.curve_end.x);
      EXPECT_EQ(wire.FirstControl().y, wire.curve_start.y);
      EXPECT_EQ(wire.SecondControl().y, wire.curve_end.y);
      EXPECT_EQ(wire.FirstControl().x, wire.SecondControl().x);
      EXPECT_GT(wire.FirstControl().x, wire.curve_start.x);
      EXPECT_LT(wire.FirstControl().x, wire.curve_end.x);
    }
  }
}

// A wire runs straight through its shell, between the pins of the other row.
TEST_P(CableDiagram, NoWireCrossesAnotherPinOnItsWayOut) {
  const Diagram diagram = Cable(GetParam()).WireAll().Draw(1);
  for (const WireShape& wire : diagram.wires) {
    for (const PinShape& pin : diagram.pins) {
      const bool left = pin.side == Side::kLeft;
      if (pin.number == (left ? wire.left : wire.right)) continue;
      const double y = left ? wire.start.y : wire.end.y;
      const bool between = left ? pin.center.x > wire.start.x : pin.center.x < wire.end.x;
      if (between) {
        EXPECT_GT(std::abs(pin.center.y - y), pin.radius + wire.width / 2);
      }
    }
  }
}

TEST_P(CableDiagram, WithoutWiresThereIsNothingBetween) {
  const Diagram diagram = Cable(GetParam()).Draw(1);
  EXPECT_TRUE(diagram.wires.empty());
  for (const PinShape& pin : diagram.pins) EXPECT_FALSE(pin.wired);
}

TEST_P(CableDiagram, WiredPinsStandOut) {
  const Diagram diagram = Cable(GetParam()).Wire(3, 9).Draw();
  const PinShape& muted = *diagram.Find(Side::kLeft, 1);
  for (const PinShape& pin : diagram.pins) {
    const bool wired = pin.number == (pin.side == Side::kLeft ? 3 : 9);
    EXPECT_EQ(pin.wired, wired);
    EXPECT_FALSE(pin.current);
    if (!IsKept(GetParam(), pin.number)) continue;
    EXPECT_EQ(pin.border == muted.border, !wired);
    EXPECT_EQ(pin.text == muted.text, !wired);
  }
  ASSERT_EQ(diagram.wires.size(), 1u);
  EXPECT_EQ(diagram.Find(Side::kLeft, 3)->border, diagram.wires[0].color);
}

TEST_P(CableDiagram, WiresOfTheCurrentPinComeLastAndThicker) {
  const int lefts = LeftPins(GetParam());
  const Cable cable = Cable(GetParam()).WireAll();
  const Diagram plain = cable.Draw();
  for (int current = 1; current <= lefts; ++current) {
    const Diagram diagram = cable.Draw(current);
    const std::ptrdiff_t others = std::ssize(diagram.wires) - RightPins(GetParam());
    for (std::ptrdiff_t i = 0; i < std::ssize(diagram.wires); ++i) {
      const WireShape& wire = diagram.wires[static_cast<std::size_t>(i)];
      const bool emphasised = wire.left == current;
      ASSERT_EQ(emphasised, i >= others);
      ASSERT_EQ(wire.emphasised, emphasised);
      ASSERT_EQ(wire.width > plain.wires[0].width, emphasised);
      if (IsKept(GetParam(), wire.right)) {
        ASSERT_EQ(wire.color, plain.Find(Side::kLeft, wire.left)->border) << "never faded";
      }
    }
    for (const PinShape& pin : diagram.pins) {
      ASSERT_EQ(pin.current, pin.side == Side::kRight || pin.number == current);
    }
  }
}

TEST_P(CableDiagram, EndsOfTheCurrentPinAreShownWithIt) {
  const Diagram diagram = Cable(GetParam()).Wire(2, 1).Wire(2, 9).Wire(3, 4).Draw(2);
  std::set<int> current;
  for (const PinShape& pin : diagram.pins) {
    if (pin.side == Side::kRight && pin.current) current.insert(pin.number);
    if (pin.current) {
      EXPECT_EQ(pin.fill, diagram.wires.back().color);
    }
  }
  EXPECT_EQ(current, (std::set<int>{1, 9}));
  EXPECT_TRUE(diagram.Find(Side::kRight, 4)->wired);
}

TEST_P(CableDiagram, CurrentPinWithoutWiresIsShownAllTheSame) {
  const Diagram diagram = Cable(GetParam()).Wire(3, 4).Draw(2);
  EXPECT_TRUE(diagram.Find(Side::kLeft, 2)->current);
  EXPECT_FALSE(diagram.Find(Side::kLeft, 2)->wired);
  EXPECT_FALSE(diagram.Find(Side::kRight, 4)->current);
}

TEST_P(CableDiagram, CurrentPinThatIsMissingIsShownNowhere) {
  const Cable cable = Cable(GetParam()).WireAll();
  for (const int current : {LeftPins(GetParam()) + 1, 1000, -1, std::numeric_limits<int>::max(),
                            std::numeric_limits<int>::min()}) {
    const Diagram diagram = cable.Draw(current);
    for (const PinShape& pin : diagram.pins) EXPECT_FALSE(pin.current) << current;
    for (const WireShape& wire : diagram.wires) EXPECT_FALSE(wire.emphasised) << current;
  }
}

TEST_P(CableDiagram, PointOnAPinFindsIt) {
  const Diagram diagram = Cable(GetParam()).Draw();
  for (const PinShape& pin : diagram.pins) {
    for (const Point offset : {Point{0, 0}, Point{pin.radius, 0}, Point{0, -pin.radius}}) {
      EXPECT_EQ(diagram.PinAt({pin.center.x + offset.x, pin.center.y + offset.y}), &pin);
    }
  }
}

TEST_P(CableDiagram, PointBesideThePinsFindsNothing) {
  const Diagram diagram = Cable(GetParam()).Draw();
  const Point points[] = {{diagram.width / 2, diagram.height / 2},
                          {0, 0},
                          {-1e9, 1e9},
                          diagram.labels[0].center,
                          diagram.shells[1].corners[2]};
  for (const Point point : points) EXPECT_EQ(diagram.PinAt(point), nullptr);
}

TEST_P(CableDiagram, ScrollingReachesAllOfIt) {
  const Diagram diagram = Cable(GetParam()).Draw();
  EXPECT_EQ(diagram.ScrollRange(diagram.height), 0);
  EXPECT_EQ(diagram.ScrollRange(diagram.height + 500), 0);
  for (const double view : {0.0, 1.0, 50.0, diagram.height - 1}) {
    EXPECT_DOUBLE_EQ(diagram.ScrollRange(view) + view, diagram.height);
  }
}

TEST_P(CableDiagram, LooseWireRunsFromItsPinToThePointer) {
  const Diagram diagram = Cable(GetParam()).Draw();
  const Point pointers[] = {
      {diagram.width / 2, 40}, {diagram.width - 60, 100}, {0, 0}, {-500, 5000}};
  for (const Pin from : {Pin{Side::kLeft, 3}, Pin{Side::kRight, 8}}) {
    for (const Point pointer : pointers) {
      const WireShape wire = DrawLooseWire(diagram, GetParam(), from, pointer);
      const PinShape& pin = *diagram.Find(from.side, from.number);
      EXPECT_NEAR(Distance(wire.start, pin.center), pin.radius, 1e-9);
      EXPECT_EQ(wire.end, pointer);
      EXPECT_EQ(wire.curve_end, pointer);
      EXPECT_EQ(wire.curve_start.y, wire.start.y);
      EXPECT_TRUE(wire.emphasised);
      EXPECT_GE(Contrast(wire.color, kWhite), 3.0);
      EXPECT_EQ(wire.Path().back(), pointer);
    }
  }
}

TEST_P(CableDiagram, LooseWireOfAMissingPinIsHarmless) {
  const Diagram diagram = Cable(GetParam()).Draw();
  for (const int pin : {0, -1, 26, 1000}) {
    const WireShape wire = DrawLooseWire(diagram, GetParam(), {Side::kLeft, pin}, {50, 60});
    EXPECT_EQ(wire.end, (Point{50, 60}));
    EXPECT_FALSE(BoxesOf(wire).empty());
  }
}

TEST(CableDiagramSize, BelongsToTheLargerConnector) {
  const double small = Cable(emPuertoSerialDB9DB9).Draw().height;
  const double large = Cable(emPuertoSerialDB25DB25).Draw().height;
  EXPECT_LT(small, large);
  EXPECT_EQ(Cable(emPuertoSerialDB9DB25).Draw().height, large);
  EXPECT_EQ(Cable(emPuertoSerialDB25DB9).Draw().height, large);
}

TEST(CableDiagramWires, AreThinnerWhereThereAreMany) {
  EXPECT_LT(Cable(emPuertoSerialDB25DB25).WireAll().Draw().wires[0].width,
            Cable(emPuertoSerialDB25DB25).Wire(1, 1).Draw().wires[0].width);
}

// Files may carry bits beyond the pins, and an entry 0.
TEST(CableDiagramWires, BitsBeyondThePinsAreNotDrawn) {
  Wiring wiring;
  wiring.Table(emPuertoSerialDB9DB9)[0] = -1;
  wiring.Table(emPuertoSerialDB9DB9)[4] = static_cast<WiringMask>(0xFFFFFE00u);
  const Diagram diagram =
      DrawCable(emPuertoSerialDB9DB9, wiring.Table(emPuertoSerialDB9DB9), {4, {}, {}}, 640);
  EXPECT_TRUE(diagram.wires.empty());
  for (const PinShape& pin : diagram.pins) {
    EXPECT_EQ(pin.current, pin.side == Side::kLeft && pin.number == 4);
  }
}

}  // namespace
}  // namespace conmuta
