// Using a copy of the DLL that nobody registered, by the assembly manifest beside it.
#include <filesystem>

#include "component/conmuta_idl.h"
#include "host_test.h"

namespace conmuta::test {
namespace {

namespace fs = std::filesystem;

// A folder with a copy of the DLL and its manifest, and the context of that while it lives.
class UnregisteredCopy {
 public:
  UnregisteredCopy() {
    fs::create_directories(folder_);
    const fs::path built = fs::path(DllPath()).parent_path();
    for (const wchar_t* name : {L"conmuta.dll", L"Conmuta.Com.manifest"}) {
      fs::copy_file(built / name, folder_ / name, fs::copy_options::overwrite_existing);
    }
    const std::wstring manifest = (folder_ / L"Conmuta.Com.manifest").wstring();
    ACTCTXW context{};
    context.cbSize = sizeof context;
    context.lpSource = manifest.c_str();
    context_ = CreateActCtxW(&context);
    EXPECT_NE(context_, INVALID_HANDLE_VALUE) << GetLastError();
    EXPECT_TRUE(ActivateActCtx(context_, &cookie_));
  }
  ~UnregisteredCopy() {
    DeactivateActCtx(0, cookie_);
    ReleaseActCtx(context_);
    CoFreeUnusedLibrariesEx(0, 0);
  }

  HMODULE Loaded() const { return GetModuleHandleW((folder_ / L"conmuta.dll").c_str()); }

 private:
  const fs::path folder_ = fs::temp_directory_path() / L"conmuta-unregistered";
  HANDLE context_ = INVALID_HANDLE_VALUE;
  ULONG_PTR cookie_ = 0;
};

class RegistrationFree : public HostTest {};

TEST_F(RegistrationFree, EveryClassIsCreatedByItsNameFromTheCopy) {
  const UnregisteredCopy copy;
  ASSERT_EQ(copy.Loaded(), nullptr);
  struct Row {
    const wchar_t* name;
    const CLSID& clsid;
    const IID& iid;
  };
  const Row rows[] = {{L"clsCfgConmut", CLSID_clsCfgConmut, IID__clsCfgConmut},
                      {L"clsTradEST", CLSID_clsTradEST, IID__clsTradEST},
                      {L"clsLlamadaTRD", CLSID_clsLlamadaTRD, IID__clsLlamadaTRD},
                      {L"clsConmutadores", CLSID_clsConmutadores, IID__clsConmutadores}};
  for (const Row& row : rows) {
    CLSID named{};  // a context may have an identifier of its own for the name
    EXPECT_EQ(CLSIDFromProgID((std::wstring(L"Conmuta.") + row.name).c_str(), &named), S_OK);
    for (const CLSID& clsid : {named, row.clsid}) {
      IUnknown* object = nullptr;
      ASSERT_EQ(CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, row.iid,
                                 reinterpret_cast<void**>(&object)),
                S_OK);
      EXPECT_NE(copy.Loaded(), nullptr) << "another DLL was taken";
      object->Release();
    }
  }
}

TEST_F(RegistrationFree, TheTypeLibraryIsFoundInTheCopy) {
  const UnregisteredCopy copy;
  ITypeLib* library = nullptr;
  ASSERT_EQ(LoadRegTypeLib(LIBID_Conmuta, 1, 0, 0, &library), S_OK);
  EXPECT_EQ(library->GetTypeInfoCount() > 0, true);
  library->Release();
}

}  // namespace
}  // namespace conmuta::test
