#include "cable/usual_cables.h"

namespace conmuta {
namespace {

constexpr UsualCable kCables[] = {
    {emPuertoSerialDB9DB9,
     u"Módem nulo completo",
     {{{1, 4}, {6, 4}, {2, 3}, {3, 2}, {4, 1}, {4, 6}, {5, 5}, {7, 8}, {8, 7}}}},
    {emPuertoSerialDB9DB9,
     u"Directo",
     {{{1, 1}, {2, 2}, {3, 3}, {4, 4}, {5, 5}, {6, 6}, {7, 7}, {8, 8}, {9, 9}}}},
    {emPuertoSerialDB9DB9, u"De tres hilos", {{{2, 3}, {3, 2}, {5, 5}}}},
    {emPuertoSerialDB9DB25, u"A puerto de impresora", {{{2, 2}, {3, 3}, {5, 7}, {6, 20}, {8, 20}}}},
    {emPuertoSerialDB25DB25,
     u"Módem nulo con ocupado por DTR",
     {{{2, 3}, {3, 2}, {5, 20}, {6, 20}, {7, 7}}}},
    {emPuertoSerialDB25DB25,
     u"Directo a módem",
     {{{2, 2}, {3, 3}, {4, 4}, {5, 5}, {6, 6}, {7, 7}, {8, 8}, {20, 20}}}},
};

}  // namespace

std::span<const UsualCable> UsualCables() {
  return kCables;
}

}  // namespace conmuta
