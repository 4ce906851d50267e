// Deleting a model from the catalogue.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/manager_bench.h"

namespace conmuta {
namespace {

using test::ManagerBench;
using test::OutlineOf;
using test::Question;
using testing::ElementsAre;
using testing::IsEmpty;

class DeletingAModel : public testing::Test, protected ManagerBench {
 protected:
  DeletingAModel() {
    PutModel(1, "ACME", "X1");
    PutModel(2, "ACME", "X2");
    PutModel(3, "ZETA", "Z1");
    Put(kDefault, "ACME", "X2");
    Open();
  }
};

TEST_F(DeletingAModel, AsksAndDeletesItsFile) {
  Click(u"MOD1");
  view.on_message = [&] { EXPECT_TRUE(Has(ModelPath(1))); };
  window->btnEliminar();
  EXPECT_THAT(view.messages,
              ElementsAre(Question(u"¿Esta seguro que desea eliminar el conmutador : ACME, X1 ?",
                                   u"Advertencia")));
  EXPECT_FALSE(Has(ModelPath(1)));
  EXPECT_THAT(Models(), ElementsAre("Conmutadores en Voralix  -  2 modelo(s) registrado(s)",
                                    "ACME/X2 MOD2", "ZETA/Z1 MOD3"));
  EXPECT_EQ(Models(), FreshModels());
  EXPECT_EQ(&window->selected(), &window->tree().root());
  ExpectCleared();
  ExpectSound();
  // The default switch is another one.
  EXPECT_EQ(installs, 0);
  EXPECT_TRUE(Has(kDefault));
  EXPECT_EQ(window->default_caption(), u"ACME, X2");
}

TEST_F(DeletingAModel, LastOneTakesItsBrandAlong) {
  Click(u"MOD3");
  window->btnEliminar();
  EXPECT_THAT(OutlineOf(window->tree()),
              ElementsAre("Raiz + Conmutadores en Voralix  -  2 modelo(s) registrado(s)",
                          "  MRC0 + ACME", "    MOD1   X1", "    MOD2   X2"));
  ExpectSound();
}

TEST_F(DeletingAModel, CatalogueMayBecomeEmpty) {
  for (const TextView key : {u"MOD1", u"MOD2", u"MOD3"}) {
    Click(key);
    window->btnEliminar();
    ExpectSound();
    EXPECT_EQ(Models(), FreshModels());
  }
  EXPECT_THAT(Models(), ElementsAre("Conmutadores en Voralix  -  0 modelo(s) registrado(s)"));
  window->btnContraer();
  window->btnEliminar();
  EXPECT_EQ(view.messages.size(), 3u);
}

TEST_F(DeletingAModel, DefaultSwitchGoesWithIt) {
  Click(u"MOD2");
  on_install = [&] {
    EXPECT_FALSE(Has(ModelPath(2)));
    EXPECT_FALSE(Has(kDefault));
  };
  window->btnEliminar();
  EXPECT_THAT(view.messages,
              ElementsAre(Question(
                  u"¿Esta seguro que desea eliminar el conmutador : ACME, X2 ?\r\n"
                  u"Este conmutador esta predeterminado, eliminarlo provocara que no halla "
                  u"conmutador predeterminado.",
                  u"Advertencia")));
  EXPECT_EQ(installs, 1);
  EXPECT_FALSE(Has(kDefault));
  EXPECT_EQ(Models(), FreshModels());
  ExpectSound();
}

TEST_F(DeletingAModel, DefaultSwitchThatWentIsNoLongerShown) {
  Click(u"MOD2");
  window->btnEliminar();
  ExpectNoDefaultCaption();
  EXPECT_FALSE(window->default_is_bold());
  view.messages.clear();
  window->btnDesinstalar();
  EXPECT_THAT(view.messages, IsEmpty());
}

TEST_F(DeletingAModel, DefaultFileThatCannotBeDeletedDoesNotStopIt) {
  files.entries[Text(kDefault)].attributes |= kAttributeReadOnly;
  Click(u"MOD2");
  window->btnEliminar();
  EXPECT_FALSE(Has(ModelPath(2)));
  EXPECT_TRUE(Has(kDefault));
  EXPECT_EQ(installs, 1);
  EXPECT_EQ(Models(), FreshModels());
}

TEST_F(DeletingAModel, IsLeftWhenTheUserDoesNotAgree) {
  Click(u"MOD2");
  for (const int answer : {7, 2, 0}) {
    view.answer = answer;
    window->btnEliminar();
    EXPECT_TRUE(Has(ModelPath(2)));
    EXPECT_TRUE(Has(kDefault));
    EXPECT_EQ(Models().size(), 4u);
    EXPECT_EQ(window->selected().key, u"MOD2");
    EXPECT_TRUE(window->model_commands_enabled());
  }
  EXPECT_EQ(installs, 0);
}

TEST_F(DeletingAModel, FileThatCannotBeDeletedStaysInTheTree) {
  files.entries[ModelPath(2)].attributes |= kAttributeReadOnly;
  Click(u"MOD2");
  window->btnEliminar();
  EXPECT_EQ(view.messages.size(), 1u);
  EXPECT_TRUE(Has(kDefault));
  EXPECT_EQ(installs, 0);
  EXPECT_EQ(window->selected().key, u"MOD2");
  EXPECT_EQ(window->default_caption(), u"ACME, X2");
  EXPECT_EQ(Models(), FreshModels());
  ExpectSound();
}

TEST_F(DeletingAModel, FileThatVanishedMeanwhileStaysInTheTree) {
  Click(u"MOD1");
  files.entries.erase(ModelPath(1));
  window->btnEliminar();
  EXPECT_EQ(Models().size(), 4u);
  EXPECT_EQ(window->selected().key, u"MOD1");
  ExpectSound();
}

TEST_F(DeletingAModel, NeedsAModel) {
  for (const TextView key : {u"Raiz", u"MRC0"}) {
    Click(key);
    window->btnEliminar();
  }
  EXPECT_THAT(view.messages, IsEmpty());
}

// Of two files for one model only the first is listed: the other takes its place next time.
TEST_F(DeletingAModel, SecondFileOfTheModelIsNotTouched) {
  PutModel(9, "ACME", "X1");
  Open();
  Click(u"MOD1");
  window->btnEliminar();
  EXPECT_TRUE(Has(ModelPath(9)));
  Open();
  EXPECT_EQ(Models()[1], "ACME/X1 MOD9");
}

}  // namespace
}  // namespace conmuta
