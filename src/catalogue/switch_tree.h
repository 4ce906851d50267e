// The catalogue as a tree: the root, under it the brands, under these the models.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <unordered_map>

#include "platform/text.h"

namespace conmuta {

// Keys tell what a node is: "Raiz", "MRC" and a number, "MOD" and a number.
namespace tree_key {

inline constexpr TextView kRoot = u"Raiz";
inline constexpr TextView kBrand = u"MRC";
inline constexpr TextView kModel = u"MOD";

constexpr bool IsRoot(TextView key) {
  return key == kRoot;
}
constexpr bool IsBrand(TextView key) {
  return key.substr(0, 3) == kBrand;
}
constexpr bool IsModel(TextView key) {
  return key.substr(0, 3) == kModel;
}
std::int32_t Number(TextView key);

}  // namespace tree_key

struct SwitchNode {
  Text key;
  Text text;
  SwitchNode* parent = nullptr;
  bool expanded = false;
  // By text, upper-cased; equal ones in the order in which they came.
  std::multimap<Text, std::unique_ptr<SwitchNode>> children;
};

// Finds brands and models by text and nodes by key without a walk.
class SwitchTree {
 public:
  SwitchTree();

  SwitchNode& root() { return root_; }
  const SwitchNode& root() const { return root_; }

  // By text, without regard to letter case; null when there is none.
  SwitchNode* FindBrand(TextView brand);
  SwitchNode* FindModel(TextView brand, TextView model);
  SwitchNode* Find(TextView key);

  // The key must be new.
  SwitchNode& Add(SwitchNode& parent, Text key, TextView text);
  void Remove(SwitchNode& node);

 private:
  static SwitchNode* FindChild(SwitchNode& parent, TextView text);

  SwitchNode root_;
  std::unordered_map<Text, SwitchNode*> by_key_;
};

}  // namespace conmuta
