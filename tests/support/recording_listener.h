// Writes down the events of a configuration and lets a test act inside them.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "config/clsCfgConmut.h"

namespace conmuta::test {

using Events = std::vector<std::string>;

class RecordingListener final : public ConfigListener {
 public:
  void CambioNombreConmutador() override { Record("CambioNombreConmutador"); }
  void ConfiguracionCargada() override { Record("ConfiguracionCargada"); }
  void Inicializado() override { Record("Inicializado"); }
  void Cambios() override { Record("Cambios"); }

  // What came since the last Take.
  Events Take() { return std::exchange(events, {}); }

  // Runs inside the next event only, so that it may raise events of its own.
  void OnNextEvent(std::function<void()> action) { next_ = std::move(action); }
  // Runs inside every event of this name, but not inside events that it raises itself.
  void On(std::string name, std::function<void()> action) {
    name_ = std::move(name);
    each_ = std::move(action);
  }

  Events events;

 private:
  void Record(const char* name) {
    events.emplace_back(name);
    if (next_) {
      std::exchange(next_, nullptr)();
    } else if (each_ && name_ == name) {
      const auto action = std::exchange(each_, nullptr);
      action();
      each_ = action;
    }
  }

  std::function<void()> next_;
  std::function<void()> each_;
  std::string name_;
};

}  // namespace conmuta::test
