// What one can tell from the picture of a cable: forks, colours, far ends.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>

#include "cable/wiring_text.h"
#include "support/config_snapshot.h"
#include "support/drawn_cable.h"

namespace conmuta {
namespace {

using test::Cable;
using test::kPairs;

class CableLook : public test::DrawnCable {};

INSTANTIATE_TEST_SUITE_P(EveryPair, CableLook, testing::ValuesIn(kPairs));

// What was seen as one line, or cut in pieces: every wire touches its pins in a place of its own.
TEST_P(CableLook, WiresOnASharedPinMeetNowhere) {
  Cable cable(GetParam());
  for (const int other : {1, 4, 6, 9}) cable.Wire(2, other).Wire(other, 2);
  const Diagram diagram = cable.Draw();
  for (const WireShape& a : diagram.wires) {
    for (const WireShape& b : diagram.wires) {
      if (&a == &b) continue;
      if (a.left == b.left) {
        EXPECT_GT(std::abs(a.start.y - b.start.y), a.width) << a.right << ", " << b.right;
        EXPECT_EQ(a.start.y < b.start.y, a.end.y < b.end.y) << "they would cross on their way out";
      }
      if (a.right == b.right) {
        EXPECT_GT(std::abs(a.end.y - b.end.y), a.width) << a.left << ", " << b.left;
        EXPECT_EQ(a.end.y < b.end.y, a.start.y < b.start.y);
      }
    }
  }
}

TEST_P(CableLook, SmoothPathGoesFromPinToPinWithoutAJump) {
  const Diagram diagram = Cable(GetParam()).WireAll().Draw();
  for (const WireShape& wire : diagram.wires) {
    const auto path = wire.Path();
    ASSERT_GE(path.size(), 3u);
    EXPECT_EQ(path.front(), wire.start);
    EXPECT_EQ(path.back(), wire.end);
    for (std::size_t i = 1; i < path.size(); ++i) EXPECT_GT(path[i].x, path[i - 1].x);
  }
}

TEST_P(CableLook, EveryLineStandsOutFromTheGround) {
  for (int current = 0; current <= 2; ++current) {
    const Diagram diagram = Cable(GetParam()).WireAll().Draw(current);
    for (const WireShape& wire : diagram.wires) EXPECT_GE(Contrast(wire.color, kWhite), 3.0);
    for (const PinShape& pin : diagram.pins) {
      EXPECT_GE(Contrast(pin.border, kWhite), 3.0);
      EXPECT_GE(Contrast(pin.text, pin.fill), 4.0) << pin.number;
    }
    for (const CaptionShape& caption : diagram.captions) {
      EXPECT_GE(Contrast(caption.color, kWhite), 4.0);
    }
  }
  EXPECT_GE(Contrast(kThin, kWhite), 3.0);
}

// Even for those who see no colours: pins that stand side by side differ in lightness, and one of
// their lines is dashed.
TEST_P(CableLook, NeighboursAreToldApartWithoutColour) {
  Cable cable(GetParam());
  for (int left = 1; left <= LeftPins(GetParam()); ++left) cable.Wire(left, 1 + left % 9);
  const Diagram diagram = cable.Draw();
  std::vector<const WireShape*> wires;
  for (const WireShape& wire : diagram.wires) wires.push_back(&wire);
  std::sort(wires.begin(), wires.end(),
            [](const WireShape* a, const WireShape* b) { return a->start.y < b->start.y; });
  for (std::size_t i = 1; i < wires.size(); ++i) {
    EXPECT_GE(Contrast(wires[i - 1]->color, wires[i]->color), 3.0)
        << wires[i - 1]->left << " and " << wires[i]->left;
    EXPECT_NE(wires[i - 1]->dash > 0, wires[i]->dash > 0);
  }
}

TEST_P(CableLook, EveryLeftPinHasAColorOfItsOwn) {
  const Diagram diagram = Cable(GetParam()).WireAll().Draw();
  const auto distance = [](Color a, Color b) {
    return std::hypot(a.red - b.red, a.green - b.green, a.blue - b.blue);
  };
  const int lefts = LeftPins(GetParam());
  for (int a = 1; a <= lefts; ++a) {
    for (int b = a + 1; b <= lefts; ++b) {
      const double apart =
          distance(diagram.Find(Side::kLeft, a)->border, diagram.Find(Side::kLeft, b)->border);
      // Next to each other in a row they must be taken for each other least of all.
      EXPECT_GT(apart, b == a + 1 ? 60 : 12) << a << ", " << b;
    }
  }
}

TEST_P(CableLook, FarEndsStandBesideEveryPin) {
  const Diagram diagram = Cable(GetParam()).Wire(2, 4).Wire(2, 6).Wire(5, 4).Draw();
  const auto beside = [&](Side side, int number) {
    std::multiset<Text> texts;
    const PinShape& pin = *diagram.Find(side, number);
    for (const CaptionShape& caption : diagram.captions) {
      const bool same_side = (caption.anchor.x < diagram.width / 2) == (side == Side::kLeft);
      if (same_side && caption.anchor.y == pin.center.y) texts.insert(caption.text);
    }
    return texts;
  };
  const auto signal = [&](int pin) { return Text(SignalName(GetParam(), {Side::kLeft, pin})); };
  EXPECT_EQ(beside(Side::kLeft, 2), (std::multiset<Text>{u"4, 6", signal(2)}));
  EXPECT_EQ(beside(Side::kLeft, 5), (std::multiset<Text>{u"4", signal(5)}));
  EXPECT_EQ(beside(Side::kLeft, 7), (std::multiset<Text>{signal(7)}));
  EXPECT_EQ(beside(Side::kRight, 4), (std::multiset<Text>{u"2, 5"}));
  EXPECT_EQ(beside(Side::kRight, 6), (std::multiset<Text>{u"2"}));
  EXPECT_EQ(beside(Side::kRight, 2), std::multiset<Text>());
}

TEST_P(CableLook, CaptionsStayOutOfTheShellsAndOfEachOther) {
  const Diagram diagram = Cable(GetParam()).WireAll().Draw();
  for (const CaptionShape& caption : diagram.captions) {
    const double left =
        caption.align == Align::kLeft ? caption.anchor.x : caption.anchor.x - caption.width;
    const double right = left + caption.width;
    EXPECT_GT(left, 0);
    EXPECT_LT(right, diagram.width);
    EXPECT_TRUE(right <= Outer(diagram.shells[0]) || left >= Outer(diagram.shells[1]));
    for (const CaptionShape& other : diagram.captions) {
      if (&other == &caption || std::abs(other.anchor.y - caption.anchor.y) > 14) continue;
      const double from =
          other.align == Align::kLeft ? other.anchor.x : other.anchor.x - other.width;
      EXPECT_TRUE(from >= right || from + other.width <= left) << caption.anchor.y;
    }
  }
}

TEST_P(CableLook, PinOfTheSwitchEmphasisesItsWires) {
  const Diagram diagram =
      Cable(GetParam()).Wire(1, 4).Wire(6, 4).Wire(2, 3).DrawAt({Side::kRight, 4});
  for (const WireShape& wire : diagram.wires) EXPECT_EQ(wire.emphasised, wire.right == 4);
  for (const PinShape& pin : diagram.pins) {
    const bool left = pin.side == Side::kLeft;
    EXPECT_EQ(pin.current, left ? pin.number == 1 || pin.number == 6 : pin.number == 4);
  }
}

TEST_P(CableLook, OnlyWhatChangesIsPaintedAnew) {
  const Cable cable = Cable(GetParam()).Wire(1, 4).Wire(6, 4).Wire(2, 3);
  EXPECT_TRUE(Difference(cable.Draw(2), cable.Draw(2)).empty());
  const auto boxes = Difference(cable.Draw(), Cable(cable).Wire(9, 9).Draw());
  ASSERT_FALSE(boxes.empty());
  double area = 0;
  for (const Box& box : boxes) area += (box.right - box.left) * (box.bottom - box.top);
  const Diagram whole = cable.Draw();
  EXPECT_LT(area, whole.width * whole.height / 4);
}

TEST(CablePalette, ContrastIsThatOfTheAccessibilityRules) {
  EXPECT_NEAR(Contrast(kWhite, {0, 0, 0}), 21, 1e-9);
  EXPECT_NEAR(Contrast({119, 119, 119}, kWhite), 4.48, 0.01);
  EXPECT_DOUBLE_EQ(Contrast(kInk, kWhite), Contrast(kWhite, kInk));
  EXPECT_DOUBLE_EQ(Contrast(kInk, kInk), 1);
}

TEST(CableLookOfAPair, WhatThePairDoesNotKeepIsGrey) {
  const Diagram diagram = Cable(emPuertoSerialDB9DB25).Wire(2, 2).Wire(6, 20).Draw();
  for (const WireShape& wire : diagram.wires) {
    EXPECT_EQ(wire.color == kMuted, wire.right == 20);
  }
  EXPECT_EQ(diagram.Find(Side::kRight, 20)->border, kMuted);
  EXPECT_NE(Cable(emPuertoSerialDB25DB25).Wire(6, 20).Draw().wires[0].color, kMuted);
}

}  // namespace
}  // namespace conmuta
