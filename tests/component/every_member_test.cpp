// A walk over the whole type library: every member does something.
#include <vector>

#include "host_test.h"

namespace conmuta::test {
namespace {

using component::ComPtr;

class EveryMemberTest : public HostTest {
 protected:
  // A window that opens meets the end of the message queue at once, and closes.
  HRESULT Call(IDispatch* object, const FUNCDESC& function, std::vector<VARIANT> arguments) {
    DISPID put = DISPID_PROPERTYPUT;
    const bool puts = (function.invkind & (INVOKE_PROPERTYPUT | INVOKE_PROPERTYPUTREF)) != 0;
    DISPPARAMS parameters{arguments.data(), puts ? &put : nullptr,
                          static_cast<UINT>(arguments.size()), puts ? 1u : 0u};
    component::Variant result;
    EXCEPINFO exception{};
    PostQuitMessage(0);
    const HRESULT called = object->Invoke(function.memid, IID_NULL, LOCALE_USER_DEFAULT,
                                          static_cast<WORD>(function.invkind), &parameters,
                                          puts ? nullptr : &result, &exception, nullptr);
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    }
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrDescription);
    SysFreeString(exception.bstrHelpFile);
    return called == DISP_E_EXCEPTION ? exception.scode : called;
  }

  // Members of the library's own, not those of IUnknown and IDispatch.
  static bool IsOurs(const FUNCDESC& function) {
    return function.memid > 0 && function.memid < 0x1000;
  }

  static std::size_t Arguments(const FUNCDESC& function) {
    std::size_t count = 0;
    for (int i = 0; i < function.cParams; ++i) {
      const auto flags = function.lprgelemdescParam[i].paramdesc.wParamFlags;
      count += (flags & PARAMFLAG_FRETVAL) == 0 ? 1 : 0;
    }
    return count;
  }
};

TEST_F(EveryMemberTest, IsImplemented) {
  int members = 0;
  for (const CLSID& clsid :
       {CLSID_clsCfgConmut, CLSID_clsTradEST, CLSID_clsLlamadaTRD, CLSID_clsConmutadores}) {
    const auto object = CreateObject<IDispatch>(clsid, IID_IDispatch);
    ComPtr<ITypeInfo> info;
    ASSERT_EQ(object->GetTypeInfo(0, LOCALE_USER_DEFAULT, info.Receive()), S_OK);
    FUNCDESC* function = nullptr;
    for (UINT i = 0; SUCCEEDED(info->GetFuncDesc(i, &function)); ++i) {
      if (IsOurs(*function)) {
        ++members;
        VARIANT empty;
        VariantInit(&empty);
        VARIANT nothing = empty;
        V_VT(&nothing) = VT_DISPATCH;
        V_DISPATCH(&nothing) = nullptr;
        HRESULT called =
            Call(object.get(), *function, std::vector<VARIANT>(Arguments(*function), empty));
        if (called == DISP_E_TYPEMISMATCH) {  // it wants an object
          called = Call(object.get(), *function, {nothing});
        }
        EXPECT_NE(called, E_NOTIMPL) << "member " << function->memid;
        EXPECT_NE(called, DISP_E_MEMBERNOTFOUND) << "member " << function->memid;
        EXPECT_NE(called, DISP_E_TYPEMISMATCH) << "member " << function->memid;
        EXPECT_NE(called, DISP_E_BADPARAMCOUNT) << "member " << function->memid;
      }
      info->ReleaseFuncDesc(function);
    }
  }
  EXPECT_EQ(members, 117);  // reading and writing a property are two
}

}  // namespace
}  // namespace conmuta::test
