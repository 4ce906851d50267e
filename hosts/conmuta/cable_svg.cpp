#include <cstdio>
#include <cstdlib>

#include "cable/diagram.h"
#include "conmuta/cable_drawing.h"
#include "conmuta/utf8.h"

namespace conmuta::host {
namespace {

// With a point, whatever the locale, and no more digits than one can see.
std::string Number(double value) {
  char text[32];
  const auto tenths = static_cast<long long>(value * 10 + (value < 0 ? -0.5 : 0.5));
  std::snprintf(text, sizeof text, "%s%lld.%lld", tenths < 0 ? "-" : "", std::abs(tenths) / 10,
                std::abs(tenths) % 10);
  return text;
}

std::string At(Point point) {
  return Number(point.x) + ' ' + Number(point.y);
}

std::string Hex(Color color) {
  char text[8];
  std::snprintf(text, sizeof text, "#%02x%02x%02x", unsigned{color.red}, unsigned{color.green},
                unsigned{color.blue});
  return text;
}

std::string Escaped(TextView text) {
  std::string escaped;
  for (const char c : Shown(text)) {
    switch (c) {
      case '&':
        escaped += "&amp;";
        break;
      case '<':
        escaped += "&lt;";
        break;
      case '>':
        escaped += "&gt;";
        break;
      default:
        escaped += c;
    }
  }
  return escaped;
}

std::string Shell(const ShellShape& shell) {
  std::string points;
  for (const Point& corner : shell.corners) points += (points.empty() ? "" : " ") + At(corner);
  return "<polygon points=\"" + points + "\" fill=\"none\" stroke=\"" + Hex(kThin) +
         "\" stroke-width=\"1.5\" stroke-linejoin=\"round\"/>\n";
}

std::string Wire(const WireShape& wire) {
  std::string path = "<path d=\"M" + At(wire.start) + " L" + At(wire.curve_start) + " C" +
                     At(wire.FirstControl()) + " " + At(wire.SecondControl()) + " " +
                     At(wire.curve_end) + " L" + At(wire.end) + "\" fill=\"none\" stroke=\"" +
                     Hex(wire.color) + "\" stroke-width=\"" + Number(wire.width) + "\"";
  if (wire.dash != 0) path += " stroke-dasharray=\"" + Number(wire.dash) + "\"";
  return path + "/>\n";
}

std::string Words(TextView text, Point at, std::string_view anchor, Color color,
                  std::string_view more = {}) {
  return "<text x=\"" + Number(at.x) + "\" y=\"" + Number(at.y) +
         "\" dy=\"0.35em\" text-anchor=\"" + std::string(anchor) + "\" fill=\"" + Hex(color) +
         "\"" + std::string(more) + ">" + Escaped(text) + "</text>\n";
}

std::string PinCircle(const PinShape& pin) {
  return "<circle cx=\"" + Number(pin.center.x) + "\" cy=\"" + Number(pin.center.y) + "\" r=\"" +
         Number(pin.radius) + "\" fill=\"" + Hex(pin.fill) + "\" stroke=\"" + Hex(pin.border) +
         "\"/>\n" + Words(pin.label, pin.center, "middle", pin.text, " font-size=\"10\"");
}

}  // namespace

std::string CableSvg(emPuertoSerial pair, std::span<const WiringMask> table) {
  const Diagram diagram = DrawCable(pair, table, {}, kMostDiagramWidth);
  const std::string size = Number(diagram.width) + "\" height=\"" + Number(diagram.height);
  std::string svg = "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + size +
                    "\" font-family=\"sans-serif\" font-size=\"12\">\n<rect width=\"" + size +
                    "\" fill=\"#ffffff\"/>\n";
  for (const ShellShape& shell : diagram.shells) svg += Shell(shell);
  for (const LabelShape& label : diagram.labels) {
    svg += Words(label.text, label.center, "middle", kInk,
                 " transform=\"rotate(-90 " + At(label.center) + ")\"");
  }
  for (const LeaderShape& leader : diagram.leaders) {
    svg += "<path d=\"M" + At(leader.from) + " L" + At(leader.to) + "\" stroke=\"" + Hex(kThin) +
           "\"/>\n";
  }
  for (const WireShape& wire : diagram.wires) svg += Wire(wire);
  for (const PinShape& pin : diagram.pins) svg += PinCircle(pin);
  for (const CaptionShape& caption : diagram.captions) {
    svg += Words(caption.text, caption.anchor, caption.align == Align::kLeft ? "start" : "end",
                 caption.color);
  }
  return svg + "</svg>\n";
}

}  // namespace conmuta::host
