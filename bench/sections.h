// The parts of the core's benchmark. Each prints its rows.
#pragma once

#include "lines.h"

namespace conmuta::bench {

void MeasureStandardCase(const Lines& lines);  // beside the parser written by hand
void MeasureCaptures();
void MeasureWatching(const Lines& lines);
void MeasureErrors();
void MeasureParkedCalls();
void CountAllocations(const Lines& lines);
void MeasureLongLines();
void MeasureFile(const Lines& lines);
void MeasureCatalogue();

}  // namespace conmuta::bench
