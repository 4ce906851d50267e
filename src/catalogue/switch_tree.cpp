#include "catalogue/switch_tree.h"

#include <algorithm>

#include "platform/number.h"

namespace conmuta {

std::int32_t tree_key::Number(TextView key) {
  return ReadWholeNumberAs<std::int32_t>(key.substr(std::min<std::size_t>(3, key.size())))
      .value_or(0);
}

SwitchTree::SwitchTree() {
  root_.key = tree_key::kRoot;
  by_key_.emplace(root_.key, &root_);
}

SwitchNode* SwitchTree::FindChild(SwitchNode& parent, TextView text) {
  const auto found = parent.children.find(ToUpper(text));
  return found != parent.children.end() ? found->second.get() : nullptr;
}

SwitchNode* SwitchTree::FindBrand(TextView brand) {
  return FindChild(root_, brand);
}

SwitchNode* SwitchTree::FindModel(TextView brand, TextView model) {
  SwitchNode* node = FindBrand(brand);
  return node != nullptr ? FindChild(*node, model) : nullptr;
}

SwitchNode* SwitchTree::Find(TextView key) {
  const auto found = by_key_.find(Text(key));
  return found != by_key_.end() ? found->second : nullptr;
}

SwitchNode& SwitchTree::Add(SwitchNode& parent, Text key, TextView text) {
  auto node = std::make_unique<SwitchNode>();
  node->key = std::move(key);
  node->text = text;
  node->parent = &parent;
  SwitchNode& added = *node;
  by_key_.emplace(added.key, &added);
  parent.children.emplace(ToUpper(text), std::move(node));
  return added;
}

void SwitchTree::Remove(SwitchNode& node) {
  by_key_.erase(node.key);
  auto& siblings = node.parent->children;
  const auto [first, last] = siblings.equal_range(ToUpper(node.text));
  siblings.erase(
      std::find_if(first, last, [&](const auto& entry) { return entry.second.get() == &node; }));
}

}  // namespace conmuta
