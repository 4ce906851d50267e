// Selecting nodes of the manager's tree, collapsing it, and the cable of a model.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/manager_bench.h"

namespace conmuta {
namespace {

using test::ManagerBench;
using test::Shown;
using testing::ElementsAre;
using testing::IsEmpty;

class ManagerSelection : public testing::Test, protected ManagerBench {
 protected:
  ManagerSelection() {
    PutModel(1, "ACME", "X1", "one");
    PutModel(2, "ACME", "X2", "two");
    PutModel(3, "ZETA", "Z1", " three\r\nlines ");
    Put(kDefault, "ACME", "X2");
    Open();
    view.calls.clear();
  }
};

TEST_F(ManagerSelection, ModelIsShownAndItsCommandsCanBePressed) {
  Click(u"MOD3");
  EXPECT_EQ(window->etqArch(), ModelPath(3));
  EXPECT_EQ(window->txtInfo(), u"three\r\nlines");
  EXPECT_EQ(window->Frame1(), u"ZETA, Z1");
  EXPECT_TRUE(window->model_commands_enabled());
  EXPECT_FALSE(window->default_is_bold());
  // The button goes on showing the default switch.
  EXPECT_EQ(window->default_caption(), u"ACME, X2");
  EXPECT_EQ(window->default_tool_tip(), u"Conmutador predeterminado");
  ExpectSound();
}

TEST_F(ManagerSelection, DefaultSwitchIsFramedAndBold) {
  Click(u"MOD3");
  Click(u"MOD2");
  EXPECT_EQ(window->Frame1(), u">> ACME, X2 <<");
  EXPECT_TRUE(window->default_is_bold());
  Click(u"MOD1");
  EXPECT_EQ(window->Frame1(), u"ACME, X1");
  EXPECT_FALSE(window->default_is_bold());
}

TEST_F(ManagerSelection, RootAndBrandsShowNothing) {
  for (const TextView key : {u"Raiz", u"MRC0", u"MRC1"}) {
    Click(u"MOD2");
    const int updates = view.updates;
    Click(key);
    ExpectCleared();
    EXPECT_EQ(Shown(window->selected().key), Shown(key));
    EXPECT_EQ(view.updates, updates + 1);
    // Boldness changes where a model is shown only.
    EXPECT_TRUE(window->default_is_bold());
  }
}

TEST_F(ManagerSelection, UnknownKeysAreIgnored) {
  Click(u"MOD1");
  for (const TextView key : {u"MOD99", u"", u"MOD", u"mod1", u"MRC9"}) {
    window->NodeClick(key);
    window->NodeCollapsed(key);
    window->NodeExpanded(key);
    EXPECT_EQ(window->selected().key, u"MOD1");
    EXPECT_TRUE(window->model_commands_enabled());
  }
}

TEST_F(ManagerSelection, VanishedFileShowsNothing) {
  files.entries.erase(ModelPath(3));
  Click(u"MOD3");
  ExpectCleared();
  EXPECT_THAT(view.messages, IsEmpty());
  EXPECT_EQ(window->selected().key, u"MOD3");
}

TEST_F(ManagerSelection, BrokenFileShowsWhy) {
  files.entries[ModelPath(3)] = {"rubbish"};
  Click(u"MOD3");
  EXPECT_EQ(Shown(window->txtInfo()),
            Shown(u"<No es posible abrir al archivo de configuración, no se reconoce.\r\n"
                  u" Archivo :C:\\cat\\cnm3.cfg>"));
  EXPECT_EQ(window->etqArch(), u"");
  EXPECT_EQ(window->Frame1(), u"");
  EXPECT_FALSE(window->model_commands_enabled());
  EXPECT_THAT(view.messages, IsEmpty());
}

TEST_F(ManagerSelection, FileWithoutTheArchiveAttributeShowsWhy) {
  files.entries[ModelPath(3)].attributes = 0;
  Click(u"MOD3");
  EXPECT_EQ(Shown(window->txtInfo()),
            "<No es posible encontrar el archivo deseado.{000D}{000A}"
            " Archivo :C:\\cat\\cnm3.cfg>");
  EXPECT_FALSE(window->model_commands_enabled());
}

TEST_F(ManagerSelection, FileChangedMeanwhileIsShownAsItIsNow) {
  PutModel(3, "NEW", "N1", "fresh");
  Click(u"MOD3");
  EXPECT_EQ(window->Frame1(), u"NEW, N1");
  EXPECT_EQ(window->txtInfo(), u"fresh");
}

TEST_F(ManagerSelection, CollapsingAllMovesTheSelectionToItsBrand) {
  Expand(u"MRC1");
  Click(u"MOD2");
  window->btnContraer();
  EXPECT_EQ(window->selected().key, u"MRC0");
  ExpectCleared();
  for (const auto& [text, brand] : window->tree().root().children) EXPECT_FALSE(brand->expanded);
  EXPECT_TRUE(window->tree().root().expanded);
  ExpectSound();
}

TEST_F(ManagerSelection, CollapsingAllKeepsASelectionThatStaysVisible) {
  for (const TextView key : {u"Raiz", u"MRC0", u"MRC1"}) {
    Expand(u"MRC0");
    Expand(u"MRC1");
    Click(key);
    window->btnContraer();
    EXPECT_EQ(Shown(window->selected().key), Shown(key));
    ExpectSound();
  }
}

TEST_F(ManagerSelection, CollapsingAnEmptyTreeDoesNothing) {
  files.entries.clear();
  Open();
  failing.FailAt(0);
  const int updates = view.updates;
  window->btnContraer();
  EXPECT_EQ(view.updates, updates);
  EXPECT_THAT(failing.operations, IsEmpty());
}

TEST_F(ManagerSelection, CollapsedNodeTakesTheSelectionThatItHides) {
  const struct {
    TextView selected;
    TextView collapsed;
    TextView afterwards;
  } rows[] = {
      {u"MOD1", u"MRC0", u"MRC0"}, {u"MOD1", u"Raiz", u"Raiz"}, {u"MRC0", u"Raiz", u"Raiz"},
      {u"MRC0", u"MRC0", u"MRC0"}, {u"MOD3", u"MRC0", u"MOD3"}, {u"Raiz", u"MRC0", u"Raiz"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(Shown(row.selected) + " in " + Shown(row.collapsed));
    Expand(u"Raiz");
    Expand(u"MRC0");
    Click(row.selected);
    Collapse(row.collapsed);
    EXPECT_EQ(Shown(window->selected().key), Shown(row.afterwards));
    EXPECT_EQ(window->model_commands_enabled(), row.afterwards == u"MOD3");
    ExpectSound();
  }
}

TEST_F(ManagerSelection, CollapsingShowsTheSelectedModelAnew) {
  Click(u"MOD3");
  PutModel(3, "ZETA", "Z1", "changed");
  Collapse(u"MRC0");
  EXPECT_EQ(window->txtInfo(), u"changed");
}

TEST_F(ManagerSelection, CableOfTheSelectedModelIsOpened) {
  Click(u"MOD3");
  window->btnPuertos();
  EXPECT_THAT(view.calls, ElementsAre("cable of ZETA, Z1"));
}

TEST_F(ManagerSelection, WithoutAModelThereIsNoCable) {
  for (const TextView key : {u"Raiz", u"MRC0"}) {
    Click(key);
    window->btnPuertos();
  }
  files.entries[ModelPath(3)] = {"rubbish"};
  Click(u"MOD3");
  window->btnPuertos();
  EXPECT_THAT(view.calls, IsEmpty());
}

}  // namespace
}  // namespace conmuta
