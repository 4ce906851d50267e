// Time per file of scanning a catalogue: it must not grow with their number.
#include <unordered_map>
#include <vector>

#include "catalogue/frmConmutador.h"
#include "platform/platform.h"
#include "row.h"
#include "sections.h"
#include "turns.h"

namespace conmuta::bench {
namespace {

constexpr double kMostGrowth = 2;

// A folder of configurations in memory.
class MemoryFiles final : public FileSystem {
 public:
  explicit MemoryFiles(int count) {
    clsCfgConmut config(
        {*this, SystemPlatform().clock, SystemPlatform().code_page, SystemPlatform().profiles});
    config.Separador(u"\r\n");
    for (int number = 1; number <= count; ++number) {
      config.Marca(Text(u"Marca ").append(ToText(number % 20)));
      config.Modelo(Text(u"Modelo ").append(ToText(number)));
      config.GuardarComo(Text(u"C:\\cnm").append(ToText(number)).append(u".cfg"));
    }
  }

  std::optional<std::uint32_t> Attributes(TextView path) override {
    return files_.count(Text(path)) != 0 ? std::optional(kAttributeArchive) : std::nullopt;
  }
  std::optional<FileContent> Read(TextView path, std::size_t limit) override {
    const auto file = files_.find(Text(path));
    if (file == files_.end()) return std::nullopt;
    return FileContent{file->second.size(), file->second.substr(0, limit)};
  }
  bool Write(TextView path, std::string_view bytes) override {
    files_[Text(path)] = bytes;
    names_.push_back(Text(path.substr(3)));
    return true;
  }
  bool Remove(TextView) override { return false; }
  bool Copy(TextView, TextView) override { return false; }
  std::vector<Text> List(TextView) override { return names_; }
  Text LastError() const override { return {}; }
  Text CurrentDirectory() const override { return {}; }
  void CurrentDirectory(TextView) override {}

 private:
  std::unordered_map<Text, std::string> files_;
  std::vector<Text> names_;
};

class SilentView final : public frmConmutador::View {
 public:
  void Update() override {}
  void TreeChanged() override {}
  void NodeAdded(const SwitchNode&) override {}
  void NodeRemoved(const SwitchNode&) override {}
  void NodeChanged(const SwitchNode&) override {}
  void NodeSelected(const SwitchNode&) override {}
  void Busy(bool) override {}
  int ShowMessage(TextView, int, TextView) override { return 0; }
  std::optional<Text> OpenFile(const OpenFileDialog&) override { return std::nullopt; }
  void Run(frmConmutador&) override {}
  void Close() override {}
};

// The nanoseconds that a file costs.
double Scan(int count) {
  MemoryFiles files(count);
  const Platform& system = SystemPlatform();
  const Platform platform{files, system.clock, system.code_page, system.profiles};
  const auto spent = BestOfTurns({[&] {
    SilentView view;
    frmConmutador manager(platform, view, {});
    manager.Prefijo(u"cnm");
    manager.Extension(u"cfg");
    manager.Directorio(u"C:\\");
  }});
  return spent[0] / count;
}

}  // namespace

void MeasureCatalogue() {
  const double small = Scan(500);
  const double large = Scan(5000);
  PrintRow("catalogue of 500 files", small / 1000, "us a file");
  PrintRow("catalogue of 5000 files", large / 1000, "us a file");
  PrintRow("file of 5000 to one of 500", large / small, "times", kMostGrowth);
}

}  // namespace conmuta::bench
