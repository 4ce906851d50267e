// Files that cannot be reached, read, written or deleted: every call that the DLL makes to the file
// system fails in turn, in each of the ways that disks and networks know.
#include <gtest/gtest.h>

#include <algorithm>

#include "files_host.h"
#include "window_hosts.h"

namespace conmuta::test {
namespace {

// Calls of the last round with that name.
long CallsOf(const std::string& name) {
  const std::string calls = " " + faults::Calls() + " ";
  long count = 0;
  for (std::size_t at = calls.find(" " + name + " "); at != std::string::npos;
       at = calls.find(" " + name + " ", at + 1)) {
    ++count;
  }
  return count;
}

// Whether the call that failed is one without which nothing is written for good.
bool WritingFailed() {
  const std::string failed = faults::FirstFailed();
  return failed == "CreateFileW" || failed == "WriteFile" || failed == "FlushFileBuffers" ||
         failed == "WritePrivateProfileStringA";
}

// What fails once does not keep half a file from being deleted.
bool CanDelete() {
  return !faults::Current().from_there_on;
}

class CarefulSaver final : public Saver {
 public:
  void Verify(HRESULT answered) override {
    const auto left = Target();
    EXPECT_TRUE(FAILED(answered) || !WritingFailed()) << "it is not on the disk";
    EXPECT_EQ(IsModified(), FAILED(answered));
    if (SUCCEEDED(answered)) {
      EXPECT_EQ(left, whole_);
    } else if (CanDelete()) {
      EXPECT_TRUE(!left || left == kOld) << "half of a file is left";
    }
    Saver::Verify(answered);
    EXPECT_EQ(Target(), whole_);
  }
};

TEST(FailingFiles, SavingLeavesNoHalfFile) {
  RunFileRounds("saving", [] { return std::make_unique<CarefulSaver>(); });
}

// Other programs may have read what was written before the failure: it stays.
class CarefulExporter final : public Exporter {
 public:
  void Verify(HRESULT answered) override {
    const std::string failed = CanDelete() ? faults::FirstFailed() : "";
    const auto left = Target();
    // Somebody who looks at the file when all is written only keeps us from waiting for the disk.
    const bool looked_at = faults::FirstFailed() == "CreateFileW" &&
                           faults::Current().error == ERROR_SHARING_VIOLATION;
    EXPECT_TRUE(FAILED(answered) || looked_at || !WritingFailed()) << "it is not on the disk";
    if (failed == "DeleteFileW") {  // the values go into what is there
      EXPECT_TRUE(left && left->starts_with(kOld) && left->ends_with(whole_));
    } else if (SUCCEEDED(answered)) {
      EXPECT_EQ(left, whole_);
    } else if (failed == "GetFullPathNameW") {
      EXPECT_EQ(left, kOld);
    } else if (failed == "WritePrivateProfileStringA") {
      const auto written = CallsOf("WritePrivateProfileStringA") - 1;
      EXPECT_EQ(left ? std::count(left->begin(), left->end(), '=') : 0, written);
    }
    Exporter::Verify(answered);
  }
};

TEST(FailingFiles, ExportingStopsAtTheFirstFailureAndLeavesTheValuesBefore) {
  RunFileRounds("exporting", [] { return std::make_unique<CarefulExporter>(); });
}

// A path that the code page lacks goes by way of a temporary file.
class FarExporter final : public FilesHost {
 public:
  FarExporter() { EXPECT_EQ(Act(), S_OK); }

  HRESULT Act() override { return config_->Exportar(path_.get()); }
  bool MayAnswer(HRESULT answered) const override { return answered == kExportFailed; }

 private:
  const Bstr path_{folder_.Path(u"\u96FB\u8A71.txt")};
};

TEST(FailingFiles, ExportingByWayOfATemporaryFile) {
  RunFileRounds("exporting", [] { return std::make_unique<FarExporter>(); });
}

class CarefulOpener final : public Reader {
 public:
  CarefulOpener() : Reader(&Cfg::GuardarComo, &Cfg::Abrir) {}

  bool MayAnswer(HRESULT answered) const override {
    return answered == (faults::FirstFailed() == "GetFileAttributesW" ? kNotFound : kCannotOpen);
  }
  void Verify(HRESULT answered) override {
    EXPECT_EQ(ContentOf(config_, folder_) == before_, FAILED(answered));
    Reader::Verify(answered);
    EXPECT_EQ(ContentOf(config_, folder_), folder_.Bytes(u"source"));
  }
};

TEST(FailingFiles, OpeningLoadsAllOrNothing) {
  RunFileRounds("opening", [] { return std::make_unique<CarefulOpener>(); });
}

class CarefulImporter final : public Reader {
 public:
  CarefulImporter() : Reader(&Cfg::Exportar, &Cfg::Importar) {}

  bool MayAnswer(HRESULT answered) const override { return answered == kImportFailed; }
  void Verify(HRESULT answered) override {
    EXPECT_EQ(Read(config_, &Cfg::get_Modificado),
              FAILED(answered) ? was_modified_ : VARIANT_FALSE);
    Reader::Verify(answered);
    EXPECT_EQ(Read(config_, &Cfg::get_Marca), u"Siemens");
  }
};

TEST(FailingFiles, FailedImportLeavesTheChangeFlag) {
  RunFileRounds("importing", [] { return std::make_unique<CarefulImporter>(); });
}

TEST(FailingFiles, ManagerLeavesNoHalfFile) {
  RunFileRounds("manager", [] { return std::make_unique<ManagerHost>(); });
}

}  // namespace
}  // namespace conmuta::test
