// The switch manager with a person before it, on a catalogue of its own.
#pragma once

#include "captions.h"
#include "component/scratch_files.h"
#include "samples.h"
#include "ui/win32/control_ids.h"
#include "window_test.h"

namespace conmuta::test {

inline constexpr TextView kFileDialog = u"Buscar archivo de configuración de conmutadores ...";
inline constexpr TextView kNoDefault = u"<No hay conmutador predeterminado>";
inline const std::vector<int> kYesNo = {IDYES, IDNO};
inline const std::vector<int> kOk = {IDOK};

inline std::string Narrow(TextView text) {
  return {text.begin(), text.end()};
}

class Manager {
 public:
  explicit Manager(const Person& person)
      : person_(person), window_(person.WaitForWindow(kManagerCaption)) {}

  const Person& person() const { return person_; }
  HWND window() const { return window_; }
  HWND At(int id) const { return GetDlgItem(window_, id); }
  HWND tree() const { return At(win32::kTvConmutadores); }
  Text Shown(int id) const { return TextOf(At(id)); }
  bool CanPress(int id) const { return IsUsable(At(id)); }
  void Press(int id) const { person_.Press(At(id)); }
  void Close() const { Press(win32::kBtnCerrar); }

  std::string Outline() const { return OutlineOf(tree()); }
  TreeItem ItemOf(TextView text) const {
    for (const TreeItem& item : ItemsOf(tree())) {
      if (item.text == text) return item;
    }
    throw Stuck("no node " + Narrow(text));
  }
  void Select(TextView text) const {
    Send(tree(), TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(ItemOf(text).item));
    person_.host().Drain();
  }
  Text Selected() const {
    const LRESULT selected = Send(tree(), TVM_GETNEXTITEM, TVGN_CARET);
    for (const TreeItem& item : ItemsOf(tree())) {
      if (item.item == reinterpret_cast<HTREEITEM>(selected)) return item.text;
    }
    return u"(none)";
  }
  bool IsSelectedInView() const {
    RECT place{};
    HTREEITEM item = reinterpret_cast<HTREEITEM>(Send(tree(), TVM_GETNEXTITEM, TVGN_CARET));
    std::memcpy(&place, &item, sizeof item);
    return Send(tree(), TVM_GETITEMRECT, FALSE, &place) != 0 && place.top >= 0 &&
           place.bottom <= ClientSizeOf(tree()).cy;
  }
  bool DefaultIsBold() const { return FontOf(At(win32::kBtnDesinstalar)).lfWeight >= FW_BOLD; }

  Text ToolTip() const { return ToolTipOf(At(win32::kBtnDesinstalar)); }

  // Works the real dialog.
  void ChooseFile(TextView path, int button = IDOK) const {
    const HWND dialog = person_.WaitForDialog(kFileDialog);
    HWND name = nullptr;
    WaitUntil("file name field", [&] {
      for (const int id : {0x480 /* edt1 */, 0x47C /* cmb13 */}) {
        if (name == nullptr) name = GetDlgItem(dialog, id);
      }
      return name != nullptr;
    });
    const Text typed(path);
    Send(name, WM_SETTEXT, 0, typed.c_str());
    person_.Press(GetDlgItem(dialog, button));
    person_.WaitUntilClosed(dialog);
  }
  void Add(TextView path) const {
    Press(win32::kBtnBuscar);
    ChooseFile(path);
    person_.host().Drain();
  }

 private:
  const Person& person_;
  HWND window_;
};

class ManagerWindowTest : public WindowTest {
 protected:
  ManagerWindowTest() {
    Do(catalogue, &Catalogue::put_Directorio, folder.Path(u""));
    Do(catalogue, &Catalogue::put_Prefijo, u"cnm");
    Do(catalogue, &Catalogue::put_Extension, u"cfg");
    Do(catalogue, &Catalogue::put_ArchivoInstalado, default_path);
  }

  void TearDown() override {
    catalogue = {};
    WindowTest::TearDown();
  }

  void Save(TextView name, TextView brand, TextView model, TextView comments = u"") {
    const auto config = NamedConfig(brand, model);
    Do(config, &Cfg::put_Comentarios, comments);
    Do(config, &Cfg::GuardarComo, folder.Path(name));
  }

  // Two brands with three models.
  void SaveSome() {
    Save(u"cnm3.cfg", u"Siemens", u"HiPath", u"  En la recepción  ");
    Save(u"cnm12.cfg", u"ACME", u"X2");
    Save(u"cnm5.cfg", u"acme", u"X1", u"Dos líneas:\r\nuna y otra");
  }
  static constexpr const char* kSome =
      "Conmutadores en Voralix  -  3 modelo(s) registrado(s)\n"
      "  ACME\n"
      "    X1\n"
      "    X2\n"
      "  Siemens\n"
      "    HiPath\n";

  // The person is to close the window.
  template <class Work>
  void Edit(Work&& work) {
    While([&] { Do(catalogue, &Catalogue::Editar); },
          [&](const Person& person) { work(Manager(person)); });
  }

  bool Installed() const { return Read(catalogue, &Catalogue::get_Instalado) != VARIANT_FALSE; }

  ScratchFolder folder;
  const Text default_path = folder.Path(u"activo.dat");
  ComPtr<Catalogue> catalogue = NewCatalogue();
};

}  // namespace conmuta::test
