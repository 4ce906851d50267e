// The cable editor as the configuration sees it, and the configuration as the editor sees it.
#pragma once

#include <functional>
#include <memory>

#include "cable/wiring.h"
#include "platform/text.h"

namespace conmuta {

// Who opened an editor: takes the wiring over when the user accepts it.
class ifrmPuertos {
 public:
  virtual ~ifrmPuertos() = default;
  virtual void Actualizar() = 0;
};

// An editor of the four wiring tables. Wires are addressed like those of a configuration: pair,
// left pin, right pin.
class CableEditor {
 public:
  virtual ~CableEditor() = default;

  virtual void Caption(TextView caption) = 0;
  virtual void Conmutador(TextView name) = 0;
  virtual void Modificar(bool may_edit) = 0;

  virtual emPuertoSerial PuertoActivo() const = 0;
  virtual void PuertoActivo(emPuertoSerial pair) = 0;
  virtual void PinIZQ(std::int16_t pin) = 0;
  virtual void PinDER(std::int16_t pin) = 0;
  virtual bool PinesConectados() const = 0;
  virtual void PinesConectados(bool wired) = 0;

  // Lets the user work until the window closes; calls the client when the wiring is accepted.
  virtual void Show(ifrmPuertos& client) = 0;
};

using CableEditorFactory = std::function<std::unique_ptr<CableEditor>()>;

}  // namespace conmuta
