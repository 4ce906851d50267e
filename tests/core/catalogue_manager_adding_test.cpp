// Adding a configuration file to the catalogue: a new model, or another version of one.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/manager_bench.h"

namespace conmuta {
namespace {

using test::ManagerBench;
using test::Notice;
using test::OutlineOf;
using test::Question;
using test::Shown;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr TextView kCopy = u"C:\\cat\\cfg.tmp";

class AddingAFile : public testing::Test, protected ManagerBench {
 protected:
  void ExpectUnchanged(const std::vector<std::string>& models) {
    EXPECT_EQ(Models(), models);
    EXPECT_EQ(Models(), FreshModels());
    ExpectSound();
  }
};

TEST_F(AddingAFile, AsksForItOnce) {
  Open();
  window->btnBuscar();
  ASSERT_EQ(view.dialogs.size(), 1u);
  EXPECT_EQ(Shown(view.dialogs[0].title),
            Shown(u"Buscar archivo de configuración de conmutadores ..."));
  EXPECT_EQ(view.dialogs[0].filter, u"Configuraciones (*.cfg)|*.cfg");
  EXPECT_EQ(view.dialogs[0].flags, 2103300u);
}

TEST_F(AddingAFile, CancelledDialogChangesNothing) {
  PutModel(1, "ACME", "X1");
  Open();
  Click(u"MOD1");
  const auto operations = failing.operations.size();
  window->btnBuscar();
  EXPECT_EQ(failing.operations.size(), operations);
  EXPECT_THAT(view.messages, IsEmpty());
  EXPECT_EQ(window->selected().key, u"MOD1");
  EXPECT_TRUE(window->model_commands_enabled());
}

TEST_F(AddingAFile, CurrentDirectoryIsTheHostsAgainAfterTheDialog) {
  Open();
  for (const bool cancelled : {true, false}) {
    files.current_directory = u"C:\\host";
    view.on_dialog = [&] { files.current_directory = u"D:\\browsed"; };
    view.chosen = cancelled ? std::nullopt : std::optional<Text>(u"\\\\server\\a.cfg");
    window->btnBuscar();
    EXPECT_EQ(files.current_directory, u"C:\\host");
  }
}

TEST_F(AddingAFile, NetworkPathsAreRefused) {
  Open();
  for (const TextView path : {u"\\\\server\\share\\new.cfg", u"\\\\", u"\\\\?\\D:\\new.cfg"}) {
    Put(path, "ACME", "X1");
    view.chosen = Text(path);
    window->btnBuscar();
    EXPECT_THAT(view.TakeMessages(),
                ElementsAre(Notice(
                    Text(path).append(u"\r\nEstablezca esta direccion como una unidad de red."),
                    u"Error")));
    EXPECT_FALSE(Has(kCopy));
  }
  ExpectUnchanged({"Conmutadores en Voralix  -  0 modelo(s) registrado(s)"});
}

TEST_F(AddingAFile, PathsWithOneBackslashAreNot) {
  Open();
  Put(u"\\new.cfg", "ACME", "X1");
  view.chosen = u"\\new.cfg";
  window->btnBuscar();
  EXPECT_EQ(Models().size(), 2u);
}

TEST_F(AddingAFile, FirstModelOfAllIsNumberOneOfBrandZero) {
  Open();
  Add("ACME", "X1", "the comments");
  EXPECT_THAT(OutlineOf(window->tree()),
              ElementsAre("Raiz + Conmutadores en Voralix  -  1 modelo(s) registrado(s)",
                          "  MRC0 + ACME", "    MOD1   X1"));
  EXPECT_EQ(BytesOf(ModelPath(1)), Bytes("ACME", "X1", "the comments"));
  EXPECT_EQ(window->selected().key, u"MOD1");
  EXPECT_EQ(window->etqArch(), ModelPath(1));
  EXPECT_EQ(window->txtInfo(), u"the comments");
  EXPECT_EQ(window->Frame1(), u"ACME, X1");
  EXPECT_TRUE(window->model_commands_enabled());
  EXPECT_THAT(view.messages, IsEmpty());
  EXPECT_EQ(installs, 0);
  ExpectSound();
  EXPECT_EQ(Models(), FreshModels());
}

TEST_F(AddingAFile, FileIsCopiedByteByByte) {
  Open();
  files.entries[Text(kAdded)] = {test::SwitchFile2().Bytes()};
  view.chosen = Text(kAdded);
  window->btnBuscar();
  EXPECT_EQ(BytesOf(ModelPath(1)), test::SwitchFile2().Bytes());
  EXPECT_TRUE(Has(kAdded));
}

TEST_F(AddingAFile, NumbersGoOnFromTheHighest) {
  PutModel(7, "ACME", "X1");
  PutModel(3, "ACME", "X2");
  Open();
  Add("BETA", "B1");
  Add("acme", "X3");
  EXPECT_THAT(OutlineOf(window->tree()),
              ElementsAre("Raiz + Conmutadores en Voralix  -  4 modelo(s) registrado(s)",
                          "  MRC0 + ACME", "    MOD7   X1", "    MOD3   X2", "    MOD9   X3",
                          "  MRC1 + BETA", "    MOD8   B1"));
  EXPECT_EQ(Models(), FreshModels());
  ExpectSound();
}

TEST_F(AddingAFile, NumbersAreNotUsedTwice) {
  PutModel(1, "ACME", "X1");
  Open();
  Add("ACME", "X2");
  window->btnEliminar();
  Add("ACME", "X3");
  EXPECT_EQ(window->selected().key, u"MOD3");
  EXPECT_FALSE(Has(ModelPath(2)));
}

TEST_F(AddingAFile, BrandThatWentComesBackUnderAnotherKey) {
  PutModel(1, "ACME", "X1");
  Open();
  Click(u"MOD1");
  window->btnEliminar();
  Add("ACME", "X1");
  EXPECT_THAT(OutlineOf(window->tree()),
              ElementsAre("Raiz + Conmutadores en Voralix  -  1 modelo(s) registrado(s)",
                          "  MRC1 + ACME", "    MOD2   X1"));
  ExpectSound();
}

// Files that are in the way but not listed are not looked at.
TEST_F(AddingAFile, UnlistedFileOfTheSameNumberIsOverwritten) {
  PutModel(1, "ACME", "X1");
  PutModel(2, "OLD", "OLD");
  files.entries[ModelPath(2)].attributes = 0;
  Open();
  Add("ACME", "X2");
  EXPECT_EQ(BytesOf(ModelPath(2)), Bytes("ACME", "X2"));
  EXPECT_EQ(Models(), FreshModels());
}

TEST_F(AddingAFile, NegativeNumbersDoNotMoveTheCounter) {
  for (const int number : {-5, -1, -2147483647 - 1}) {
    files.entries.clear();
    PutModel(number, "ACME", "X1");
    Open();
    Add("ACME", "X2");
    EXPECT_EQ(Shown(window->selected().key), "MOD1") << "after " << number;
    EXPECT_EQ(Models(), FreshModels());
    ExpectSound();
  }
}

TEST_F(AddingAFile, CounterStopsAtTheHighestNumber) {
  PutModel(2147483646, "ACME", "X1");
  Open();
  for (int round = 1; round <= 3; ++round) {
    EXPECT_NO_THROW(Add("ACME", "X" + std::to_string(1 + round))) << "round " << round;
    ExpectSound();
    EXPECT_TRUE(tree_key::IsModel(window->selected().key) || !window->model_commands_enabled());
  }
  EXPECT_EQ(Models(), FreshModels());
}

TEST_F(AddingAFile, HighestNumberOfAllLeavesTheCounterAlone) {
  PutModel(2147483647, "ACME", "X1");
  Open();
  Add("ACME", "X2");
  EXPECT_EQ(window->selected().key, u"MOD1");
  EXPECT_EQ(Models(), FreshModels());
}

TEST_F(AddingAFile, EarlierCopyIsReplaced) {
  Open();
  Put(kCopy, "OLD", "OLD");
  Add("ACME", "X1");
  EXPECT_EQ(BytesOf(kCopy), Bytes("ACME", "X1"));
  EXPECT_EQ(Models(), FreshModels());
}

TEST_F(AddingAFile, FileThatCannotBeReachedIsTold) {
  PutModel(1, "ACME", "X1");
  Open();
  Click(u"MOD1");
  const auto models = Models();
  view.chosen = u"D:\\missing.cfg";
  files.last_error = u"No se encontró.";
  window->btnBuscar();
  EXPECT_THAT(view.messages, ElementsAre(Notice(u"No es posible acceder al archivo :  "
                                                u"D:\\missing.cfg\r\nNo se encontró.",
                                                u"Error")));
  ExpectUnchanged(models);
  EXPECT_EQ(window->selected().key, u"MOD1");
  EXPECT_TRUE(window->model_commands_enabled());
}

TEST_F(AddingAFile, FileThatIsNoConfigurationIsTold) {
  PutModel(1, "ACME", "X1");
  Open();
  Click(u"MOD1");
  const auto models = Models();
  files.entries[u"D:\\rubbish.cfg"] = {"rubbish"};
  view.chosen = u"D:\\rubbish.cfg";
  window->btnBuscar();
  EXPECT_THAT(
      view.messages,
      ElementsAre(Notice(u"No es posible abrir al archivo de configuración, no se reconoce.\r\n"
                         u" Archivo :C:\\cat\\cfg.tmp",
                         u"Error")));
  ExpectUnchanged(models);
  // The model that was shown can still be worked on.
  EXPECT_EQ(window->selected().key, u"MOD1");
  window->btnEliminar();
  EXPECT_FALSE(Has(ModelPath(1)));
}

TEST_F(AddingAFile, FileWithoutTheArchiveAttributeIsTold) {
  Open();
  Put(kAdded, "ACME", "X1");
  files.entries[Text(kAdded)].attributes = 0;
  view.chosen = Text(kAdded);
  window->btnBuscar();
  EXPECT_THAT(view.messages, ElementsAre(Notice(u"No es posible encontrar el archivo deseado.\r\n"
                                                u" Archivo :C:\\cat\\cfg.tmp",
                                                u"Error")));
  ExpectUnchanged({"Conmutadores en Voralix  -  0 modelo(s) registrado(s)"});
}

TEST_F(AddingAFile, FileWithoutACaseIsPassedOverInSilence) {
  Open();
  test::SwitchFile file;
  file.caso = 0;
  files.entries[Text(kAdded)] = {file.Bytes()};
  view.chosen = Text(kAdded);
  window->btnBuscar();
  EXPECT_THAT(view.messages, IsEmpty());
  ExpectUnchanged({"Conmutadores en Voralix  -  0 modelo(s) registrado(s)"});
  ExpectCleared();
}

TEST_F(AddingAFile, CopyThatCannotBeMadeAddsNothing) {
  PutModel(1, "ACME", "X1");
  Open();
  const auto models = Models();
  files.entries[ModelPath(2)] = {"", kAttributeDirectory};
  Add("ACME", "X2");
  EXPECT_THAT(view.messages, IsEmpty());
  ExpectUnchanged(models);
  ExpectCleared();
  Add("ACME", "X3");
  EXPECT_EQ(window->selected().key, u"MOD3");
}

// A file from a CD or an archive is read-only, and so are its copies.
TEST_F(AddingAFile, ReadOnlyFilesCanBeAddedOneAfterTheOther) {
  Open();
  for (int round = 1; round <= 2; ++round) {
    Put(kAdded, "ACME", "X" + std::to_string(round));
    files.entries[Text(kAdded)].attributes = kAttributeArchive | kAttributeReadOnly;
    view.chosen = Text(kAdded);
    window->btnBuscar();
    EXPECT_THAT(view.TakeMessages(), IsEmpty());
    files.entries.erase(Text(kAdded));
  }
  EXPECT_EQ(Models().size(), 3u);
}

class UpdatingAModel : public AddingAFile {
 protected:
  UpdatingAModel() {
    PutModel(1, "ACME", "X1", "old");
    PutModel(4, "ACME", "X4", "old");
    Put(kDefault, "ACME", "X1", "old");
    Open();
    Click(u"Raiz");
  }
  // What the component writes: its own layout, which these files have anyhow.
  static constexpr TextView kQuestionText = u"¿Deseas actualizar el conmutador : ACME, X4 ?";
};

TEST_F(UpdatingAModel, AsksAndSavesOverIt) {
  const auto models = Models();
  view.on_message = [&] { EXPECT_EQ(BytesOf(ModelPath(4)), Bytes("ACME", "X4", "old")); };
  Add("ACME", "X4", "new");
  EXPECT_THAT(view.messages, ElementsAre(Question(kQuestionText)));
  EXPECT_EQ(BytesOf(ModelPath(4)), Bytes("ACME", "X4", "new"));
  ExpectUnchanged(models);
  EXPECT_EQ(window->selected().key, u"MOD4");
  EXPECT_EQ(window->txtInfo(), u"new");
  EXPECT_EQ(BytesOf(kDefault), Bytes("ACME", "X1", "old"));
  EXPECT_EQ(installs, 0);
}

TEST_F(UpdatingAModel, IsRecognisedInAnyLetterCase) {
  Add("acme", "x4", "new");
  EXPECT_THAT(view.messages,
              ElementsAre(Question(u"¿Deseas actualizar el conmutador : acme, x4 ?")));
  EXPECT_EQ(BytesOf(ModelPath(4)), Bytes("acme", "x4", "new"));
  EXPECT_EQ(Models().size(), 3u);
  ExpectSound();
}

TEST_F(UpdatingAModel, OrKeepsTheOldOne) {
  const auto models = Models();
  Click(u"MOD1");
  for (const int answer : {7, 2, 0}) {
    view.answer = answer;
    Add("ACME", "X4", "new");
    EXPECT_THAT(view.TakeMessages(), ElementsAre(Question(kQuestionText)));
    EXPECT_EQ(BytesOf(ModelPath(4)), Bytes("ACME", "X4", "old"));
    ExpectUnchanged(models);
    // What was selected is shown as before.
    EXPECT_EQ(window->selected().key, u"MOD1");
    EXPECT_EQ(window->etqArch(), ModelPath(1));
    EXPECT_EQ(window->txtInfo(), u"old");
  }
}

TEST_F(UpdatingAModel, DefaultSwitchFollows) {
  Add("ACME", "X1", "new");
  EXPECT_EQ(BytesOf(ModelPath(1)), Bytes("ACME", "X1", "new"));
  EXPECT_EQ(BytesOf(kDefault), Bytes("ACME", "X1", "new"));
  EXPECT_EQ(window->selected().key, u"MOD1");
  EXPECT_EQ(window->Frame1(), u">> ACME, X1 <<");
  EXPECT_EQ(window->default_caption(), u"ACME, X1");
  EXPECT_EQ(installs, 0);
}

TEST_F(UpdatingAModel, DefaultSwitchThatCannotBeDeletedStaysAsItIs) {
  files.entries[Text(kDefault)].attributes |= kAttributeReadOnly;
  Add("ACME", "X1", "new");
  EXPECT_EQ(BytesOf(ModelPath(1)), Bytes("ACME", "X1", "new"));
  EXPECT_EQ(BytesOf(kDefault), Bytes("ACME", "X1", "old"));
}

TEST_F(UpdatingAModel, DefaultSwitchThatWentIsNotMadeAnew) {
  files.entries.erase(Text(kDefault));
  Add("ACME", "X1", "new");
  EXPECT_FALSE(Has(kDefault));
}

TEST_F(UpdatingAModel, ReadOnlyModelStaysAsItIs) {
  files.entries[ModelPath(4)].attributes |= kAttributeReadOnly;
  const auto models = Models();
  Add("ACME", "X4", "new");
  EXPECT_THAT(view.messages, ElementsAre(Question(kQuestionText)));
  EXPECT_EQ(BytesOf(ModelPath(4)), Bytes("ACME", "X4", "old"));
  ExpectUnchanged(models);
  ExpectCleared();
}

TEST_F(UpdatingAModel, ModelThatWasJustAddedCanBeUpdated) {
  Add("ACME", "X9", "first");
  Add("ACME", "X9", "second");
  EXPECT_EQ(BytesOf(ModelPath(5)), Bytes("ACME", "X9", "second"));
  EXPECT_EQ(Models().size(), 4u);
  Add("ACME", "X10");
  EXPECT_EQ(window->selected().key, u"MOD6");
}

TEST_F(UpdatingAModel, VanishedFileIsWrittenAnew) {
  files.entries.erase(ModelPath(4));
  Add("ACME", "X4", "new");
  EXPECT_EQ(BytesOf(ModelPath(4)), Bytes("ACME", "X4", "new"));
  EXPECT_EQ(window->txtInfo(), u"new");
}

}  // namespace
}  // namespace conmuta
