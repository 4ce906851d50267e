// The one way in which our windows come onto the screen.
#pragma once

#include "platform/window_view.h"

namespace conmuta::win32 {

// A view that makes its real window when it is to be shown, from the state of the window's logic;
// until then there is nothing to update. `Real` is made of a Logic& and shows it on Refresh.
template <class Logic, class Real, class Base = WindowView<Logic>>
class RealView : public Base {
 public:
  void Update() override {
    if (real_ != nullptr) real_->Refresh();
  }
  void Run(Logic& logic) override {
    Real real(logic);
    const Shown shown(real_, real);
    real.RunModal();
  }
  void Close() override {
    if (real_ != nullptr) real_->Close();
  }

 protected:
  Real* real_ = nullptr;

 private:
  // Knows the window for as long as it is there, however that ends.
  class Shown {
   public:
    Shown(Real*& known, Real& real) : known_(known) { known_ = &real; }
    ~Shown() { known_ = nullptr; }
    Shown(const Shown&) = delete;
    Shown& operator=(const Shown&) = delete;

   private:
    Real*& known_;
  };
};

}  // namespace conmuta::win32
