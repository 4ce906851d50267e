// Each kind of window in turn, with something to show.
#pragma once

#include <string>

#include "captions.h"
#include "component/scratch_files.h"
#include "samples.h"
#include "ui/win32/control_ids.h"
#include "window_test.h"

namespace conmuta::test {

struct Shown {
  const char* name;
  TextView caption;
};
inline constexpr Shown kEveryWindow[] = {{"information", kInfoCaption},
                                         {"edited cable", kCableCaption},
                                         {"viewed cable", kCableCaption},
                                         {"manager", kManagerCaption}};

class EveryWindowTest : public WindowTest {
 protected:
  explicit EveryWindowTest(TextView brand = u"Panasonic", TextView model = u"KX-TD1232") {
    const auto named = NamedConfig(brand, model);
    Do(named, &Cfg::put_Comentarios, u"En la recepción.\r\n9600 baudios, 8 bits, sin paridad.");
    for (const TextView file : {u"cnm1.cfg", u"activo.dat"}) {
      Do(named, &Cfg::GuardarComo, folder_.Path(file));
    }
    config_ = named;
    Connect(config_, NullModem(1));
    Do(catalogue_, &Catalogue::put_Directorio, folder_.Path(u""));
    Do(catalogue_, &Catalogue::put_Prefijo, u"cnm");
    Do(catalogue_, &Catalogue::put_Extension, u"cfg");
    Do(catalogue_, &Catalogue::put_ArchivoInstalado, folder_.Path(u"activo.dat"));
  }
  void TearDown() override {
    config_ = {};
    catalogue_ = {};
    WindowTest::TearDown();
  }

  void Open(const std::string& name) {
    VARIANT_BOOL may_edit = name == "edited cable" ? VARIANT_TRUE : VARIANT_FALSE;
    if (name == "information") {
      Do(TypicalConfig(), &Cfg::MostrarInformacionConfiguracion);
    } else if (name == "manager") {
      Do(catalogue_, &Catalogue::Editar);
    } else {
      Do(config_, &Cfg::EDConfigSeriales, &may_edit);
    }
  }

  // Opens each of them for a person, and closes it.
  template <class Work>
  void InEach(Work&& work) {
    for (const Shown& shown : kEveryWindow) {
      SCOPED_TRACE(shown.name);
      While([&] { Open(shown.name); },
            [&](const Person& person) {
              const HWND window = person.WaitForWindow(shown.caption);
              person.host().Rest();
              work(person, window);
              PostMessageW(window, WM_CLOSE, 0, 0);
              person.WaitUntilClosed(window);
            });
    }
  }

  ScratchFolder folder_;
  ComPtr<Cfg> config_;
  ComPtr<Catalogue> catalogue_ = NewCatalogue();
};

}  // namespace conmuta::test
