// A host with windows of its own, and each kind of ours to be opened from it.
#pragma once

#include "captions.h"
#include "component/scratch_files.h"
#include "samples.h"
#include "ui/win32/control_ids.h"
#include "window_test.h"

namespace conmuta::test {

// A top-level window of the host's own.
class HostWindow {
 public:
  explicit HostWindow(DWORD style = WS_VISIBLE)
      : window_(CreateWindowExW(0, L"STATIC", L"Host", WS_OVERLAPPEDWINDOW | style, 0, 0, 200, 100,
                                nullptr, nullptr, GetModuleHandleW(nullptr), nullptr)) {}
  ~HostWindow() { DestroyWindow(window_); }
  HostWindow(const HostWindow&) = delete;
  HostWindow& operator=(const HostWindow&) = delete;

  HWND handle() const { return window_; }
  bool IsEnabled() const { return IsWindowEnabled(window_) != 0; }

 private:
  HWND window_;
};

class RudeHostTest : public WindowTest {
 protected:
  RudeHostTest() {
    const auto model = NamedConfig();
    Do(model, &Cfg::GuardarComo, folder.Path(u"cnm1.cfg"));
  }
  void TearDown() override {
    config = {};
    catalogue = {};
    WindowTest::TearDown();
  }

  // Each kind of window in turn.
  struct Kind {
    const char* name;
    TextView caption;
    std::function<void()> open;
    int way_out;
  };
  std::vector<Kind> Kinds() {
    return {{"information", kInfoCaption, [this] { ShowInfo(); }, win32::kBtnCerrar},
            {"cable editor", kCableCaption, [this] { EditCable(); }, win32::kBtnCancelar},
            {"manager", kManagerCaption, [this] { EditCatalogue(); }, win32::kBtnCerrar}};
  }

  void ShowInfo() { EXPECT_EQ(config->MostrarInformacionConfiguracion(), S_OK); }
  void EditCable() {
    VARIANT_BOOL may_edit = VARIANT_TRUE;
    EXPECT_EQ(config->EDConfigSeriales(&may_edit), S_OK);
  }
  void EditCatalogue() { EXPECT_EQ(catalogue->Editar(), S_OK); }

  ComPtr<Catalogue> NewFilledCatalogue() {
    auto made = NewCatalogue();
    Do(made, &Catalogue::put_Directorio, folder.Path(u""));
    Do(made, &Catalogue::put_Prefijo, u"cnm");
    Do(made, &Catalogue::put_Extension, u"cfg");
    Do(made, &Catalogue::put_ArchivoInstalado, folder.Path(u"activo.dat"));
    return made;
  }

  // Selects the one model of the catalogue.
  static void SelectModel(const Person& person, HWND manager) {
    const HWND tree = GetDlgItem(manager, win32::kTvConmutadores);
    Send(tree, TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(ItemsOf(tree).back().item));
    person.host().Drain();
  }

  ScratchFolder folder;
  ComPtr<Cfg> config = NamedConfig();
  ComPtr<Catalogue> catalogue = NewFilledCatalogue();
};

}  // namespace conmuta::test
