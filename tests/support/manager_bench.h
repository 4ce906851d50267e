// The manager window over a disk of fakes, before a view that writes down what it is told, keeps a
// tree of its own like a real one, and plays the user.
#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "catalogue/frmConmutador.h"
#include "platform/text_profile.h"
#include "support/config_snapshot.h"
#include "support/failing_files.h"
#include "support/fake_clock.h"
#include "support/fake_code_pages.h"
#include "support/fake_files.h"
#include "support/file_images.h"

namespace conmuta::test {

// One line for each node in its place: depth, key, text, "+" when expanded.
using Outline = std::vector<std::string>;

inline void AppendOutline(Outline& outline, const SwitchNode& node, const std::string& indent) {
  outline.push_back(indent + Shown(node.key) + (node.expanded ? " + " : "   ") + Shown(node.text));
  for (const auto& [text, child] : node.children) AppendOutline(outline, *child, indent + "  ");
}
inline Outline OutlineOf(const SwitchTree& tree) {
  Outline outline;
  AppendOutline(outline, tree.root(), "");
  return outline;
}

struct Message {
  std::string text;
  int style = 0;
  std::string title;

  bool operator==(const Message&) const = default;
  friend std::ostream& operator<<(std::ostream& out, const Message& message) {
    return out << "[" << message.text << "] style " << message.style << " [" << message.title
               << "]";
  }
};
inline Message Notice(TextView text, TextView title = u"Conmutadores") {
  return {Shown(text), 48, Shown(title)};
}
inline Message Question(TextView text, TextView title = u"Conmutadores") {
  return {Shown(text), 36, Shown(title)};
}

// Takes note of the tree only while it knows its window, as a view that is not shown yet.
class ManagerView final : public frmConmutador::View {
 public:
  void Update() override { ++updates; }
  void TreeChanged() override {
    if (window != nullptr) Fill();
  }
  void NodeAdded(const SwitchNode& node) override {
    if (window == nullptr) return;
    ASSERT_NE(node.parent, nullptr);
    EXPECT_EQ(rows.count(node.parent->key), 1u) << Shown(node.key);
    EXPECT_TRUE(rows.emplace(node.key, RowOf(node)).second) << Shown(node.key);
  }
  void NodeRemoved(const SwitchNode& node) override {
    if (window == nullptr) return;
    for (const auto& [key, row] : rows) EXPECT_NE(row.parent, node.key);
    EXPECT_EQ(rows.erase(node.key), 1u) << Shown(node.key);
  }
  void NodeChanged(const SwitchNode& node) override {
    if (window == nullptr) return;
    EXPECT_EQ(rows.count(node.key), 1u) << Shown(node.key);
    rows[node.key] = RowOf(node);
  }
  void NodeSelected(const SwitchNode& node) override {
    if (window == nullptr) return;
    EXPECT_EQ(rows.count(node.key), 1u) << Shown(node.key);
    selected = node.key;
  }
  void Busy(bool busy) override { calls.emplace_back(busy ? "busy" : "idle"); }
  int ShowMessage(TextView text, int style, TextView title) override {
    messages.push_back({Shown(text), style, Shown(title)});
    if (on_message) on_message();
    return answer;
  }
  std::optional<Text> OpenFile(const OpenFileDialog& dialog) override {
    dialogs.push_back(dialog);
    if (on_dialog) on_dialog();
    return chosen;
  }
  void Run(frmConmutador& running) override {
    window = &running;
    Fill();
    calls.emplace_back("run");
    if (user) user(running);
    window = nullptr;
  }
  void Close() override { calls.emplace_back("close"); }

  std::vector<Message> TakeMessages() { return std::exchange(messages, {}); }

  // What a real tree would show.
  struct Row {
    Text parent;
    Text text;
    bool expanded = false;
    bool operator==(const Row&) const = default;
  };
  using Rows = std::map<Text, Row>;
  static Row RowOf(const SwitchNode& node) {
    return {node.parent != nullptr ? node.parent->key : Text(), node.text, node.expanded};
  }
  static void AddRows(Rows& rows, const SwitchNode& node) {
    rows[node.key] = RowOf(node);
    for (const auto& [text, child] : node.children) AddRows(rows, *child);
  }
  void Fill() {
    rows.clear();
    AddRows(rows, window->tree().root());
    selected = window->selected().key;
  }
  void ExpectInStep() const {
    Rows expected;
    AddRows(expected, window->tree().root());
    EXPECT_TRUE(rows == expected) << "the view's tree is not the window's";
    EXPECT_EQ(Shown(selected), Shown(window->selected().key));
  }

  frmConmutador* window = nullptr;
  Rows rows;
  Text selected;
  int updates = 0;
  int answer = kYes;
  std::optional<Text> chosen;
  std::function<void()> on_message;
  std::function<void()> on_dialog;
  std::function<void(frmConmutador&)> user;
  std::vector<Message> messages;
  std::vector<OpenFileDialog> dialogs;
  std::vector<std::string> calls;
};

// Notes which cable it shows.
class CableView final : public frmPuertos::View {
 public:
  explicit CableView(std::vector<std::string>& calls) : calls_(calls) {}
  void Update() override {}
  void Run(frmPuertos& editor) override {
    const Text& label = editor.etqConmutador();
    calls_.push_back((editor.may_edit() ? "edited cable of " : "cable of ") +
                     Shown(label.substr(label.find(u'\n') + 1)));
  }
  void Close() override {}

 private:
  std::vector<std::string>& calls_;
};

inline constexpr TextView kNoDefaultSwitch = u"<No hay conmutador predeterminado>";

class ManagerBench {
 public:
  static constexpr TextView kFolder = u"C:\\cat\\";
  static constexpr TextView kDefault = u"C:\\app\\actual.cfg";
  static constexpr TextView kAdded = u"D:\\new.cfg";

  // --- the disk ---

  static std::string Bytes(const std::string& brand, const std::string& model,
                           const std::string& comments = {}) {
    SwitchFile file;
    file.brand = brand;
    file.model = model;
    file.comments = comments;
    return file.Bytes();
  }
  void Put(TextView path, const std::string& brand, const std::string& model,
           const std::string& comments = {}) {
    files.entries[Text(path)] = {Bytes(brand, model, comments)};
  }
  static Text ModelPath(int number) {
    return Text(kFolder).append(u"cnm").append(ToText(number)).append(u".cfg");
  }
  void PutModel(int number, const std::string& brand, const std::string& model,
                const std::string& comments = {}) {
    Put(ModelPath(number), brand, model, comments);
  }
  bool Has(TextView path) const { return files.entries.count(Text(path)) != 0; }
  std::string BytesOf(TextView path) const {
    const auto found = files.entries.find(Text(path));
    return found != files.entries.end() ? found->second.bytes : "(no file)";
  }

  // --- the window ---

  void Make() {
    window = std::make_unique<frmConmutador>(
        platform, view, [this] { return std::make_unique<CableView>(view.calls); });
    window->EvInstalar = [this] {
      ++installs;
      if (on_install) on_install();
    };
    view.window = window.get();
    view.Fill();
  }
  // As the catalogue opens it.
  frmConmutador& Open(TextView installed = kDefault) {
    Make();
    window->Prefijo(u"cnm");
    window->Extension(u"cfg");
    window->Directorio(kFolder);
    window->ArchivoInstalar(installed);
    return *window;
  }
  // The user selects a node.
  void Click(TextView key) {
    view.selected = key;
    window->NodeClick(key);
  }
  // The user collapses a node; a real tree then selects it in place of what it hid.
  void Collapse(TextView key) {
    view.rows.at(Text(key)).expanded = false;
    for (Text above = view.selected; !above.empty(); above = view.rows.at(above).parent) {
      if (above == key) view.selected = key;
    }
    window->NodeCollapsed(key);
  }
  void Expand(TextView key) {
    view.rows.at(Text(key)).expanded = true;
    window->NodeExpanded(key);
  }
  // Adds the file that lies at kAdded.
  void Add(const std::string& brand, const std::string& model, const std::string& comments = {}) {
    Put(kAdded, brand, model, comments);
    view.chosen = Text(kAdded);
    window->btnBuscar();
  }

  // "brand/model key" of every model in the tree, and the root's text.
  static std::vector<std::string> ModelsOf(
      const SwitchTree& tree, Text (*form)(TextView) = [](TextView text) { return Text(text); }) {
    std::vector<std::string> models = {Shown(tree.root().text)};
    for (const auto& [text, brand] : tree.root().children) {
      for (const auto& [model_text, model] : brand->children) {
        models.push_back(Shown(form(brand->text)) + "/" + Shown(form(model->text)) + " " +
                         Shown(model->key));
      }
    }
    return models;
  }
  std::vector<std::string> Models() const { return ModelsOf(window->tree()); }
  // What another window over the same disk would list.
  std::vector<std::string> FreshModels(Text (*form)(TextView) = [](TextView text) {
    return Text(text);
  }) {
    ManagerView other_view;
    frmConmutador other(disk, other_view, nullptr);
    other.Prefijo(u"cnm");
    other.Extension(u"cfg");
    other.Directorio(kFolder);
    return ModelsOf(other.tree(), form);
  }

  void ExpectCleared() const {
    EXPECT_EQ(window->etqArch(), u"");
    EXPECT_EQ(window->txtInfo(), u"");
    EXPECT_EQ(window->Frame1(), u"");
    EXPECT_FALSE(window->model_commands_enabled());
  }
  void ExpectNoDefaultCaption() const { EXPECT_EQ(window->default_caption(), kNoDefaultSwitch); }
  // What holds after whatever happened.
  void ExpectSound() const {
    const SwitchTree& tree = window->tree();
    int models = 0;
    std::map<Text, int> keys;
    ++keys[tree.root().key];
    Text brand_before;
    for (const auto& [sort_key, brand] : tree.root().children) {
      EXPECT_EQ(sort_key, ToUpper(brand->text));
      EXPECT_EQ(brand->parent, &tree.root());
      EXPECT_TRUE(tree_key::IsBrand(brand->key));
      EXPECT_FALSE(brand->children.empty()) << Shown(brand->text);
      EXPECT_LT(brand_before, ToUpper(brand->text));
      brand_before = ToUpper(brand->text);
      ++keys[brand->key];
      Text model_before;
      for (const auto& [model_sort_key, model] : brand->children) {
        EXPECT_EQ(model_sort_key, ToUpper(model->text));
        EXPECT_EQ(model->parent, brand.get());
        EXPECT_TRUE(tree_key::IsModel(model->key));
        EXPECT_TRUE(model->children.empty());
        EXPECT_LT(model_before, ToUpper(model->text));
        model_before = ToUpper(model->text);
        ++keys[model->key];
        ++models;
      }
    }
    for (const auto& [key, times] : keys) EXPECT_EQ(times, 1) << Shown(key);
    EXPECT_EQ(Shown(tree.root().text),
              "Conmutadores en Voralix  -  " + std::to_string(models) + " modelo(s) registrado(s)");
    view.ExpectInStep();
  }

  FakeFiles files;
  FailingFiles failing{files};
  FakeClock clock;
  Latin1 code_page;
  TextProfiles profiles{files, code_page};
  Platform platform{failing, clock, code_page, profiles};
  Platform disk{files, clock, code_page, profiles};  // as it is when nothing fails
  ManagerView view;
  int installs = 0;
  std::function<void()> on_install;
  std::unique_ptr<frmConmutador> window;
};

}  // namespace conmuta::test
