// Where the lines of a source come from, as a person writes it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace conmuta::capture {

enum class Flow : std::uint8_t { kNone, kHardware, kSoftware };

struct SerialSettings {
  unsigned speed = 9600;  // bits a second
  unsigned bits = 8;      // 5 to 8
  char parity = 'N';      // N, E, O
  unsigned stops = 1;     // 1 or 2
  Flow flow = Flow::kNone;

  bool operator==(const SerialSettings&) const = default;
};

struct Address {
  enum class Kind : std::uint8_t { kSerial, kTcpClient, kTcpServer, kFile, kStandardInput };

  Kind kind = Kind::kStandardInput;
  std::string path;  // of a file or a port: COM3, /dev/ttyUSB0
  std::string host;  // a name or a number; a server listens on loopback where it is empty
  std::uint16_t port = 0;
  SerialSettings serial;
};

// "-", "archivo:RUTA", "tcp:EQUIPO:PUERTO", "escucha:[EQUIPO:]PUERTO",
// "serie:PUERTO[,9600][,8N1][,rts|xon]"; an IPv6 number stands in brackets. Nothing for anything
// else.
std::optional<Address> ReadAddress(std::string_view text);

// "NOMBRE=LAYOUT@DIRECCION"
struct NamedSource {
  std::string name;
  std::string layout;
  Address address;
};
std::optional<NamedSource> ReadNamedSource(std::string_view text);

}  // namespace conmuta::capture
