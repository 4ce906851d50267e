// The workshop's real window, and a person who works in it.
#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <string>
#include <utility>

#include "layouts/names.h"
#include "support/fake_clock.h"
#include "support/temporary_folder.h"
#include "taller/disk.h"
#include "taller/win32/commands.h"
#include "taller/win32/file_dialogs.h"
#include "taller/win32/main_window.h"
#include "taller/win32/offer_window.h"
#include "ui/win32/control_ids.h"
#include "windows/working_person.h"

namespace conmuta::taller {

using test::Person;
using test::Send;
using test::TextOf;

inline std::string Narrow(TextView text) {
  return {text.begin(), text.end()};
}

// As the system's dialogs take it: on a drive.
inline std::filesystem::path SwitchFile(const char* name, const char* file) {
  const auto path = std::filesystem::path(CONMUTA_SOURCES) / "switches" / name / file;
  return std::filesystem::absolute(path).make_preferred();
}

inline std::string BytesOf(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

// An open window and the person before it.
class Shop {
 public:
  Shop(MainWindow& main, const Person& person) : main_(main), person_(person) {
    host().Rest();
    window_ = person.WaitForWindow(Title());
  }

  HWND window() const { return window_; }
  const Person& person() const { return person_; }
  const test::HostThread& host() const { return person_.host(); }
  HWND At(int id) const { return GetDlgItem(window_, id); }
  HWND lines() const { return At(kLinesView); }

  // What the window's thread knows.
  template <class Look>
  auto See(Look look) const {
    decltype(look(std::declval<MainWindow&>())) seen{};
    host().Run([&] { seen = look(main_); });
    return seen;
  }
  Text Title() const {
    return See([](MainWindow& main) {
      return Text(kProgramName) + u" - " + main.bench().document().Title();
    });
  }
  std::string Toml() const {
    return See([](MainWindow& main) { return main.bench().document().toml(); });
  }
  Caret CaretPlace() const {
    return See([](MainWindow& main) { return main.bench().selection().caret(); });
  }
  std::optional<Marked> Mark() const {
    return See([](MainWindow& main) { return main.bench().selection().marked(); });
  }
  // Nothing where the layout has no such item.
  std::optional<std::pair<int, int>> Item(TextView name) const {
    return See([&](MainWindow& main) -> std::optional<std::pair<int, int>> {
      for (const DATO& item : main.bench().document().layout().items) {
        if (layouts::NameOf(item.Param) == name) return std::pair<int, int>(item.Pos, item.Tam);
      }
      return std::nullopt;
    });
  }
  std::optional<std::pair<int, Text>> Constant(TextView name) const {
    return See([&](MainWindow& main) -> std::optional<std::pair<int, Text>> {
      for (const CTE& constant : main.bench().document().layout().constants) {
        if (layouts::NameOf(constant.Param) == name) {
          return std::pair<int, Text>(constant.Pos, constant.Constante.Read());
        }
      }
      return std::nullopt;
    });
  }

  // --- what the person does ---

  void Command(int id) const {
    PostMessageW(window_, WM_COMMAND, static_cast<WPARAM>(id), 0);
    host().Drain();
  }
  void Leave() const { Command(kExit); }

  void WaitForVerdicts() const {
    test::WaitUntil("all lines are judged", [&] {
      return See([](MainWindow& main) { return main.bench().verdicts().progress().is_done; });
    });
    host().Rest();
  }

  // Works the real dialog.
  void ChooseFile(TextView title, const std::filesystem::path& path) const {
    const HWND dialog = person_.WaitForDialog(title);
    HWND name = nullptr;
    test::WaitUntil("file name field", [&] {
      for (const int id : {0x480 /* edt1 */, 0x47C /* cmb13 */}) {
        if (name == nullptr) name = GetDlgItem(dialog, id);
      }
      return name != nullptr;
    });
    const Text typed = path.u16string();
    Send(name, WM_SETTEXT, 0, typed.c_str());
    person_.Press(GetDlgItem(dialog, IDOK));
    person_.WaitUntilClosed(dialog);
    host().Rest();
  }
  void OpenCapture(const std::filesystem::path& path) const {
    Command(kOpenCapture);
    ChooseFile(u"Abrir captura", path);
    WaitForVerdicts();
  }

  POINT MiddleOf(std::uint64_t line, int column) const {
    return See([&](MainWindow& main) {
      const RECT place = main.lines_view().PlaceOf({line, column, 1});
      return POINT{(place.left + place.right) / 2, (place.top + place.bottom) / 2};
    });
  }
  // Presses at a column and pulls to another one; the list opens.
  void MarkWithMouse(std::uint64_t line, int first, int last) const {
    person_.Drag(lines(), MiddleOf(line, first), MiddleOf(line, last));
  }
  void MoveTo(std::uint64_t line, int column) const {
    person_.Click(lines(), MiddleOf(line, column));
  }
  // The list that is open.
  HWND Offers() const {
    const Marked marked = Mark().value();
    const Text caption = marked.size == 1
                             ? u"¿Qué es la columna " + ToText(marked.pos) + u"?"
                             : u"¿Qué son las columnas " + ToText(marked.pos) + u" a " +
                                   ToText(marked.pos + marked.size - 1) + u"?";
    return person_.WaitForWindow(caption);
  }
  void Choose(TextView name) const {
    const HWND offers = Offers();
    person_.Type(GetDlgItem(offers, kOfferFilter), name);
    const HWND list = GetDlgItem(offers, kOfferList);
    // Some names begin others: IdentEntrante, IdentEntranteAND.
    const Text wanted = Text(name) + u"\t";
    Send(list, LB_SETCURSEL, Send(list, LB_FINDSTRING, static_cast<WPARAM>(-1), wanted.c_str()), 0);
    person_.Key(VK_RETURN);
    person_.WaitUntilClosed(offers);
    host().Rest();
  }

 private:
  MainWindow& main_;
  const Person& person_;
  HWND window_;
};

class WorkshopTest : public ::testing::Test {
 protected:
  // The window as a person opens it, until it is closed; `before` is done to it unseen.
  void Work(const std::function<void(const Shop&)>& work,
            const std::function<void(MainWindow&)>& before = {}) {
    MainWindow main(disk_, clock_, folder_.path());
    if (before) before(main);
    test::While(
        host_, [&] { main.RunModal(); }, [&](const Person& person) { work(Shop(main, person)); });
  }

  const std::filesystem::path& folder() const { return folder_.path(); }

 private:
  test::Watchdog watchdog_;
  test::HostThread host_;
  test::TemporaryFolder folder_;
  test::FakeClock clock_;
  SystemDisk disk_;
};

}  // namespace conmuta::taller
