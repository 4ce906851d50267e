// The switch manager window without its toolkit: the catalogue as a tree, what its controls show,
// and what pressing them does to the files.
#pragma once

#include <functional>
#include <optional>

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
  class View {
   public:
    virtual ~View() = default;
    virtual void Update() = 0;       // some control has changed
    virtual void TreeChanged() = 0;  // altogether
    virtual void NodeAdded(const SwitchNode& node) = 0;
    virtual void NodeRemoved(const SwitchNode& node) = 0;   // it is still there
    virtual void NodeChanged(const SwitchNode& node) = 0;   // its text, or whether it is expanded
    virtual void NodeSelected(const SwitchNode& node) = 0;  // to be made visible as well
    virtual void Busy(bool busy) = 0;                       // shows an hourglass
    virtual int ShowMessage(TextView text, int style, TextView title) = 0;
    virtual std::optional<Text> OpenFile(const OpenFileDialog& dialog) = 0;
    virtual void EditCable(clsCfgConmut& config) = 0;
    virtual void Run(frmConmutador& window) = 0;  // until Close, or the user closes it
    virtual void Close() = 0;
  };

  // All must live as long. `install_event` is EvInstalar: the default-switch file has changed.
  frmConmutador(const Platform& platform, View& view, std::function<void()> install_event);
  frmConmutador(const frmConmutador&) = delete;
  frmConmutador& operator=(const frmConmutador&) = delete;

  // Prefijo and Extension first: setting the directory scans it, and setting the default-switch
  // file marks it in the tree.
  const Text& Prefijo() const { return prefix_; }
  void Prefijo(TextView value) { prefix_ = value; }
  const Text& Extension() const { return extension_; }
  void Extension(TextView value) { extension_ = value; }
  const Text& Directorio() const { return directory_; }
  void Directorio(TextView value);
  const Text& ArchivoInstalar() const { return installed_file_; }
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
  std::optional<std::int32_t> NumberOf(TextView file_name) const;
  Text FileOf(std::int32_t number) const;

  void RegisterScanned(std::int32_t number);
  void RegisterAdded();
  void UpdateModel(SwitchNode& model);
  SwitchNode& AddModel(std::int32_t number);
  void CountModels(int change);

  void MarkDefault();
  void ForgetDefault();
  void ShowDefaultCaption(TextView caption, TextView tool_tip);
  bool IsDefault(const SwitchNode& node) const { return node.key == default_key_; }

  void Select(SwitchNode& node);
  void ClickSelected();
  void Expand(SwitchNode& node, bool expanded);
  bool OpenQuietly(TextView path, Text* why = nullptr);

  const Platform platform_;
  View& view_;
  const std::function<void()> install_event_;
  Text directory_;
  Text prefix_;
  Text extension_;
  Text installed_file_;
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
