#include "cable/diagram_raster.h"

#include <algorithm>
#include <cmath>

namespace conmuta {
namespace {

constexpr double kShellLine = 1.6;
constexpr double kLeaderLine = 0.8;

Point Towards(Point from, Point to, double distance) {
  const double length = std::hypot(to.x - from.x, to.y - from.y);
  const double part = length > 0 ? std::min(distance / length, 0.5) : 0;
  return {from.x + (to.x - from.x) * part, from.y + (to.y - from.y) * part};
}

std::uint32_t Packed(Color color) {
  return static_cast<std::uint32_t>(color.red << 16 | color.green << 8 | color.blue);
}

std::vector<Point> OutlineOf(const ShellShape& shell) {
  constexpr int kPieces = 8;
  std::vector<Point> path;
  const std::size_t count = shell.corners.size();
  for (std::size_t i = 0; i < count; ++i) {
    const Point tip = shell.corners[i];
    const Point in = Towards(tip, shell.corners[(i + count - 1) % count], shell.rounding);
    const Point out = Towards(tip, shell.corners[(i + 1) % count], shell.rounding);
    for (int piece = 0; piece <= kPieces; ++piece) {
      const double t = static_cast<double>(piece) / kPieces;
      const double u = 1 - t;
      path.push_back({u * u * in.x + 2 * u * t * tip.x + t * t * out.x,
                      u * u * in.y + 2 * u * t * tip.y + t * t * out.y});
    }
  }
  path.push_back(path.front());
  return path;
}

}  // namespace

void Raster::Clear(Color color) {
  std::fill(pixels_.begin(), pixels_.end(), Packed(color));
}

bool Raster::Sees(double top, double bottom) const {
  return At({0, bottom}).y >= -1 && At({0, top}).y <= height_ + 1;
}

void Raster::Blend(int x, int y, double coverage, Color color) {
  std::uint32_t& pixel = pixels_[static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
                                 static_cast<std::size_t>(x)];
  if (coverage >= 1) {
    pixel = Packed(color);
    return;
  }
  const auto part = static_cast<std::uint32_t>(coverage * 256);
  const auto mix = [&](int shift, std::uint32_t wanted) {
    const std::uint32_t present = (pixel >> shift) & 0xFF;
    return ((present * (256 - part) + wanted * part) >> 8) << shift;
  };
  pixel = mix(16, color.red) | mix(8, color.green) | mix(0, color.blue);
}

// Each piece covers what is nearest to it, between the lines across its ends: the pieces of a
// smooth curve leave nothing out and cover nothing twice.
void Raster::Stroke(std::span<const Point> path, double width, Color color, double dash) {
  const double half = std::max(width * scale_, 1.0) / 2;
  const double reach = half + 0.5;
  const double period = dash * scale_;
  double travelled = 0;
  for (std::size_t i = 0; i + 1 < path.size(); ++i) {
    const Point from = At(path[i]);
    const Point to = At(path[i + 1]);
    const double length = std::hypot(to.x - from.x, to.y - from.y);
    if (length < 1e-6) continue;
    const double dx = (to.x - from.x) / length;
    const double dy = (to.y - from.y) / length;
    const double before = travelled;
    travelled += length;
    const int top = std::max(static_cast<int>(std::floor(std::min(from.y, to.y) - reach)), 0);
    const int bottom =
        std::min(static_cast<int>(std::ceil(std::max(from.y, to.y) + reach)), height_ - 1);
    const double leftmost = std::min(from.x, to.x) - reach;
    const double rightmost = std::max(from.x, to.x) + reach;
    for (int y = top; y <= bottom; ++y) {
      double left = leftmost;
      double right = rightmost;
      if (std::abs(dy) > 1e-3) {
        // Where this row meets the piece, and as far from there as the width reaches.
        const double middle = from.x + (y + 0.5 - from.y) * dx / dy;
        const double spread = reach / std::abs(dy);
        left = std::max(left, middle - spread);
        right = std::min(right, middle + spread);
      }
      const int first = std::max(static_cast<int>(std::floor(left)), 0);
      const int last = std::min(static_cast<int>(std::ceil(right)), width_ - 1);
      const double px = first + 0.5 - from.x;
      const double py = y + 0.5 - from.y;
      double along = px * dx + py * dy;
      double beside = px * dy - py * dx;
      for (int x = first; x <= last; ++x, along += dx, beside += dy) {
        if (along < 0 || along >= length) continue;
        double coverage = reach - std::abs(beside);
        if (coverage <= 0) continue;
        if (period > 0) {
          const double travelled_here = before + along;
          const int repeats = static_cast<int>(travelled_here / (2 * period));
          const double phase = travelled_here - repeats * 2 * period;
          coverage = std::min(coverage, std::min(phase, period - phase) + 0.5);
        }
        if (coverage > 0) Blend(x, y, coverage, color);
      }
    }
  }
}

template <class Coverage>
void Raster::Fill(Point center, double radius, double hole, Color color, Coverage coverage) {
  const int top = std::max(static_cast<int>(std::floor(center.y - radius)) - 1, 0);
  const int bottom = std::min(static_cast<int>(std::ceil(center.y + radius)) + 1, height_ - 1);
  const int left = std::max(static_cast<int>(std::floor(center.x - radius)) - 1, 0);
  const int right = std::min(static_cast<int>(std::ceil(center.x + radius)) + 1, width_ - 1);
  for (int y = top; y <= bottom; ++y) {
    const double dy = y + 0.5 - center.y;
    // What lies within the hole is passed over in one step.
    const double within = hole * hole - dy * dy;
    const double half = within > 0 ? std::sqrt(within) - 1 : 0;
    const int gap = half > 0 ? static_cast<int>(std::ceil(center.x - half)) : right + 1;
    const int after = half > 0 ? static_cast<int>(std::floor(center.x + half)) : right + 1;
    for (int x = left; x <= right; ++x) {
      if (x >= gap && x < after) x = after;
      const double dx = x + 0.5 - center.x;
      const double covered = coverage(std::sqrt(dx * dx + dy * dy));
      if (x <= right && covered > 0) Blend(x, y, covered, color);
    }
  }
}

void Raster::Disc(Point center, double radius, Color color) {
  const double size = radius * scale_;
  Fill(At(center), size, 0, color, [&](double distance) { return size + 0.5 - distance; });
}

void Raster::Ring(Point center, double radius, double width, Color color) {
  const double size = radius * scale_;
  const double half = std::max(width * scale_, 1.0) / 2;
  Fill(At(center), size + half, size - half - 1, color,
       [&](double distance) { return half + 0.5 - std::abs(distance - size); });
}

void PaintShapes(Raster& raster, const Diagram& diagram, const WireShape* loose) {
  for (const ShellShape& shell : diagram.shells) raster.Stroke(OutlineOf(shell), kShellLine, kThin);
  for (const LeaderShape& leader : diagram.leaders) {
    const Point path[] = {leader.from, leader.to};
    raster.Stroke(path, kLeaderLine, kThin);
  }
  const auto paint = [&](const WireShape& wire) {
    const auto [top, bottom] = std::minmax(wire.start.y, wire.end.y);
    if (!raster.Sees(top - wire.width, bottom + wire.width)) return;
    raster.Stroke(wire.Path(), wire.width, wire.color, wire.dash);
  };
  for (const WireShape& wire : diagram.wires) paint(wire);
  for (const PinShape& pin : diagram.pins) {
    if (pin.fill != kWhite) raster.Disc(pin.center, pin.radius, pin.fill);
    raster.Ring(pin.center, pin.radius - 0.8, pin.wired || pin.current ? 2 : 1.2, pin.border);
    if (pin.marked) raster.Ring(pin.center, pin.radius + 3, 1.6, kInk);
  }
  if (loose != nullptr) paint(*loose);
}

}  // namespace conmuta
