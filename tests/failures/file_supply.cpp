#include "file_supply.h"

#include "diversion.h"
#include "faults.h"

namespace conmuta::test {
namespace {

constexpr char kHandle[] = "file handle";
constexpr char kSearch[] = "search handle";

template <Name kName, auto kAnswer>
struct Call {
  auto operator()(auto original, auto... arguments) const {
    using Result = decltype(original(arguments...));
    if (faults::Fails(Supply::kFiles, kName.text)) return static_cast<Result>(kAnswer);
    return original(arguments...);
  }
};

template <Name kName, const char* kKind>
struct Opener {
  HANDLE operator()(auto original, auto... arguments) const {
    if (faults::Fails(Supply::kFiles, kName.text)) return INVALID_HANDLE_VALUE;
    const HANDLE opened = original(arguments...);
    if (opened != INVALID_HANDLE_VALUE) faults::Took(kKind, opened);
    return opened;
  }
};

template <const char* kKind>
struct Closer {
  auto operator()(auto original, HANDLE handle) const {
    faults::GaveBack(kKind, handle);
    return original(handle);
  }
};

// A disk that is full may have had room for a part.
struct Writer {
  BOOL operator()(auto original, HANDLE file, LPCVOID bytes, DWORD size, DWORD* written,
                  OVERLAPPED* overlapped) const {
    if (!faults::Fails(Supply::kFiles, "WriteFile")) {
      return original(file, bytes, size, written, overlapped);
    }
    *written = 0;
    original(file, bytes, size / 2, written, overlapped);
    SetLastError(faults::Current().error);
    return faults::Current().cut_short;
  }
};

template <Name kName, class Function, auto kAnswer = 0>
void DivertCall(HMODULE dll) {
  DivertImport<kName, Function>(dll, Call<kName, kAnswer>());
}

}  // namespace

void DivertFiles(HMODULE dll) {
  DivertImport<"CreateFileW", decltype(CreateFileW)>(dll, Opener<"CreateFileW", kHandle>());
  DivertImport<"CloseHandle", decltype(CloseHandle)>(dll, Closer<kHandle>());
  DivertImport<"WriteFile", decltype(WriteFile)>(dll, Writer());
  DivertCall<"ReadFile", decltype(ReadFile)>(dll);
  DivertCall<"GetFileSizeEx", decltype(GetFileSizeEx)>(dll);
  // That a disk has it all is taken for granted: waiting for one takes longer than all the rest.
  DivertImport<"FlushFileBuffers", decltype(FlushFileBuffers)>(
      dll, [](auto, HANDLE) -> BOOL { return !faults::Fails(Supply::kFiles, "FlushFileBuffers"); });
  DivertCall<"DeleteFileW", decltype(DeleteFileW)>(dll);
  DivertCall<"CopyFileW", decltype(CopyFileW)>(dll);
  DivertCall<"GetFileAttributesW", decltype(GetFileAttributesW), INVALID_FILE_ATTRIBUTES>(dll);
  DivertCall<"SetFileAttributesW", decltype(SetFileAttributesW)>(dll);
  DivertImport<"FindFirstFileW", decltype(FindFirstFileW)>(dll,
                                                           Opener<"FindFirstFileW", kSearch>());
  DivertCall<"FindNextFileW", decltype(FindNextFileW)>(dll);
  DivertImport<"FindClose", decltype(FindClose)>(dll, Closer<kSearch>());
  DivertCall<"GetFullPathNameW", decltype(GetFullPathNameW)>(dll);
  DivertCall<"GetShortPathNameW", decltype(GetShortPathNameW)>(dll);
  DivertCall<"GetTempPathW", decltype(GetTempPathW)>(dll);
  DivertCall<"GetTempFileNameW", decltype(GetTempFileNameW)>(dll);
  DivertCall<"GetPrivateProfileStringA", decltype(GetPrivateProfileStringA)>(dll);
  DivertCall<"WritePrivateProfileStringA", decltype(WritePrivateProfileStringA)>(dll);
  DivertCall<"GetCurrentDirectoryW", decltype(GetCurrentDirectoryW)>(dll);
  DivertCall<"SetCurrentDirectoryW", decltype(SetCurrentDirectoryW)>(dll);
}

}  // namespace conmuta::test
