// `captura`, `estado`, `reprocesa` and `exporta` as subcommands.
#pragma once

#include <CLI/CLI.hpp>
#include <iosfwd>

#include "capture/capture.h"

namespace conmuta::capture {

// Parsing one of them runs it, and leaves in `code` how it ended. The rest must outlive `app`.
void AddCaptureCommands(CLI::App& app, const LoadLayout& load, std::ostream& out, std::ostream& err,
                        int& code);

}  // namespace conmuta::capture
