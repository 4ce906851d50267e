// A host that saves, opens, exports and imports, and keeps watch over its files.
#pragma once

#include <memory>
#include <string>

#include "rounds.h"
#include "saved_files.h"

namespace conmuta::test {

class FilesHost : public Host {
 public:
  FilesHost() : config_(TypicalConfig()) {}

 protected:
  const ScratchFolder folder_;
  const ComPtr<Cfg> config_;
};

// Writes over an older file, which was made to be told apart.
class Writer : public FilesHost {
 public:
  using Member = HRESULT (STDMETHODCALLTYPE Cfg::*)(BSTR);

  Writer(Member member, HRESULT failure) : member_(member), failure_(failure) {
    whole_ = Write(u"whole");
    folder_.Write(u"target", kOld);
    Do(config_, &Cfg::put_Comentarios, u"changed");
    Do(config_, &Cfg::put_Comentarios, u"");
  }

  HRESULT Act() override { return (config_.get()->*member_)(target_.get()); }
  bool MayAnswer(HRESULT answered) const override { return answered == failure_; }

 protected:
  static constexpr char kOld[] = "old";

  std::string Write(TextView name) {
    EXPECT_EQ((config_.get()->*member_)(Bstr(folder_.Path(name)).get()), S_OK);
    return folder_.Bytes(name);
  }
  std::optional<std::string> Target() const { return FileIn(folder_, u"target"); }
  bool IsModified() const { return Read(config_, &Cfg::get_Modificado) != VARIANT_FALSE; }

  std::string whole_;

 private:
  const Member member_;
  const HRESULT failure_;
  const Bstr target_{folder_.Path(u"target")};
};

class Saver : public Writer {
 public:
  Saver() : Writer(&Cfg::GuardarComo, kCannotWrite) {}
};

class Exporter : public Writer {
 public:
  Exporter() : Writer(&Cfg::Exportar, kExportFailed) {}
};

// Reads a file over what it has.
class Reader : public FilesHost {
 public:
  using Member = Writer::Member;

  Reader(Member writes, Member reads) : reads_(reads) {
    folder_.Write(u"source", BytesOf(writes));
    before_ = ContentOf(config_, folder_);
    Do(config_, &Cfg::put_IDCfg, 7L);
    Do(config_, &Cfg::put_PinIZQ, short{1});
    was_modified_ = Read(config_, &Cfg::get_Modificado);
  }

  HRESULT Act() override { return (config_.get()->*reads_)(path_.get()); }

 protected:
  VARIANT_BOOL was_modified_ = VARIANT_FALSE;
  std::string before_;

 private:
  // Of a configuration that has nothing in common with ours.
  const std::string& BytesOf(Member writes) const {
    static std::string bytes[2];
    std::string& known = bytes[writes == &Cfg::Exportar];
    if (known.empty()) {
      const auto other = NamedConfig(u"Siemens", u"HiPath 3800");
      Item(other, 20, 30, 4, 3);
      Item(other, 40, 50, 6, 2);
      Constant(other, 9, 5, u"ENT");
      EXPECT_EQ((other.get()->*writes)(Bstr(folder_.Path(u"source")).get()), S_OK);
      known = folder_.Bytes(u"source");
    }
    return known;
  }

  const Member reads_;
  const Bstr path_{folder_.Path(u"source")};
};

}  // namespace conmuta::test
