#include "taller/document.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "layouts/layout_config.h"
#include "layouts/read_layout.h"
#include "layouts/write_layout.h"
#include "platform/platform.h"
#include "support/random_layout.h"
#include "support/source_files.h"
#include "support/temporary_folder.h"
#include "taller/changes.h"
#include "taller/map_disk.h"

namespace conmuta::taller {
namespace {

using test::Constant;
using test::Item;
using test::Model;

const std::filesystem::path kSwitches = std::filesystem::path(CONMUTA_SOURCES) / "switches";

Messages Type(Document& document, const layouts::LayoutChange& change) {
  return document.Apply(change, Document::As::kTyping);
}

TEST(Document, ANewOneCanBeWorkedOnAtOnce) {
  Document document;
  EXPECT_FALSE(document.IsModified());
  EXPECT_EQ(document.Title(), u"Sin marca, Sin modelo");
  EXPECT_EQ(document.Apply(Item(emParamFechaMes, 1, 2)), Messages());
  EXPECT_EQ(document.Title(), u"Sin marca, Sin modelo *");
  ASSERT_EQ(document.layout().items.size(), 1u);
  EXPECT_EQ(document.layout().items[0].Tam, 2);
}

TEST(Document, APersonsTextKeepsCommentsAndOrder) {
  test::MapDisk disk;
  const std::string toml = test::ReadWhole(kSwitches / "panasonic-kx" / "layout.toml");
  disk.files["layout.toml"] = toml;
  Document document;
  ASSERT_EQ(document.Open(disk, "layout.toml"), Messages());
  EXPECT_EQ(document.Apply(Item(emParamFechaMes, 3, 2)), Messages());
  ASSERT_EQ(document.Save(disk), Messages());
  std::string wanted = toml;
  const std::string old = "FechaMes = { pos = 1,";
  wanted.replace(wanted.find(old), old.size(), "FechaMes = { pos = 3,");
  EXPECT_EQ(disk.files["layout.toml"], wanted);
}

TEST(Document, WhatCannotBeChangesNothingAndIsSaid) {
  Document document;
  const std::string before = document.toml();
  const Messages far = document.Apply(Item(emParamFechaMes, 250, 20));
  ASSERT_EQ(far.size(), 1u);
  EXPECT_EQ(far[0].item, u"FechaMes");
  EXPECT_NE(far[0].text.find(u"250 a 269"), Text::npos);
  const Messages empty = Type(document, Model(u""));
  ASSERT_EQ(empty.size(), 1u);
  EXPECT_EQ(empty[0].item, u"modelo");
  EXPECT_EQ(document.toml(), before);
  EXPECT_FALSE(document.IsModified());
  EXPECT_FALSE(document.CanUndo());
}

TEST(Document, SeveralChangesAreOneStepOrNone) {
  Document document;
  const std::string before = document.toml();
  const layouts::LayoutChange good[] = {Item(emParamFechaMes, 1, 2), Item(emParamFechaDia, 4, 2)};
  EXPECT_EQ(document.Apply(good, u"Fecha"), Messages());
  EXPECT_EQ(document.layout().items.size(), 2u);
  EXPECT_EQ(document.UndoName(), u"Fecha");
  const std::string dated = document.toml();
  const layouts::LayoutChange bad[] = {Item(emParamFechaMes, 9, 2), Item(emParamFechaDia, 255, 2)};
  EXPECT_FALSE(document.Apply(bad, u"Fecha").empty());
  EXPECT_EQ(document.toml(), dated);
  document.Undo();
  EXPECT_EQ(document.toml(), before);
}

TEST(Document, TypingIntoOneFieldIsOneStep) {
  Document document;
  const std::string before = document.toml();
  for (const TextView typed : {u"K", u"KX", u"KX-"})
    EXPECT_EQ(Type(document, Model(typed)), Messages());
  EXPECT_EQ(Type(document, Item(emParamFechaMes, 1, 2)), Messages());
  EXPECT_EQ(document.UndoName(), u"FechaMes");
  document.Undo();
  EXPECT_EQ(document.layout().header.Modelo.Read(), u"KX-");
  document.Undo();
  EXPECT_EQ(document.toml(), before);
  EXPECT_FALSE(document.CanUndo());
}

TEST(Document, TypingGoesOnAsAnotherStepAfterTheFieldWasLeftOrSaved) {
  test::MapDisk disk;
  Document document;
  EXPECT_EQ(Type(document, Model(u"a")), Messages());
  document.EndTyping();
  EXPECT_EQ(Type(document, Model(u"ab")), Messages());
  EXPECT_EQ(document.SaveAs(disk, "a.toml", Format::kLayout), Messages());
  EXPECT_EQ(Type(document, Model(u"abc")), Messages());
  EXPECT_TRUE(document.IsModified());
  document.Undo();
  EXPECT_FALSE(document.IsModified());
  document.Undo();
  EXPECT_EQ(document.layout().header.Modelo.Read(), u"a");
}

TEST(Document, IsNotModifiedWhereUndoingComesBackToWhatWasSaved) {
  test::MapDisk disk;
  Document document;
  EXPECT_EQ(document.Apply(Model(u"a")), Messages());
  EXPECT_EQ(document.SaveAs(disk, "a.toml", Format::kLayout), Messages());
  EXPECT_FALSE(document.IsModified());
  document.Undo();
  EXPECT_TRUE(document.IsModified());
  document.Redo();
  EXPECT_FALSE(document.IsModified());
  document.Undo();
  EXPECT_EQ(document.Apply(Model(u"b")), Messages());
  document.Undo();
  EXPECT_TRUE(document.IsModified()) << "what was saved cannot be come back to any more";
}

TEST(Document, AFailingDiskKeepsItAndSaysSo) {
  test::MapDisk disk;
  Document document;
  EXPECT_EQ(document.Apply(Model(u"a")), Messages());
  EXPECT_EQ(document.SaveAs(disk, "a.toml", Format::kLayout), Messages());
  EXPECT_EQ(document.Apply(Model(u"b")), Messages());
  disk.fails = true;
  const Messages said = document.SaveAs(disk, "b.cfg", Format::kConfiguration);
  ASSERT_EQ(said.size(), 1u);
  EXPECT_EQ(said[0].text, u"el disco está lleno");
  EXPECT_TRUE(document.IsModified());
  EXPECT_EQ(document.path(), "a.toml");
  EXPECT_EQ(document.format(), Format::kLayout);
  EXPECT_EQ(document.layout().header.Modelo.Read(), u"b");
}

TEST(Document, AFileThatIsNoLayoutLeavesItAsItIs) {
  test::MapDisk disk;
  test::Random random(3);
  Document document;
  EXPECT_EQ(document.Apply(Model(u"a")), Messages());
  const std::string before = document.toml();
  for (int round = 0; round < 200; ++round) {
    std::string bytes;
    for (int left = random.Below(900); left > 0; --left) {
      bytes += static_cast<char>(random.Below(256));
    }
    disk.files["x.cfg"] = disk.files["x.toml"] = bytes;
    EXPECT_FALSE(document.Open(disk, "x.cfg").empty());
    EXPECT_FALSE(document.Open(disk, "x.toml").empty());
  }
  EXPECT_FALSE(document.Open(disk, "nada.cfg").empty());
  EXPECT_EQ(document.toml(), before);
  EXPECT_TRUE(document.IsModified());
}

TEST(Document, MistakesOfALayoutFileComeWithTheirPlace) {
  test::MapDisk disk;
  disk.files["x.toml"] = Document().toml() + "[datos]\nFechaMes = { pos = 300, tam = 2 }\n";
  Document document;
  const Messages said = document.Open(disk, "x.toml");
  ASSERT_EQ(said.size(), 1u);
  EXPECT_EQ(said[0].item, u"FechaMes");
  EXPECT_GT(said[0].place.line, 5);
}

TEST(Document, EveryKindOfFileOfEverySwitchIsReadAgainAsTheSame) {
  test::MapDisk disk;
  int switches = 0;
  for (const auto& folder : test::Entries(kSwitches)) {
    const std::string toml = test::ReadWhole(folder / "layout.toml");
    if (toml.empty()) continue;
    SCOPED_TRACE(folder.filename().string());
    disk.files["l.toml"] = toml;
    Document document;
    ASSERT_EQ(document.Open(disk, "l.toml"), Messages());
    const auto items = document.layout().items;
    const auto constants = document.layout().constants;
    for (const Format format : {Format::kConfiguration, Format::kExchange}) {
      const bool can =
          format != Format::kExchange || document.layout().header.Caso == emCasoEstandar;
      EXPECT_EQ(document.SaveAs(disk, "c", format).empty(), can);
      if (!can) continue;
      Document again;
      ASSERT_EQ(again.Open(disk, "c"), Messages());
      EXPECT_EQ(again.format(), format);
      EXPECT_EQ(again.layout().items, items);
      EXPECT_EQ(again.layout().constants, constants);
      EXPECT_EQ(again.layout().header, document.layout().header);
      const std::string bytes = disk.files["c"];
      ASSERT_EQ(again.Save(disk), Messages());
      EXPECT_EQ(disk.files["c"], bytes);
    }
    ++switches;
  }
  EXPECT_GT(switches, 20);
}

TEST(Document, AnANDWithoutItsConstantIsDoubtful) {
  Document document;
  EXPECT_EQ(document.Apply(Constant(emDatoCteIdentEntranteAND, 3, u"x")), Messages());
  const Messages doubts = document.Doubts();
  ASSERT_EQ(doubts.size(), 1u);
  EXPECT_EQ(doubts[0].item, u"IdentEntranteAND");
  EXPECT_EQ(document.Apply(Constant(emDatoCteIdentEntrante, 3, u"x")), Messages());
  EXPECT_EQ(document.Doubts(), Messages());
}

TEST(Document, WhatAFileWasGivenLeaveForIsStillSaid) {
  Document document;
  EXPECT_EQ(document.Replace(document.toml() +
                                 "[datos]\nFechaMes = { pos = 254, tam = 9, sin_revisar = true }\n"
                                 "[constantes]\nIdentEntrante = { pos = 1, texto = \"AB\", "
                                 "tam = 9, sin_revisar = true }\n",
                             u"x"),
            Messages());
  const Messages doubts = document.Doubts();
  ASSERT_EQ(doubts.size(), 2u);
  EXPECT_EQ(doubts[0].item, u"FechaMes");
  EXPECT_EQ(doubts[1].item, u"IdentEntrante");
}

// Against a model that keeps every text.
TEST(Document, AnyUndoingAndRedoingGivesTheTextsThatWere) {
  test::MapDisk disk;
  disk.files["l.toml"] = test::ReadWhole(kSwitches / "mitel-standard" / "layout.toml");
  Document document;
  ASSERT_EQ(document.Open(disk, "l.toml"), Messages());
  std::vector<std::string> texts = {document.toml()};
  std::size_t at = 0;
  std::string saved = texts[0];
  std::string run;  // of typing
  test::Random random(15);
  for (int round = 0; round < 500; ++round) {
    const int what = random.Below(100);
    if (what < 15) {
      document.Undo();
      if (at != 0) --at;
      run.clear();
    } else if (what < 27) {
      document.Redo();
      if (at + 1 != texts.size()) ++at;
      run.clear();
    } else if (what < 30) {
      ASSERT_EQ(document.Save(disk), Messages());
      run.clear();
    } else if (what < 33) {
      document.EndTyping();
      run.clear();
    } else {
      layouts::LayoutChange change = Model(u"m" + ToText(random.Below(50)));
      if (random.Percent(60)) {
        change = Item(static_cast<emParamDato>(random.Between(2, 6)), random.Between(1, 256),
                      random.Between(1, 4));
      } else if (random.Percent(30)) {
        change = layouts::RemoveItem{static_cast<emParamDato>(random.Between(2, 6))};
      }
      const bool typed = random.Percent(50);
      const auto edit = layouts::EditLayout(texts[at], change);
      const Messages said =
          document.Apply(change, typed ? Document::As::kTyping : Document::As::kStep);
      ASSERT_EQ(said.empty(), edit.toml.has_value());
      if (edit.toml && *edit.toml != texts[at]) {
        const Text name = NameOf(change);
        const std::string now =
            typed ? std::to_string(change.index()) + std::string(name.begin(), name.end()) : "";
        texts.resize(at + 1);
        if (!now.empty() && now == run) {
          texts[at] = *edit.toml;
        } else {
          texts.push_back(*edit.toml);
          ++at;
        }
        run = now;
      }
    }
    ASSERT_EQ(document.toml(), texts[at]) << round;
    ASSERT_EQ(document.layout(), *layouts::ReadLayout(texts[at]).layout) << round;
    ASSERT_EQ(document.CanUndo(), at != 0) << round;
    ASSERT_EQ(document.CanRedo(), at + 1 != texts.size()) << round;
  }
}

TEST(History, ForgetsTheOldestStepsOnly) {
  History<int> history(0);
  const int last = static_cast<int>(History<int>::kMostSteps) + 5;
  for (int i = 1; i <= last; ++i) history.Add(i, u"paso");
  while (history.CanUndo()) history.Undo();
  EXPECT_EQ(history.present(), 5);
  EXPECT_FALSE(history.IsSaved());
}

}  // namespace
}  // namespace conmuta::taller
