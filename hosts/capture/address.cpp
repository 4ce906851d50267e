#include "capture/address.h"

#include <charconv>

namespace conmuta::capture {
namespace {

template <class Number>
std::optional<Number> ReadNumber(std::string_view text) {
  Number number{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
  return number;
}

bool ReadHostAndPort(std::string_view text, bool host_may_lack, Address& address) {
  const std::size_t colon = text.rfind(':');
  if (colon == std::string_view::npos && !host_may_lack) return false;
  std::string_view host = colon == std::string_view::npos ? "" : text.substr(0, colon);
  if (host.starts_with('[') && host.ends_with(']')) host = host.substr(1, host.size() - 2);
  const auto port = ReadNumber<std::uint16_t>(text.substr(colon + 1));
  if (!port || (host.empty() && !host_may_lack)) return false;
  address.host = host;
  address.port = *port;
  return true;
}

bool ReadSerialSetting(std::string_view text, SerialSettings& serial) {
  if (text == "rts" || text == "xon") {
    serial.flow = text == "rts" ? Flow::kHardware : Flow::kSoftware;
    return true;
  }
  if (text.size() == 3 && text[0] >= '5' && text[0] <= '8') {
    if (std::string_view("NEO").find(text[1]) == std::string_view::npos) return false;
    if (text[2] != '1' && text[2] != '2') return false;
    serial.bits = static_cast<unsigned>(text[0] - '0');
    serial.parity = text[1];
    serial.stops = static_cast<unsigned>(text[2] - '0');
    return true;
  }
  const auto speed = ReadNumber<unsigned>(text);
  if (!speed || *speed == 0) return false;
  serial.speed = *speed;
  return true;
}

bool ReadSerial(std::string_view text, Address& address) {
  std::size_t comma = text.find(',');
  address.path = text.substr(0, comma);
  while (comma != std::string_view::npos) {
    text.remove_prefix(comma + 1);
    comma = text.find(',');
    if (!ReadSerialSetting(text.substr(0, comma), address.serial)) return false;
  }
  return !address.path.empty();
}

}  // namespace

std::optional<Address> ReadAddress(std::string_view text) {
  Address address;
  if (text == "-") return address;
  const std::size_t colon = text.find(':');
  if (colon == std::string_view::npos) return std::nullopt;
  const std::string_view kind = text.substr(0, colon);
  const std::string_view rest = text.substr(colon + 1);
  bool right = false;
  if (kind == "archivo") {
    address.kind = Address::Kind::kFile;
    address.path = rest;
    right = !rest.empty();
  } else if (kind == "tcp") {
    address.kind = Address::Kind::kTcpClient;
    right = ReadHostAndPort(rest, false, address);
  } else if (kind == "escucha") {
    address.kind = Address::Kind::kTcpServer;
    right = ReadHostAndPort(rest, true, address);
  } else if (kind == "serie") {
    address.kind = Address::Kind::kSerial;
    right = ReadSerial(rest, address);
  }
  return right ? std::optional(address) : std::nullopt;
}

std::optional<NamedSource> ReadNamedSource(std::string_view text) {
  const std::size_t equals = text.find('=');
  const std::size_t at = text.find('@', equals == std::string_view::npos ? 0 : equals);
  if (equals == std::string_view::npos || at == std::string_view::npos) return std::nullopt;
  NamedSource source;
  source.name = text.substr(0, equals);
  source.layout = text.substr(equals + 1, at - equals - 1);
  const auto address = ReadAddress(text.substr(at + 1));
  if (!address || source.name.empty() || source.layout.empty()) return std::nullopt;
  source.address = *address;
  return source;
}

}  // namespace conmuta::capture
