// Opens every window in several states and saves what is on the screen as bitmaps:
//
//     window_screenshots FOLDER [few] [PERCENT]
//
// "few" takes one of each kind of window; the percentage is that of the user's message font.
//
// Ends with the number of pictures that it has taken.
#include <windows.h>

#include <gtest/gtest.h>
#include <objbase.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <thread>

#include "component/dll.h"
#include "component/scratch_files.h"
#include "message_font.h"
#include "person.h"
#include "samples.h"
#include "ui/win32/control_ids.h"
#include "window_rules.h"

namespace conmuta::test {
namespace {

constexpr TextView kInfoCaption = u"Información general de configuración";
constexpr TextView kCableCaption = u"Configuración de puerto SMDR";
constexpr TextView kManagerCaption = u"Conmutadores";

// Writes the part of the screen that a window takes, which must show something.
bool SavePicture(HWND window, const std::wstring& path) {
  RECT place{};
  GetWindowRect(window, &place);
  const int width = place.right - place.left;
  const int height = place.bottom - place.top;
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = width;
  info.bmiHeader.biHeight = height;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 24;
  const DWORD size = static_cast<DWORD>((width * 3 + 3) / 4 * 4 * height);
  void* bits = nullptr;
  const HDC screen = GetDC(nullptr);
  const HDC memory = CreateCompatibleDC(screen);
  const HBITMAP bitmap = CreateDIBSection(memory, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
  const HGDIOBJ before = SelectObject(memory, bitmap);
  BitBlt(memory, 0, 0, width, height, screen, place.left, place.top, SRCCOPY);
  GdiFlush();
  const auto* bytes = static_cast<const unsigned char*>(bits);
  const bool shows = std::any_of(bytes, bytes + size, [&](unsigned char b) { return b != *bytes; });
  BITMAPFILEHEADER header{};
  header.bfType = 0x4D42;
  header.bfOffBits = sizeof header + sizeof info.bmiHeader;
  header.bfSize = header.bfOffBits + size;
  bool saved = false;
  const HANDLE file =
      CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
  if (shows && file != INVALID_HANDLE_VALUE) {
    DWORD written = 0;
    saved = WriteFile(file, &header, sizeof header, &written, nullptr) != 0 &&
            WriteFile(file, &info.bmiHeader, sizeof info.bmiHeader, &written, nullptr) != 0 &&
            WriteFile(file, bits, size, &written, nullptr) != 0;
  }
  if (file != INVALID_HANDLE_VALUE) CloseHandle(file);
  SelectObject(memory, before);
  DeleteObject(bitmap);
  DeleteDC(memory);
  ReleaseDC(nullptr, screen);
  return saved;
}

// What is wrong with a window as it opens: too large for its screen, or cutting texts.
std::string FlawOf(HWND window) {
  RECT outer{};
  GetWindowRect(window, &outer);
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor);
  RECT common{};
  IntersectRect(&common, &outer, &monitor.rcWork);
  if (!EqualRect(&common, &outer)) return "lies beyond the screen";
  const auto clipped = ClippedTextsOf(window);
  return clipped.empty() ? "" : "cuts " + clipped.front();
}

class Photographer {
 public:
  // `few`: of each kind of window one picture only.
  Photographer(std::wstring folder, bool few) : folder_(std::move(folder)), few_(few) {}

  int taken() const { return taken_; }
  int missed() const { return missed_; }

  // Opens a window, has a person bring it into a state, and takes its picture.
  template <class Open, class Prepare>
  void Take(const std::wstring& name, TextView caption, Open&& open, Prepare&& prepare) {
    if (few_ && std::find(kFew.begin(), kFew.end(), name) == kFew.end()) return;
    host_.BeginCall();
    std::thread thread([&] {
      const Person person(host_);
      try {
        const HWND window = person.WaitForWindow(caption);
        person.host().Rest();
        if (const std::string flaw = FlawOf(window); !flaw.empty()) throw Stuck(flaw);
        // Where all of it is on the screen, enlarged ones too.
        SetWindowPos(window, nullptr, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
        prepare(person, window);
        Shoot(person, window, name);
      } catch (const Stuck& stuck) {
        std::fprintf(stderr, "%ls: %s\n", name.c_str(), stuck.what());
        ++missed_;
      }
      while (!host_.IsIdle()) {
        person.LeaveAll();
        Sleep(10);
      }
    });
    open();
    host_.EndCall();
    thread.join();
  }
  template <class Open>
  void Take(const std::wstring& name, TextView caption, Open&& open) {
    Take(name, caption, open, [](const Person&, HWND) {});
  }

 private:
  void Shoot(const Person& person, HWND window, const std::wstring& name) {
    person.host().Rest();
    bool saved = false;
    person.host().Run([&] { saved = SavePicture(window, folder_ + L"\\" + name + L".bmp"); });
    ++(saved ? taken_ : missed_);
  }

  static constexpr std::array<std::wstring_view, 5> kFew = {
      L"information-typical", L"cable-null-modem", L"cable-viewed", L"cable-db25-db25",
      L"manager-three-brands"};

  std::wstring folder_;
  bool few_;
  HostThread host_;
  int taken_ = 0;
  int missed_ = 0;
};

void ShowInfo(const ComPtr<Cfg>& config) {
  Do(config, &Cfg::MostrarInformacionConfiguracion);
}

void TakeInformation(Photographer& photographer) {
  photographer.Take(L"information-empty", kInfoCaption, [] { ShowInfo(NewConfig()); });
  photographer.Take(L"information-typical", kInfoCaption, [] { ShowInfo(TypicalConfig()); });
  photographer.Take(L"information-crowded", kInfoCaption, [] { ShowInfo(CrowdedConfig()); });
  photographer.Take(
      L"information-large", kInfoCaption, [] { ShowInfo(TypicalConfig()); },
      [](const Person& person, HWND window) { person.Resize(window, 1000, 800); });
  const auto translator = NewTranslator();
  Do(translator, &Trad::putref_Conmutador, TypicalConfig().get());
  Do(translator, &Trad::put_Llamada, u"21/11 10:05 00:07:20 E 5551234567 205  ");
  photographer.Take(L"information-call", kInfoCaption,
                    [&] { Do(translator, &Trad::MuestraInfoTrad); });
}

void TakeCables(Photographer& photographer) {
  const auto edit = [](const ComPtr<Cfg>& config, VARIANT_BOOL may_edit = VARIANT_TRUE) {
    Do(config, &Cfg::EDConfigSeriales, &may_edit);
  };
  const auto choose = [](int pair, TextView pin) {
    return [=](const Person& person, HWND window) {
      person.Press(GetDlgItem(window, win32::kOpcPuerto + pair));
      if (!pin.empty()) person.Type(GetDlgItem(window, win32::kTxtPinIzq), pin);
    };
  };
  // With the keyboard in the diagram, at a pin of the switch's side.
  const auto at_the_switch = [](const Person& person, HWND window) {
    person.SetFocusTo(GetDlgItem(window, win32::kDiagram));
    person.Key(VK_RIGHT);
    for (int i = 0; i < 3; ++i) person.Key(VK_DOWN);
  };
  photographer.Take(L"cable-unwired", kCableCaption, [&] { edit(NamedConfig()); });
  const auto null_modem = NamedConfig(u"Panasonic", u"KX-TD1232");
  Connect(null_modem, NullModem(1));
  photographer.Take(
      L"cable-null-modem", kCableCaption, [&] { edit(null_modem); }, choose(1, u"4"));
  photographer.Take(
      L"cable-viewed", kCableCaption, [&] { edit(null_modem, VARIANT_FALSE); }, at_the_switch);
  const auto printer = NamedConfig(u"Nortel", u"Norstar 0x32");
  Connect(printer, {{2, 2, 2}, {2, 3, 3}, {2, 5, 7}, {2, 6, 9}, {2, 8, 9}});
  photographer.Take(
      L"cable-db9-db25", kCableCaption, [&] { edit(printer); }, choose(2, u""));
  const auto modem = NamedConfig(u"Toshiba", u"Strata DK40");
  Connect(modem, {{4, 2, 3}, {4, 3, 2}, {4, 5, 20}, {4, 6, 20}, {4, 7, 7}, {4, 20, 5}, {4, 20, 6}});
  photographer.Take(
      L"cable-db25-db25", kCableCaption, [&] { edit(modem); }, choose(4, u""));
  photographer.Take(
      L"cable-large", kCableCaption, [&] { edit(modem); },
      [&](const Person& person, HWND window) {
        choose(4, u"20")(person, window);
        person.Resize(window, 1270, 1010);
      });
  const auto all = NamedConfig(u"Siemens", u"HiPath 3800");
  Wires wires = NullModem(3);
  for (int left = 1; left <= 25; ++left) {
    for (int right = 1; right <= 25; ++right) wires.insert({4, left, right});
    wires.insert({3, left, (left + 1) / 3 + 1});
  }
  Connect(all, wires);
  photographer.Take(
      L"cable-all-to-all", kCableCaption, [&] { edit(all); }, choose(4, u""));
  photographer.Take(
      L"cable-all-to-all-pin", kCableCaption, [&] { edit(all); }, choose(4, u"7"));
  photographer.Take(
      L"cable-db25-db9", kCableCaption, [&] { edit(all); }, choose(3, u""));
}

void TakeManager(Photographer& photographer) {
  const auto catalogue_of = [](const ScratchFolder& folder) {
    const auto catalogue = NewCatalogue();
    Do(catalogue, &Catalogue::put_Directorio, folder.Path(u""));
    Do(catalogue, &Catalogue::put_Prefijo, u"cnm");
    Do(catalogue, &Catalogue::put_Extension, u"cfg");
    Do(catalogue, &Catalogue::put_ArchivoInstalado, folder.Path(u"activo.dat"));
    return catalogue;
  };
  const auto save = [](const ScratchFolder& folder, TextView name, TextView brand, TextView model,
                       TextView comments) {
    const auto config = NamedConfig(brand, model);
    Do(config, &Cfg::put_Comentarios, comments);
    Do(config, &Cfg::GuardarComo, folder.Path(name));
  };
  const auto select_last = [](const Person& person, HWND window) {
    const HWND tree = GetDlgItem(window, win32::kTvConmutadores);
    Send(tree, TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(ItemsOf(tree).back().item));
    person.host().Drain();
  };
  const auto edit = [](const ComPtr<Catalogue>& catalogue) { Do(catalogue, &Catalogue::Editar); };
  {
    const ScratchFolder folder;
    photographer.Take(L"manager-empty", kManagerCaption, [&] { edit(catalogue_of(folder)); });
  }
  {
    const ScratchFolder folder;
    save(folder, u"cnm1.cfg", u"Panasonic", u"KX-TD1232",
         u"Formato con fecha dd/mm.\r\nEl puerto trabaja a 9600 baudios, 8 bits, sin paridad.");
    save(folder, u"cnm2.cfg", u"Panasonic", u"KX-TES824", u"Extensiones de tres dígitos.");
    save(folder, u"cnm3.cfg", u"Nortel", u"Norstar 0x32", u"Bloques de varias líneas.");
    save(folder, u"cnm4.cfg", u"Nortel", u"Meridian Opción 11", u"Registros N, S, E y X.");
    save(folder, u"cnm5.cfg", u"Samsung", u"NX-820", u"Con transferencias.");
    save(folder, u"activo.dat", u"Panasonic", u"KX-TD1232", u"");
    photographer.Take(
        L"manager-three-brands", kManagerCaption, [&] { edit(catalogue_of(folder)); },
        [&](const Person& person, HWND window) {
          select_last(person, window);
          const HWND tree = GetDlgItem(window, win32::kTvConmutadores);
          for (const TreeItem& item : ItemsOf(tree)) {
            if (item.text != u"KX-TD1232") continue;
            Send(tree, TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(item.item));
          }
        });
    photographer.Take(
        L"manager-broken-file", kManagerCaption, [&] { edit(catalogue_of(folder)); },
        [&](const Person& person, HWND window) {
          folder.Write(u"cnm5.cfg", "rubbish");
          select_last(person, window);
        });
    photographer.Take(
        L"manager-with-question", kManagerCaption, [&] { edit(catalogue_of(folder)); },
        [&](const Person& person, HWND window) {
          person.Press(GetDlgItem(window, win32::kBtnEliminar));
          person.WaitForDialog(u"Advertencia");
        });
  }
  {
    const ScratchFolder folder;
    for (int i = 1; i <= 500; ++i) {
      save(folder, Text(u"cnm") + ToText(i) + u".cfg", u"Marca " + ToText(i % 17),
           u"Modelo " + ToText(i), Text(250, u'c'));
    }
    photographer.Take(
        L"manager-500-models", kManagerCaption, [&] { edit(catalogue_of(folder)); }, select_last);
  }
}

}  // namespace
}  // namespace conmuta::test

int main(int argc, char** argv) {
  using namespace conmuta::test;
  ::testing::InitGoogleTest(&argc, argv);
  if (argc < 2 || FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) return 2;
  {
    const LoadedDll dll;
    if (!dll || FAILED(dll.RegisterServer())) return 2;
  }
  const bool few = argc > 2 && std::string_view(argv[2]) == "few";
  const MessageFontOf font(argc > 3 ? std::stoi(argv[3]) : 100);
  int missed = 0;
  {
    Photographer photographer(SystemPath(argv[1]), few);
    TakeInformation(photographer);
    TakeCables(photographer);
    TakeManager(photographer);
    missed = photographer.missed();
    std::printf("%d passed, %d failed\n", photographer.taken(), missed);
  }
  CoUninitialize();
  return missed == 0 ? 0 : 1;
}
