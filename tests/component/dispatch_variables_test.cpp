// Arguments that are variables of the caller's: script hosts pass them by reference.
#include "host_test.h"
#include "late_bound.h"

namespace conmuta::test {
namespace {

class DispatchVariablesTest : public HostTest {
 protected:
  void TearDown() override {
    config = LateBound(nullptr);
    call = LateBound(nullptr);
    HostTest::TearDown();
  }

  LateBound config{NewConfig().get()};
  LateBound call{NewCall().get()};
};

TEST_F(DispatchVariablesTest, VariablesArePassedWhereValuesAreWanted) {
  Variant variable;
  V_VT(&variable) = VT_BSTR;
  V_BSTR(&variable) = SysAllocString(L"ACME");
  EXPECT_EQ(config.Put(L"Marca", RefVariant(variable)), S_OK);
  EXPECT_EQ(config.GetText(L"Marca"), u"ACME");
  EXPECT_EQ(V_VT(&variable), VT_BSTR);
  short kind = 3;
  EXPECT_EQ(config.Put(L"DATOActivo", Ref(VT_I2, &kind)), S_OK);
  EXPECT_EQ(config.GetInt(L"DATOActivo"), 3);
  VARIANT_BOOL wired = VARIANT_TRUE;
  EXPECT_EQ(config.Put(L"PinesConectados", Ref(VT_BOOL, &wired)), S_OK);
}

TEST_F(DispatchVariablesTest, ScriptVariableIsCoercedAndGetsTheReplacedValue) {
  Variant variable;
  V_VT(&variable) = VT_I2;
  V_I2(&variable) = 7;
  EXPECT_EQ(call.Put(L"TipoLlamada", RefVariant(variable)), S_OK);
  EXPECT_EQ(V_VT(&variable), VT_I4);
  EXPECT_EQ(V_I4(&variable), 1);

  Variant text;
  V_VT(&text) = VT_BSTR;
  V_BSTR(&text) = SysAllocString(L"9");
  EXPECT_EQ(call.Put(L"Atributos", RefVariant(text)), S_OK);
  EXPECT_EQ(V_VT(&text), VT_I4);
  EXPECT_EQ(V_I4(&text), 0);
}

TEST_F(DispatchVariablesTest, TypedVariablesGetTheReplacedValueInTheirType) {
  signed char byte = 7;
  short word = 7;
  unsigned short unsigned_word = 7;
  long number = 7;
  LONGLONG big = 7;
  float single = 7;
  double real = 7;
  CY money{};
  money.int64 = 70000;
  BSTR text = SysAllocString(L"7");
  DECIMAL decimal{};
  decimal.Lo64 = 7;
  VARIANT_BOOL truth = VARIANT_TRUE;  // -1: out of range too

  EXPECT_EQ(call.Put(L"TipoLlamada", Ref(VT_I1, &byte)), S_OK);
  EXPECT_EQ(call.Put(L"TipoLlamada", Ref(VT_I2, &word)), S_OK);
  EXPECT_EQ(call.Put(L"TipoLlamada", Ref(VT_UI2, &unsigned_word)), S_OK);
  EXPECT_EQ(call.Put(L"TipoLlamada", Ref(VT_I4, &number)), S_OK);
  EXPECT_EQ(call.Put(L"TipoLlamada", Ref(VT_I8, &big)), S_OK);
  EXPECT_EQ(call.Put(L"TipoLlamada", Ref(VT_R4, &single)), S_OK);
  EXPECT_EQ(call.Put(L"TipoLlamada", Ref(VT_R8, &real)), S_OK);
  EXPECT_EQ(call.Put(L"TipoLlamada", Ref(VT_CY, &money)), S_OK);
  EXPECT_EQ(call.Put(L"TipoLlamada", Ref(VT_BSTR, &text)), S_OK);
  EXPECT_EQ(call.Put(L"TipoLlamada", Ref(VT_DECIMAL, &decimal)), S_OK);
  EXPECT_EQ(call.Put(L"Atributos", Ref(VT_BOOL, &truth)), S_OK);

  EXPECT_EQ(byte, 1);
  EXPECT_EQ(word, 1);
  EXPECT_EQ(unsigned_word, 1);
  EXPECT_EQ(number, 1);
  EXPECT_EQ(big, 1);
  EXPECT_EQ(single, 1);
  EXPECT_EQ(real, 1);
  EXPECT_EQ(money.int64, 10000);
  EXPECT_EQ(Text(component::View(text)), u"1");
  SysFreeString(text);
  EXPECT_EQ(decimal.Lo64, 1u);
  EXPECT_EQ(decimal.sign, 0);
  EXPECT_EQ(truth, VARIANT_FALSE);
}

// Coercion is the dispatcher's affair: the caller's variable knows nothing of it.
TEST_F(DispatchVariablesTest, ScriptVariableThatIsNotReplacedKeepsItsValueAndType) {
  const auto expect_kept = [](const LateBound& object, const wchar_t* name, VARIANT value,
                              long becomes) {
    Variant variable;
    static_cast<VARIANT&>(variable) = value;
    EXPECT_EQ(object.Put(name, RefVariant(variable)), S_OK);
    EXPECT_EQ(object.GetInt(name), becomes);
    EXPECT_EQ(V_VT(&variable), V_VT(&value)) << name;
    EXPECT_EQ(V_I8(&variable), V_I8(&value)) << name;  // the very same text
  };
  expect_kept(config, L"Caso", Str(u"7"), 7);
  expect_kept(config, L"Caso", Real(3.5), 4);
  expect_kept(config, L"Caso", Int(9), 9);
  expect_kept(config, L"Caso", Bool(true), -1);
  expect_kept(config, L"Caso", Value(VT_EMPTY), 0);
  expect_kept(call, L"TipoLlamada", Str(u"2"), 2);
  expect_kept(call, L"TipoLlamada", Real(2.5), 2);
  expect_kept(call, L"Atributos", Bool(false), 0);
}

TEST_F(DispatchVariablesTest, TypedVariableThatIsNotReplacedKeepsItsValue) {
  double real = 2.4;
  EXPECT_EQ(config.Put(L"Caso", Ref(VT_R8, &real)), S_OK);
  EXPECT_EQ(config.GetInt(L"Caso"), 2);
  EXPECT_EQ(real, 2.4);
  BSTR text = SysAllocString(L" 3 ");
  EXPECT_EQ(call.Put(L"TipoLlamada", Ref(VT_BSTR, &text)), S_OK);
  EXPECT_EQ(call.GetInt(L"TipoLlamada"), 3);
  EXPECT_EQ(Text(component::View(text)), u" 3 ");
  SysFreeString(text);
}

TEST_F(DispatchVariablesTest, VariableOfAFailedCallStaysAsItWas) {
  Variant variable;
  V_VT(&variable) = VT_BSTR;
  V_BSTR(&variable) = SysAllocString(L"abc");
  EXPECT_EQ(call.Put(L"TipoLlamada", RefVariant(variable)), DISP_E_TYPEMISMATCH);
  EXPECT_EQ(V_VT(&variable), VT_BSTR);
  EXPECT_EQ(Text(component::View(V_BSTR(&variable))), u"abc");
}

// Delphi's way of assigning a variant: by reference, as if it were an object.
TEST_F(DispatchVariablesTest, VariableIsAssignedByReferenceWherePropertiesTakeValuesOnly) {
  const auto assign = [](const LateBound& object, const wchar_t* name,
                         std::initializer_list<VARIANT> arguments) {
    return object.Invoke(name, DISPATCH_PROPERTYPUTREF, arguments).result;
  };
  Variant text;
  static_cast<VARIANT&>(text) = Str(u"ACME");
  EXPECT_EQ(assign(config, L"Marca", {RefVariant(text)}), S_OK);
  EXPECT_EQ(config.GetText(L"Marca"), u"ACME");
  Variant number;
  static_cast<VARIANT&>(number) = Str(u"3");
  EXPECT_EQ(assign(config, L"Caso", {RefVariant(number)}), S_OK);
  EXPECT_EQ(config.GetInt(L"Caso"), 3);
  EXPECT_EQ(assign(call, L"Minutos", {Int(3), RefVariant(number)}), S_OK);
  EXPECT_EQ(call.GetInt(L"Ring"), 180);
  short kind = 5;
  EXPECT_EQ(assign(config, L"DATOActivo", {Ref(VT_I2, &kind)}), S_OK);
  EXPECT_EQ(config.GetInt(L"DATOActivo"), 5);

  EXPECT_EQ(assign(config, L"Modificado", {RefVariant(number)}), DISP_E_MEMBERNOTFOUND);
  EXPECT_EQ(assign(config, L"Iniciar", {RefVariant(number)}), DISP_E_MEMBERNOTFOUND);
  EXPECT_EQ(assign(config, L"DATOActivo", {RefVariant(text)}), DISP_E_TYPEMISMATCH);
}

TEST_F(DispatchVariablesTest, ValueIsNotAssignedByReference) {
  EXPECT_EQ(config.Invoke(L"Marca", DISPATCH_PROPERTYPUTREF, {Str(u"ACME")}).result,
            DISP_E_MEMBERNOTFOUND);
  EXPECT_EQ(config.GetText(L"Marca"), u"");
}

}  // namespace
}  // namespace conmuta::test
