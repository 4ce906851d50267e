#include "catalogue/frmConmutador.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace conmuta {
namespace {

constexpr TextView kNoDefault = u"<No hay conmutador predeterminado>";
constexpr TextView kDefaultToolTip = u"Conmutador predeterminado";
constexpr TextView kTitle = u"Conmutadores";
constexpr TextView kErrorTitle = u"Error";
constexpr TextView kWarningTitle = u"Advertencia";

// Hides the read-only box; path and file must exist; long names.
constexpr std::uint32_t kOpenFlags = 2103300;

Text RootText(int models) {
  return Text(u"Conmutadores en Voralix  -  ")
      .append(ToText(models))
      .append(u" modelo(s) registrado(s)");
}

class BusyView {
 public:
  explicit BusyView(frmConmutador::View& view) : view_(view) { view_.Busy(true); }
  ~BusyView() { view_.Busy(false); }
  BusyView(const BusyView&) = delete;
  BusyView& operator=(const BusyView&) = delete;

 private:
  frmConmutador::View& view_;
};

}  // namespace

frmConmutador::frmConmutador(const Platform& platform, View& view,
                             ViewFactory<frmPuertos> make_cable_view)
    : platform_(platform),
      view_(view),
      make_cable_view_(std::move(make_cable_view)),
      config_(platform),
      selected_(&tree_.root()),
      default_caption_(kNoDefault) {
  tree_.root().text = RootText(0);
}

void frmConmutador::Directorio(TextView value) {
  folder_.directory = SwitchFolder::WithBackslash(value);
  CargaConmutadoresDisponibles();
  if (!folder_.installed_file.empty()) MarkDefault();
}

void frmConmutador::ArchivoInstalar(TextView value) {
  folder_.installed_file = value;
  if (!platform_.files.Exists(value) || folder_.directory.empty()) return;
  if (tree_.root().children.empty()) CargaConmutadoresDisponibles();
  if (!tree_.root().children.empty()) MarkDefault();
}

void frmConmutador::CargaConmutadoresDisponibles() {
  const BusyView busy(view_);
  scanning_ = true;
  for (const SwitchFolder::Entry& entry : folder_.Scan(platform_.files)) {
    if (OpenQuietly(entry.path)) RegisterScanned(entry.number);
  }
  scanning_ = false;
  tree_.root().expanded = true;
  view_.TreeChanged();
  Select(tree_.root());
}

bool frmConmutador::OpenQuietly(TextView path, Text* why) {
  try {
    config_.Abrir(path);
    return true;
  } catch (const ConfigError& error) {
    if (why != nullptr) *why = error.description();
  } catch (const OverflowError&) {
    if (why != nullptr) *why = u"Desbordamiento";
  }
  return false;
}

// --- registering models ---

void frmConmutador::RegisterScanned(std::int32_t number) {
  if (!config_.HayConfig()) return;
  if (tree_.FindModel(config_.Marca(), config_.Modelo()) != nullptr)
    return;  // the first one counts
  if (tree_.Find(Text(tree_key::kModel).append(ToText(number))) != nullptr) return;
  AddModel(number);
  // Negative numbers and the highest of all have no number to follow them.
  if (number >= 0 && number < std::numeric_limits<std::int32_t>::max()) {
    next_model_ = std::max(next_model_, std::int64_t{number} + 1);
  }
}

// The file that was just added: it is open, and its copy is the selected file.
void frmConmutador::RegisterAdded() {
  if (!config_.HayConfig()) return;
  if (SwitchNode* model = tree_.FindModel(config_.Marca(), config_.Modelo())) {
    return UpdateModel(*model);
  }
  if (next_model_ < 0) next_model_ = 1;
  if (!std::in_range<std::int32_t>(next_model_)) return;  // none is left
  const auto number = static_cast<std::int32_t>(next_model_++);
  const Text copy = std::exchange(selected_file_, folder_.FileOf(number));
  // Tree and counter keep in step with the disk.
  if (!platform_.files.Copy(copy, selected_file_)) return;
  SwitchNode& model = AddModel(number);
  Expand(*model.parent, true);
  Select(model);
}

void frmConmutador::UpdateModel(SwitchNode& model) {
  selected_file_ = folder_.FileOf(tree_key::Number(model.key));
  const Text question =
      Text(u"¿Deseas actualizar el conmutador : ").append(config_.NombreConmutador()).append(u" ?");
  if (view_.ShowMessage(question, kQuestion, kTitle) != kYes) return;
  try {
    config_.GuardarComo(selected_file_);
  } catch (const ConfigError&) {
    return;
  }
  if (IsDefault(model)) folder_.UpdateInstalled(platform_.files, selected_file_);
  Select(model);
}

SwitchNode& frmConmutador::AddModel(std::int32_t number) {
  SwitchNode* brand = tree_.FindBrand(config_.Marca());
  if (brand == nullptr) {
    if (next_brand_ < 0) next_brand_ = 0;
    brand = &tree_.Add(tree_.root(), Text(tree_key::kBrand).append(ToText(next_brand_++)),
                       config_.Marca());
    if (!scanning_) view_.NodeAdded(*brand);
  }
  SwitchNode& model =
      tree_.Add(*brand, Text(tree_key::kModel).append(ToText(number)), config_.Modelo());
  if (!scanning_) view_.NodeAdded(model);
  CountModels(+1);
  return model;
}

void frmConmutador::CountModels(int change) {
  models_ += change;
  tree_.root().text = RootText(models_);
  if (!scanning_) view_.NodeChanged(tree_.root());
}

// --- the tree ---

void frmConmutador::Select(SwitchNode& node) {
  for (SwitchNode* parent = node.parent; parent != nullptr; parent = parent->parent) {
    Expand(*parent, true);
  }
  selected_ = &node;
  view_.NodeSelected(node);
  ClickSelected();
}

void frmConmutador::Expand(SwitchNode& node, bool expanded) {
  if (node.expanded == expanded) return;
  node.expanded = expanded;
  view_.NodeChanged(node);
}

void frmConmutador::NodeClick(TextView key) {
  SwitchNode* node = tree_.Find(key);
  if (node == nullptr) return;
  selected_ = node;
  ClickSelected();
}

void frmConmutador::ClickSelected() {
  file_label_.clear();
  info_.clear();
  frame_.clear();
  model_commands_ = false;
  config_.Iniciar();
  selected_file_.clear();
  if (tree_key::IsModel(selected_->key)) {
    selected_file_ = folder_.FileOf(tree_key::Number(selected_->key));
    Text why;
    if (!platform_.files.Exists(selected_file_)) {
      // Gone behind our back: everything stays cleared.
    } else if (!OpenQuietly(selected_file_, &why)) {
      info_ = Text(u"<").append(why).append(u">");
    } else {
      default_is_bold_ = IsDefault(*selected_);
      const Text name = config_.NombreConmutador();
      frame_ = default_is_bold_ ? Text(u">> ").append(name).append(u" <<") : name;
      info_ = Trim(config_.Comentarios());
      file_label_ = selected_file_;
      model_commands_ = true;
    }
  }
  view_.Update();
}

void frmConmutador::NodeExpanded(TextView key) {
  if (SwitchNode* node = tree_.Find(key)) node->expanded = true;
}

void frmConmutador::NodeCollapsed(TextView key) {
  SwitchNode* node = tree_.Find(key);
  if (node == nullptr) return;
  node->expanded = false;
  // A selection that can no longer be seen goes to the node that hides it.
  for (const SwitchNode* above = selected_; above != nullptr; above = above->parent) {
    if (above == node) selected_ = node;
  }
  ClickSelected();
}

void frmConmutador::btnContraer() {
  if (tree_.root().children.empty()) return;
  for (const auto& [text, brand] : tree_.root().children) {
    if (!brand->expanded) continue;
    Expand(*brand, false);
    NodeCollapsed(brand->key);
  }
  view_.NodeSelected(*selected_);
}

// --- the default switch ---

void frmConmutador::ShowDefaultCaption(TextView caption, TextView tool_tip) {
  default_caption_ = caption;
  default_tool_tip_ = tool_tip;
}

// No mark of it stays, wherever it was shown.
void frmConmutador::ForgetDefault() {
  if (IsDefault(*selected_) && model_commands_) frame_ = config_.NombreConmutador();
  default_key_.clear();
  default_is_bold_ = false;
  ShowDefaultCaption(kNoDefault, kNoDefault);
}

void frmConmutador::MarkDefault() {
  default_caption_ = kNoDefault;
  if (platform_.files.Exists(folder_.installed_file) && OpenQuietly(folder_.installed_file)) {
    if (SwitchNode* model = tree_.FindModel(config_.Marca(), config_.Modelo())) {
      Select(*model);
      ShowDefaultCaption(config_.NombreConmutador(), kDefaultToolTip);
      default_is_bold_ = true;
      default_key_ = model->key;
    }
  }
  view_.Update();
}

void frmConmutador::btnInstalar() {
  if (selected_file_.empty()) return;
  if (folder_.installed_file.empty()) {
    view_.ShowMessage(
        u"No se ha determinado el archivo que se usará para predeterminar el conmutador a usar.",
        kNotice, kErrorTitle);
    return;
  }
  if (folder_.IsInstalledFile(selected_file_)) {
    view_.ShowMessage(u"Ha ocurrido un conflicto de nombres de archivos.", kNotice, kErrorTitle);
    return;
  }
  if (!platform_.files.Exists(selected_file_)) return;
  folder_.Install(platform_.files, selected_file_);
  try {
    MarkDefault();
  } catch (...) {
    RaiseInstalled();  // installed it is, shown or not
    throw;
  }
  RaiseInstalled();
  view_.ShowMessage(Text(u"Se ha predeterminado exitosamente el conmutador ")
                        .append(kLineBreak)
                        .append(config_.NombreConmutador())
                        .append(u"."),
                    kNotice, kTitle);
}

void frmConmutador::btnDesinstalar() {
  if (default_key_.empty()) return;
  const Text question =
      Text(u"¿Deseas quitar el conmutador predeterminado '").append(default_caption_).append(u"'?");
  if (view_.ShowMessage(question, kQuestion, kTitle) != kYes) return;
  if (folder_.installed_file.empty()) return;
  if (platform_.files.Exists(folder_.installed_file)) {
    const bool removed = platform_.files.Remove(folder_.installed_file);
    view_.ShowMessage(removed ? Text(u"Se ha quitado el conmutador predeterminado exitosamente.")
                              : platform_.files.LastError(),
                      kNotice, kTitle);
  }
  ForgetDefault();
  view_.Update();
}

// --- the catalogue's commands ---

void frmConmutador::btnBuscar() {
  FileSystem& files = platform_.files;
  const Text directory = files.CurrentDirectory();
  const auto chosen = view_.OpenFile({u"Buscar archivo de configuración de conmutadores ...",
                                      u"Configuraciones (*.cfg)|*.cfg", kOpenFlags});
  files.CurrentDirectory(directory);  // the host's, not the dialog's
  if (!chosen) return;
  if (chosen->starts_with(u"\\\\")) {
    view_.ShowMessage(Text(*chosen)
                          .append(kLineBreak)
                          .append(u"Establezca esta direccion como una unidad de red."),
                      kNotice, kErrorTitle);
    return;
  }
  if (!folder_.CopyToTemporary(files, *chosen)) {
    const Text why = files.LastError();
    view_.ShowMessage(Text(u"No es posible acceder al archivo :  ")
                          .append(*chosen)
                          .append(kLineBreak)
                          .append(why),
                      kNotice, kErrorTitle);
    return;
  }
  Text why;
  if (!OpenQuietly(folder_.TemporaryFile(), &why)) {
    view_.ShowMessage(why, kNotice, kErrorTitle);
    return;
  }
  selected_file_ = folder_.TemporaryFile();
  RegisterAdded();
  ClickSelected();
}

void frmConmutador::btnEliminar() {
  if (selected_file_.empty()) return;
  const bool is_default = IsDefault(*selected_);
  Text question = Text(u"¿Esta seguro que desea eliminar el conmutador : ")
                      .append(config_.NombreConmutador())
                      .append(u" ?");
  if (is_default) {
    question.append(kLineBreak)
        .append(
            u"Este conmutador esta predeterminado, eliminarlo provocara que no halla conmutador "
            u"predeterminado.");
  }
  if (view_.ShowMessage(question, kQuestion, kWarningTitle) != kYes) return;
  if (!platform_.files.Remove(selected_file_)) return;
  if (is_default) {
    platform_.files.Remove(folder_.installed_file);
    RaiseInstalled();
    ForgetDefault();
  }
  SwitchNode& model = *selected_;
  SwitchNode& brand = *model.parent;
  selected_ = &tree_.root();
  view_.NodeRemoved(model);
  tree_.Remove(model);
  if (brand.children.empty()) {
    view_.NodeRemoved(brand);
    tree_.Remove(brand);
  }
  CountModels(-1);
  Select(tree_.root());
}

void frmConmutador::btnPuertos() {
  if (config_.HayConfig()) config_.EDConfigSeriales(false, make_cable_view_);
}

}  // namespace conmuta
