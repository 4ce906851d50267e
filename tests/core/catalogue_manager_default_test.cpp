// Making a model the default switch, and removing the default switch.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/manager_bench.h"

namespace conmuta {
namespace {

using test::ManagerBench;
using test::Notice;
using test::Question;
using test::Shown;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr TextView kInstalled = u"Se ha predeterminado exitosamente el conmutador \r\nACME, X1.";

class DefaultSwitch : public testing::Test, protected ManagerBench {
 protected:
  DefaultSwitch() {
    PutModel(1, "ACME", "X1");
    PutModel(2, "ACME", "X2");
    Put(kDefault, "ACME", "X2", "the old one");
  }
  void OpenAt(TextView key, TextView installed = kDefault) {
    Open(installed);
    Click(key);
  }
};

TEST_F(DefaultSwitch, InstallingCopiesTheSelectedFile) {
  OpenAt(u"MOD1");
  bool told = false;
  on_install = [&] {
    told = true;
    EXPECT_EQ(BytesOf(kDefault), Bytes("ACME", "X1"));
    EXPECT_EQ(window->default_caption(), u"ACME, X1");
    EXPECT_THAT(view.messages, IsEmpty()) << "told before the message";
  };
  window->btnInstalar();
  EXPECT_TRUE(told);
  EXPECT_EQ(installs, 1);
  EXPECT_THAT(view.messages, ElementsAre(Notice(kInstalled)));
  EXPECT_EQ(window->default_caption(), u"ACME, X1");
  EXPECT_EQ(window->default_tool_tip(), u"Conmutador predeterminado");
  EXPECT_TRUE(window->default_is_bold());
  EXPECT_EQ(window->selected().key, u"MOD1");
  Click(u"MOD2");
  EXPECT_EQ(window->Frame1(), u"ACME, X2");
  EXPECT_FALSE(window->default_is_bold());
  Click(u"MOD1");
  EXPECT_EQ(window->Frame1(), u">> ACME, X1 <<");
  ExpectSound();
}

TEST_F(DefaultSwitch, FirstOneIsInstalledWhereThereWasNone) {
  files.entries.erase(Text(kDefault));
  OpenAt(u"MOD1");
  ExpectNoDefaultCaption();
  window->btnInstalar();
  EXPECT_EQ(BytesOf(kDefault), Bytes("ACME", "X1"));
  EXPECT_THAT(view.messages, ElementsAre(Notice(kInstalled)));
  EXPECT_EQ(installs, 1);
}

TEST_F(DefaultSwitch, InstallingItAgainTellsAgain) {
  OpenAt(u"MOD1");
  window->btnInstalar();
  window->btnInstalar();
  EXPECT_EQ(installs, 2);
  EXPECT_THAT(view.messages, ElementsAre(Notice(kInstalled), Notice(kInstalled)));
}

TEST_F(DefaultSwitch, NothingIsInstalledWithoutAModel) {
  OpenAt(u"MRC0");
  window->btnInstalar();
  Click(u"Raiz");
  window->btnInstalar();
  EXPECT_THAT(view.messages, IsEmpty());
  EXPECT_EQ(installs, 0);
  EXPECT_EQ(BytesOf(kDefault), Bytes("ACME", "X2", "the old one"));
}

TEST_F(DefaultSwitch, NothingIsInstalledWithoutAPlaceForIt) {
  OpenAt(u"MOD1", u"");
  window->btnInstalar();
  EXPECT_THAT(view.messages,
              ElementsAre(Notice(u"No se ha determinado el archivo que se usará para "
                                 u"predeterminar el conmutador a usar.",
                                 u"Error")));
  EXPECT_EQ(installs, 0);
}

TEST_F(DefaultSwitch, CatalogueFileIsNotInstalledOntoItself) {
  for (const TextView path : {u"C:\\cat\\cnm1.cfg", u"c:\\CAT\\CNM1.Cfg"}) {
    OpenAt(u"MOD1", path);
    const auto before = files.entries.size();
    window->btnInstalar();
    EXPECT_THAT(view.TakeMessages(),
                ElementsAre(Notice(u"Ha ocurrido un conflicto de nombres de archivos.", u"Error")));
    EXPECT_EQ(installs, 0);
    EXPECT_EQ(files.entries.size(), before);
    EXPECT_EQ(BytesOf(ModelPath(1)), Bytes("ACME", "X1"));
  }
}

TEST_F(DefaultSwitch, VanishedFileIsNotInstalled) {
  OpenAt(u"MOD1");
  files.entries.erase(ModelPath(1));
  window->btnInstalar();
  EXPECT_THAT(view.messages, IsEmpty());
  EXPECT_EQ(installs, 0);
  EXPECT_EQ(BytesOf(kDefault), Bytes("ACME", "X2", "the old one"));
}

TEST_F(DefaultSwitch, SuccessIsToldWhateverBecameOfTheFiles) {
  OpenAt(u"MOD1");
  files.fail_remove = true;
  files.fail_copy = true;
  window->btnInstalar();
  // The old default is still there and is marked again; it is the one that is named.
  EXPECT_EQ(BytesOf(kDefault), Bytes("ACME", "X2", "the old one"));
  EXPECT_EQ(installs, 1);
  EXPECT_EQ(window->selected().key, u"MOD2");
  EXPECT_EQ(window->default_caption(), u"ACME, X2");
  EXPECT_THAT(
      view.messages,
      ElementsAre(Notice(u"Se ha predeterminado exitosamente el conmutador \r\nACME, X2.")));
  ExpectSound();
}

TEST_F(DefaultSwitch, FailedCopyLeavesNoDefault) {
  OpenAt(u"MOD1");
  files.fail_copy = true;
  window->btnInstalar();
  EXPECT_FALSE(Has(kDefault));
  EXPECT_EQ(installs, 1);
  ExpectNoDefaultCaption();
  EXPECT_THAT(view.messages, ElementsAre(Notice(kInstalled)));
  ExpectSound();
}

TEST_F(DefaultSwitch, IsRemovedWhenTheUserAgrees) {
  OpenAt(u"MOD2");
  window->btnDesinstalar();
  EXPECT_THAT(view.messages,
              ElementsAre(Question(u"¿Deseas quitar el conmutador predeterminado 'ACME, X2'?"),
                          Notice(u"Se ha quitado el conmutador predeterminado exitosamente.")));
  EXPECT_FALSE(Has(kDefault));
  EXPECT_TRUE(Has(ModelPath(2)));
  ExpectNoDefaultCaption();
  EXPECT_EQ(window->default_tool_tip(), test::kNoDefaultSwitch);
  EXPECT_EQ(window->Frame1(), u"ACME, X2") << "no mark of it stays";
  EXPECT_FALSE(window->default_is_bold());
  EXPECT_EQ(installs, 0);
  Click(u"MOD2");
  EXPECT_EQ(window->Frame1(), u"ACME, X2");
  EXPECT_FALSE(window->default_is_bold());
  view.messages.clear();
  window->btnDesinstalar();
  EXPECT_THAT(view.messages, IsEmpty()) << "there is none any more";
}

TEST_F(DefaultSwitch, IsRemovedFromWhereverTheSelectionIs) {
  OpenAt(u"MOD1");
  window->btnDesinstalar();
  EXPECT_EQ(window->Frame1(), u"ACME, X1");
  EXPECT_FALSE(Has(kDefault));
  EXPECT_EQ(window->selected().key, u"MOD1");
  EXPECT_TRUE(window->model_commands_enabled());
}

TEST_F(DefaultSwitch, IsKeptWhenTheUserDoesNotAgree) {
  OpenAt(u"MOD2");
  for (const int answer : {7, 2, 0}) {
    view.answer = answer;
    window->btnDesinstalar();
    EXPECT_EQ(view.TakeMessages().size(), 1u);
    EXPECT_TRUE(Has(kDefault));
    EXPECT_EQ(window->default_caption(), u"ACME, X2");
    Click(u"MOD2");
    EXPECT_EQ(window->Frame1(), u">> ACME, X2 <<");
  }
}

TEST_F(DefaultSwitch, FailedRemovalShowsTheSystemsWordsAndIsForgottenAllTheSame) {
  OpenAt(u"MOD2");
  files.fail_remove = true;
  files.last_error = u"El archivo está en uso.";
  window->btnDesinstalar();
  EXPECT_THAT(view.messages,
              ElementsAre(Question(u"¿Deseas quitar el conmutador predeterminado 'ACME, X2'?"),
                          Notice(u"El archivo está en uso.")));
  EXPECT_TRUE(Has(kDefault));
  ExpectNoDefaultCaption();
  Click(u"MOD2");
  EXPECT_EQ(window->Frame1(), u"ACME, X2");
}

TEST_F(DefaultSwitch, AlreadyGoneItIsForgottenInSilence) {
  OpenAt(u"MOD2");
  files.entries.erase(Text(kDefault));
  window->btnDesinstalar();
  EXPECT_THAT(view.messages,
              ElementsAre(Question(u"¿Deseas quitar el conmutador predeterminado 'ACME, X2'?")));
  ExpectNoDefaultCaption();
  window->btnDesinstalar();
  EXPECT_EQ(view.messages.size(), 1u);
}

TEST_F(DefaultSwitch, WithoutAPlaceForItNothingIsForgotten) {
  OpenAt(u"MOD2");
  window->ArchivoInstalar(u"");
  window->btnDesinstalar();
  window->btnDesinstalar();
  EXPECT_EQ(view.messages.size(), 2u);
  EXPECT_TRUE(Has(kDefault));
  EXPECT_EQ(window->default_caption(), u"ACME, X2");
}

TEST_F(DefaultSwitch, CanBeInstalledAgainAfterItsRemoval) {
  OpenAt(u"MOD2");
  window->btnDesinstalar();
  Click(u"MOD1");
  window->btnInstalar();
  EXPECT_EQ(window->default_caption(), u"ACME, X1");
  EXPECT_EQ(BytesOf(kDefault), Bytes("ACME", "X1"));
}

}  // namespace
}  // namespace conmuta
