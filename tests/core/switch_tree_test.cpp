// The catalogue's tree and the keys of its nodes.
#include "catalogue/switch_tree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/manager_bench.h"

namespace conmuta {
namespace {

using test::OutlineOf;
using testing::ElementsAre;

TEST(TreeKey, TellsWhatANodeIs) {
  const struct {
    TextView key;
    bool root, brand, model;
  } rows[] = {
      {u"Raiz", true, false, false},  {u"MRC0", false, true, false},
      {u"MRC", false, true, false},   {u"MOD1", false, false, true},
      {u"MOD-5", false, false, true}, {u"raiz", false, false, false},
      {u"mod1", false, false, false}, {u"", false, false, false},
      {u"MO", false, false, false},   {u"Raiz1", false, false, false},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(test::Shown(row.key));
    EXPECT_EQ(tree_key::IsRoot(row.key), row.root);
    EXPECT_EQ(tree_key::IsBrand(row.key), row.brand);
    EXPECT_EQ(tree_key::IsModel(row.key), row.model);
  }
}

TEST(TreeKey, HoldsANumber) {
  EXPECT_EQ(tree_key::Number(u"MOD12"), 12);
  EXPECT_EQ(tree_key::Number(u"MRC0"), 0);
  EXPECT_EQ(tree_key::Number(u"MOD-2147483648"), -2147483647 - 1);
  EXPECT_EQ(tree_key::Number(u"MOD2147483647"), 2147483647);
  EXPECT_EQ(tree_key::Number(u"MOD"), 0);
  EXPECT_EQ(tree_key::Number(u"M"), 0);
  EXPECT_EQ(tree_key::Number(u""), 0);
}

class Tree : public testing::Test {
 protected:
  SwitchTree tree;
};

TEST_F(Tree, BeginsWithItsRoot) {
  EXPECT_EQ(tree.root().key, u"Raiz");
  EXPECT_EQ(tree.root().parent, nullptr);
  EXPECT_FALSE(tree.root().expanded);
  EXPECT_EQ(tree.Find(u"Raiz"), &tree.root());
  EXPECT_EQ(tree.Find(u"MRC0"), nullptr);
  EXPECT_EQ(tree.FindBrand(u"ACME"), nullptr);
  EXPECT_EQ(tree.FindModel(u"ACME", u"X1"), nullptr);
}

TEST_F(Tree, SortsChildrenByTextWithoutRegardToLetterCase) {
  for (const TextView brand : {u"beta", u"Alpha", u"ñandú", u"BETB", u"Zeta", u"alphb"}) {
    tree.Add(tree.root(), Text(u"MRC").append(brand), brand);
  }
  std::vector<std::string> brands;
  for (const auto& [text, node] : tree.root().children) brands.push_back(test::Shown(node->text));
  EXPECT_THAT(brands, ElementsAre("Alpha", "alphb", "beta", "BETB", "Zeta", "{00F1}and{00FA}"));
}

TEST_F(Tree, FindsByTextInAnyLetterCase) {
  SwitchNode& brand = tree.Add(tree.root(), u"MRC0", u"Ñandú");
  SwitchNode& model = tree.Add(brand, u"MOD1", u"x1ß");
  EXPECT_EQ(tree.FindBrand(u"ÑANDÚ"), &brand);
  EXPECT_EQ(tree.FindBrand(u"ñandú"), &brand);
  EXPECT_EQ(tree.FindModel(u"ñandú", u"X1ß"), &model);
  EXPECT_EQ(tree.FindModel(u"ñandú", u"X1SS"), nullptr);
  EXPECT_EQ(tree.FindModel(u"ñandu", u"x1ß"), nullptr);
  EXPECT_EQ(tree.FindBrand(u"x1ß"), nullptr);
  EXPECT_EQ(tree.FindBrand(u""), nullptr);
}

TEST_F(Tree, ModelsOfDifferentBrandsMayBeNamedAlike) {
  SwitchNode& first = tree.Add(tree.root(), u"MRC0", u"A");
  SwitchNode& second = tree.Add(tree.root(), u"MRC1", u"B");
  SwitchNode& of_first = tree.Add(first, u"MOD1", u"X");
  SwitchNode& of_second = tree.Add(second, u"MOD2", u"X");
  EXPECT_EQ(tree.FindModel(u"a", u"x"), &of_first);
  EXPECT_EQ(tree.FindModel(u"b", u"x"), &of_second);
  EXPECT_EQ(tree.Find(u"MOD2"), &of_second);
  EXPECT_EQ(of_second.parent, &second);
}

TEST_F(Tree, RemovedNodesAreNotFoundAgain) {
  SwitchNode& brand = tree.Add(tree.root(), u"MRC0", u"A");
  SwitchNode& model = tree.Add(brand, u"MOD1", u"X");
  tree.Add(brand, u"MOD2", u"Y");
  tree.Remove(model);
  EXPECT_EQ(tree.Find(u"MOD1"), nullptr);
  EXPECT_EQ(tree.FindModel(u"A", u"X"), nullptr);
  EXPECT_NE(tree.FindModel(u"A", u"Y"), nullptr);
  tree.Add(brand, u"MOD1", u"X");
  EXPECT_NE(tree.FindModel(u"A", u"X"), nullptr);
}

TEST_F(Tree, RemovesTheRightOneOfEqualTexts) {
  SwitchNode& brand = tree.Add(tree.root(), u"MRC0", u"A");
  tree.Add(brand, u"MOD1", u"x");
  SwitchNode& second = tree.Add(brand, u"MOD2", u"X");
  tree.Add(brand, u"MOD3", u"x");
  tree.Remove(second);
  EXPECT_THAT(OutlineOf(tree),
              ElementsAre("Raiz   ", "  MRC0   A", "    MOD1   x", "    MOD3   x"));
  EXPECT_EQ(tree.FindModel(u"a", u"x"), tree.Find(u"MOD1"));
}

}  // namespace
}  // namespace conmuta
