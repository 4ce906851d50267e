#include "taller/win32/guess_window.h"

#include <algorithm>
#include <atomic>

#include "taller/guesses.h"
#include "ui/win32/control_ids.h"
#include "ui/win32/window.h"

namespace conmuta::taller {
namespace {

constexpr UINT kTold = WM_APP + 1;
constexpr TextView kExplanation =
    u"Los layouts del catálogo que hacen llamadas de estas líneas, el mejor primero:";

// The list fills as they are tried; what is chosen stays so.
class GuessWindow final : public win32::Window {
 public:
  explicit GuessWindow(std::shared_ptr<const CaptureBytes> bytes)
      : guesses_([this] {
          if (!is_told_.exchange(true)) PostMessageW(told_, kTold, 0, 0);
        }) {
    Create(u"Adivinar");
    told_ = handle();
    guesses_.Rank(std::move(bytes));
    Refresh();
  }

  const std::optional<std::string>& taken() const { return taken_; }

 private:
  void MakeControls() override {
    label_ = AddControl(L"STATIC", kExplanation, SS_LEFT, -1);
    list_ =
        AddControl(L"LISTBOX", u"",
                   WS_TABSTOP | WS_VSCROLL | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | LBS_USETABSTOPS,
                   kGuessList, WS_EX_CLIENTEDGE);
    state_ = AddControl(L"STATIC", u"", SS_LEFT | SS_NOPREFIX | SS_ENDELLIPSIS, kGuessState);
    accept_ =
        AddControl(L"BUTTON", u"&Usar este", WS_TABSTOP | BS_DEFPUSHBUTTON, win32::kBtnAceptar);
    cancel_ = AddControl(L"BUTTON", u"&Cancelar", WS_TABSTOP | BS_PUSHBUTTON, win32::kBtnCancelar);
    SetDefaultButton(win32::kBtnAceptar);
  }

  SIZE ButtonSize() const {
    return {std::max(measures().Button(u"&Cancelar").cx, measures().Button(u"&Usar este").cx),
            measures().Button(u"&Cancelar").cy};
  }

  SIZE LeastSize(SIZE) override {
    const LONG around = 2 * measures().margin();
    return {around + measures().Label(kExplanation).cx,
            around + 8 * measures().line() + 3 * measures().gap() + ButtonSize().cy};
  }
  SIZE OpeningSize(SIZE most) override {
    const SIZE least = LeastSize(most);
    return {least.cx + 20 * measures().letter(), least.cy + 8 * measures().line()};
  }

  void Layout(SIZE room) override {
    const int margin = measures().margin();
    const int gap = measures().gap();
    const SIZE button = ButtonSize();
    const LONG width = room.cx - 2 * margin;
    const LONG line = measures().line();
    LONG bottom = room.cy - margin - button.cy;
    Place(label_, margin, margin, {width, line});
    Place(cancel_, room.cx - margin - button.cx, bottom, button);
    Place(accept_, room.cx - margin - 2 * button.cx - gap, bottom, button);
    bottom -= gap + line + 2;
    Place(state_, margin, bottom, {width, line + 2});
    Place(list_, margin, margin + line + gap, {width, bottom - gap - margin - line - gap});
    SetTabStop();
  }

  void SetTabStop() {
    LONG longest = 0;
    for (const Guess& guess : shown_) {
      longest = std::max(longest, measures().Label(guess.title).cx);
    }
    const int stop = static_cast<int>((longest + 3 * measures().gap()) * 4 / measures().letter());
    SendMessageW(list_, LB_SETTABSTOPS, 1, reinterpret_cast<LPARAM>(&stop));
  }

  std::size_t Chosen() const {
    return static_cast<std::size_t>(SendMessageW(list_, LB_GETCURSEL, 0, 0));
  }

  void Refresh() {
    const std::string chosen = Chosen() < shown_.size() && has_chosen_ ? shown_[Chosen()].name : "";
    shown_ = guesses_.guesses();
    SendMessageW(list_, WM_SETREDRAW, FALSE, 0);
    SendMessageW(list_, LB_RESETCONTENT, 0, 0);
    SetTabStop();
    std::size_t selected = 0;
    for (std::size_t i = 0; i < shown_.size(); ++i) {
      const Text row = shown_[i].title + u"\t" + shown_[i].Sentence();
      SendMessageW(list_, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(win32::Wide(row)));
      if (shown_[i].name == chosen) selected = i;
    }
    SendMessageW(list_, LB_SETCURSEL, selected, 0);
    SendMessageW(list_, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(list_, nullptr, TRUE);
    win32::SetEnabled(accept_, !shown_.empty());
    const Guesses::Progress progress = guesses_.progress();
    Text state;
    if (!progress.is_done) {
      state = u"Probados " + ToText(static_cast<long long>(progress.tried)) + u" de " +
              ToText(static_cast<long long>(progress.of)) + u"...";
    } else if (shown_.empty()) {
      state = u"Ningún layout del catálogo hace llamadas de estas líneas.";
    }
    win32::SetText(state_, state);
  }

  void OnCommand(int id, int code) override {
    if (id == kGuessList && code == LBN_SELCHANGE) has_chosen_ = true;
    if (id == win32::kBtnAceptar || (id == kGuessList && code == LBN_DBLCLK)) {
      if (Chosen() >= shown_.size()) return;
      taken_ = shown_[Chosen()].name;
      Close();
    }
    if (id == win32::kBtnCancelar) Close();
  }

  bool OnMessage(UINT message, WPARAM, LPARAM, LRESULT&) override {
    if (message != kTold) return false;
    is_told_ = false;
    Refresh();
    return true;
  }

  std::vector<Guess> shown_;
  std::optional<std::string> taken_;
  bool has_chosen_ = false;
  std::atomic<HWND> told_ = nullptr;
  std::atomic<bool> is_told_ = false;
  HWND label_ = nullptr;
  HWND list_ = nullptr;
  HWND accept_ = nullptr;
  HWND cancel_ = nullptr;
  HWND state_ = nullptr;
  Guesses guesses_;  // last: its thread tells the window
};

}  // namespace

std::optional<std::string> AskForGuess(std::shared_ptr<const CaptureBytes> bytes) {
  GuessWindow window(std::move(bytes));
  window.RunModal();
  return window.taken();
}

}  // namespace conmuta::taller
