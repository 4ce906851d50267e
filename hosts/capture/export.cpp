#include <array>
#include <cstdio>
#include <nlohmann/json.hpp>
#include <ostream>

#include "capture/asking.h"
#include "capture/store.h"
#include "capture/store_address.h"
#include "layouts/outcome_words.h"
#include "platform/unicode.h"
#include "translation/beginning.h"

namespace conmuta::capture {
namespace {

using Json = nlohmann::ordered_json;

std::string Utf8(TextView text) {
  return ToUtf8(text).value_or("?");
}

std::string Parts(const char* form, int a, int b, int c) {
  std::array<char, 40> text{};
  std::snprintf(text.data(), text.size(), form, a, b, c);
  return text.data();
}

// The columns of a call, in their order. They stay; new ones come at the end.
Json Row(const StoredCall& stored) {
  const layouts::ExpectedCall& call = stored.call;
  Json row;
  row["fuente"] = stored.source;
  row["linea"] = stored.number;
  row["conmutador"] = stored.layout;
  row["tipo"] = Utf8(layouts::FindWord(layouts::kTypeWords, call.type));
  row["transferencia"] = nullptr;
  if (call.attribute != emSinAtributo) {
    row["transferencia"] = Utf8(layouts::FindWord(layouts::kTransferWords, call.attribute));
  }
  row["fecha"] = Parts("%04d-%02d-%02d", call.year, call.month, call.day);
  row["hora"] = Parts("%02d:%02d:%02d", call.hours, call.minutes, call.seconds);
  row["duracion_s"] = nullptr;
  if (call.duration) row["duracion_s"] = *call.duration;
  row["timbre_s"] = call.ring;
  row["emisor"] = Utf8(call.caller);
  row["receptor"] = Utf8(call.callee);
  row["telefono"] = Utf8(call.phone);
  row["extension_transferida"] = Utf8(call.transferred_to);
  row["cuenta"] = Utf8(call.account);
  row["inicio"] = nullptr;
  const translation::Moment printed{call.year,  call.month,   call.day,
                                    call.hours, call.minutes, call.seconds};
  if (const auto begin = translation::BeginningOf({printed, call.duration, call.ring, call.type},
                                                  stored.time_of)) {
    row["inicio"] = Parts("%04d-%02d-%02dT", begin->year, begin->month, begin->day) +
                    Parts("%02d:%02d:%02d", begin->hours, begin->minutes, begin->seconds);
  }
  return row;
}

std::string Field(const Json& value) {
  if (value.is_null()) return "";
  if (!value.is_string()) return value.dump();
  const auto& text = value.get_ref<const std::string&>();
  if (text.find_first_of("\",\r\n") == std::string::npos) return text;
  std::string quoted = "\"";
  for (const char c : text) quoted.append(c == '"' ? 2 : 1, c);
  return quoted + '"';
}

void EscapeTexts(Json& row) {
  for (Json& value : row) {
    if (value.is_string()) value = Shown(value.get_ref<const std::string&>());
  }
}

template <class Text>
void WriteCsvLine(const Json& row, std::ostream& out, Text text) {
  const char* comma = "";
  for (const auto& [name, value] : row.items()) {
    out << comma << text(name, value);
    comma = ",";
  }
  out << "\r\n";
}

}  // namespace

int Export(const ExportOptions& options, std::ostream& out, std::ostream& err) {
  Messages messages(err);
  try {
    Store store(OpenForReading(options.store), SchemaUse::kRead);
    store.Begin();  // all portions are of one moment
    if (options.format == ExportFormat::kCsv) {
      WriteCsvLine(Row({}), out, [](const std::string& name, const Json&) { return name; });
    }
    store.Calls(options.source, options.first_day, options.last_day, [&](const StoredCall& call) {
      Json row = Row(call);
      if (options.to_terminal) EscapeTexts(row);
      if (options.format == ExportFormat::kCsv) {
        WriteCsvLine(row, out, [](const std::string&, const Json& value) { return Field(value); });
      } else {
        out << row.dump(-1, ' ', false, Json::error_handler_t::replace) << '\n';
      }
    });
    if (!out.flush()) {
      messages.Tell("no se puede escribir la salida");
      return kUsage;
    }
    return kDone;
  } catch (const StoreError& error) {
    messages.Tell("no se puede leer el almacén " + ShownStore(options.store) + ": " + error.what());
    return kUsage;
  }
}

}  // namespace conmuta::capture
