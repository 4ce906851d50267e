// Rows for people. Their form may change.
#include "conmuta/put.h"
#include "conmuta/row_format.h"
#include "conmuta/utf8.h"
#include "layouts/expected_calls.h"
#include "platform/unicode.h"

namespace conmuta::host {
namespace {

constexpr std::string_view kHeading =
    " línea  fecha       hora      duración  timbre  tipo             transf.   emisor      "
    "receptor    teléfono              cuenta\n";

class Table final : public RowFormat {
 public:
  explicit Table(const RowSource& source)
      : file_(source.is_one_of_several ? source.file : std::string()) {
    if (source.layouts.size() < 2) return;
    for (const NamedLayout& named : source.layouts) {
      layouts_.push_back("  [" + Shown(FromUtf8(named.name)) + "]");
    }
  }

  void Begin(OutBuffer& out) override { out.Put(kHeading); }

  void Row(OutBuffer& out, std::uint64_t line, const Outcome& outcome) override {
    if (!file_.empty()) {
      out.Put(Shown(FromUtf8(file_)) + ":\n");
      file_.clear();
    }
    row_ = Aligned(std::to_string(line), 6);
    if (outcome.verdict.IsCall()) {
      AddCall(*outcome.call);
      if (!layouts_.empty()) row_ += layouts_[outcome.layout];
    } else {
      Add(Utf8(Sentence(outcome.verdict)), 0);
    }
    row_.erase(row_.find_last_not_of(' ') + 1);
    out.Put(row_ += '\n');
  }

 private:
  void AddCall(const clsLlamadaTRD& call) {
    char field[kMostOfMoment];
    const Moment moment = MomentOf(call);
    Add({field, PutDate(field, moment)}, 10);
    Add({field, PutTime(field, moment)}, 8);
    const auto duration = layouts::KnownDuration(call);
    row_ += "  " + Aligned(duration ? Clock(*duration) : "?", 8);
    row_ += "  " + Aligned(std::to_string(call.Ring()), 6);
    Add(TypeWord(call.TipoLlamada()), 15);
    Add(TransferWord(call.Atributos()), 8);
    Add(Shown(call.Emisor()), 10);
    Add(Shown(call.Receptor()), 10);
    Add(Shown(call.Telefono()), 20);
    Add(Shown(call.CodigoCuenta()), 0);
    if (!call.ExtensionTransferida().empty()) {
      row_ += "  (transferida: " + Shown(call.ExtensionTransferida()) + ")";
    }
  }

  // Behind two blanks; longer ones push the rest.
  void Add(std::string_view text, std::size_t width) {
    row_.append("  ").append(text);
    row_.append(width - std::min(width, Columns(text)), ' ');
  }
  static std::string Aligned(std::string text, std::size_t width) {
    return text.insert(0, width - std::min(width, text.size()), ' ');
  }
  static std::string Clock(std::int32_t seconds) {
    char field[kMostOfMoment];
    const Moment time{0, 0, 0, seconds / 3600, seconds / 60 % 60, seconds % 60};
    return {field, PutTime(field, time)};
  }

  std::string file_;  // until it was written
  std::vector<std::string> layouts_;
  std::string row_;
};

}  // namespace

std::unique_ptr<RowFormat> MakeTable(const RowSource& source) {
  return std::make_unique<Table>(source);
}

}  // namespace conmuta::host
