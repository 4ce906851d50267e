#include "ui/win32/info_window.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

#include "ui/win32/control_ids.h"
#include "ui/win32/window.h"
#include "ui/win32/window_view.h"

namespace conmuta::win32 {
namespace {

constexpr int kTwipsPerInch = 1440;
constexpr double kLeastLegible = 0.75;  // of the message font's height

class InfoWindow final : public Window {
 public:
  explicit InfoWindow(frmInfo& info) : info_(info) { Create(info.caption); }

  void Refresh() {}  // a report does not change

 private:
  void MakeControls() override {
    AddName(info_.caption);
    text_ = AddControl(L"EDIT", u"",
                       WS_TABSTOP | WS_VSCROLL | WS_HSCROLL | ES_MULTILINE | ES_READONLY |
                           ES_AUTOVSCROLL | ES_AUTOHSCROLL,
                       kTxtInfo, WS_EX_CLIENTEDGE);
    SendMessageW(text_, EM_SETLIMITTEXT, 0, 0);
    // A control's text ends at its first NUL; a raw line may hold some.
    shown_ = info_.txtInfo;
    std::replace(shown_.begin(), shown_.end(), kNul, u' ');
    SetText(text_, shown_);
    close_ = AddControl(L"BUTTON", u"&Cerrar", WS_TABSTOP | BS_DEFPUSHBUTTON, kBtnCerrar);
    SetDefaultButton(kBtnCerrar);
  }

  // The stated size is that of the whole window.
  SIZE OpeningSize(SIZE) override {
    const SIZE frame = OuterOf({0, 0});
    const auto pixels = [this](int twips) {
      return MulDiv(twips, static_cast<int>(dpi()), kTwipsPerInch);
    };
    return {pixels(info_.width_twips) - frame.cx, pixels(info_.height_twips) - frame.cy};
  }

  SIZE LeastSize(SIZE) override {
    const SIZE button = measures().Button(TextOf(close_));
    const int around = 2 * measures().margin();
    return {around + std::max<LONG>(button.cx, 32 * measures().letter()),
            around + measures().gap() + button.cy + 6 * measures().line()};
  }

  void Layout(SIZE room) override {
    const int margin = measures().margin();
    const SIZE button = measures().Button(TextOf(close_));
    const SIZE text{room.cx - 2 * margin, room.cy - 2 * margin - measures().gap() - button.cy};
    Place(close_, room.cx - margin - button.cx, room.cy - margin - button.cy, button);
    Place(text_, margin, margin, text);

    // Bars only where the report does not fit; each takes room from the other direction.
    const int bar = GetSystemMetrics(SM_CXVSCROLL);
    const int border = 2 * GetSystemMetrics(SM_CXEDGE) + 8;
    UseFontFor(text.cx - border - bar);
    const SIZE report = MeasureText(fixed_font_.get(), shown_);
    bool across = report.cx + border > text.cx;
    const bool down = report.cy + border + (across ? bar : 0) > text.cy;
    across = report.cx + border + (down ? bar : 0) > text.cx;
    ShowBar(WS_VSCROLL, SB_VERT, down);
    ShowBar(WS_HSCROLL, SB_HORZ, across);
  }

  void ShowBar(LONG_PTR style, int bar, bool shown) {
    const bool is_shown = (GetWindowLongPtrW(text_, GWL_STYLE) & style) != 0;
    if (is_shown != shown) ShowScrollBar(text_, bar, shown);
  }

  // The largest font up to the message font's size in which the columns fit. Lines that are too
  // long for any that can be read (a raw call may be) are left to the scroll bar.
  void UseFontFor(LONG width) {
    LOGFONTW message{};
    GetObjectW(font(), sizeof message, &message);
    const int largest = std::abs(static_cast<int>(message.lfHeight));
    const int least = static_cast<int>(std::ceil(largest * kLeastLegible));
    const auto letters_at = [width](int height) {
      return width / std::max<LONG>(MeasureText(FixedPitchFont(height).get(), u"M").cx, 1);
    };
    const LONG letters = LongestLine(letters_at(least));
    int height = largest;
    while (height > least && letters_at(height) < letters) --height;
    Font font = height != font_height_ ? FixedPitchFont(height) : Font();
    if (font.get() != nullptr) std::swap(fixed_font_, font);
    font_height_ = height;
    // What a new message font has set is replaced, too.
    if (SendMessageW(text_, WM_GETFONT, 0, 0) == reinterpret_cast<LRESULT>(fixed_font_.get()))
      return;
    SendMessageW(text_, WM_SETFONT, reinterpret_cast<WPARAM>(fixed_font_.get()), TRUE);
  }

  // The longest of those that are not longer than that.
  LONG LongestLine(LONG most) const {
    LONG longest = 0;
    for (std::size_t from = 0; from < shown_.size();) {
      const std::size_t end = std::min(shown_.find(kLineBreak, from), shown_.size());
      const auto length = static_cast<LONG>(end - from);
      if (length <= most) longest = std::max(longest, length);
      from = end + 2;
    }
    return longest;
  }

  void OnCommand(int id, int) override {
    if (id == kBtnCerrar) info_.btnCerrar();
  }

  frmInfo& info_;
  Text shown_;
  HWND text_ = nullptr;
  HWND close_ = nullptr;
  Font fixed_font_;
  int font_height_ = 0;
};

}  // namespace

std::unique_ptr<frmInfo::View> MakeInfoView() {
  return std::make_unique<RealView<frmInfo, InfoWindow>>();
}

}  // namespace conmuta::win32
