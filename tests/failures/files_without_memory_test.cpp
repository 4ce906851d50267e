// Files and configurations when memory runs out: what was there is there, or all of what is new.
#include <gtest/gtest.h>

#include "files_host.h"

namespace conmuta::test {
namespace {

template <class Base>
class Frugal : public Base {
 public:
  void Verify(HRESULT answered) override {
    const bool done = SUCCEEDED(answered);
    EXPECT_EQ(this->Target(), done ? this->whole_ : this->kOld) << "a file is lost, or half of one";
    Base::Verify(answered);
    EXPECT_EQ(this->Target(), this->whole_);
  }
};

class FrugalSaver final : public Frugal<Saver> {
 public:
  void Verify(HRESULT answered) override {
    EXPECT_EQ(IsModified(), FAILED(answered));
    Frugal::Verify(answered);
    EXPECT_FALSE(IsModified());
  }
};

TEST(FilesWithoutMemory, SavingLosesNone) {
  RunRounds(Supply::kMemory, "saving", [] { return std::make_unique<FrugalSaver>(); });
}

TEST(FilesWithoutMemory, ExportingLosesNone) {
  RunRounds(Supply::kMemory, "exporting", [] { return std::make_unique<Frugal<Exporter>>(); });
}

class Opener final : public Reader {
 public:
  Opener() : Reader(&Cfg::GuardarComo, &Cfg::Abrir) { Do(config_, &Cfg::put_IDCfg, 7L); }

  void Verify(HRESULT answered) override {
    EXPECT_EQ(Read(config_, &Cfg::get_Modificado), was_modified_);
    const std::string after = ContentOf(config_, folder_);
    EXPECT_EQ(after == before_, FAILED(answered)) << "half of it is loaded";
    if (SUCCEEDED(answered)) {
      EXPECT_EQ(after, folder_.Bytes(u"source"));
    }
    Reader::Verify(answered);
    EXPECT_EQ(ContentOf(config_, folder_), folder_.Bytes(u"source"));
  }
};

TEST(FilesWithoutMemory, OpeningLoadsAllOrNothing) {
  RunRounds(Supply::kMemory, "opening", [] { return std::make_unique<Opener>(); });
}

class Importer final : public Reader {
 public:
  explicit Importer(bool modified) : Reader(&Cfg::Exportar, &Cfg::Importar) {
    if (!modified) return;
    Do(config_, &Cfg::put_Comentarios, u"changed");
    was_modified_ = VARIANT_TRUE;
  }

  bool MayAnswer(HRESULT answered) const override { return answered == kImportFailed; }

  void Verify(HRESULT answered) override {
    EXPECT_EQ(Read(config_, &Cfg::get_Modificado),
              FAILED(answered) ? was_modified_ : VARIANT_FALSE);
    Reader::Verify(answered);
    EXPECT_EQ(Read(config_, &Cfg::get_Marca), u"Siemens");
    EXPECT_EQ(Read(config_, &Cfg::get_Modificado), VARIANT_FALSE);
  }
};

TEST(FilesWithoutMemory, FailedImportLeavesTheChangeFlag) {
  for (const bool modified : {false, true}) {
    RunRounds(Supply::kMemory, modified ? "importing over changes" : "importing",
              [=] { return std::make_unique<Importer>(modified); });
  }
}

// One failure has one number, whatever went wrong: only where there is no memory for its words, the
// answer is that.
TEST(FilesWithoutMemory, FailuresKeepTheirNumbers) {
  const auto number_of = [](auto member, TextView path) {
    const auto config = TypicalConfig();
    Bstr name(path);
    faults::Arm(Supply::kMemory, {1});
    const HRESULT answered = (config.get()->*member)(name.get());
    EXPECT_GT(faults::Disarm(), 1);
    return FailureOf(answered);
  };
  const ScratchFolder folder;
  const Text path = folder.Path(u"a.txt");
  EXPECT_EQ(number_of(&Cfg::Exportar, path).result, kExportFailed);
  EXPECT_EQ(
      number_of(&Cfg::Importar, path),
      (Failure{
          kImportFailed, u"clsConfigConmut.Importar",
          u"Error de importación en la configuración.\r\nLa versión no es correcta.\r\n" + path}));
  EXPECT_EQ(number_of(&Cfg::GuardarComo, path), Plain(E_OUTOFMEMORY));
}

}  // namespace
}  // namespace conmuta::test
