// Which files of the catalogue's directory become models of the tree.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/manager_bench.h"

namespace conmuta {
namespace {

using test::ManagerBench;
using test::OutlineOf;
using test::Shown;
using testing::ElementsAre;
using testing::IsEmpty;

const std::string kRoot = "Raiz + Conmutadores en Voralix  -  ";

class CatalogueScan : public testing::Test, protected ManagerBench {
 protected:
  // The keys of the models that the directory with one more file has.
  std::vector<std::string> KeysWith(TextView name, std::uint32_t attributes = kAttributeArchive) {
    ManagerBench bench;
    bench.files.entries[Text(kFolder).append(name)] = {Bytes("ACME", "X1"), attributes};
    bench.Open();
    bench.ExpectSound();
    std::vector<std::string> keys;
    for (const auto& [text, brand] : bench.window->tree().root().children) {
      for (const auto& [model_text, model] : brand->children) keys.push_back(Shown(model->key));
    }
    return keys;
  }
};

TEST_F(CatalogueScan, EmptyCatalogueHasARootOnly) {
  Open();
  EXPECT_THAT(OutlineOf(window->tree()), ElementsAre(kRoot + "0 modelo(s) registrado(s)"));
  EXPECT_EQ(&window->selected(), &window->tree().root());
  ExpectCleared();
  EXPECT_THAT(view.messages, IsEmpty());
}

TEST_F(CatalogueScan, ListsBrandsAndTheirModelsSorted) {
  PutModel(1, "Zeta", "b");
  PutModel(2, "acme", "Y2");
  PutModel(3, "Zeta", "A");
  PutModel(4, "ACME", "x1");
  PutModel(10, "Beta", "m");
  Open();
  // Brands are numbered in the order in which their first file comes.
  EXPECT_THAT(OutlineOf(window->tree()),
              ElementsAre(kRoot + "5 modelo(s) registrado(s)", "  MRC2   acme", "    MOD4   x1",
                          "    MOD2   Y2", "  MRC1   Beta", "    MOD10   m", "  MRC0   Zeta",
                          "    MOD3   A", "    MOD1   b"));
  ExpectSound();
}

TEST_F(CatalogueScan, TakesTheNumberFromTheName) {
  const struct {
    TextView name;
    const char* key;  // empty: not listed
  } rows[] = {
      {u"cnm12.cfg", "MOD12"},
      {u"cnm0003.cfg", "MOD3"},
      {u"cnm0.cfg", "MOD0"},
      {u"cnm-5.cfg", "MOD-5"},
      {u"cnm+5.cfg", "MOD5"},
      {u"cnm-1.cfg", "MOD-1"},
      {u"cnm 7 .cfg", "MOD7"},
      {u"cnm1.5.cfg", "MOD2"},
      {u"cnm7..cfg", "MOD7"},
      {u"CNM7.CFG", "MOD7"},
      {u"cnm2147483647.cfg", "MOD2147483647"},
      {u"cnm-2147483648.cfg", "MOD-2147483648"},
      {u"cnm2147483648.cfg", ""},
      {u"cnm-2147483649.cfg", ""},
      {u"cnm4294967297.cfg", ""},
      {u"cnm99999999999999999999.cfg", ""},
      {u"cnmA1.cfg", ""},
      {u"cnm1A.cfg", ""},
      {u"cnm.cfg", ""},
      {u"cnm .cfg", ""},
      {u"cnm1 2.cfg", ""},
      {u"cnm0x1.cfg", ""},
      {u"cnm1e1.cfg", ""},
      {u"cnm1,5.cfg", ""},
      {u"cnm5-.cfg", ""},
      {u"cnm１.cfg", ""},
      {u"12.cfg", ""},
      {u"cnm12.cfgx", ""},
      {u"cnm12.txt", ""},
      {u"xcnm12.cfg", ""},
      {u"sub\\cnm12.cfg", ""},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(Shown(row.name));
    const std::string key = row.key;
    EXPECT_EQ(KeysWith(row.name), key.empty() ? std::vector<std::string>() : std::vector{key});
  }
}

TEST_F(CatalogueScan, WantsTheArchiveAttribute) {
  const struct {
    std::uint32_t attributes;
    bool listed;
  } rows[] = {{32, true}, {32 + 1, true}, {32 + 2 + 4, true}, {0, false},
              {1, false}, {128, false},   {16, false},        {16 + 32, false}};
  for (const auto& row : rows) {
    EXPECT_EQ(KeysWith(u"cnm1.cfg", row.attributes).size(), row.listed ? 1u : 0u) << row.attributes;
  }
}

TEST_F(CatalogueScan, LeavesOutWhatIsNoConfiguration) {
  PutModel(1, "ACME", "X1");
  files.entries[ModelPath(2)] = {""};
  files.entries[ModelPath(3)] = {"not a configuration"};
  files.entries[ModelPath(4)] = {std::string(660, '\0')};
  files.entries[ModelPath(5)] = {Bytes("ACME", "X5").substr(0, 659)};
  PutModel(6, "", "X6");
  PutModel(7, "ACME", "");
  PutModel(8, "ACME", "X8");
  Open();
  EXPECT_THAT(Models(), ElementsAre("Conmutadores en Voralix  -  2 modelo(s) registrado(s)",
                                    "ACME/X1 MOD1", "ACME/X8 MOD8"));
  EXPECT_THAT(view.messages, IsEmpty());
}

TEST_F(CatalogueScan, LeavesOutAConfigurationWithoutACase) {
  test::SwitchFile file;
  file.caso = 0;
  files.entries[ModelPath(1)] = {file.Bytes()};
  Open();
  EXPECT_THAT(Models(), ElementsAre("Conmutadores en Voralix  -  0 modelo(s) registrado(s)"));
}

TEST_F(CatalogueScan, ListsFilesOfTheEarlierVersion) {
  files.entries[ModelPath(1)] = {test::SwitchFile2().Bytes()};
  Open();
  EXPECT_THAT(Models(), ElementsAre("Conmutadores en Voralix  -  1 modelo(s) registrado(s)",
                                    "ACME/OLD MOD1"));
}

TEST_F(CatalogueScan, OfTwoFilesForOneModelTheFirstCounts) {
  PutModel(1, "ACME", "X1", "first");
  PutModel(2, "acme", "x1", "second");
  Open();
  EXPECT_THAT(OutlineOf(window->tree()),
              ElementsAre(kRoot + "1 modelo(s) registrado(s)", "  MRC0   ACME", "    MOD1   X1"));
  Click(u"MOD1");
  EXPECT_EQ(window->txtInfo(), u"first");
  EXPECT_THAT(view.messages, IsEmpty());
}

TEST_F(CatalogueScan, OfTwoFilesWithOneNumberTheFirstCounts) {
  Put(u"C:\\cat\\cnm03.cfg", "ZETA", "Z1");
  PutModel(3, "ACME", "X1");
  Open();
  EXPECT_THAT(OutlineOf(window->tree()),
              ElementsAre(kRoot + "1 modelo(s) registrado(s)", "  MRC0   ZETA", "    MOD3   Z1"));
}

TEST_F(CatalogueScan, SaysItIsBusyAndIsNotWhenDone) {
  PutModel(1, "ACME", "X1");
  Open(u"");
  EXPECT_THAT(view.calls, ElementsAre("busy", "idle"));
}

TEST_F(CatalogueScan, DoesNotTellOfEveryNode) {
  for (int n = 1; n <= 50; ++n) PutModel(n, "ACME", "X" + std::to_string(n));
  Make();
  window->Prefijo(u"cnm");
  window->Extension(u"cfg");
  const int updates = view.updates;
  window->Directorio(kFolder);
  EXPECT_EQ(view.updates, updates + 1);
  ExpectSound();
}

TEST_F(CatalogueScan, OpensEveryFileOnce) {
  for (int n = 1; n <= 20; ++n) PutModel(n, "ACME", "X" + std::to_string(n));
  Open(u"");
  int lists = 0;
  int reads = 0;
  for (const std::string& operation : failing.operations) {
    lists += operation.starts_with("list ");
    reads += operation.starts_with("read ");
  }
  EXPECT_EQ(lists, 1);
  EXPECT_EQ(reads, 20);
}

TEST_F(CatalogueScan, PrefixAndExtensionMayBeAnything) {
  const struct {
    TextView prefix;
    TextView extension;
    TextView name;
    const char* key;
  } rows[] = {
      {u"", u"cfg", u"7.cfg", "MOD7"},     {u"a-", u"c", u"a-7.c", "MOD7"},
      {u"a", u"c", u"a-7.c", "MOD-7"},     {u"", u"", u"7.", "MOD7"},
      {u"12", u"34", u"1256.34", "MOD56"}, {u"ñ", u"ü", u"ñ7.ü", "MOD7"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(Shown(row.name));
    ManagerBench bench;
    bench.Put(Text(kFolder).append(row.name), "ACME", "X1");
    bench.Make();
    bench.window->Prefijo(row.prefix);
    bench.window->Extension(row.extension);
    bench.window->Directorio(kFolder);
    EXPECT_EQ(bench.Models().back(), std::string("ACME/X1 ") + row.key);
    bench.Click(Text(u"MOD").append(Text(row.key + 3, row.key + std::string(row.key).size())));
    EXPECT_EQ(Shown(bench.window->etqArch()), Shown(Text(kFolder).append(row.name)));
  }
}

TEST_F(CatalogueScan, PassesOverTheDirectoryItselfAndItsParent) {
  files.entries[u"C:\\cat\\."] = {Bytes("ACME", "X1")};
  files.entries[u"C:\\cat\\.."] = {Bytes("ACME", "X2")};
  Make();
  window->Directorio(kFolder);  // every name that has no extension
  EXPECT_THAT(failing.operations, ElementsAre("list *."));
  EXPECT_EQ(Models().size(), 1u);
}

TEST_F(CatalogueScan, PaddedNumberIsListedButItsFileIsLookedForWithoutPadding) {
  Put(u"C:\\cat\\cnm0003.cfg", "ACME", "X1");
  Open();
  Click(u"MOD3");
  ExpectCleared();
  PutModel(3, "ACME", "X1");
  Click(u"MOD3");
  EXPECT_EQ(window->etqArch(), u"C:\\cat\\cnm3.cfg");
}

TEST_F(CatalogueScan, UnreadableDirectoryIsAnEmptyOne) {
  PutModel(1, "ACME", "X1");
  Make();
  window->Prefijo(u"cnm");
  window->Extension(u"cfg");
  failing.FailAt(1);
  window->Directorio(kFolder);
  EXPECT_EQ(failing.operations[0], "list cnm*.cfg");
  EXPECT_THAT(Models(), ElementsAre("Conmutadores en Voralix  -  0 modelo(s) registrado(s)"));
}

TEST_F(CatalogueScan, FileThatVanishesMeanwhileIsLeftOut) {
  PutModel(1, "ACME", "X1");
  PutModel(2, "ACME", "X2");
  for (int n = 2; n <= 7; ++n) {
    Make();
    window->Prefijo(u"cnm");
    window->Extension(u"cfg");
    failing.FailAt(n);
    window->Directorio(kFolder);
    const std::string failed = failing.operations[static_cast<std::size_t>(n - 1)];
    failing.FailAt(0);
    ExpectSound();
    EXPECT_EQ(Models().size(), 2u) << failed;
    EXPECT_THAT(view.messages, IsEmpty());
  }
}

TEST_F(CatalogueScan, SecondScanAddsOnlyWhatIsNew) {
  PutModel(1, "ACME", "X1");
  Open(u"");
  PutModel(2, "ACME", "X2");
  window->Directorio(kFolder);
  EXPECT_THAT(Models(), ElementsAre("Conmutadores en Voralix  -  2 modelo(s) registrado(s)",
                                    "ACME/X1 MOD1", "ACME/X2 MOD2"));
  ExpectSound();
}

}  // namespace
}  // namespace conmuta
