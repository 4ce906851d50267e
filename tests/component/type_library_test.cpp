// The type library inside the DLL, member for member. Hosts are compiled against it: a difference
// from the golden text breaks them, so the text only ever grows.
#include <fstream>
#include <sstream>

#include "host_test.h"
#include "type_library_dump.h"

namespace conmuta::test {
namespace {

std::string ReadFile(const std::wstring& path) {
  std::string text;
  const HANDLE file =
      CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
  if (file == INVALID_HANDLE_VALUE) return text;
  text.resize(GetFileSize(file, nullptr));
  DWORD read = 0;
  ::ReadFile(file, text.data(), static_cast<DWORD>(text.size()), &read, nullptr);
  CloseHandle(file);
  std::erase(text, '\r');
  return text;
}

// The first line that differs, which says more than two long texts.
std::string FirstDifference(const std::string& actual, const std::string& golden) {
  std::istringstream actual_lines(actual);
  std::istringstream golden_lines(golden);
  std::string is, was;
  for (int number = 1;; ++number) {
    const bool more = static_cast<bool>(std::getline(actual_lines, is));
    const bool more_golden = static_cast<bool>(std::getline(golden_lines, was));
    if (!more && !more_golden) return "none";
    if (more != more_golden || is != was) {
      return "line " + std::to_string(number) + "\n  is:  " + (more ? is : "(end)") +
             "\n  was: " + (more_golden ? was : "(end)");
    }
  }
}

ComPtr<ITypeLib> OwnLibrary() {
  ComPtr<ITypeLib> library;
  EXPECT_EQ(LoadTypeLibEx(DllPath().c_str(), REGKIND_NONE, library.Receive()), S_OK);
  return library;
}

TEST(TypeLibraryTest, IsTheOneThatHostsAreCompiledAgainst) {
  const auto library = OwnLibrary();
  ASSERT_TRUE(library);
  const std::string actual = TypeLibraryDump(library.get()).text();
  const std::string golden = ReadFile(SystemPath(CONMUTA_GOLDEN_FILES "/conmuta.tlb.txt"));
  if (actual == golden) return;
  std::ofstream("conmuta.tlb.txt.new", std::ios::binary) << actual;
  ADD_FAILURE() << "the type library changed; see conmuta.tlb.txt.new in the folder of the test\n"
                << FirstDifference(actual, golden);
}

TEST(TypeLibraryTest, DescribesItselfInSpanish) {
  const auto library = OwnLibrary();
  ASSERT_TRUE(library);
  BSTR description = nullptr;
  ASSERT_EQ(library->GetDocumentation(-1, nullptr, &description, nullptr, nullptr), S_OK);
  EXPECT_EQ(TakeText(description),
            u"Conmuta 1.0: configuración de conmutadores y traducción de llamadas SMDR");
}

class TypeInfoTest : public HostTest {};

TEST_F(TypeInfoTest, EveryObjectDescribesItsInterfaceAndItsClass) {
  struct Row {
    const CLSID& clsid;
    const IID& iid;
  };
  for (const Row& row :
       {Row{CLSID_clsCfgConmut, IID__clsCfgConmut}, Row{CLSID_clsTradEST, IID__clsTradEST},
        Row{CLSID_clsLlamadaTRD, IID__clsLlamadaTRD},
        Row{CLSID_clsConmutadores, IID__clsConmutadores}}) {
    const auto object = CreateObject<IDispatch>(row.clsid, IID_IDispatch);
    UINT count = 0;
    EXPECT_EQ(object->GetTypeInfoCount(&count), S_OK);
    EXPECT_EQ(count, 1u);
    EXPECT_EQ(object->GetTypeInfoCount(nullptr), E_POINTER);

    ComPtr<ITypeInfo> info;
    ASSERT_EQ(object->GetTypeInfo(0, LOCALE_USER_DEFAULT, info.Receive()), S_OK);
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(info->GetTypeAttr(&attributes), S_OK);
    EXPECT_EQ(attributes->guid, row.iid);
    info->ReleaseTypeAttr(attributes);
    EXPECT_EQ(object->GetTypeInfo(0, 0, nullptr), E_POINTER);
    auto* other = reinterpret_cast<ITypeInfo*>(0x1234);
    EXPECT_EQ(object->GetTypeInfo(1, 0, &other), DISP_E_BADINDEX);
    EXPECT_EQ(other, nullptr);

    const auto provider = QueryFor<IProvideClassInfo2>(object.get(), IID_IProvideClassInfo2);
    ASSERT_TRUE(provider);
    ComPtr<ITypeInfo> class_info;
    ASSERT_EQ(provider->GetClassInfo(class_info.Receive()), S_OK);
    ASSERT_EQ(class_info->GetTypeAttr(&attributes), S_OK);
    EXPECT_EQ(attributes->guid, row.clsid);
    EXPECT_EQ(attributes->typekind, TKIND_COCLASS);
    class_info->ReleaseTypeAttr(attributes);
    EXPECT_EQ(provider->GetClassInfo(nullptr), E_POINTER);
  }
}

TEST_F(TypeInfoTest, EveryObjectSaysThatItsInterfaceGivesErrorInformation) {
  struct Row {
    const CLSID& clsid;
    const IID& iid;
  };
  for (const Row& row :
       {Row{CLSID_clsCfgConmut, IID__clsCfgConmut}, Row{CLSID_clsTradEST, IID__clsTradEST},
        Row{CLSID_clsLlamadaTRD, IID__clsLlamadaTRD},
        Row{CLSID_clsConmutadores, IID__clsConmutadores}}) {
    const auto support = CreateObject<ISupportErrorInfo>(row.clsid, IID_ISupportErrorInfo);
    EXPECT_EQ(support->InterfaceSupportsErrorInfo(row.iid), S_OK);
    EXPECT_EQ(support->InterfaceSupportsErrorInfo(IID_IClassFactory), S_FALSE);
  }
}

}  // namespace
}  // namespace conmuta::test
