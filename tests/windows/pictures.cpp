// Opens every window in several states and saves what is on the screen as bitmaps:
//
//     window_pictures (FOLDER few|usual|all PERCENT)...
//
// The percentage is that of the user's message font. Tells for each folder how many were taken.
#include <windows.h>

#include <gtest/gtest.h>
#include <objbase.h>

#include <cstdio>

#include "captions.h"
#include "component/dll.h"
#include "message_font.h"
#include "photographer.h"
#include "samples.h"
#include "ui/win32/control_ids.h"

namespace conmuta::test {
namespace {

// --- the information window ---

void TakeInformation(Photographer& photographer) {
  const auto take = [&](const ComPtr<Cfg>& config, std::vector<Photographer::Pose> poses) {
    photographer.Take(
        kInfoCaption, [&] { Do(config, &Cfg::MostrarInformacionConfiguracion); }, std::move(poses));
  };
  take(NewConfig(), {{Extent::kAll, L"information-empty"}});
  take(TypicalConfig(),
       {{Extent::kFew, L"information-typical"},
        {Extent::kAll, L"information-large",
         [](const Person& person, HWND window) { person.Resize(window, 1000, 800); }}});
  take(CrowdedConfig(), {{Extent::kUsual, L"information-crowded"}});
}

// --- the cable editor ---

auto Choose(int pair, TextView pin = u"") {
  return [pair, pin = Text(pin)](const Person& person, HWND window) {
    person.Press(GetDlgItem(window, win32::kOpcPuerto + pair));
    if (!pin.empty()) person.Type(GetDlgItem(window, win32::kTxtPinIzq), pin);
  };
}

// With the keyboard in the diagram, at a pin of the switch's side.
void GoToTheSwitch(const Person& person, HWND window) {
  person.SetFocusTo(GetDlgItem(window, win32::kDiagram));
  person.Key(VK_RIGHT);
  for (int i = 0; i < 3; ++i) person.Key(VK_DOWN);
}

// A cable of each pair.
ComPtr<Cfg> WiredConfig() {
  auto config = NamedConfig(u"Panasonic", u"KX-TD1232");
  Connect(config, NullModem(1));
  Connect(config, {{2, 2, 2}, {2, 3, 3}, {2, 5, 7}, {2, 6, 9}, {2, 8, 9}});
  Connect(config, NullModem(3));
  for (int left = 10; left <= 25; ++left) Connect(config, {{3, left, (left + 1) / 3 + 1}});
  Connect(config,
          {{4, 2, 3}, {4, 3, 2}, {4, 5, 20}, {4, 6, 20}, {4, 7, 7}, {4, 20, 5}, {4, 20, 6}});
  return config;
}

void TakeCables(Photographer& photographer) {
  const auto take = [&](const ComPtr<Cfg>& config, VARIANT_BOOL may_edit,
                        std::vector<Photographer::Pose> poses) {
    photographer.Take(
        kCableCaption, [&] { Do(config, &Cfg::EDConfigSeriales, &may_edit); }, std::move(poses));
  };
  const auto wired = WiredConfig();
  take(wired, VARIANT_TRUE,
       {{Extent::kUsual, L"cable-edited-1", Choose(1, u"4")},
        {Extent::kUsual, L"cable-edited-2", Choose(2)},
        {Extent::kUsual, L"cable-edited-3", Choose(3, u"12")},
        {Extent::kFew, L"cable-edited-4", Choose(4, u"20")},
        {Extent::kAll, L"cable-edited-large",
         [](const Person& person, HWND window) { person.Resize(window, 1270, 1010); }},
        {Extent::kAll, L"cable-edited-small", [](const Person& person, HWND window) {
           person.Resize(window, 1, 1);
           Send(window, WM_VSCROLL, SB_BOTTOM,
                reinterpret_cast<LPARAM>(GetDlgItem(window, win32::kVDesp)));
         }}});
  take(wired, VARIANT_FALSE,
       {{Extent::kUsual, L"cable-viewed-1", GoToTheSwitch},
        {Extent::kUsual, L"cable-viewed-2", Choose(2)},
        {Extent::kUsual, L"cable-viewed-3", Choose(3)},
        {Extent::kUsual, L"cable-viewed-4", Choose(4)}});
  take(NamedConfig(), VARIANT_TRUE, {{Extent::kAll, L"cable-unwired"}});
  const auto full = NamedConfig(u"Siemens", u"HiPath 3800");
  Wires wires;
  for (int left = 1; left <= 25; ++left) {
    for (int right = 1; right <= 25; ++right) wires.insert({4, left, right});
  }
  Connect(full, wires);
  take(full, VARIANT_TRUE, {{Extent::kAll, L"cable-all-to-all", Choose(4, u"7")}});
}

// --- the manager ---

// A folder that is the same wherever the pictures are taken: windows show its name.
class CatalogueFolder {
 public:
  CatalogueFolder() { CreateDirectoryW(L"C:\\Centrales", nullptr); }
  ~CatalogueFolder() {
    for (const Text& path : saved_) DeleteFileW(Wide(path).c_str());
    RemoveDirectoryW(L"C:\\Centrales");
  }
  CatalogueFolder(const CatalogueFolder&) = delete;
  CatalogueFolder& operator=(const CatalogueFolder&) = delete;

  static Text Path(TextView name) { return u"C:\\Centrales\\" + Text(name); }

  void Save(TextView name, TextView brand, TextView model, TextView comments = u"") {
    const auto config = NamedConfig(brand, model);
    Do(config, &Cfg::put_Comentarios, comments);
    saved_.push_back(Path(name));
    Do(config, &Cfg::GuardarComo, saved_.back());
  }

 private:
  std::vector<Text> saved_;
};

void Select(const Person& person, HWND manager, TextView text) {
  const HWND tree = GetDlgItem(manager, win32::kTvConmutadores);
  for (const TreeItem& item : ItemsOf(tree)) {
    if (item.text != text) continue;
    Send(tree, TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(item.item));
  }
  person.host().Drain();
}

void TakeManager(Photographer& photographer) {
  const auto take = [&](std::vector<Photographer::Pose> poses) {
    const auto catalogue = NewCatalogue();
    Do(catalogue, &Catalogue::put_Directorio, CatalogueFolder::Path(u""));
    Do(catalogue, &Catalogue::put_Prefijo, u"cnm");
    Do(catalogue, &Catalogue::put_Extension, u"cfg");
    Do(catalogue, &Catalogue::put_ArchivoInstalado, CatalogueFolder::Path(u"activo.dat"));
    photographer.Take(
        kManagerCaption, [&] { Do(catalogue, &Catalogue::Editar); }, std::move(poses));
  };
  CatalogueFolder folder;
  take({{Extent::kUsual, L"manager-empty"}});
  folder.Save(
      u"cnm1.cfg", u"Panasonic", u"KX-TD1232",
      u"Formato con fecha dd/mm.\r\nEl puerto trabaja a 9600 baudios, 8 bits, sin paridad.");
  folder.Save(u"cnm2.cfg", u"Panasonic", u"KX-TES824", u"Extensiones de tres dígitos.");
  folder.Save(u"cnm3.cfg", u"Nortel", u"Norstar 0x32", u"Bloques de varias líneas.");
  folder.Save(u"cnm4.cfg", u"Nortel", u"Meridian Opción 11", u"Registros N, S, E y X.");
  folder.Save(u"cnm5.cfg", u"Samsung", u"NX-820", u"Con transferencias.");
  folder.Save(u"activo.dat", u"Panasonic", u"KX-TD1232");
  take({{Extent::kFew, L"manager-default",
         [](const Person& person, HWND window) { Select(person, window, u"KX-TD1232"); }},
        {Extent::kUsual, L"manager-another",
         [](const Person& person, HWND window) { Select(person, window, u"NX-820"); }},
        {Extent::kAll, L"manager-broken-file", [](const Person& person, HWND window) {
           Select(person, window, u"Samsung");
           DeleteFileW(Wide(CatalogueFolder::Path(u"cnm5.cfg")).c_str());
           CloseHandle(CreateFileW(Wide(CatalogueFolder::Path(u"cnm5.cfg")).c_str(), GENERIC_WRITE,
                                   0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_ARCHIVE, nullptr));
           Select(person, window, u"NX-820");
         }}});
  const auto models = [](const Person& person, HWND window) {
    Select(person, window, u"Modelo 60");
  };
  for (int i = 10; i <= 60; ++i) {
    folder.Save(Text(u"cnm") + ToText(i) + u".cfg", u"Marca " + ToText(i % 7),
                u"Modelo " + ToText(i), Text(250, u'c'));
  }
  take({{Extent::kAll, L"manager-many-models", models}});
}

constexpr const char* kExtents[] = {"few", "usual", "all"};

}  // namespace
}  // namespace conmuta::test

int main(int argc, char** argv) {
  using namespace conmuta::test;
  ::testing::InitGoogleTest(&argc, argv);
  if (argc < 4 || FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) return 2;
  {
    const LoadedDll dll;
    if (!dll || FAILED(dll.RegisterServer())) return 2;
  }
  // No button is to look as if it were about to be pressed.
  SetCursorPos(GetSystemMetrics(SM_CXSCREEN) - 1, GetSystemMetrics(SM_CYSCREEN) - 1);
  int missed = 0;
  for (char** told = argv + 1; told + 2 < argv + argc; told += 3) {
    const auto extent =
        std::find(std::begin(kExtents), std::end(kExtents), std::string_view(told[1]));
    const MessageFontOf font(std::stoi(told[2]));
    Photographer photographer(SystemPath(told[0]),
                              static_cast<Extent>(extent - std::begin(kExtents)));
    TakeInformation(photographer);
    TakeCables(photographer);
    TakeManager(photographer);
    missed += photographer.missed();
    std::printf("%d passed, %d failed\n", photographer.taken(), photographer.missed());
  }
  CoUninitialize();
  return missed == 0 ? 0 : 1;
}
