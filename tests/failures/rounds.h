// One thing that a host does, done again and again, each time with another call failing in it.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "faults.h"

namespace conmuta::test {

// A host with what it needs for one round. Made and destroyed while nothing fails.
class Host {
 public:
  virtual ~Host() = default;

  // What the round is about. Answers S_OK or the first failure.
  virtual HRESULT Act() = 0;

  // Whether a failure that is not for want of memory may come of it: what the documents say.
  virtual bool MayAnswer(HRESULT) const { return false; }

  // After the calls can succeed again: what must hold, whatever Act answered. Unless it says
  // otherwise, the same can be done now.
  virtual void Verify(HRESULT answered);

 protected:
  // What Act answers when nothing fails.
  HRESULT usual() const { return usual_; }

 private:
  friend class Rounds;
  HRESULT usual_ = S_OK;
};

using MakeHost = std::function<std::unique_ptr<Host>()>;

// Runs a round without a failure and then one for each call of it that can fail: alone, and with
// all behind it. A round must not hang, break, leave anything behind, or answer what is not
// allowed. That no call was reached is a failure, too.
//
// CONMUTA_FAULT=12 (or 12+ for that call and all behind it) runs that round only, and
// CONMUTA_FAULTS=all every round where else, of very many, a sample is drawn.
void RunRounds(Supply supply, const std::string& what, const MakeHost& make);
// For what may have none; gives whether it had.
bool RunRoundsIfAny(Supply supply, const std::string& what, const MakeHost& make);

// The same for files: every call with each of the ways in which disks and networks fail.
void RunFileRounds(const std::string& what, const MakeHost& make);

// Rounds of the whole program so far that had a failing call in them.
int FailedCalls();

}  // namespace conmuta::test
