// The switch manager window without its toolkit: the catalogue as a tree, what its controls show,
// and what pressing them does to the files.
#pragma once

#include <functional>
#include <optional>

#include "catalogue/switch_folder.h"
#include "catalogue/switch_tree.h"
#include "config/clsCfgConmut.h"
#include "platform/platform.h"

namespace conmuta {

// Styles of a message box, and the answer that matters.
inline constexpr int kNotice = 48;    // exclamation, OK
inline constexpr int kQuestion = 36;  // question mark, Yes and No
inline constexpr int kYes = 6;

struct OpenFileDialog {
  Text title;
  Text filter;  // "description|pattern"
  std::uint32_t flags = 0;
};

class frmConmutador {
 public:
  // What shows the window and asks the person. It reads the controls' state from the window; what
  // happens to the tree it is told, since that may be large. Nodes are addressed by key.
  class View : public WindowView<frmConmutador> {
   public:
    virtual void TreeChanged() = 0;  // altogether
    virtual void NodeAdded(const SwitchNode& node) = 0;
    virtual void NodeRemoved(const SwitchNode& node) = 0;   // it is still there
    virtual void NodeChanged(const SwitchNode& node) = 0;   // its text, or whether it is expanded
    virtual void NodeSelected(const SwitchNode& node) = 0;  // to be made visible as well
    virtual void Busy(bool busy) = 0;                       // shows an hourglass
    virtual int ShowMessage(TextView text, int style, TextView title) = 0;
    virtual std::optional<Text> OpenFile(const OpenFileDialog& dialog) = 0;
  };

  // All must live as long.
  frmConmutador(const Platform& platform, View& view, ViewFactory<frmPuertos> make_cable_view);
  frmConmutador(const frmConmutador&) = delete;
  frmConmutador& operator=(const frmConmutador&) = delete;

  // Raised when the default-switch file has changed.
  std::function<void()> EvInstalar;

  // Prefijo and Extension first: setting the directory scans it, and setting the default-switch
  // file marks it in the tree.
  const Text& Prefijo() const { return folder_.prefix; }
  void Prefijo(TextView value) { folder_.prefix = value; }
  const Text& Extension() const { return folder_.extension; }
  void Extension(TextView value) { folder_.extension = value; }
  const Text& Directorio() const { return folder_.directory; }
  void Directorio(TextView value);
  const Text& ArchivoInstalar() const { return folder_.installed_file; }
  void ArchivoInstalar(TextView value);

  void Show() { view_.Run(*this); }

  // What the controls show.
  const SwitchTree& tree() const { return tree_; }
  const SwitchNode& selected() const { return *selected_; }
  const Text& etqArch() const { return file_label_; }
  const Text& txtInfo() const { return info_; }
  const Text& Frame1() const { return frame_; }
  const Text& default_caption() const { return default_caption_; }  // of btnDesinstalar
  const Text& default_tool_tip() const { return default_tool_tip_; }
  bool default_is_bold() const { return default_is_bold_; }
  // Whether btnInstalar, btnEliminar and btnPuertos can be pressed.
  bool model_commands_enabled() const { return model_commands_; }

  // What the user does.
  void NodeClick(TextView key);
  void NodeExpanded(TextView key);
  void NodeCollapsed(TextView key);
  void btnBuscar();
  void btnInstalar();
  void btnDesinstalar();
  void btnEliminar();
  void btnPuertos();
  void btnContraer();
  void btnCerrar() { view_.Close(); }

 private:
  void CargaConmutadoresDisponibles();

  void RegisterScanned(std::int32_t number);
  void RegisterAdded();
  void UpdateModel(SwitchNode& model);
  SwitchNode& AddModel(std::int32_t number);
  void CountModels(int change);

  void MarkDefault();
  void RaiseInstalled() {
    if (EvInstalar) EvInstalar();
  }
  void ForgetDefault();
  void ShowDefaultCaption(TextView caption, TextView tool_tip);
  bool IsDefault(const SwitchNode& node) const { return node.key == default_key_; }

  void Select(SwitchNode& node);
  void ClickSelected();
  void Expand(SwitchNode& node, bool expanded);
  bool OpenQuietly(TextView path, Text* why = nullptr);

  const Platform platform_;
  View& view_;
  const ViewFactory<frmPuertos> make_cable_view_;
  SwitchFolder folder_;
  clsCfgConmut config_;  // every file that is looked at is opened into this one
  SwitchTree tree_;
  SwitchNode* selected_;
  Text selected_file_;
  Text default_key_;
  std::int32_t next_brand_ = -1;  // -1: none yet
  std::int64_t next_model_ = -1;  // one more than the highest, which may be the last there is
  std::int32_t models_ = 0;
  bool scanning_ = false;

  Text file_label_;
  Text info_;
  Text frame_;
  Text default_caption_;
  Text default_tool_tip_;
  bool default_is_bold_ = false;
  bool model_commands_ = false;
};

}  // namespace conmuta
