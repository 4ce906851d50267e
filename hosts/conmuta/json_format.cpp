// Rows as JSON lines. Members stay as they are; new ones may come anywhere.
#include <cstdio>

#include "conmuta/plain_text.h"
#include "conmuta/put.h"
#include "conmuta/row_format.h"
#include "conmuta/utf8.h"
#include "layouts/expected_calls.h"
#include "platform/unicode.h"

namespace conmuta::host {
namespace {

constexpr PlainText kPlain{u'"', u'\\'};

constexpr std::size_t kMostOfFields = 4096;

// What a terminal would obey is escaped, too: it means the same.
std::string Quoted(TextView text) {
  std::string quoted = "\"";
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char16_t c = text[i];
    if (c == u'"' || c == u'\\') {
      (quoted += '\\') += static_cast<char>(c);
    } else if (Steers(c)) {
      char escape[8];
      std::snprintf(escape, sizeof escape, "\\u%04x", unsigned{c});
      quoted += escape;
    } else if (c >= 0xD800 && c < 0xDC00 && i + 1 < text.size()) {
      AppendUtf8(quoted, text.substr(i++, 2));
    } else {
      AppendUtf8(quoted, text.substr(i, 1));
    }
  }
  return quoted + '"';
}

class JsonLines final : public RowFormat {
 public:
  explicit JsonLines(const RowSource& source)
      : begin_("{\"formato\":1,\"archivo\":" + Quoted(FromUtf8(source.file)) + ",\"linea\":") {
    for (const NamedLayout& named : source.layouts) {
      layouts_.push_back(
          {",\"conmutador\":" + Quoted(FromUtf8(named.name)), named.layout.sheet.time_of});
      most_ = std::max(most_, kMostOfFields + begin_.size() + layouts_.back().name.size());
    }
  }

  void Begin(OutBuffer&) override {}

  void Row(OutBuffer& out, std::uint64_t line, const Outcome& outcome) override {
    const Named& layout = layouts_[outcome.layout];
    char* at = Put(out.Room(most_), begin_);
    at = PutNumber(at, line);
    at = Put(at, layout.name);
    if (outcome.verdict.IsCall()) {
      at = PutCall(at, *outcome.call, layout.time_of);
    } else {
      at = PutWord(at, ",\"motivo\":", ReasonWord(outcome.verdict));
    }
    out.WroteTo(Put(at, "}\n"));
  }

 private:
  struct Named {
    std::string name;
    layouts::Sheet::TimeOf time_of;
  };

  static char* PutCall(char* at, const clsLlamadaTRD& call, layouts::Sheet::TimeOf time_of) {
    const CallTimes times = TimesOf(call, time_of);
    at = PutWord(at, ",\"tipo\":", TypeWord(call.TipoLlamada()));
    at = PutWord(at, ",\"transferencia\":", TransferWord(call.Atributos()));
    at = PutDate(Put(at, ",\"fecha\":\""), times.printed);
    at = PutTime(Put(at, "\",\"hora\":\""), times.printed);
    at = Put(at, "\",\"inicio\":");
    if (times.beginning) {
      *at++ = '"';
      at = PutDate(at, *times.beginning);
      *at++ = 'T';
      at = PutTime(at, *times.beginning);
      *at++ = '"';
    } else {
      at = Put(at, "null");
    }
    at = Put(at, ",\"duracion_s\":");
    at = times.duration ? PutNumber(at, static_cast<std::uint64_t>(*times.duration))
                        : Put(at, "null");
    at = PutNumber(Put(at, ",\"timbre_s\":"), static_cast<std::uint64_t>(call.Ring()));
    at = PutText<clsLlamadaTRD::kPartyRoom>(at, ",\"emisor\":", call.Emisor());
    at = PutText<clsLlamadaTRD::kPartyRoom>(at, ",\"receptor\":", call.Receptor());
    at = PutText<clsLlamadaTRD::kNumberRoom>(at, ",\"telefono\":", call.Telefono());
    at = PutText<clsLlamadaTRD::kPartyRoom>(
        at, ",\"extension_transferida\":", call.ExtensionTransferida());
    return PutText<clsLlamadaTRD::kNumberRoom>(at, ",\"cuenta\":", call.CodigoCuenta());
  }

  // Null for none.
  static char* PutWord(char* at, std::string_view member, std::string_view word) {
    at = Put(at, member);
    if (word.empty()) return Put(at, "null");
    *at++ = '"';
    at = Put(at, word);
    *at++ = '"';
    return at;
  }
  template <std::size_t kRoom>
  static char* PutText(char* at, std::string_view member, TextView text) {
    at = Put(at, member);
    *at = '"';
    char* end = kPlain.Put<kRoom>(at + 1, text);
    if (end == nullptr) return Put(at, Quoted(text));
    *end++ = '"';
    return end;
  }

  std::string begin_;
  std::size_t most_ = 0;
  std::vector<Named> layouts_;
};

}  // namespace

std::unique_ptr<RowFormat> MakeJsonLines(const RowSource& source) {
  return std::make_unique<JsonLines>(source);
}

}  // namespace conmuta::host
