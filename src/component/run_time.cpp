// What the compiler's run time needs of the system: locks, things done once, data of each thread,
// and a number that nobody guesses.
//
// The library that it would take them from makes each out of memory when it is first used, which
// may be in the midst of telling a host that there is none left, and keeps what it made when the
// DLL goes. Here they need none, and nothing stays.
#include <windows.h>

#include <pthread.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

// One for all of them: they are held for moments, seldom, and never two at once.
SRWLOCK lock = SRWLOCK_INIT;
SRWLOCK once_lock = SRWLOCK_INIT;
CONDITION_VARIABLE changed = CONDITION_VARIABLE_INIT;

// Where the system copies a thread's own data from; its variables lie in sections of that name,
// which the linker sorts by their endings: what came behind "ZZZ" would be copied for no thread.
constexpr std::size_t kThreadData = 64;
[[gnu::section(".tls$CONMUTA")]] alignas(16) char thread_data[kThreadData] = {};
std::size_t used_thread_data = 0;

// How the compiler describes a variable that each thread has for itself.
struct ThreadVariable {
  std::size_t size;
  std::size_t alignment;
  std::uintptr_t place;  // within the thread's data, and 1; 0 for none yet
  const void* initial;   // null: zeros
};

// The room of a variable. That it fits, and begins with zeros, shows the first time it is used.
std::size_t PlaceOf(ThreadVariable& variable) {
  AcquireSRWLockExclusive(&lock);
  if (variable.place == 0) {
    const std::size_t place =
        (used_thread_data + variable.alignment - 1) / variable.alignment * variable.alignment;
    used_thread_data = place + variable.size;
    if (used_thread_data > kThreadData || variable.initial != nullptr) std::abort();
    variable.place = place + 1;
  }
  const std::size_t place = variable.place - 1;
  ReleaseSRWLockExclusive(&lock);
  return place;
}

// Of every module with such data, by its index.
char** DataOfThread() {
  constexpr std::size_t kPlaceInWords = 11;  // the same for both sizes
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Warray-bounds"  // the compiler takes the segment's begin for null
  return static_cast<char**>(reinterpret_cast<void**>(NtCurrentTeb())[kPlaceInWords]);
#pragma GCC diagnostic pop
}

}  // namespace

extern "C" {

extern ULONG _tls_index;
extern char _tls_start[];

void* __emutls_get_address(ThreadVariable* variable) {
  return DataOfThread()[_tls_index] + (thread_data - _tls_start) + PlaceOf(*variable);
}

int pthread_mutex_init(pthread_mutex_t*, const pthread_mutexattr_t*) {
  return 0;
}
int pthread_mutex_destroy(pthread_mutex_t*) {
  return 0;
}
int pthread_mutex_lock(pthread_mutex_t*) {
  AcquireSRWLockExclusive(&lock);
  return 0;
}
int pthread_mutex_unlock(pthread_mutex_t*) {
  ReleaseSRWLockExclusive(&lock);
  return 0;
}

int pthread_cond_wait(pthread_cond_t*, pthread_mutex_t*) {
  SleepConditionVariableSRW(&changed, &lock, INFINITE, 0);
  return 0;
}
int pthread_cond_broadcast(pthread_cond_t*) {
  WakeAllConditionVariable(&changed);
  return 0;
}

int pthread_once(pthread_once_t* done, void (*body)()) {
  AcquireSRWLockExclusive(&once_lock);
  if (*done == 0) body();
  *done = 1;
  ReleaseSRWLockExclusive(&once_lock);
  return 0;
}

// What functions lay beneath their arrays, to see whether they were written over. The compiler's
// own library would ask the system's cryptography for it, which must not be called while a DLL is
// loaded.
std::uintptr_t __stack_chk_guard = 0;

[[gnu::constructor(101), gnu::no_stack_protector]] void SetStackGuard() {
  FILETIME now;
  GetSystemTimeAsFileTime(&now);
  LARGE_INTEGER ticks;
  QueryPerformanceCounter(&ticks);
  const auto place = reinterpret_cast<std::uintptr_t>(&now);  // another one in each process
  const std::uint64_t bits = (std::uint64_t{now.dwLowDateTime} << 32 | now.dwHighDateTime) ^
                             static_cast<std::uint64_t>(ticks.QuadPart) ^
                             std::uint64_t{GetCurrentProcessId()} << 16 ^ place;
  // Spread over all bits; the lowest byte is 0, where a text that runs over would end.
  const std::uint64_t spread = bits * 0x9E3779B97F4A7C15u;
  __stack_chk_guard = static_cast<std::uintptr_t>(spread >> 8) << 8;
}

[[noreturn]] void __stack_chk_fail() {
  constexpr unsigned kStackWasOverrun = 2;
  __asm__ volatile("int $0x29" : : "c"(kStackWasOverrun));  // ends the process at once
  __builtin_unreachable();
}

}  // extern "C"
