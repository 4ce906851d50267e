// Hosts that open each of our windows, with a person who works in it.
#pragma once

#include "answers.h"
#include "files_host.h"
#include "script.h"
#include "ui/win32/control_ids.h"

namespace conmuta::test {

class WindowHost : public FilesHost {
 public:
  explicit WindowHost(std::vector<Script::Step> steps) : script_(std::move(steps)) {}

  HRESULT Act() override {
    script_.Begin();
    return Open();
  }

 protected:
  virtual HRESULT Open() = 0;

 private:
  Script script_;
};

class ReportHost final : public WindowHost {
 public:
  ReportHost() : WindowHost({Repaint(), Resize(300, 200), Press(win32::kBtnCerrar)}) {}

 private:
  HRESULT Open() override { return config_->MostrarInformacionConfiguracion(); }
};

class CallReportHost final : public WindowHost {
 public:
  CallReportHost() : WindowHost({Repaint(), Press(win32::kBtnCerrar)}) {
    Do(translator_, &Trad::putref_Conmutador, config_.get());
    Do(translator_, &Trad::put_Llamada, u"21/11 10:05 00:07:20 E 5551234567 205");
  }

 private:
  HRESULT Open() override { return translator_->MuestraInfoTrad(); }

  const ComPtr<Trad> translator_ = NewTranslator();
};

// Wires a pin, takes it back, wires it again and accepts.
class CableHost final : public WindowHost {
 public:
  CableHost()
      : WindowHost({Repaint(), Press(win32::kOpcPuerto + 4), Type(win32::kTxtPinIzq, L"2"),
                    Type(win32::kTxtPinesConectados, L"3,4"), Repaint(),
                    Press(win32::kBtnAceptar)}) {}

  // All that the person drew, or nothing.
  void Verify(HRESULT answered) override {
    const Wires wires = WiresOf(config_);
    EXPECT_TRUE(wires == Wires() || wires == Wires({{4, 2, 3}, {4, 2, 4}}))
        << testing::PrintToString(wires);
    WindowHost::Verify(answered);
    EXPECT_EQ(WiresOf(config_), (Wires{{4, 2, 3}, {4, 2, 4}}));
  }

 private:
  HRESULT Open() override {
    VARIANT_BOOL may_edit = VARIANT_TRUE;
    return config_->EDConfigSeriales(&may_edit);
  }
};

// Makes a model the default one, takes that back, adds a model, deletes another, looks at a cable.
class ManagerHost : public WindowHost {
 public:
  ManagerHost()
      : WindowHost({Repaint(), SelectModel(1), Press(win32::kBtnInstalar), Repaint(),
                    Press(win32::kBtnDesinstalar), Press(win32::kBtnInstalar),
                    Press(win32::kBtnBuscar), SelectModel(2), Press(win32::kBtnPuertos), Leave(),
                    Press(win32::kBtnEliminar), Press(win32::kBtnContraer),
                    Press(win32::kBtnCerrar)}) {
    Fill();
    Do(catalogue_, &Catalogue::put_Directorio, folder_.Path(u""));
    Do(catalogue_, &Catalogue::put_Prefijo, u"cnm");
    Do(catalogue_, &Catalogue::put_Extension, u"cfg");
    Do(catalogue_, &Catalogue::put_ArchivoInstalado, folder_.Path(u"activo.dat"));
  }

  void Verify(HRESULT answered) override {
    ExpectWholeFiles();
    Fill();  // whatever came of it
    WindowHost::Verify(answered);
    ExpectWholeFiles();
    EXPECT_EQ(Read(catalogue_, &Catalogue::get_Instalado), VARIANT_TRUE);
  }

 protected:
  // No file is half of one, but for the copy that is looked at before it is added.
  void ExpectWholeFiles() const {
    for (const TextView name : {u"cnm1.cfg", u"cnm2.cfg", u"cnm3.cfg", u"activo.dat"}) {
      if (!folder_.Exists(name)) continue;
      EXPECT_EQ(NewConfig()->Abrir(Bstr(folder_.Path(name)).get()), S_OK) << Shown(name);
    }
    EXPECT_TRUE(folder_.Exists(u"new.cfg")) << "the file that was added is the person's own";
  }

 private:
  static std::string Shown(TextView name) { return {name.begin(), name.end()}; }

  void Fill() const {
    Do(NamedConfig(u"ACME", u"X1"), &Cfg::GuardarComo, folder_.Path(u"cnm1.cfg"));
    Do(NamedConfig(u"ACME", u"X2"), &Cfg::GuardarComo, folder_.Path(u"cnm2.cfg"));
    Do(NamedConfig(u"ACME", u"X3"), &Cfg::GuardarComo, folder_.Path(u"new.cfg"));
    for (const TextView name : {u"cnm3.cfg", u"activo.dat"}) {
      DeleteFileW(Wide(folder_.Path(name)).c_str());
    }
    answers::file = Wide(folder_.Path(u"new.cfg"));
  }

  HRESULT Open() override { return catalogue_->Editar(); }

  const ComPtr<Catalogue> catalogue_ = NewCatalogue();
};

}  // namespace conmuta::test
