#include "main/crash_names_test.h"

#include <csignal>
#include <initializer_list>

#include "main/running_test.h"

#if defined(__SANITIZE_ADDRESS__)
#define CONMUTA_SANITIZED 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define CONMUTA_SANITIZED 1
#endif
#endif
#ifdef CONMUTA_SANITIZED
#include <sanitizer/common_interface_defs.h>
#endif

namespace conmuta::test {
namespace {

void Died(int signal) {
  PrintRunningTest("a signal");
  std::signal(signal, SIG_DFL);
  std::raise(signal);
}

}  // namespace

void CrashesNameTheirTest() {
#ifdef CONMUTA_SANITIZED
  // The sanitizers print what happened, and where; only the test is missing.
  __sanitizer_set_death_callback([] { PrintRunningTest("what the sanitizer says"); });
  std::signal(SIGABRT, Died);
#else
  for (const int signal : {SIGABRT, SIGSEGV, SIGBUS, SIGFPE, SIGILL}) std::signal(signal, Died);
#endif
}

}  // namespace conmuta::test
