#include "conmuta/command.h"

namespace conmuta::host {

extern const Command kTraduce;
extern const Command kExplica;
extern const Command kAdivina;
extern const Command kCompila;
extern const Command kDescompila;
extern const Command kInforme;
extern const Command kCable;
extern const Command kCatalogo;
extern const Command kCaptura;
extern const Command kEstado;
extern const Command kReprocesa;
extern const Command kExporta;
extern const Command kCompleta;

namespace {

constexpr const Command* kCommands[] = {
    &kTraduce,  &kExplica, &kAdivina, &kCompila,   &kDescompila, &kInforme,  &kCable,
    &kCatalogo, &kCaptura, &kEstado,  &kReprocesa, &kExporta,    &kCompleta,
};

}  // namespace

std::span<const Command* const> Commands() {
  return kCommands;
}

}  // namespace conmuta::host
