// Time per file of scanning a catalogue: it must not grow with their number.
#include <benchmark/benchmark.h>

#include <map>
#include <vector>

#include "capture.h"
#include "catalogue/frmConmutador.h"

namespace conmuta::bench {
namespace {

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
  void EditCable(clsCfgConmut&) override {}
  void Run(frmConmutador&) override {}
  void Close() override {}
};

void ScanCatalogue(benchmark::State& state) {
  MemoryFiles files(static_cast<int>(state.range(0)));
  const Platform& system = SystemPlatform();
  const Platform platform{files, system.clock, system.code_page, system.profiles};
  for (auto _ : state) {
    SilentView view;
    frmConmutador manager(platform, view, [] {});
    manager.Prefijo(u"cnm");
    manager.Extension(u"cfg");
    manager.Directorio(u"C:\\");
    benchmark::DoNotOptimize(manager.tree());
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(ScanCatalogue)->Arg(500)->Arg(5000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace conmuta::bench
