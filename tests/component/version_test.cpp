// What the DLL says of itself to the explorer and to installers.
#include <windows.h>

#include <gtest/gtest.h>

#include <optional>
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

 private:
  std::vector<unsigned char> data_;
};

TEST_F(VersionTest, InstallersLearnThatTheDllRegistersItself) {
  EXPECT_TRUE(Value(L"OLESelfRegister").has_value());
}

TEST_F(VersionTest, TheDllSaysWhatItIsAndWhoseItIs) {
  EXPECT_EQ(Value(L"ProductName"), L"Conmuta");
  EXPECT_EQ(Value(L"OriginalFilename"), L"conmuta.dll");
  for (const wchar_t* name :
       {L"CompanyName", L"LegalCopyright", L"FileDescription", L"FileVersion", L"ProductVersion"}) {
    EXPECT_FALSE(Value(name).value_or(L"").empty()) << std::wstring(name);
  }
}

}  // namespace
}  // namespace conmuta::test
