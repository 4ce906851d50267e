// A cable editor without a window: it writes down what is done to it, and a test is its user.
#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "cable/cable_editor.h"

namespace conmuta::test {

// What outlives the editor.
struct EditorLog {
  std::vector<std::string> calls;
  Text caption;
  Text name;
  int open = 0;  // editors that exist
};

class StandInEditor final : public CableEditor {
 public:
  // What the user does while the editor is shown.
  using User = std::function<void(StandInEditor& editor, ifrmPuertos& client)>;

  StandInEditor(EditorLog& log, User user) : log_(log), user_(std::move(user)) { ++log_.open; }
  ~StandInEditor() override { --log_.open; }

  static CableEditorFactory Factory(EditorLog& log, User user) {
    return [&log, user = std::move(user)] { return std::make_unique<StandInEditor>(log, user); };
  }

  void Caption(TextView caption) override {
    log_.caption = caption;
    log_.calls.push_back("caption");
  }
  void Conmutador(TextView name) override {
    log_.name = name;
    log_.calls.push_back("name");
  }
  void Modificar(bool may_edit) override {
    log_.calls.push_back(may_edit ? "may edit" : "may look");
  }
  emPuertoSerial PuertoActivo() const override { return pair_; }
  void PuertoActivo(emPuertoSerial pair) override {
    pair_ = pair;
    log_.calls.push_back("pair " + std::to_string(pair));
  }
  void PinIZQ(std::int16_t pin) override {
    left_ = pin;
    log_.calls.push_back("left " + std::to_string(pin));
  }
  void PinDER(std::int16_t pin) override {
    right_ = pin;
    log_.calls.push_back("right " + std::to_string(pin));
  }
  bool PinesConectados() const override {
    log_.calls.push_back("read");
    return Wire(pair_, left_, right_);
  }
  void PinesConectados(bool wired) override {
    Wire(pair_, left_, right_) = wired;
    log_.calls.push_back(wired ? "wired" : "not wired");
  }
  void Show(ifrmPuertos& client) override {
    log_.calls.push_back("show");
    user_(*this, client);
  }

  // For the user: a wire, as the editor has it.
  bool& Wire(int pair, int left, int right) {
    return wires_.at(Index(pair)).at(Index(left)).at(Index(right));
  }
  const bool& Wire(int pair, int left, int right) const {
    return wires_.at(Index(pair)).at(Index(left)).at(Index(right));
  }

 private:
  static std::size_t Index(int number) { return static_cast<std::size_t>(number); }

  EditorLog& log_;
  User user_;
  emPuertoSerial pair_ = emNoPuerto;
  std::int16_t left_ = 0;
  std::int16_t right_ = 0;
  std::array<std::array<std::array<bool, 26>, 26>, 5> wires_{};
};

}  // namespace conmuta::test
