// Pictures of cables as they were looked at and approved: every distance, radius and colour of the
// shapes, and how they come out in pixels.
#include <gtest/gtest.h>

#include <cmath>
#include <iomanip>
#include <sstream>

#include "cable/diagram.h"
#include "cable/diagram_raster.h"
#include "cable/usual_cables.h"
#include "support/approved.h"
#include "support/drawn_cable.h"
#include "support/shown_text.h"

namespace conmuta {
namespace {

// One line a shape.
class Listing {
 public:
  Listing() { out_ << std::fixed << std::setprecision(2); }

  std::string Text() const { return out_.str(); }

  void Add(const std::string& title, const Diagram& diagram) {
    out_ << "== " << title << ' ' << diagram.width << ' ' << diagram.height << '\n';
    for (const ShellShape& shell : diagram.shells) {
      out_ << "shell";
      for (const Point corner : shell.corners) Put(corner);
      out_ << " rounding " << shell.rounding << '\n';
    }
    for (const LabelShape& label : diagram.labels) {
      out_ << "label";
      Put(label.center);
      out_ << ' ' << test::Shown(label.text) << '\n';
    }
    for (const LeaderShape& leader : diagram.leaders) {
      out_ << "leader";
      Put(leader.from);
      Put(leader.to);
      out_ << '\n';
    }
    for (const CaptionShape& caption : diagram.captions) {
      out_ << "caption";
      Put(caption.anchor);
      out_ << " align " << static_cast<int>(caption.align) << " width " << caption.width;
      Put(caption.color);
      out_ << ' ' << test::Shown(caption.text) << '\n';
    }
    for (const WireShape& wire : diagram.wires) Add(wire);
    for (const PinShape& pin : diagram.pins) {
      out_ << "pin " << static_cast<int>(pin.side) << ' ' << pin.number;
      Put(pin.center);
      out_ << " radius " << pin.radius << ' ' << test::Shown(pin.label) << ' ' << pin.wired
           << pin.current << pin.marked;
      Put(pin.fill);
      Put(pin.border);
      Put(pin.text);
      out_ << '\n';
    }
  }

  void Add(const WireShape& wire) {
    out_ << "wire " << wire.left << '-' << wire.right;
    for (const Point point : {wire.start, wire.curve_start, wire.curve_end, wire.end}) Put(point);
    out_ << " width " << wire.width << " dash " << wire.dash << ' ' << wire.emphasised;
    Put(wire.color);
    const auto path = wire.Path();
    out_ << " path " << path.size();
    Put(path[path.size() / 3]);
    Put(path[path.size() / 2]);
    out_ << '\n';
  }

 private:
  void Put(Point point) { out_ << ' ' << point.x << ' ' << point.y; }
  void Put(Color color) { out_ << " #" << +color.red << ' ' << +color.green << ' ' << +color.blue; }

  std::ostringstream out_;
};

test::Cable Usual(const UsualCable& usual) {
  test::Cable cable(usual.pair);
  for (const auto& wire : usual.wires) {
    if (wire.left != 0) cable.Wire(wire.left, wire.right);
  }
  return cable;
}

// Forks both ways, and a wire that the configuration does not keep.
test::Cable Forked(emPuertoSerial pair) {
  test::Cable cable(pair);
  cable.Wire(1, 4).Wire(1, 6).Wire(6, 4).Wire(9, 1).Wire(5, RightPins(pair));
  return cable;
}

TEST(ApprovedCables, ShapesStandWhereTheyWereApproved) {
  Listing listing;
  for (const UsualCable& usual : UsualCables()) {
    listing.Add(test::Shown(usual.name), Usual(usual).Draw());
  }
  for (const emPuertoSerial pair : test::kPairs) {
    const test::Cable cable = Forked(pair);
    for (const double width : {500.0, 900.0}) listing.Add("forked", cable.Draw(0, width));
    listing.Add("forked, left pin 1 typed", cable.Draw(1));
    listing.Add("forked, pointed at right pin 4", cable.DrawAt({Side::kRight, 4}));
  }
  test::ExpectLikeApproved("cables.txt", listing.Text(), 0.02);
}

TEST(ApprovedCables, ALooseWireGoesFromItsPinToThePointer) {
  Listing listing;
  const Diagram diagram = Forked(emPuertoSerialDB9DB25).Draw();
  for (const Pin from : {Pin{Side::kLeft, 1}, Pin{Side::kLeft, 7}, Pin{Side::kRight, 20}}) {
    for (const Point pointer : {Point{300, 40}, Point{20, 200}}) {
      listing.Add(DrawLooseWire(diagram, emPuertoSerialDB9DB25, from, pointer));
    }
  }
  test::ExpectLikeApproved("loose-wires.txt", listing.Text(), 0.02);
}

// Half as large as on the screen, in shades of grey.
class Print {
 public:
  explicit Print(const Diagram& diagram)
      : width_(static_cast<int>(diagram.width / 2)),
        height_(static_cast<int>(diagram.height / 2)),
        pixels_(static_cast<std::size_t>(width_ * height_)) {}

  Raster raster() { return {pixels_, width_, height_, {0, 0}, 0.5}; }

  std::string Pgm() const {
    std::string pgm = "P5\n" + std::to_string(width_) + ' ' + std::to_string(height_) + "\n255\n";
    for (const std::uint32_t pixel : pixels_) {
      const std::uint32_t grey =
          (3 * (pixel >> 16 & 0xFF) + 6 * (pixel >> 8 & 0xFF) + (pixel & 0xFF)) / 10;
      pgm.push_back(static_cast<char>(grey));
    }
    return pgm;
  }

 private:
  int width_;
  int height_;
  std::vector<std::uint32_t> pixels_;
};

TEST(ApprovedCables, PixelsLookAsTheyWereApproved) {
  const Diagram diagram = Forked(emPuertoSerialDB9DB25).DrawAt({Side::kLeft, 1});
  const WireShape loose =
      DrawLooseWire(diagram, emPuertoSerialDB9DB25, {Side::kLeft, 7}, {400, 300});
  Print print(diagram);
  Raster raster = print.raster();
  raster.Clear(kWhite);
  PaintShapes(raster, diagram, &loose);
  const std::string now = print.Pgm();
  const std::string approved = test::Approved("forked-cable.pgm", now);
  ASSERT_EQ(now.size(), approved.size());
  // Where a dash ends, one unit of rounding makes a pixel or none.
  std::size_t others = 0;
  for (std::size_t i = 0; i < now.size(); ++i) {
    const int difference =
        static_cast<unsigned char>(now[i]) - static_cast<unsigned char>(approved[i]);
    others += std::abs(difference) > 3;
  }
  EXPECT_LE(others, 8u);
}

}  // namespace
}  // namespace conmuta
