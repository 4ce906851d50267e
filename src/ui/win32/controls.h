// Controls: what they show, whether they can be used, and how large they have to be.
#pragma once

#include <windows.h>

#include "platform/text.h"

namespace conmuta::win32 {

// The module that the code is in.
HINSTANCE ThisModule();

// For the system: terminated by the Text's own end.
inline const wchar_t* Wide(const Text& text) {
  return reinterpret_cast<const wchar_t*>(text.c_str());
}

Text TextOf(HWND control);
void SetText(HWND control, TextView text);  // leaves a control alone that shows it already
void SetEnabled(HWND control, bool enabled);
void SetVisible(HWND control, bool visible);
bool CanTakeFocus(HWND control);

bool IsMultiLineEdit(HWND control);
bool IsPushButton(HWND control);

// Measures by the font that a window uses. All lengths are pixels.
class Measures {
 public:
  Measures() = default;
  explicit Measures(HFONT font);

  // Height of a line, and an average letter's width.
  int line() const { return line_; }
  int letter() const { return letter_; }

  // A length that was chosen for lines 15 pixels high.
  int Scale(int pixels) const { return MulDiv(pixels, line_, 15); }
  int margin() const { return Scale(9); }
  int gap() const { return Scale(6); }

  // The whole text in as many lines as it has; an ampersand marks a key.
  SIZE Label(TextView text) const;
  // The control that has this text, without anything cut.
  SIZE Button(TextView caption) const;
  SIZE Option(TextView caption) const;
  // An edit control of one line that has room for some letters; its border is within.
  SIZE Field(int letters) const;

  // The text itself when it fits into the width, else its beginning and an ellipsis. Ampersands
  // mark nothing in it.
  Text Shortened(TextView text, int width) const;

 private:
  HFONT font_ = nullptr;
  int line_ = 15;
  int letter_ = 7;
};

// In captions an ampersand marks the key; one in a name is to be seen.
Text WithVisibleAmpersands(TextView text);

}  // namespace conmuta::win32
