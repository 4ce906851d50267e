#include "ui/win32/info_window.h"

#include <algorithm>

#include "ui/win32/control_ids.h"
#include "ui/win32/window.h"

namespace conmuta::win32 {
namespace {

constexpr int kTwipsPerPixel = 15;  // at 96 DPI
constexpr int kMargin = 8;
constexpr int kButtonWidth = 88;
constexpr int kButtonHeight = 26;

class InfoWindow final : public Window {
 public:
  explicit InfoWindow(const frmInfo& info) : info_(info) {
    const auto pixels = [](int twips) { return MulDiv(1, twips, kTwipsPerPixel); };
    Create({info.caption, {pixels(info.width_twips), pixels(info.height_twips)}, {240, 160}});
  }

 private:
  void MakeControls() override {
    text_ = AddControl(L"EDIT", u"",
                       WS_TABSTOP | WS_VSCROLL | WS_HSCROLL | ES_MULTILINE | ES_READONLY |
                           ES_AUTOVSCROLL | ES_AUTOHSCROLL,
                       kTxtInfo, WS_EX_CLIENTEDGE);
    SendMessageW(text_, EM_SETLIMITTEXT, 0, 0);
    // A control's text ends at its first NUL; a raw line may hold some.
    Text shown = info_.txtInfo;
    std::replace(shown.begin(), shown.end(), kNul, u' ');
    SetText(text_, shown);
    close_ = AddControl(L"BUTTON", u"&Cerrar", WS_TABSTOP | BS_DEFPUSHBUTTON, kBtnCerrar);
    SetDefaultButton(kBtnCerrar);
  }

  void Layout(SIZE client) override {
    fixed_font_ = FixedPitchFont(dpi());
    SendMessageW(text_, WM_SETFONT, reinterpret_cast<WPARAM>(fixed_font_.get()), TRUE);
    const int margin = Scale(kMargin);
    const int button_height = Scale(kButtonHeight);
    const int width = client.cx - 2 * margin;
    const int height = client.cy - 3 * margin - button_height;
    Place(text_, margin, margin, width, height);
    Place(close_, client.cx - margin - Scale(kButtonWidth), client.cy - margin - button_height,
          Scale(kButtonWidth), button_height);

    // Bars only where the report does not fit; each takes room from the other direction.
    const SIZE text = MeasureText(fixed_font_.get(), info_.txtInfo);
    const int bar = GetSystemMetrics(SM_CXVSCROLL);
    const int border = 2 * GetSystemMetrics(SM_CXEDGE) + Scale(8);
    bool across = text.cx + border > width;
    const bool down = text.cy + border + (across ? bar : 0) > height;
    across = text.cx + border + (down ? bar : 0) > width;
    ShowScrollBar(text_, SB_VERT, down);
    ShowScrollBar(text_, SB_HORZ, across);
  }

  void OnCommand(int id, int) override {
    if (id == kBtnCerrar) Close();
  }

  const frmInfo& info_;
  HWND text_ = nullptr;
  HWND close_ = nullptr;
  Font fixed_font_;
};

}  // namespace

void InfoWindowView::Show(const frmInfo& info) {
  InfoWindow window(info);
  window.RunModal();
}

}  // namespace conmuta::win32
