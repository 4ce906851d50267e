// All windows at the resolutions that screens come in.
#include "captions.h"
#include "component/scratch_files.h"
#include "samples.h"
#include "ui/win32/control_ids.h"
#include "window_rules.h"
#include "window_test.h"

namespace conmuta::test {
namespace {

class ResolutionTest : public WindowTest {
 protected:
  // Carries the window that opens from screen to screen.
  template <class Open, class Check>
  void AtEachResolution(TextView caption, Open&& open, Check&& check) {
    While(open, [&](const Person& person) {
      const HWND window = person.WaitForWindow(caption);
      const SIZE size = OuterSizeOf(window);
      for (const UINT dpi : {96u, 120u, 144u, 192u, 96u}) {
        SCOPED_TRACE(dpi);
        RECT place{};
        place.right = MulDiv(size.cx, static_cast<int>(dpi), 96);
        place.bottom = MulDiv(size.cy, static_cast<int>(dpi), 96);
        Send(window, WM_DPICHANGED, MAKEWPARAM(dpi, dpi), &place);
        person.host().Rest();
        EXPECT_EQ(FlawsOf(window, dpi), std::vector<std::string>());
        check(person, window);
      }
      PostMessageW(window, WM_CLOSE, 0, 0);
      person.WaitUntilClosed(window);
    });
  }
};

TEST_F(ResolutionTest, InformationWindowFits) {
  const auto config = CrowdedConfig();
  AtEachResolution(
      kInfoCaption, [&] { Do(config, &Cfg::MostrarInformacionConfiguracion); },
      [](const Person&, HWND) {});
}

TEST_F(ResolutionTest, CableEditorFits) {
  const auto config = NamedConfig(u"Panasonic", u"KX-TD1232");
  VARIANT_BOOL may_edit = VARIANT_TRUE;
  AtEachResolution(
      kCableCaption, [&] { Do(config, &Cfg::EDConfigSeriales, &may_edit); },
      [](const Person& person, HWND window) {
        // A field shows its whole text.
        const HWND pin = GetDlgItem(window, win32::kTxtPinIzq);
        person.Type(pin, u"4");
        const LOGFONTW font = FontOf(pin);
        EXPECT_GE(ClientSizeOf(pin).cy, std::abs(font.lfHeight) + 2);
      });
}

TEST_F(ResolutionTest, ManagerFits) {
  const ScratchFolder folder;
  const auto model = NamedConfig(u"Panasonic", u"KX-TD1232");
  Do(model, &Cfg::GuardarComo, folder.Path(u"cnm1.cfg"));
  Do(model, &Cfg::GuardarComo, folder.Path(u"activo.dat"));
  const auto catalogue = NewCatalogue();
  Do(catalogue, &Catalogue::put_Directorio, folder.Path(u""));
  Do(catalogue, &Catalogue::put_Prefijo, u"cnm");
  Do(catalogue, &Catalogue::put_Extension, u"cfg");
  Do(catalogue, &Catalogue::put_ArchivoInstalado, folder.Path(u"activo.dat"));
  AtEachResolution(
      kManagerCaption, [&] { Do(catalogue, &Catalogue::Editar); },
      [](const Person&, HWND window) {
        EXPECT_GE(FontOf(GetDlgItem(window, win32::kBtnDesinstalar)).lfWeight, FW_BOLD);
      });
}

TEST_F(ResolutionTest, ChangedSystemSettingsKeepTheLayout) {
  const auto config = TypicalConfig();
  AtEachResolution(
      kInfoCaption, [&] { Do(config, &Cfg::MostrarInformacionConfiguracion); },
      [](const Person&, HWND window) {
        const HWND text = GetDlgItem(window, win32::kTxtInfo);
        const LOGFONTW before = FontOf(text);
        Send(window, WM_SETTINGCHANGE);
        EXPECT_EQ(FontOf(text).lfHeight, before.lfHeight);
        EXPECT_STREQ(FontOf(text).lfFaceName, before.lfFaceName);
      });
}

}  // namespace
}  // namespace conmuta::test
