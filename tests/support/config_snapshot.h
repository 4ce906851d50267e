// All that a configuration shows to a host, as plain values that compare and print.
#pragma once

#include <map>
#include <ostream>
#include <sstream>
#include <string>
#include <utility>

#include "config/clsCfgConmut.h"
#include "support/shown_text.h"

namespace conmuta::test {

// One line per member, so that a difference shows as lines.
class Snapshot {
 public:
  Snapshot() = default;
  explicit Snapshot(std::map<std::string, std::string> lines) : lines_(std::move(lines)) {}

  // What a host reads without addressing anything else.
  static Snapshot OfState(const clsCfgConmut& config) {
    Snapshot snapshot;
    auto& lines = snapshot.lines_;
    lines["Modificado"] = std::to_string(config.Modificado());
    lines["IDCfg"] = std::to_string(config.IDCfg());
    lines["Version"] = std::to_string(config.Version());
    lines["Caso"] = std::to_string(config.Caso());
    lines["Marca"] = Shown(config.Marca());
    lines["Modelo"] = Shown(config.Modelo());
    lines["Comentarios"] = Shown(config.Comentarios());
    lines["Separador"] = Shown(config.Separador());
    lines["DATOActivo"] = std::to_string(config.DATOActivo());
    lines["HayDATO"] = std::to_string(config.HayDATO());
    lines["TipoDatoDATO"] = std::to_string(config.TipoDatoDATO());
    lines["DATOPos"] = std::to_string(config.DATOPos());
    lines["DATOTam"] = std::to_string(config.DATOTam());
    lines["CTEActivo"] = std::to_string(config.CTEActivo());
    lines["HayCTE"] = std::to_string(config.HayCTE());
    lines["TipoDatoCTE"] = std::to_string(config.TipoDatoCTE());
    lines["CTEPos"] = std::to_string(config.CTEPos());
    lines["CTETam"] = std::to_string(config.CTETam());
    lines["Constante"] = Shown(config.Constante());
    lines["PuertoActivo"] = std::to_string(config.PuertoActivo());
    lines["PinIZQ"] = std::to_string(config.PinIZQ());
    lines["PinDER"] = std::to_string(config.PinDER());
    lines["PinesConectados"] = std::to_string(config.PinesConectados());
    return snapshot;
  }

  // What a file brings over: texts, case, valid slots and wires. Moves the pins being addressed.
  static Snapshot OfContent(clsCfgConmut& config) {
    Snapshot snapshot;
    auto& lines = snapshot.lines_;
    lines["Caso"] = std::to_string(config.Caso());
    lines["Marca"] = Shown(config.Marca());
    lines["Modelo"] = Shown(config.Modelo());
    lines["Comentarios"] = Shown(config.Comentarios());
    lines["Separador"] = Shown(config.Separador());
    const auto dato = config.DATOActivo();
    for (int kind = -1; kind < 60; ++kind) {
      config.DATOActivo(static_cast<emParamDato>(kind));
      if (!config.HayDATO()) continue;
      lines[Line("DATO ", kind)] =
          Line(config.TipoDatoDATO(), " at ", +config.DATOPos(), " for ", +config.DATOTam());
    }
    config.DATOActivo(dato);
    const auto cte = config.CTEActivo();
    for (int kind = -1; kind < 30; ++kind) {
      config.CTEActivo(static_cast<emParamDatoConstante>(kind));
      if (!config.HayCTE()) continue;
      lines[Line("CTE ", kind)] = Line(config.TipoDatoCTE(), " at ", +config.CTEPos(), " for ",
                                       +config.CTETam(), ": ", Shown(config.Constante()));
    }
    config.CTEActivo(cte);
    AddWires(lines, config);
    return snapshot;
  }

  bool operator==(const Snapshot&) const = default;

  friend std::ostream& operator<<(std::ostream& out, const Snapshot& snapshot) {
    for (const auto& [name, value] : snapshot.lines_) out << name << " = [" << value << "]\n";
    return out;
  }

 private:
  template <class... Parts>
  static std::string Line(const Parts&... parts) {
    std::ostringstream line;
    (line << ... << parts);
    return line.str();
  }

  static void AddWires(std::map<std::string, std::string>& lines, clsCfgConmut& config) {
    const auto pair = config.PuertoActivo();
    for (int p = 1; p <= 4; ++p) {
      for (std::int16_t left = 1; left <= 25; ++left) {
        for (std::int16_t right = 1; right <= 25; ++right) {
          config.PuertoActivo(emPuertoSerialDB25DB25);  // where every pin can be chosen
          config.PinIZQ(left);
          config.PinDER(right);
          config.PuertoActivo(static_cast<emPuertoSerial>(p));
          if (!config.PinesConectados()) continue;
          lines[Line("wires of pair ", p)] += Line(" ", left, "-", right);
        }
      }
    }
    config.PuertoActivo(pair);
  }

  std::map<std::string, std::string> lines_;
};

}  // namespace conmuta::test
