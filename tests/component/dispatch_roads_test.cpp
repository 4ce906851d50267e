// Our own late binding against the type library's: the same names, and for plain arguments the same
// answers, member by member.
#include <algorithm>
#include <vector>

#include "host_test.h"
#include "late_bound.h"

namespace conmuta::test {
namespace {

struct Class {
  const CLSID* clsid;
  std::vector<MEMBERID> windows;  // the members that open one
};
const Class kClasses[] = {{&CLSID_clsCfgConmut, {35, 40}},
                          {&CLSID_clsTradEST, {7}},
                          {&CLSID_clsLlamadaTRD, {}},
                          {&CLSID_clsConmutadores, {6}}};

bool IsInherited(const FUNCDESC& function) {
  return function.memid >= 0x1000;
}

// What a host sees of a call.
struct Answer {
  HRESULT result = S_OK;
  Failure exception;
  VARTYPE type = VT_EMPTY;
  Text value;
  bool operator==(const Answer&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Answer& answer) {
  return out << std::hex << "0x" << static_cast<unsigned long>(answer.result) << std::dec << ", "
             << answer.exception << ", type " << answer.type << " "
             << ::testing::PrintToString(answer.value);
}

Text Shown(VARIANT& value) {
  if (V_VT(&value) == VT_DISPATCH) return V_DISPATCH(&value) != nullptr ? u"object" : u"nothing";
  Variant text;
  EXPECT_EQ(VariantChangeType(&text, &value, 0, VT_BSTR), S_OK);
  return Text(component::View(V_BSTR(&text)));
}

// An object, and one of the roads to its members.
struct Traveller {
  IDispatch* object;
  ITypeInfo* info;  // null: our own road

  HRESULT Invoke(DISPID id, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                 EXCEPINFO* exception) const {
    return info != nullptr ? info->Invoke(object, id, flags, parameters, result, exception, nullptr)
                           : object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, parameters,
                                            result, exception, nullptr);
  }
};

bool Assigns(INVOKEKIND kind) {
  return (kind & (INVOKE_PROPERTYPUT | INVOKE_PROPERTYPUTREF)) != 0;
}

Answer Ask(const Traveller& road, DISPID id, INVOKEKIND kind, std::vector<VARIANT> arguments) {
  DISPID put = DISPID_PROPERTYPUT;
  const bool puts = Assigns(kind);
  std::reverse(arguments.begin(), arguments.end());
  DISPPARAMS parameters{arguments.data(), puts ? &put : nullptr,
                        static_cast<UINT>(arguments.size()), puts ? 1u : 0u};
  Variant result;
  EXCEPINFO exception{};
  Answer answer;
  answer.result =
      road.Invoke(id, static_cast<WORD>(kind), &parameters, puts ? nullptr : &result, &exception);
  answer.exception = {exception.scode, TakeText(exception.bstrSource),
                      TakeText(exception.bstrDescription)};
  SysFreeString(exception.bstrHelpFile);
  if (SUCCEEDED(answer.result)) {
    answer.type = V_VT(&result);
    answer.value = Shown(result);
  }
  return answer;
}

class DispatchRoadsTest : public HostTest {
 protected:
  // Plain values for a parameter, in its own type; a valid one stands last, and stays.
  std::vector<VARIANT> ValuesFor(ITypeInfo* info, const TYPEDESC& type) {
    switch (type.vt) {
      case VT_PTR:
        return ValuesFor(info, *type.lptdesc);
      case VT_USERDEFINED: {
        ComPtr<ITypeInfo> defined;
        TYPEATTR* attributes = nullptr;
        EXPECT_EQ(info->GetRefTypeInfo(type.hreftype, defined.Receive()), S_OK);
        EXPECT_EQ(defined->GetTypeAttr(&attributes), S_OK);
        const bool is_number = attributes->typekind == TKIND_ENUM;
        const GUID guid = attributes->guid;
        defined->ReleaseTypeAttr(attributes);
        if (is_number) return {Int(0), Int(17), Int(-1), Int(70000), Int(2), Int(3)};
        const auto& object = IsEqualGUID(guid, IID__clsCfgConmut) ? config_ : call_;
        return {Plain(VT_DISPATCH, nullptr), Plain(VT_DISPATCH, object.get())};
      }
      case VT_I4:
        return {Int(0), Int(120), Int(-70000)};
      case VT_I2:
        return {Small(VT_I2, 0), Small(VT_I2, -1), Small(VT_I2, 32767), Small(VT_I2, 12)};
      case VT_UI1:
        return {Small(VT_UI1, 0), Small(VT_UI1, 255), Small(VT_UI1, 5)};
      case VT_BOOL:
        return {Bool(true), Bool(false)};
      case VT_BSTR:
        return {Plain(VT_BSTR, nullptr), Plain(VT_BSTR, text_.get())};
      default:
        ADD_FAILURE() << "no values for type " << type.vt;
        return {};
    }
  }

  // Every list of values that a member may get.
  std::vector<std::vector<VARIANT>> ArgumentsFor(ITypeInfo* info, const FUNCDESC& function) {
    std::vector<std::vector<VARIANT>> lists(1);
    for (int i = 0; i < function.cParams; ++i) {
      std::vector<std::vector<VARIANT>> longer;
      for (const VARIANT& value : ValuesFor(info, function.lprgelemdescParam[i].tdesc)) {
        for (auto list : lists) {
          list.push_back(value);
          longer.push_back(std::move(list));
        }
      }
      lists = std::move(longer);
    }
    return lists;
  }

  void TearDown() override {
    config_ = {};
    call_ = {};
    HostTest::TearDown();
  }

 private:
  // Lent, not owned.
  static VARIANT Plain(VARTYPE type, void* pointer) {
    VARIANT value = Value(type);
    V_BYREF(&value) = pointer;
    return value;
  }
  static VARIANT Small(VARTYPE type, short number) {
    VARIANT value = Value(type);
    V_I2(&value) = number;
    return value;
  }

  ComPtr<IDispatch> config_{NewConfig().get()};
  ComPtr<IDispatch> call_{NewCall().get()};
  const Bstr text_{u"<\u00f1|0>"};  // no file can have this name
};

TEST_F(DispatchRoadsTest, LeadToTheSameAnswers) {
  int calls = 0;
  for (const Class& c : kClasses) {
    const auto own = CreateObject<IDispatch>(*c.clsid, IID_IDispatch);
    const auto twin = CreateObject<IDispatch>(*c.clsid, IID_IDispatch);
    ComPtr<ITypeInfo> info;
    ASSERT_EQ(own->GetTypeInfo(0, LOCALE_USER_DEFAULT, info.Receive()), S_OK);
    FUNCDESC* function = nullptr;
    for (UINT i = 0; SUCCEEDED(info->GetFuncDesc(i, &function)); ++i) {
      const bool skipped = IsInherited(*function) || std::ranges::count(c.windows, function->memid);
      for (const auto& arguments :
           skipped ? std::vector<std::vector<VARIANT>>{} : ArgumentsFor(info.get(), *function)) {
        const DISPID id = function->memid;
        EXPECT_EQ(Ask({own.get(), nullptr}, id, function->invkind, arguments),
                  Ask({twin.get(), info.get()}, id, function->invkind, arguments))
            << "member " << id << " as " << function->invkind;
        if (Assigns(function->invkind)) {  // what has arrived
          auto index = arguments;
          index.pop_back();
          EXPECT_EQ(Ask({own.get(), info.get()}, id, INVOKE_PROPERTYGET, index),
                    Ask({twin.get(), info.get()}, id, INVOKE_PROPERTYGET, index))
              << "member " << id;
        }
        ++calls;
      }
      info->ReleaseFuncDesc(function);
    }
  }
  EXPECT_GT(calls, 350);
}

TEST_F(DispatchRoadsTest, LeadToTheSameNames) {
  for (const Class& c : kClasses) {
    const auto object = CreateObject<IDispatch>(*c.clsid, IID_IDispatch);
    ComPtr<ITypeInfo> info;
    ASSERT_EQ(object->GetTypeInfo(0, LOCALE_USER_DEFAULT, info.Receive()), S_OK);
    FUNCDESC* function = nullptr;
    for (UINT i = 0; SUCCEEDED(info->GetFuncDesc(i, &function)); ++i) {
      BSTR names[8] = {};
      UINT count = 0;
      ASSERT_EQ(info->GetNames(function->memid, names, 8, &count), S_OK);
      // The member alone, then with the names of its arguments.
      for (UINT asked = 1; asked <= count; ++asked) {
        DISPID ours[8] = {}, theirs[8] = {};
        EXPECT_EQ(object->GetIDsOfNames(IID_NULL, names, asked, LOCALE_USER_DEFAULT, ours),
                  info->GetIDsOfNames(names, asked, theirs));
        EXPECT_TRUE(std::equal(ours, ours + asked, theirs)) << "member " << function->memid;
      }
      for (BSTR name : names) SysFreeString(name);
      info->ReleaseFuncDesc(function);
    }
  }
}

TEST_F(DispatchRoadsTest, NamesAreTheSameInEveryLocale) {
  const auto object = NewTranslator();
  for (const LCID locale : {LCID{LOCALE_NEUTRAL}, LCID{0x080A}, LCID{0x041F}, LCID{0x0409}}) {
    for (const wchar_t* spelling : {L"InfoLlamada", L"INFOLLAMADA", L"infollamada"}) {
      std::wstring name(spelling);
      OLECHAR* names[] = {name.data()};
      DISPID id = DISPID_UNKNOWN;
      EXPECT_EQ(object->GetIDsOfNames(IID_NULL, names, 1, locale, &id), S_OK);
      EXPECT_EQ(id, 3);
    }
  }
}

}  // namespace
}  // namespace conmuta::test
