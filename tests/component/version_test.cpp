// What the DLL says of itself to the explorer and to installers.
#include <windows.h>

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "dll.h"

namespace conmuta::test {
namespace {

class VersionTest : public ::testing::Test {
 protected:
  VersionTest() {
    DWORD unused = 0;
    const std::wstring path = DllPath();
    data_.resize(GetFileVersionInfoSizeW(path.c_str(), &unused));
    EXPECT_FALSE(data_.empty());
    EXPECT_TRUE(
        GetFileVersionInfoW(path.c_str(), 0, static_cast<DWORD>(data_.size()), data_.data()));
  }

  // A text in Spanish.
  std::optional<std::wstring> Value(const std::wstring& name) const {
    const std::wstring block = L"\\StringFileInfo\\080A04B0\\" + name;
    void* text = nullptr;
    UINT length = 0;
    if (!VerQueryValueW(data_.data(), block.c_str(), &text, &length)) return std::nullopt;
    return std::wstring(static_cast<const wchar_t*>(text));
  }

  VS_FIXEDFILEINFO Numbers() const {
    void* numbers = nullptr;
    UINT length = 0;
    if (!VerQueryValueW(data_.data(), L"\\", &numbers, &length)) return {};
    return *static_cast<const VS_FIXEDFILEINFO*>(numbers);
  }

 private:
  std::vector<unsigned char> data_;
};

TEST_F(VersionTest, InstallersLearnThatTheDllRegistersItself) {
  EXPECT_TRUE(Value(L"OLESelfRegister").has_value());
}

TEST_F(VersionTest, TheDllSaysWhatItIsAndWhoseItIs) {
  EXPECT_EQ(Value(L"ProductName"), L"Conmuta");
  EXPECT_EQ(Value(L"OriginalFilename"), L"conmuta.dll");
  for (const wchar_t* name : {L"CompanyName", L"LegalCopyright", L"FileDescription"}) {
    EXPECT_FALSE(Value(name).value_or(L"").empty()) << std::wstring(name);
  }
}

// Installers compare the numbers; people read the texts.
TEST_F(VersionTest, TheDllsVersionIsTheProjects) {
  const std::string version = CONMUTA_VERSION;
  const std::wstring wide(version.begin(), version.end());
  EXPECT_EQ(Value(L"FileVersion"), wide);
  EXPECT_EQ(Value(L"ProductVersion"), wide);

  const VS_FIXEDFILEINFO fixed = Numbers();
  const auto dotted = [](DWORD high, DWORD low) {
    return std::to_string(HIWORD(high)) + '.' + std::to_string(LOWORD(high)) + '.' +
           std::to_string(HIWORD(low)) + '.' + std::to_string(LOWORD(low));
  };
  EXPECT_EQ(dotted(fixed.dwFileVersionMS, fixed.dwFileVersionLS), version + ".0");
  EXPECT_EQ(dotted(fixed.dwProductVersionMS, fixed.dwProductVersionLS), version + ".0");
  EXPECT_EQ(fixed.dwFileType, DWORD{VFT_DLL});
}

}  // namespace
}  // namespace conmuta::test
