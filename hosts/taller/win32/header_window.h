// What a layout says of the switch as a whole.
#pragma once

#include "taller/document.h"

namespace conmuta::taller {

// Lets the person change brand, model, comments, separator and case, as one step. Whether something
// was changed.
bool AskForHeader(Document& document);

// Its controls.
inline constexpr int kHeaderBrand = 2200;
inline constexpr int kHeaderModel = 2201;
inline constexpr int kHeaderSeparator = 2202;
inline constexpr int kHeaderCase = 2203;
inline constexpr int kHeaderComments = 2204;
inline constexpr int kHeaderDoubt = 2205;

// A separator as one types it: "\r\n" for the two characters, "\\" for a backslash; and back.
Text TypedSeparator(TextView separator);
Text ReadSeparator(TextView typed);

}  // namespace conmuta::taller
