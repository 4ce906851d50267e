// The manager window while it is being opened: what each setting brings about.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/manager_bench.h"

namespace conmuta {
namespace {

using test::ManagerBench;
using test::OutlineOf;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class ManagerOpening : public testing::Test, protected ManagerBench {
 protected:
  ManagerOpening() {
    PutModel(1, "ACME", "X1");
    PutModel(2, "ACME", "X2");
    Put(kDefault, "ACME", "X2");
  }
  void MakeNamed() {
    Make();
    window->Prefijo(u"cnm");
    window->Extension(u"cfg");
  }
  void ExpectMarked() {
    EXPECT_EQ(window->default_caption(), u"ACME, X2");
    EXPECT_EQ(window->default_tool_tip(), u"Conmutador predeterminado");
    EXPECT_TRUE(window->default_is_bold());
    EXPECT_EQ(window->selected().key, u"MOD2");
    ExpectSound();
  }
  void ExpectNotMarked() {
    ExpectNoDefaultCaption();
    EXPECT_FALSE(window->default_is_bold());
    ExpectSound();
  }
};

TEST_F(ManagerOpening, LoadedWindowIsEmpty) {
  Make();
  EXPECT_THAT(OutlineOf(window->tree()),
              ElementsAre("Raiz   Conmutadores en Voralix  -  0 modelo(s) registrado(s)"));
  EXPECT_EQ(&window->selected(), &window->tree().root());
  ExpectCleared();
  ExpectNotMarked();
  EXPECT_THAT(failing.operations, IsEmpty());
}

TEST_F(ManagerOpening, SettingsReadBack) {
  Make();
  window->Prefijo(u"cnm");
  window->Extension(u"cfg");
  window->Directorio(kFolder);
  window->ArchivoInstalar(kDefault);
  EXPECT_EQ(window->Prefijo(), u"cnm");
  EXPECT_EQ(window->Extension(), u"cfg");
  EXPECT_EQ(window->Directorio(), kFolder);
  EXPECT_EQ(window->ArchivoInstalar(), kDefault);
}

TEST_F(ManagerOpening, DirectoryEndsWithABackslash) {
  const struct {
    TextView given;
    TextView kept;
  } rows[] = {{u"C:\\cat", u"C:\\cat\\"},
              {u"C:\\cat\\", u"C:\\cat\\"},
              {u"", u"\\"},
              {u"C:/cat/", u"C:/cat/\\"},
              {u"C:\\cat\\\\", u"C:\\cat\\\\"}};
  for (const auto& row : rows) {
    MakeNamed();
    window->Directorio(row.given);
    EXPECT_EQ(window->Directorio(), row.kept);
  }
}

TEST_F(ManagerOpening, NamesAloneTouchNoFile) {
  MakeNamed();
  EXPECT_THAT(failing.operations, IsEmpty());
}

TEST_F(ManagerOpening, DirectoryScansAndTheDefaultFileMarks) {
  MakeNamed();
  window->Directorio(kFolder);
  EXPECT_THAT(Models(), SizeIs(3));
  EXPECT_EQ(&window->selected(), &window->tree().root());
  ExpectNotMarked();
  failing.FailAt(0);
  window->ArchivoInstalar(kDefault);
  ExpectMarked();
  for (const std::string& operation : failing.operations) {
    EXPECT_FALSE(operation.starts_with("list")) << "scanned again";
  }
}

TEST_F(ManagerOpening, DefaultFileFirstIsMarkedOnceTheDirectoryIsKnown) {
  MakeNamed();
  window->ArchivoInstalar(kDefault);
  EXPECT_THAT(failing.operations, ElementsAre("probe actual.cfg"));
  ExpectNotMarked();
  window->Directorio(kFolder);
  ExpectMarked();
}

TEST_F(ManagerOpening, DefaultFileScansACatalogueThatWasEmpty) {
  auto entries = std::exchange(files.entries, {});
  MakeNamed();
  window->Directorio(kFolder);
  EXPECT_THAT(Models(), SizeIs(1));
  files.entries = entries;
  window->ArchivoInstalar(kDefault);
  EXPECT_THAT(Models(), SizeIs(3));
  ExpectMarked();
}

TEST_F(ManagerOpening, MissingDefaultFileDoesNotScanAgain) {
  auto entries = std::exchange(files.entries, {});
  MakeNamed();
  window->Directorio(kFolder);
  files.entries = entries;
  files.entries.erase(Text(kDefault));
  window->ArchivoInstalar(kDefault);
  EXPECT_THAT(Models(), SizeIs(1));
  ExpectNotMarked();
}

TEST_F(ManagerOpening, BadDefaultFileIsPassedOver) {
  const std::pair<const char*, test::FakeFiles::Entry> entries[] = {
      {"empty", {""}},
      {"broken", {"rubbish"}},
      {"without the archive attribute", {Bytes("ACME", "X2"), 0}},
      {"a directory", {"", kAttributeDirectory | kAttributeArchive}},
      {"of a brand that is not listed", {Bytes("OTHER", "X2")}},
      {"of a model that is not listed", {Bytes("ACME", "X3")}},
  };
  for (const auto& [what, entry] : entries) {
    SCOPED_TRACE(what);
    files.entries[Text(kDefault)] = entry;
    Open();
    EXPECT_THAT(Models(), SizeIs(3));
    EXPECT_EQ(&window->selected(), &window->tree().root());
    ExpectNotMarked();
    window->btnDesinstalar();
    EXPECT_THAT(view.messages, IsEmpty());
  }
}

TEST_F(ManagerOpening, DefaultIsRecognisedByBrandAndModelInAnyLetterCase) {
  Put(kDefault, "acme", "x2", "another content");
  Open();
  // Its caption is that of the model in the catalogue.
  ExpectMarked();
}

TEST_F(ManagerOpening, MarkedModelIsShown) {
  PutModel(2, "ACME", "X2", "  the comments  ");
  Open();
  ExpectMarked();
  EXPECT_TRUE(window->tree().root().expanded);
  EXPECT_TRUE(window->selected().parent->expanded);
  EXPECT_EQ(window->etqArch(), ModelPath(2));
  EXPECT_EQ(window->txtInfo(), u"the comments");
  EXPECT_TRUE(window->model_commands_enabled());
  // The mark comes after the model was shown; it is framed from the next click on.
  EXPECT_EQ(window->Frame1(), u"ACME, X2");
  Click(u"MOD2");
  EXPECT_EQ(window->Frame1(), u">> ACME, X2 <<");
}

TEST_F(ManagerOpening, WindowRunsUntilItIsClosed) {
  Open();
  view.calls.clear();
  view.user = [](frmConmutador& running) { running.btnCerrar(); };
  window->Show();
  EXPECT_THAT(view.calls, ElementsAre("run", "close"));
}

}  // namespace
}  // namespace conmuta
