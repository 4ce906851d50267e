#include "taller/win32/offer_window.h"

#include <algorithm>

#include "taller/said.h"
#include "ui/win32/control_ids.h"
#include "ui/win32/dpi.h"
#include "ui/win32/window.h"

namespace conmuta::taller {
namespace {

class OfferWindow final : public win32::Window {
 public:
  OfferWindow(const Text& caption, const std::vector<Offer>& offers, const RECT& place,
              const std::function<Messages(const SlotKind&)>& choose)
      : offers_(offers), choose_(choose) {
    Create(caption);
    Fill();
    PutAt(place);
  }

 private:
  void MakeControls() override {
    filter_label_ = AddControl(L"STATIC", u"&Buscar:", SS_LEFT | SS_CENTERIMAGE, -1);
    filter_ = AddControl(L"EDIT", u"", WS_TABSTOP | ES_AUTOHSCROLL, kOfferFilter, WS_EX_CLIENTEDGE);
    AddName(u"Lo que puede ser");
    list_ =
        AddControl(L"LISTBOX", u"",
                   WS_TABSTOP | WS_VSCROLL | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | LBS_USETABSTOPS,
                   kOfferList, WS_EX_CLIENTEDGE);
    doubt_ = AddControl(L"STATIC", u"", SS_LEFT | SS_NOPREFIX | SS_ENDELLIPSIS, kOfferDoubt);
    accept_ = AddControl(L"BUTTON", u"&Aceptar", WS_TABSTOP | BS_DEFPUSHBUTTON, win32::kBtnAceptar);
    cancel_ = AddControl(L"BUTTON", u"&Cancelar", WS_TABSTOP | BS_PUSHBUTTON, win32::kBtnCancelar);
    SetDefaultButton(win32::kBtnAceptar);
  }

  LONG LongestName() const {
    LONG longest = 0;
    for (const Offer& offer : offers_) {
      longest = std::max(longest, measures().Label(Text(NameOf(offer.kind))).cx);
    }
    return longest;
  }
  SIZE ButtonSize() const { return measures().Button(u"&Cancelar"); }
  LONG LabelWidth() const { return measures().Label(u"&Buscar:").cx + measures().gap(); }

  SIZE LeastSize(SIZE) override {
    const LONG around = 2 * measures().margin();
    return {
        around + std::max<LONG>(2 * ButtonSize().cx + measures().gap(), 40 * measures().letter()),
        around + measures().Field(1).cy + 5 * measures().line() + measures().line() + 2 +
            ButtonSize().cy + 3 * measures().gap()};
  }
  SIZE OpeningSize(SIZE most) override {
    const SIZE least = LeastSize(most);
    LONG longest = 0;
    for (const Offer& offer : offers_) {
      longest = std::max(longest, measures().Label(offer.group).cx);
    }
    const LONG row = LongestName() + 4 * measures().gap() + longest;
    return {std::max(least.cx, row + 4 * measures().margin() + GetSystemMetrics(SM_CXVSCROLL)),
            least.cy + 9 * measures().line()};
  }

  void Layout(SIZE room) override {
    const int margin = measures().margin();
    const int gap = measures().gap();
    const SIZE button = ButtonSize();
    const LONG width = room.cx - 2 * margin;
    const LONG field = measures().Field(1).cy;
    Place(filter_label_, margin, margin, {LabelWidth(), field});
    Place(filter_, margin + LabelWidth(), margin, {width - LabelWidth(), field});
    LONG bottom = room.cy - margin - button.cy;
    Place(cancel_, room.cx - margin - button.cx, bottom, button);
    Place(accept_, room.cx - margin - 2 * button.cx - gap, bottom, button);
    bottom -= gap + measures().line() + 2;
    Place(doubt_, margin, bottom, {width, measures().line() + 2});
    const LONG top = margin + field + gap;
    Place(list_, margin, top, {width, bottom - gap - top});
    // Groups in a column of their own, behind the longest name.
    const int stop = static_cast<int>((LongestName() + 3 * gap) * 4 / measures().letter());
    SendMessageW(list_, LB_SETTABSTOPS, 1, reinterpret_cast<LPARAM>(&stop));
  }

  // Below the columns, or above them where there is no room below.
  void PutAt(const RECT& place) {
    RECT mine{};
    GetWindowRect(handle(), &mine);
    const RECT area = win32::WorkAreaOf(handle());
    const LONG width = mine.right - mine.left;
    const LONG height = mine.bottom - mine.top;
    LONG y = place.bottom + measures().gap();
    if (y + height > area.bottom) y = place.top - measures().gap() - height;
    SetWindowPos(handle(), nullptr,
                 std::clamp(place.left, area.left, std::max(area.right - width, area.left)),
                 std::clamp(y, area.top, std::max(area.bottom - height, area.top)), 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
  }

  void Fill() {
    shown_ = Matching(offers_, win32::TextOf(filter_));
    SendMessageW(list_, WM_SETREDRAW, FALSE, 0);
    SendMessageW(list_, LB_RESETCONTENT, 0, 0);
    for (const Offer& offer : shown_) {
      const Text row = Text(NameOf(offer.kind)) + u"\t" + offer.group;
      SendMessageW(list_, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(win32::Wide(row)));
    }
    SendMessageW(list_, LB_SETCURSEL, 0, 0);
    SendMessageW(list_, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(list_, nullptr, TRUE);
    win32::SetEnabled(accept_, !shown_.empty());
    win32::SetText(doubt_, shown_.empty() ? u"No hay ningún dato con ese nombre." : u"");
  }

  void Take() {
    const auto chosen = static_cast<std::size_t>(SendMessageW(list_, LB_GETCURSEL, 0, 0));
    if (chosen >= shown_.size()) return;
    const Messages said = choose_(shown_[chosen].kind);
    if (said.empty()) return Close();
    win32::SetText(doubt_, Said(said));
    SetTip(doubt_, Said(said));
  }

  void OnCommand(int id, int code) override {
    if (id == kOfferFilter && code == EN_CHANGE) Fill();
    if (id == win32::kBtnAceptar || (id == kOfferList && code == LBN_DBLCLK)) Take();
    if (id == win32::kBtnCancelar) Close();
  }

  // One types and sees the list; the arrows go through it all the same.
  bool OnKey(const MSG& message) override {
    const bool moves = message.wParam == VK_UP || message.wParam == VK_DOWN ||
                       message.wParam == VK_PRIOR || message.wParam == VK_NEXT;
    if (message.hwnd != filter_ || !moves) return false;
    SendMessageW(list_, WM_KEYDOWN, message.wParam, message.lParam);
    return true;
  }

  const std::vector<Offer>& offers_;
  const std::function<Messages(const SlotKind&)>& choose_;
  std::vector<Offer> shown_;
  HWND filter_label_ = nullptr;
  HWND filter_ = nullptr;
  HWND list_ = nullptr;
  HWND doubt_ = nullptr;
  HWND accept_ = nullptr;
  HWND cancel_ = nullptr;
};

}  // namespace

void AskForOffer(const Text& caption, const std::vector<Offer>& offers, const RECT& place,
                 const std::function<Messages(const SlotKind&)>& choose) {
  OfferWindow(caption, offers, place, choose).RunModal();
}

}  // namespace conmuta::taller
