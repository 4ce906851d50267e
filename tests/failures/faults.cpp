#include "faults.h"

#include <mutex>
#include <set>
#include <utility>
#include <vector>

namespace conmuta::test::faults {
namespace {

// The DLL may be called on several threads. None of this comes from the DLL's own supplies.
std::mutex lock;
bool armed = false;
Supply supply_at_stake = Supply::kMemory;
Fault fault;
std::vector<const char*> calls;
const char* first_failed = nullptr;
std::set<std::pair<std::string, const void*>> things;

}  // namespace

void Arm(Supply supply, const Fault& wanted) {
  const std::lock_guard guard(lock);
  supply_at_stake = supply;
  fault = wanted;
  calls.clear();
  calls.reserve(4096);
  first_failed = nullptr;
  armed = true;
}

int Disarm() {
  const std::lock_guard guard(lock);
  armed = false;
  return static_cast<int>(calls.size());
}

bool Fails(Supply supply, const char* call) {
  const std::lock_guard guard(lock);
  if (!armed || supply != supply_at_stake) return false;
  calls.push_back(call);
  const int number = static_cast<int>(calls.size());
  if (fault.point == 0 || number < fault.point) return false;
  if (number > fault.point && !fault.from_there_on) return false;
  if (first_failed == nullptr) first_failed = call;
  SetLastError(fault.error);
  return true;
}

const Fault& Current() {
  return fault;
}

std::string FirstFailed() {
  const std::lock_guard guard(lock);
  return first_failed != nullptr ? first_failed : "";
}

std::string Calls() {
  const std::lock_guard guard(lock);
  std::string list;
  for (const char* call : calls) list.append(list.empty() ? "" : " ").append(call);
  return list;
}

void Took(const char* kind, const void* thing) {
  const std::lock_guard guard(lock);
  things.emplace(kind, thing);
}

void GaveBack(const char* kind, const void* thing) {
  const std::lock_guard guard(lock);
  things.erase({kind, thing});
}

Holdings Held() {
  const std::lock_guard guard(lock);
  Holdings held;
  for (const auto& [kind, thing] : things) ++held[kind];
  return held;
}

}  // namespace conmuta::test::faults
