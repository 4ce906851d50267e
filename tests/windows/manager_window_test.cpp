// The switch manager through its real controls, on a catalogue of its own.
#include "component/scratch_files.h"
#include "samples.h"
#include "ui/win32/control_ids.h"
#include "window_test.h"

namespace conmuta::test {
namespace {

using win32::kBtnBuscar;
using win32::kBtnCerrar;
using win32::kBtnContraer;
using win32::kBtnDesinstalar;
using win32::kBtnEliminar;
using win32::kBtnInstalar;
using win32::kBtnPuertos;
using win32::kEtqArch;
using win32::kFrame1;
using win32::kTvConmutadores;
using win32::kTxtComentarios;

constexpr TextView kCaption = u"Conmutadores";
constexpr TextView kFileDialog = u"Buscar archivo de configuración de conmutadores ...";
constexpr TextView kNoDefault = u"<No hay conmutador predeterminado>";
constexpr TextView kCableCaption = u"Configuración de puerto SMDR";
const std::vector<int> kYesNo = {IDYES, IDNO};
const std::vector<int> kOk = {IDOK};

std::string Narrow(TextView text) {
  return {text.begin(), text.end()};
}

class Manager {
 public:
  explicit Manager(const Person& person)
      : person_(person), window_(person.WaitForWindow(kCaption)) {}

  const Person& person() const { return person_; }
  HWND window() const { return window_; }
  HWND At(int id) const { return GetDlgItem(window_, id); }
  HWND tree() const { return At(kTvConmutadores); }
  Text Shown(int id) const { return TextOf(At(id)); }
  bool CanPress(int id) const { return IsUsable(At(id)); }
  void Press(int id) const { person_.Press(At(id)); }
  void Close() const { Press(kBtnCerrar); }

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
  bool DefaultIsBold() const { return FontOf(At(kBtnDesinstalar)).lfWeight >= FW_BOLD; }

  Text ToolTip() const {
    struct Search {
      HWND found = nullptr;
    } search;
    EnumThreadWindows(
        person_.host().id(),
        [](HWND window, LPARAM found) CALLBACK -> BOOL {
          if (ClassOf(window) != u"tooltips_class32") return TRUE;
          reinterpret_cast<Search*>(found)->found = window;
          return FALSE;
        },
        reinterpret_cast<LPARAM>(&search));
    if (search.found == nullptr) return u"(no tool tip)";
    std::array<wchar_t, 200> text{};
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    tool.hwnd = window_;
    tool.uId = reinterpret_cast<UINT_PTR>(At(kBtnDesinstalar));
    tool.lpszText = text.data();
    Send(search.found, TTM_GETTEXTW, text.size(), &tool);
    const std::wstring_view shown(text.data());
    return {shown.begin(), shown.end()};
  }

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
    Press(kBtnBuscar);
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

// --- browsing ---

TEST_F(ManagerWindowTest, EmptyCatalogueHasOnlyItsRoot) {
  Edit([](const Manager& manager) {
    EXPECT_EQ(manager.Outline(), "Conmutadores en Voralix  -  0 modelo(s) registrado(s)\n");
    EXPECT_EQ(TextOf(manager.window()), kCaption);
    EXPECT_TRUE(manager.CanPress(kBtnBuscar));
    EXPECT_FALSE(manager.CanPress(kBtnEliminar));
    EXPECT_FALSE(manager.CanPress(kBtnInstalar));
    EXPECT_FALSE(manager.CanPress(kBtnPuertos));
    EXPECT_TRUE(manager.CanPress(kBtnContraer));
    EXPECT_TRUE(manager.CanPress(kBtnCerrar));
    EXPECT_EQ(manager.Shown(kBtnDesinstalar), kNoDefault);
    EXPECT_FALSE(manager.DefaultIsBold());
    EXPECT_EQ(manager.person().Focus(), manager.tree());
    manager.Close();
  });
  EXPECT_FALSE(Installed());
}

TEST_F(ManagerWindowTest, TreeShowsBrandsAndModelsInOrder) {
  SaveSome();
  Save(u"cnm7.cfg", u"ACME", u"x1");      // there is one
  Save(u"cnmA1.cfg", u"Otra", u"Y");      // no number
  Save(u"cnm8.txt", u"Otra", u"Y");       // another extension
  Save(u"otro9.cfg", u"Otra", u"Y");      // another prefix
  folder.Write(u"cnm10.cfg", "rubbish");  // no configuration
  Edit([](const Manager& manager) {
    std::string outline = manager.Outline();
    // Which spelling of the brand comes first depends on the order of the files.
    for (char& c : outline) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    std::string expected = kSome;
    for (char& c : expected) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    EXPECT_EQ(outline, expected);
    const auto items = ItemsOf(manager.tree());
    EXPECT_TRUE(items[0].expanded);
    EXPECT_EQ(manager.Selected(), items[0].text);
    manager.Close();
  });
}

TEST_F(ManagerWindowTest, SelectedModelIsShown) {
  SaveSome();
  Edit([this](const Manager& manager) {
    manager.Select(u"HiPath");
    EXPECT_EQ(manager.Shown(kFrame1), u"Siemens, HiPath");
    EXPECT_EQ(manager.Shown(kEtqArch), folder.Path(u"cnm3.cfg"));
    EXPECT_EQ(manager.Shown(kTxtComentarios), u"En la recepción");
    EXPECT_TRUE(HasStyle(manager.At(kTxtComentarios), ES_READONLY));
    for (const int id : {kBtnEliminar, kBtnInstalar, kBtnPuertos}) {
      EXPECT_TRUE(manager.CanPress(id)) << id;
    }
    manager.Select(u"Siemens");
    EXPECT_EQ(manager.Shown(kFrame1), u"");
    EXPECT_EQ(manager.Shown(kEtqArch), u"");
    EXPECT_EQ(manager.Shown(kTxtComentarios), u"");
    for (const int id : {kBtnEliminar, kBtnInstalar, kBtnPuertos}) {
      EXPECT_FALSE(manager.CanPress(id)) << id;
    }
    manager.Select(u"X1");
    EXPECT_EQ(manager.Shown(kTxtComentarios), u"Dos líneas:\r\nuna y otra");
    manager.Close();
  });
}

TEST_F(ManagerWindowTest, FileThatBreaksLaterShowsWhy) {
  SaveSome();
  Edit([this](const Manager& manager) {
    folder.Write(u"cnm3.cfg", "rubbish");
    manager.Select(u"HiPath");
    EXPECT_EQ(manager.Shown(kTxtComentarios),
              u"<No es posible abrir al archivo de configuración, no se reconoce.\r\n Archivo :" +
                  folder.Path(u"cnm3.cfg") + u">");
    EXPECT_EQ(manager.Shown(kEtqArch), u"");
    EXPECT_EQ(manager.Shown(kFrame1), u"");
    EXPECT_FALSE(manager.CanPress(kBtnInstalar));
    EXPECT_FALSE(manager.CanPress(kBtnEliminar));
    EXPECT_FALSE(manager.CanPress(kBtnPuertos));
    manager.Close();
  });
}

TEST_F(ManagerWindowTest, FileThatGoesLaterShowsNothing) {
  SaveSome();
  Edit([this](const Manager& manager) {
    DeleteFileW(Wide(folder.Path(u"cnm3.cfg")).c_str());
    manager.Select(u"HiPath");
    EXPECT_EQ(manager.Shown(kTxtComentarios), u"");
    EXPECT_EQ(manager.Shown(kEtqArch), u"");
    EXPECT_FALSE(manager.CanPress(kBtnEliminar));
    manager.Close();
  });
}

TEST_F(ManagerWindowTest, AmpersandInNamesIsToBeSeen) {
  Save(u"cnm1.cfg", u"AT&T", u"Merlin");
  Edit([](const Manager& manager) {
    manager.Select(u"Merlin");
    EXPECT_EQ(manager.Shown(kFrame1), u"AT&&T, Merlin");
    manager.Press(kBtnInstalar);
    EXPECT_EQ(manager.person().Answer(u"Conmutadores", IDOK).text,
              u"Se ha predeterminado exitosamente el conmutador \r\nAT&T, Merlin.");
    EXPECT_EQ(manager.Shown(kBtnDesinstalar), u"AT&&T, Merlin");
    manager.Close();
  });
}

// --- adding ---

TEST_F(ManagerWindowTest, FirstAddedFileGetsNumberOne) {
  Save(u"nuevo.cfg", u"ACME", u"X1", u"Comentario");
  Edit([this](const Manager& manager) {
    manager.Add(folder.Path(u"nuevo.cfg"));
    EXPECT_EQ(manager.Outline(),
              "Conmutadores en Voralix  -  1 modelo(s) registrado(s)\n  ACME\n    X1\n");
    EXPECT_EQ(manager.Selected(), u"X1");
    EXPECT_EQ(manager.Shown(kEtqArch), folder.Path(u"cnm1.cfg"));
    EXPECT_EQ(manager.Shown(kFrame1), u"ACME, X1");
    EXPECT_TRUE(manager.CanPress(kBtnEliminar));
    manager.Close();
  });
  EXPECT_EQ(folder.Bytes(u"cnm1.cfg"), folder.Bytes(u"nuevo.cfg"));
  EXPECT_FALSE(Installed());
}

TEST_F(ManagerWindowTest, AddedFileGetsTheNextNumberAndItsPlace) {
  SaveSome();
  Save(u"nuevo.cfg", u"ACME", u"X10");
  Save(u"otro.cfg", u"Nortel", u"Norstar");
  Edit([this](const Manager& manager) {
    manager.Add(folder.Path(u"nuevo.cfg"));
    EXPECT_EQ(manager.Shown(kEtqArch), folder.Path(u"cnm13.cfg"));
    manager.Add(folder.Path(u"otro.cfg"));
    EXPECT_EQ(manager.Shown(kEtqArch), folder.Path(u"cnm14.cfg"));
    EXPECT_TRUE(manager.IsSelectedInView());
    std::string outline = manager.Outline();
    EXPECT_NE(outline.find("  Nortel\n    Norstar\n  Siemens\n"), std::string::npos) << outline;
    EXPECT_NE(outline.find("    X1\n    X10\n    X2\n"), std::string::npos) << outline;
    EXPECT_NE(outline.find("5 modelo(s)"), std::string::npos) << outline;
    manager.Close();
  });
}

TEST_F(ManagerWindowTest, KnownModelIsUpdatedAfterYes) {
  SaveSome();
  Save(u"nuevo.cfg", u"SIEMENS", u"hipath", u"Ahora en el sótano");
  Edit([this](const Manager& manager) {
    manager.Press(kBtnBuscar);
    manager.ChooseFile(folder.Path(u"nuevo.cfg"));
    const auto said = manager.person().Answer(u"Conmutadores", IDYES);
    EXPECT_EQ(said.text, u"¿Deseas actualizar el conmutador : SIEMENS, hipath ?");
    EXPECT_EQ(said.buttons, kYesNo);
    manager.person().host().Drain();
    EXPECT_EQ(manager.Shown(kTxtComentarios), u"Ahora en el sótano");
    EXPECT_EQ(manager.Shown(kEtqArch), folder.Path(u"cnm3.cfg"));
    EXPECT_NE(manager.Outline().find("3 modelo(s)"), std::string::npos);
    manager.Close();
  });
  EXPECT_EQ(folder.Bytes(u"cnm3.cfg"), folder.Bytes(u"nuevo.cfg"));
}

TEST_F(ManagerWindowTest, KnownModelStaysAfterNo) {
  SaveSome();
  Save(u"nuevo.cfg", u"Siemens", u"HiPath", u"Ahora en el sótano");
  const auto before = folder.Bytes(u"cnm3.cfg");
  Edit([this](const Manager& manager) {
    manager.Press(kBtnBuscar);
    manager.ChooseFile(folder.Path(u"nuevo.cfg"));
    manager.person().Answer(u"Conmutadores", IDNO);
    manager.person().host().Drain();
    EXPECT_NE(manager.Outline().find("3 modelo(s)"), std::string::npos);
    manager.Close();
  });
  EXPECT_EQ(folder.Bytes(u"cnm3.cfg"), before);
}

TEST_F(ManagerWindowTest, DefaultSwitchFollowsAnUpdate) {
  SaveSome();
  Save(u"activo.dat", u"Siemens", u"HiPath");
  Save(u"nuevo.cfg", u"Siemens", u"HiPath", u"Ahora en el sótano");
  Edit([this](const Manager& manager) {
    manager.Press(kBtnBuscar);
    manager.ChooseFile(folder.Path(u"nuevo.cfg"));
    manager.person().Answer(u"Conmutadores", IDYES);
    manager.Close();
  });
  EXPECT_EQ(folder.Bytes(u"activo.dat"), folder.Bytes(u"nuevo.cfg"));
}

TEST_F(ManagerWindowTest, FileThatIsNoConfigurationIsRefused) {
  folder.Write(u"malo.cfg", "rubbish");
  Edit([this](const Manager& manager) {
    manager.Press(kBtnBuscar);
    manager.ChooseFile(folder.Path(u"malo.cfg"));
    const auto said = manager.person().Answer(u"Error", IDOK);
    EXPECT_EQ(said.text,
              u"No es posible abrir al archivo de configuración, no se reconoce.\r\n Archivo :" +
                  folder.Path(u"cfg.tmp"));
    EXPECT_EQ(said.buttons, kOk);
    EXPECT_EQ(manager.Outline(), "Conmutadores en Voralix  -  0 modelo(s) registrado(s)\n");
    manager.Close();
  });
  EXPECT_FALSE(folder.Exists(u"cnm1.cfg"));
}

TEST_F(ManagerWindowTest, CancelledDialogAddsNothing) {
  SaveSome();
  Edit([](const Manager& manager) {
    manager.Select(u"HiPath");
    manager.Press(kBtnBuscar);
    manager.ChooseFile(u"", IDCANCEL);
    EXPECT_NE(manager.Outline().find("3 modelo(s)"), std::string::npos);
    EXPECT_EQ(manager.Shown(kFrame1), u"Siemens, HiPath");
    EXPECT_TRUE(IsUsable(manager.window()));
    manager.Close();
  });
  EXPECT_FALSE(folder.Exists(u"cfg.tmp"));
}

TEST_F(ManagerWindowTest, DialogLeavesTheCurrentDirectoryAlone) {
  Save(u"nuevo.cfg", u"ACME", u"X1");
  wchar_t before[MAX_PATH] = L"", after[MAX_PATH] = L"";
  GetCurrentDirectoryW(MAX_PATH, before);
  Edit([this](const Manager& manager) {
    manager.Add(folder.Path(u"nuevo.cfg"));
    manager.Close();
  });
  GetCurrentDirectoryW(MAX_PATH, after);
  EXPECT_STREQ(after, before);
}

// --- deleting ---

TEST_F(ManagerWindowTest, DeletingAsksFirst) {
  SaveSome();
  Edit([](const Manager& manager) {
    manager.Select(u"HiPath");
    manager.Press(kBtnEliminar);
    const auto said = manager.person().Answer(u"Advertencia", IDNO);
    EXPECT_EQ(said.text, u"¿Esta seguro que desea eliminar el conmutador : Siemens, HiPath ?");
    EXPECT_EQ(said.buttons, kYesNo);
    EXPECT_NE(said.icon, nullptr);
    EXPECT_NE(manager.Outline().find("HiPath"), std::string::npos);
    EXPECT_EQ(manager.Selected(), u"HiPath");
    manager.Close();
  });
  EXPECT_TRUE(folder.Exists(u"cnm3.cfg"));
}

TEST_F(ManagerWindowTest, LastModelTakesItsBrandWithIt) {
  SaveSome();
  Edit([](const Manager& manager) {
    manager.Select(u"HiPath");
    manager.Press(kBtnEliminar);
    manager.person().Answer(u"Advertencia", IDYES);
    manager.person().host().Drain();
    EXPECT_EQ(manager.Outline().find("Siemens"), std::string::npos);
    EXPECT_EQ(manager.Selected(), u"Conmutadores en Voralix  -  2 modelo(s) registrado(s)");
    EXPECT_EQ(manager.Shown(kFrame1), u"");
    EXPECT_FALSE(manager.CanPress(kBtnEliminar));
    manager.Select(u"X2");
    manager.Press(kBtnEliminar);
    manager.person().Answer(u"Advertencia", IDYES);
    manager.person().host().Drain();
    EXPECT_NE(manager.Outline().find("    X1\n"), std::string::npos) << "the brand has another";
    manager.Close();
  });
  EXPECT_FALSE(folder.Exists(u"cnm3.cfg"));
  EXPECT_FALSE(folder.Exists(u"cnm12.cfg"));
  EXPECT_TRUE(folder.Exists(u"cnm5.cfg"));
  EXPECT_FALSE(Installed());
}

TEST_F(ManagerWindowTest, DeletingTheDefaultModelDeletesTheDefaultSwitch) {
  SaveSome();
  Save(u"activo.dat", u"Siemens", u"HiPath");
  Edit([](const Manager& manager) {
    EXPECT_EQ(manager.Selected(), u"HiPath");
    manager.Press(kBtnEliminar);
    EXPECT_EQ(manager.person().Answer(u"Advertencia", IDYES).text,
              u"¿Esta seguro que desea eliminar el conmutador : Siemens, HiPath ?\r\n"
              u"Este conmutador esta predeterminado, eliminarlo provocara que no halla conmutador "
              u"predeterminado.");
    manager.person().host().Drain();
    EXPECT_EQ(manager.Shown(kBtnDesinstalar), kNoDefault);
    EXPECT_FALSE(manager.DefaultIsBold());
    manager.Close();
  });
  EXPECT_FALSE(folder.Exists(u"activo.dat"));
  EXPECT_FALSE(folder.Exists(u"cnm3.cfg"));
  EXPECT_TRUE(Installed());
}

TEST_F(ManagerWindowTest, DeleteKeyInTheTreeDeletesTheModel) {
  SaveSome();
  Edit([](const Manager& manager) {
    manager.person().SetFocusTo(manager.tree());
    manager.Select(u"Siemens");
    manager.person().Key(VK_DELETE);  // a brand is not deleted
    EXPECT_TRUE(IsUsable(manager.window()));
    manager.Select(u"HiPath");
    manager.person().Key(VK_DELETE);
    manager.person().Answer(u"Advertencia", IDYES);
    manager.person().host().Drain();
    EXPECT_EQ(manager.Outline().find("HiPath"), std::string::npos);
    manager.Close();
  });
}

TEST_F(ManagerWindowTest, EverythingCanBeDeletedAndAddedAgain) {
  SaveSome();
  Save(u"nuevo.cfg", u"ACME", u"X1");
  Edit([this](const Manager& manager) {
    for (const TextView model : {u"X1", u"X2", u"HiPath"}) {
      manager.Select(model);
      manager.Press(kBtnEliminar);
      manager.person().Answer(u"Advertencia", IDYES);
      manager.person().host().Drain();
    }
    EXPECT_EQ(manager.Outline(), "Conmutadores en Voralix  -  0 modelo(s) registrado(s)\n");
    manager.Add(folder.Path(u"nuevo.cfg"));
    EXPECT_EQ(manager.Outline(),
              "Conmutadores en Voralix  -  1 modelo(s) registrado(s)\n  ACME\n    X1\n");
    EXPECT_EQ(manager.Shown(kEtqArch), folder.Path(u"cnm13.cfg"));
    manager.Close();
  });
}

// --- the default switch ---

TEST_F(ManagerWindowTest, InstallingMakesTheDefaultSwitch) {
  SaveSome();
  Edit([](const Manager& manager) {
    manager.Select(u"HiPath");
    manager.Press(kBtnInstalar);
    const auto said = manager.person().Answer(u"Conmutadores", IDOK);
    EXPECT_EQ(said.text, u"Se ha predeterminado exitosamente el conmutador \r\nSiemens, HiPath.");
    EXPECT_EQ(said.buttons, kOk);
    manager.person().host().Drain();
    EXPECT_EQ(manager.Shown(kBtnDesinstalar), u"Siemens, HiPath");
    EXPECT_EQ(manager.ToolTip(), u"Conmutador predeterminado");
    EXPECT_TRUE(manager.DefaultIsBold());
    manager.Select(u"X1");
    EXPECT_EQ(manager.Shown(kFrame1).find(u">>"), Text::npos);
    EXPECT_FALSE(manager.DefaultIsBold());
    manager.Select(u"HiPath");
    EXPECT_EQ(manager.Shown(kFrame1), u">> Siemens, HiPath <<");
    EXPECT_TRUE(manager.DefaultIsBold());
    manager.Close();
  });
  EXPECT_EQ(folder.Bytes(u"activo.dat"), folder.Bytes(u"cnm3.cfg"));
  EXPECT_TRUE(Installed());
  Edit([](const Manager& manager) { manager.Close(); });
  EXPECT_TRUE(Installed()) << "it never goes back";
}

TEST_F(ManagerWindowTest, PresentDefaultSwitchIsMarked) {
  SaveSome();
  Save(u"activo.dat", u"siemens", u"HIPATH");
  Edit([](const Manager& manager) {
    EXPECT_EQ(manager.Selected(), u"HiPath");
    EXPECT_TRUE(manager.IsSelectedInView());
    EXPECT_EQ(manager.Shown(kBtnDesinstalar), u"Siemens, HiPath");
    EXPECT_TRUE(manager.DefaultIsBold());
    EXPECT_EQ(manager.ToolTip(), u"Conmutador predeterminado");
    manager.Close();
  });
  EXPECT_FALSE(Installed());
}

TEST_F(ManagerWindowTest, InstallingNeedsAFileName) {
  SaveSome();
  Do(catalogue, &Catalogue::put_ArchivoInstalado, u"");
  Edit([](const Manager& manager) {
    manager.Select(u"HiPath");
    manager.Press(kBtnInstalar);
    EXPECT_EQ(
        manager.person().Answer(u"Error", IDOK).text,
        u"No se ha determinado el archivo que se usará para predeterminar el conmutador a usar.");
    manager.Close();
  });
  EXPECT_FALSE(Installed());
}

TEST_F(ManagerWindowTest, InstallingOntoItselfIsRefused) {
  SaveSome();
  const auto before = folder.Bytes(u"cnm3.cfg");
  Do(catalogue, &Catalogue::put_ArchivoInstalado, folder.Path(u"CNM3.CFG"));
  Edit([](const Manager& manager) {
    manager.Select(u"HiPath");
    manager.Press(kBtnInstalar);
    EXPECT_EQ(manager.person().Answer(u"Error", IDOK).text,
              u"Ha ocurrido un conflicto de nombres de archivos.");
    manager.Close();
  });
  EXPECT_EQ(folder.Bytes(u"cnm3.cfg"), before);
  EXPECT_FALSE(Installed());
}

TEST_F(ManagerWindowTest, DefaultSwitchIsRemovedAfterYes) {
  SaveSome();
  Save(u"activo.dat", u"Siemens", u"HiPath");
  Edit([this](const Manager& manager) {
    manager.Press(kBtnDesinstalar);
    const auto asked = manager.person().Answer(u"Conmutadores", IDNO);
    EXPECT_EQ(asked.text, u"¿Deseas quitar el conmutador predeterminado 'Siemens, HiPath'?");
    EXPECT_EQ(asked.buttons, kYesNo);
    EXPECT_TRUE(folder.Exists(u"activo.dat"));
    manager.Press(kBtnDesinstalar);
    manager.person().Answer(u"Conmutadores", IDYES);
    const auto said = manager.person().Answer(u"Conmutadores", IDOK);
    EXPECT_EQ(said.text, u"Se ha quitado el conmutador predeterminado exitosamente.");
    manager.person().host().Drain();
    EXPECT_EQ(manager.Shown(kBtnDesinstalar), kNoDefault);
    EXPECT_EQ(manager.ToolTip(), kNoDefault);
    manager.Press(kBtnDesinstalar);  // nothing to remove any more
    EXPECT_TRUE(IsUsable(manager.window()));
    manager.Close();
  });
  EXPECT_FALSE(folder.Exists(u"activo.dat"));
  EXPECT_TRUE(folder.Exists(u"cnm3.cfg")) << "the catalogue stays";
  EXPECT_FALSE(Installed());
}

TEST_F(ManagerWindowTest, RemovedFileIsForgottenAllTheSame) {
  SaveSome();
  Save(u"activo.dat", u"Siemens", u"HiPath");
  Edit([this](const Manager& manager) {
    DeleteFileW(Wide(default_path).c_str());
    manager.Press(kBtnDesinstalar);
    manager.person().Answer(u"Conmutadores", IDYES);
    manager.person().host().Drain();
    EXPECT_TRUE(IsUsable(manager.window())) << "nothing more is said";
    EXPECT_EQ(manager.Shown(kBtnDesinstalar), kNoDefault);
    manager.Close();
  });
}

// --- other commands ---

TEST_F(ManagerWindowTest, CollapsingShowsBrandsOnly) {
  SaveSome();
  Edit([](const Manager& manager) {
    manager.Select(u"HiPath");
    manager.Select(u"X1");
    manager.Press(kBtnContraer);
    for (const TreeItem& item : ItemsOf(manager.tree())) {
      EXPECT_EQ(item.expanded, item.depth == 0) << Narrow(item.text);
    }
    EXPECT_EQ(manager.Shown(kFrame1), u"") << "the model is hidden, and no longer selected";
    EXPECT_FALSE(manager.CanPress(kBtnEliminar));
    manager.Close();
  });
}

TEST_F(ManagerWindowTest, CollapsingABrandByHandHidesItsModel) {
  SaveSome();
  Edit([](const Manager& manager) {
    manager.person().SetFocusTo(manager.tree());
    manager.Select(u"HiPath");
    EXPECT_TRUE(manager.CanPress(kBtnEliminar));
    manager.person().Key(VK_LEFT);  // to the brand
    manager.person().Key(VK_LEFT);  // closes it
    EXPECT_EQ(manager.Selected(), u"Siemens");
    EXPECT_FALSE(manager.ItemOf(u"Siemens").expanded);
    EXPECT_FALSE(manager.CanPress(kBtnEliminar));
    manager.person().Key(VK_RIGHT);
    EXPECT_TRUE(manager.ItemOf(u"Siemens").expanded);
    manager.Close();
  });
}

TEST_F(ManagerWindowTest, CableIsShownNotEdited) {
  const auto config = NamedConfig(u"Siemens", u"HiPath");
  Connect(config, NullModem(1));
  Do(config, &Cfg::GuardarComo, folder.Path(u"cnm3.cfg"));
  const auto before = folder.Bytes(u"cnm3.cfg");
  Edit([](const Manager& manager) {
    manager.Select(u"HiPath");
    manager.Press(kBtnPuertos);
    const HWND cable = manager.person().WaitForWindow(kCableCaption);
    EXPECT_FALSE(IsUsable(manager.window()));
    EXPECT_EQ(TextOf(GetDlgItem(cable, win32::kEtqConmutador)), u"Conmutador\r\nSiemens, HiPath");
    EXPECT_FALSE(IsShown(GetDlgItem(cable, win32::kBtnAceptar)));
    manager.person().Press(GetDlgItem(cable, win32::kBtnCancelar));
    manager.person().WaitUntilClosed(cable);
    manager.person().host().Drain();
    EXPECT_TRUE(IsUsable(manager.window()));
    EXPECT_EQ(manager.Shown(kFrame1), u"Siemens, HiPath");
    manager.Close();
  });
  EXPECT_EQ(folder.Bytes(u"cnm3.cfg"), before);
}

// --- the ways out ---

TEST_F(ManagerWindowTest, CloseBoxCloses) {
  Edit([](const Manager& manager) {
    manager.person().PressCloseBox(manager.window());
    manager.person().WaitUntilClosed(manager.window());
  });
}

TEST_F(ManagerWindowTest, EscapeCloses) {
  Edit([](const Manager& manager) {
    manager.person().Key(VK_ESCAPE);
    manager.person().WaitUntilClosed(manager.window());
  });
}

TEST_F(ManagerWindowTest, EscapeInTheCommentsCloses) {
  Edit([](const Manager& manager) {
    manager.person().SetFocusTo(manager.At(kTxtComentarios));
    manager.person().Key(VK_RETURN);  // there is no default button
    EXPECT_TRUE(IsWindow(manager.window()));
    manager.person().Key(VK_ESCAPE);
    manager.person().WaitUntilClosed(manager.window());
  });
}

// --- the keyboard ---

TEST_F(ManagerWindowTest, WorksByKeyboardAlone) {
  SaveSome();
  Save(u"nuevo.cfg", u"Nortel", u"Norstar");
  Edit([this](const Manager& manager) {
    const Person& person = manager.person();
    EXPECT_EQ(person.Focus(), manager.tree());
    person.Key(VK_END);
    person.Key(VK_RIGHT);
    person.Key(VK_DOWN);
    EXPECT_EQ(manager.Selected(), u"HiPath");
    EXPECT_EQ(manager.Shown(kFrame1), u"Siemens, HiPath");

    person.Alt(L'p');
    person.Answer(u"Conmutadores", IDOK);
    person.host().Drain();
    EXPECT_EQ(manager.Shown(kBtnDesinstalar), u"Siemens, HiPath");

    person.Alt(L'u');
    const HWND cable = person.WaitForWindow(kCableCaption);
    person.Key(VK_ESCAPE);
    person.WaitUntilClosed(cable);
    person.host().Drain();

    person.Alt(L'b');
    manager.ChooseFile(folder.Path(u"nuevo.cfg"));
    person.host().Drain();
    EXPECT_EQ(manager.Selected(), u"Norstar");

    person.Alt(L'e');
    person.Answer(u"Advertencia", IDYES);
    person.host().Drain();
    EXPECT_EQ(manager.Outline().find("Norstar"), std::string::npos);

    person.Alt(L'c');
    EXPECT_FALSE(manager.ItemOf(u"Siemens").expanded);

    person.Alt(L'r');
    person.WaitUntilClosed(manager.window());
  });
}

// The button itself bears the switch's name.
TEST_F(ManagerWindowTest, LabelsKeyGoesToTheDefaultSwitch) {
  SaveSome();
  Save(u"activo.dat", u"Siemens", u"HiPath");
  Edit([](const Manager& manager) {
    manager.person().Alt(L'd');
    EXPECT_EQ(manager.person().Focus(), manager.At(kBtnDesinstalar));
    manager.person().SetFocusTo(manager.At(kBtnDesinstalar));
    manager.person().Key(VK_SPACE);
    manager.person().Answer(u"Conmutadores", IDNO);
    manager.Close();
  });
}

TEST_F(ManagerWindowTest, EveryCommandHasAKeyOfItsOwn) {
  Edit([](const Manager& manager) {
    std::set<char16_t> keys;
    for (const HWND control : ChildrenOf(manager.window())) {
      const int id = GetDlgCtrlID(control);
      if (id == kFrame1 || id == kBtnDesinstalar || id == kTxtComentarios || id == kEtqArch)
        continue;
      if (!IsShown(control)) continue;  // a name for those who cannot see
      const Text text = TextOf(control);
      const auto mark = text.find(u'&');
      if (text.empty()) continue;
      ASSERT_NE(mark, Text::npos) << Narrow(text);
      EXPECT_TRUE(keys.insert(ToUpper(text[mark + 1])).second) << Narrow(text);
    }
    EXPECT_EQ(keys.size(), 7u);
    manager.Close();
  });
}

TEST_F(ManagerWindowTest, TabVisitsEverythingThatCanBeUsed) {
  SaveSome();
  Edit([](const Manager& manager) {
    manager.Select(u"HiPath");
    std::vector<int> visited;
    for (int i = 0; i < 9; ++i) {
      visited.push_back(GetDlgCtrlID(manager.person().Focus()));
      manager.person().Key(VK_TAB);
    }
    EXPECT_EQ(visited, (std::vector<int>{kTvConmutadores, kBtnBuscar, kBtnEliminar, kBtnContraer,
                                         kTxtComentarios, kBtnInstalar, kBtnPuertos,
                                         kBtnDesinstalar, kBtnCerrar}));
    EXPECT_EQ(manager.person().Focus(), manager.tree());
    manager.Close();
  });
}

// --- size ---

TEST_F(ManagerWindowTest, TreeTakesWhatTheWindowGains) {
  Edit([](const Manager& manager) {
    const RECT tree = PlaceOf(manager.tree());
    const RECT close = PlaceOf(manager.At(kBtnCerrar));
    const RECT comments = PlaceOf(manager.At(kTxtComentarios));
    const SIZE outer = OuterSizeOf(manager.window());
    manager.person().Resize(manager.window(), outer.cx + 150, outer.cy + 90);
    EXPECT_EQ(PlaceOf(manager.tree()).right, tree.right + 150);
    EXPECT_EQ(PlaceOf(manager.tree()).bottom, tree.bottom + 90);
    EXPECT_EQ(PlaceOf(manager.At(kTxtComentarios)).left, comments.left + 150);
    EXPECT_EQ(PlaceOf(manager.At(kTxtComentarios)).bottom, comments.bottom + 90);
    EXPECT_EQ(PlaceOf(manager.At(kBtnCerrar)).left, close.left + 150);
    EXPECT_EQ(PlaceOf(manager.At(kBtnCerrar)).top, close.top + 90);
    manager.Close();
  });
}

TEST_F(ManagerWindowTest, LongNamesAndManyModelsAreShown) {
  const Text long_brand(50, u'M');
  const Text long_model(50, u'W');
  Save(u"cnm1.cfg", long_brand, long_model, Text(250, u'c'));
  for (int i = 2; i <= 200; ++i) {
    const std::u16string number = ToText(i);
    Save(u"cnm" + number + u".cfg", u"Marca " + ToText(i % 10), u"Modelo " + number);
  }
  Edit([&](const Manager& manager) {
    EXPECT_EQ(ItemsOf(manager.tree()).size(), 1u + 11u + 200u);
    manager.Select(long_model);
    EXPECT_EQ(manager.Shown(kTxtComentarios).size(), 250u);
    EXPECT_TRUE(manager.IsSelectedInView());
    manager.Close();
  });
}

}  // namespace
}  // namespace conmuta::test
