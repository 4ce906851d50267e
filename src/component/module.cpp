#include "component/module.h"

#include <atomic>

namespace __gnu_cxx {
void __freeres();  // of the C++ library; no header has it
}

namespace conmuta::component::module {
namespace {

std::atomic<long> users = 0;
HINSTANCE instance = nullptr;

SRWLOCK library_lock = SRWLOCK_INIT;
ITypeLib* library = nullptr;  // kept until it is forgotten

// Holds the lock on the library.
class LibraryLock {
 public:
  LibraryLock() { AcquireSRWLockExclusive(&library_lock); }
  ~LibraryLock() { ReleaseSRWLockExclusive(&library_lock); }
  LibraryLock(const LibraryLock&) = delete;
  LibraryLock& operator=(const LibraryLock&) = delete;
};

}  // namespace

void Lock() {
  ++users;
}
void Unlock() {
  --users;
}
bool IsInUse() {
  return users != 0;
}

HINSTANCE Instance() {
  return instance;
}

std::wstring Path() {
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = GetModuleFileNameW(instance, path.data(), static_cast<DWORD>(path.size()));
    if (length < path.size()) {
      path.resize(length);
      return path;
    }
    path.resize(path.size() * 2);
  }
}

ComPtr<ITypeLib> Library() {
  const LibraryLock lock;
  if (library == nullptr) Require(LoadTypeLibEx(Path().c_str(), REGKIND_NONE, &library));
  return ComPtr<ITypeLib>(library);
}

void ForgetLibrary() {
  const LibraryLock lock;
  if (library != nullptr) library->Release();
  library = nullptr;
}

ComPtr<ITypeInfo> TypeInfoOf(REFGUID guid) {
  ComPtr<ITypeInfo> info;
  Require(Library()->GetTypeInfoOfGuid(guid, info.Receive()));
  return info;
}

void Attach(HINSTANCE dll) {
  instance = dll;
  DisableThreadLibraryCalls(dll);
}

}  // namespace conmuta::component::module

BOOL WINAPI DllMain(HINSTANCE dll, DWORD reason, void* process_ends) {
  if (reason == DLL_PROCESS_ATTACH) conmuta::component::module::Attach(dll);
  // The run time keeps memory for exceptions thrown when there is none, and would leave it to the
  // process: a host that loads and unloads us a thousand times would pay for each.
  if (reason == DLL_PROCESS_DETACH && process_ends == nullptr) __gnu_cxx::__freeres();
  return TRUE;
}
