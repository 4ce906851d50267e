// Rows as RFC 4180 wants them. Columns stay as they are; new ones come at the end.
#include <array>

#include "conmuta/plain_text.h"
#include "conmuta/put.h"
#include "conmuta/row_format.h"
#include "conmuta/utf8.h"
#include "layouts/expected_calls.h"
#include "platform/unicode.h"

namespace conmuta::host {
namespace {

constexpr PlainText kPlain{u'"', u','};

constexpr std::string_view kHeading =
    "archivo,linea,conmutador,tipo,transferencia,fecha,hora,inicio,duracion_s,timbre_s,emisor,"
    "receptor,telefono,extension_transferida,cuenta,motivo\r\n";

// All fields but those of RowSource: five texts of 30 characters at most, escaped.
constexpr std::size_t kMostOfFields = 2048;

std::string Quoted(TextView text, bool to_terminal) {
  std::string bytes = to_terminal ? Shown(text) : Utf8(text);
  if (bytes.find_first_of("\",\r\n") == std::string::npos) return bytes;
  std::string quoted = "\"";
  for (const char c : bytes) quoted.append(c == '"' ? 2 : 1, c);
  return quoted + '"';
}

class Csv final : public RowFormat {
 public:
  explicit Csv(const RowSource& source)
      : to_terminal_(source.to_terminal),
        file_(Quoted(FromUtf8(source.file), to_terminal_) + ','),
        most_(kMostOfFields + file_.size()) {
    for (const NamedLayout& named : source.layouts) {
      const std::string name = ',' + Quoted(FromUtf8(named.name), to_terminal_) + ',';
      layouts_.push_back({name, KindsOf(name), named.layout.sheet.time_of});
      most_ = std::max(most_, kMostOfFields + file_.size() + name.size());
    }
  }

  void Begin(OutBuffer& out) override { out.Put(kHeading); }

  void Row(OutBuffer& out, std::uint64_t line, const Outcome& outcome) override {
    const Named& layout = layouts_[outcome.layout];
    char* at = Put(out.Room(most_), file_);
    at = PutNumber(at, line);
    if (outcome.verdict.IsCall()) {
      at = PutCall(at, *outcome.call, layout);
    } else {
      at = Put(Put(Put(at, layout.name), ",,,,,,,,,,,"), ReasonWord(outcome.verdict));
    }
    out.WroteTo(Put(at, "\r\n"));
  }

 private:
  // Name, type and transfer, of which there are few, ready by the codes of the two.
  using Kinds =
      std::array<std::array<std::string, emAtributoFinTransferida + 1>, emLlamadaCodigoCuenta + 1>;
  struct Named {
    std::string name;
    Kinds kinds;
    layouts::Sheet::TimeOf time_of;
  };

  static Kinds KindsOf(const std::string& name) {
    Kinds kinds;
    for (std::size_t type = 0; type < kinds.size(); ++type) {
      for (std::size_t attribute = 0; attribute < kinds[type].size(); ++attribute) {
        kinds[type][attribute]
            .append(name)
            .append(TypeWord(static_cast<emTiposLlamadas>(type)))
            .append(",")
            .append(TransferWord(static_cast<emAtributosLlamadas>(attribute)))
            .append(",");
      }
    }
    return kinds;
  }

  char* PutCall(char* at, const clsLlamadaTRD& call, const Named& layout) const {
    const CallTimes times = TimesOf(call, layout.time_of);
    at = Put(at, layout.kinds[static_cast<std::size_t>(call.TipoLlamada())]
                             [static_cast<std::size_t>(call.Atributos())]);
    at = PutDate(at, times.printed);
    *at++ = ',';
    at = PutTime(at, times.printed);
    *at++ = ',';
    if (times.beginning) {
      at = PutDate(at, *times.beginning);
      *at++ = 'T';
      at = PutTime(at, *times.beginning);
    }
    *at++ = ',';
    if (times.duration) {
      at = PutNumber(at, static_cast<std::uint64_t>(*times.duration));
    }
    *at++ = ',';
    at = PutNumber(at, static_cast<std::uint64_t>(call.Ring()));
    *at++ = ',';
    at = PutText<clsLlamadaTRD::kPartyRoom>(at, call.Emisor());
    at = PutText<clsLlamadaTRD::kPartyRoom>(at, call.Receptor());
    at = PutText<clsLlamadaTRD::kNumberRoom>(at, call.Telefono());
    at = PutText<clsLlamadaTRD::kPartyRoom>(at, call.ExtensionTransferida());
    return PutText<clsLlamadaTRD::kNumberRoom>(at, call.CodigoCuenta());
  }

  template <std::size_t kRoom>
  char* PutText(char* at, TextView text) const {
    char* end = kPlain.Put<kRoom>(at, text);
    if (end == nullptr) end = Put(at, Quoted(text, to_terminal_));
    *end++ = ',';
    return end;
  }

  bool to_terminal_;
  std::string file_;
  std::size_t most_;
  std::vector<Named> layouts_;
};

}  // namespace

std::unique_ptr<RowFormat> MakeCsv(const RowSource& source) {
  return std::make_unique<Csv>(source);
}

}  // namespace conmuta::host
