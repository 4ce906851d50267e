// The type library inside the DLL, member for member. Hosts are compiled against it: a difference
// from the golden text breaks them, so the text only ever grows.
#include <algorithm>
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
            u"Conmuta 1.0: configuracion de conmutadores y traduccion de llamadas SMDR");
}

// A library keeps its texts as bytes, and every machine reads them in its own code page.
void ExpectPlainHelp(ITypeInfo* info, MEMBERID member) {
  BSTR name = nullptr;
  BSTR help = nullptr;
  ASSERT_EQ(info->GetDocumentation(member, &name, &help, nullptr, nullptr), S_OK);
  const Text text = TakeText(help);
  EXPECT_FALSE(text.empty()) << ::testing::PrintToString(TakeText(name));
  EXPECT_TRUE(std::ranges::all_of(text, [](char16_t c) { return c >= u' ' && c < 0x7F; }))
      << ::testing::PrintToString(text);
}

TEST(TypeLibraryTest, EverythingHasAHelpStringForAnyCodePage) {
  const auto library = OwnLibrary();
  ASSERT_TRUE(library);
  for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
    ComPtr<ITypeInfo> info;
    ASSERT_EQ(library->GetTypeInfo(i, info.Receive()), S_OK);
    ExpectPlainHelp(info.get(), MEMBERID_NIL);
    VARDESC* variable = nullptr;
    for (UINT v = 0; SUCCEEDED(info->GetVarDesc(v, &variable)); ++v) {
      ExpectPlainHelp(info.get(), variable->memid);
      info->ReleaseVarDesc(variable);
    }
    FUNCDESC* function = nullptr;
    for (UINT f = 0; SUCCEEDED(info->GetFuncDesc(f, &function)); ++f) {
      const bool is_ours = function->memid < 0x1000;
      if (is_ours) ExpectPlainHelp(info.get(), function->memid);
      info->ReleaseFuncDesc(function);
    }
  }
}

// The spelling of the names: "Anio", "Dia", "Telefono".
Text WithoutAccents(const Text& text) {
  constexpr TextView kAccented = u"áéíóúñ";
  constexpr TextView kPlain = u"aeioun";
  Text plain;
  for (const char16_t c : text) {
    const auto found = kAccented.find(c);
    plain += found == TextView::npos ? c : kPlain[found];
    if (c == u'ñ') plain += u'i';
  }
  return plain.substr(0, plain.find_last_not_of(u' ') + 1);
}

// `text_of` gives the component's own words for a code; empty where it has none.
template <class TextOf>
void ExpectDescribed(REFGUID enumeration, TextOf text_of) {
  const auto library = OwnLibrary();
  ASSERT_TRUE(library);
  ComPtr<ITypeInfo> info;
  ASSERT_EQ(library->GetTypeInfoOfGuid(enumeration, info.Receive()), S_OK);
  int described = 0;
  VARDESC* variable = nullptr;
  for (UINT i = 0; SUCCEEDED(info->GetVarDesc(i, &variable)); ++i) {
    const Text expected = text_of(static_cast<int>(V_I4(variable->lpvarValue)));
    BSTR help = nullptr;
    info->GetDocumentation(variable->memid, nullptr, &help, nullptr, nullptr);
    const Text text = TakeText(help);
    info->ReleaseVarDesc(variable);
    if (expected.empty()) continue;
    EXPECT_EQ(text, WithoutAccents(expected));
    ++described;
  }
  EXPECT_GT(described, 0);
}

constexpr GUID kDatos = {
    0x475dc48d, 0x0d2d, 0x46dc, {0x8a, 0x70, 0x6d, 0x66, 0x66, 0xf1, 0xdf, 0xd6}};
constexpr GUID kConstants = {
    0x4f0f30d5, 0x52fb, 0x4333, {0xa8, 0xfa, 0xeb, 0x60, 0x8f, 0xd7, 0x12, 0xa8}};
constexpr GUID kCases = {
    0xf132d898, 0xa6c5, 0x45d0, {0xbe, 0x79, 0x19, 0xf2, 0x5d, 0xee, 0x3f, 0xf2}};

class TypeInfoTest : public HostTest {};

TEST_F(TypeInfoTest, CodesAreDescribedInTheWordsOfTheComponent) {
  const auto config = NewConfig();
  const auto unless_none = [](const Text& text) { return text == u"No parametro" ? Text() : text; };
  ExpectDescribed(kDatos, [&](int code) {
    return unless_none(Read(config, &Cfg::ObtDescDATO, Code<emParamDato>(code)));
  });
  ExpectDescribed(kConstants, [&](int code) {
    return unless_none(Read(config, &Cfg::ObtDescCTE, Code<emParamDatoConstante>(code)));
  });
  ExpectDescribed(kCases,
                  [&](int code) { return Read(config, &Cfg::ObtNombreCaso, Code<emCasos>(code)); });
}

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
