// The layouts of the catalogue, by how well they explain a capture.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "taller/capture_bytes.h"

namespace conmuta::taller {

// The name in the catalogue that the person takes; nothing when none was taken.
std::optional<std::string> AskForGuess(std::shared_ptr<const CaptureBytes> bytes);

// Its controls.
inline constexpr int kGuessList = 2300;
inline constexpr int kGuessState = 2301;

}  // namespace conmuta::taller
