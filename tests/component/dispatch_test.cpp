// Members found by name and called with variants, as script engines and late bound hosts do.
#include "host_test.h"
#include "late_bound.h"

namespace conmuta::test {
namespace {

constexpr WORD kCall = DISPATCH_METHOD | DISPATCH_PROPERTYGET;

class DispatchTest : public HostTest {
 protected:
  void TearDown() override {
    config = LateBound(nullptr);
    call = LateBound(nullptr);
    translator = LateBound(nullptr);
    HostTest::TearDown();
  }

  LateBound config{NewConfig().get()};
  LateBound call{NewCall().get()};
  LateBound translator{NewTranslator().get()};
};

TEST_F(DispatchTest, NamesAreFoundInAnyCase) {
  EXPECT_EQ(config.Id(L"Iniciar"), 1);
  EXPECT_EQ(config.Id(L"INICIAR"), 1);
  EXPECT_EQ(config.Id(L"marca"), 10);
  EXPECT_EQ(config.Id(L"edconfigseriales"), 40);
  EXPECT_EQ(translator.Id(L"traducenortelnorstar0X32smdr6"), 6);
  EXPECT_EQ(call.Id(L"COPIALLAMADA"), 22);
}

TEST_F(DispatchTest, UnknownNamesAreRefused) {
  const auto object = NewConfig();
  std::wstring member(L"Inexistente");
  OLECHAR* names[] = {member.data()};
  DISPID id = 5;
  EXPECT_EQ(object->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id),
            DISP_E_UNKNOWNNAME);
  EXPECT_EQ(id, DISPID_UNKNOWN);
}

TEST_F(DispatchTest, NamesNeedAPlace) {
  const auto object = NewConfig();
  std::wstring member(L"Marca");
  OLECHAR* names[] = {member.data()};
  DISPID id = 5;
  EXPECT_EQ(object->GetIDsOfNames(IID_NULL, nullptr, 1, 0, &id), E_POINTER);
  EXPECT_EQ(object->GetIDsOfNames(IID_NULL, names, 1, 0, nullptr), E_POINTER);
}

TEST_F(DispatchTest, NamesOfArgumentsAreFound) {
  const auto object = NewConfig();
  std::wstring member(L"ObtNombreCaso"), argument(L"EMC");
  OLECHAR* names[] = {member.data(), argument.data()};
  DISPID ids[2] = {5, 5};
  EXPECT_EQ(object->GetIDsOfNames(IID_NULL, names, 2, LOCALE_USER_DEFAULT, ids), S_OK);
  EXPECT_EQ(ids[0], 9);
  EXPECT_EQ(ids[1], 0);
}

TEST_F(DispatchTest, UnknownMembersAreRefused) {
  for (const DISPID id :
       std::initializer_list<DISPID>{DISPID_VALUE, DISPID_UNKNOWN, DISPID_NEWENUM, 41}) {
    EXPECT_EQ(config.InvokeNamed(id, kCall, {}, {}).result, DISP_E_MEMBERNOTFOUND) << id;
  }
}

TEST_F(DispatchTest, ReadOnlyPropertyIsNotWritten) {
  for (const WORD flags : {WORD{DISPATCH_PROPERTYPUT}, WORD{DISPATCH_PROPERTYPUTREF},
                           WORD{DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF}}) {
    EXPECT_EQ(config.Invoke(L"HayConfig", flags, {Bool(true)}).result, DISP_E_MEMBERNOTFOUND);
  }
  EXPECT_EQ(config.Put(L"Modificado", Bool(true)), DISP_E_MEMBERNOTFOUND);
  EXPECT_EQ(config.Put(L"Version", Int(2)), DISP_E_MEMBERNOTFOUND);
}

TEST_F(DispatchTest, ReservedInterfaceMustBeNull) {
  const auto object = NewConfig();
  DISPPARAMS none{};
  EXPECT_EQ(object->Invoke(1, IID_IDispatch, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr),
            DISP_E_UNKNOWNINTERFACE);
}

TEST_F(DispatchTest, ValuesComeInTheirOwnTypes) {
  EXPECT_EQ(config.GetInt(L"Modificado", VT_BOOL), 0);
  EXPECT_EQ(config.GetInt(L"IDCfg", VT_I4), 0);
  EXPECT_EQ(config.GetInt(L"Version", VT_I4), 3);
  EXPECT_EQ(config.GetInt(L"DATOPos", VT_UI1), 0);
  EXPECT_EQ(config.GetInt(L"TamMaxComentarios", VT_I2), 250);
  EXPECT_EQ(config.GetText(L"NombreConmutador"), u"Desconocido");
  EXPECT_EQ(call.GetInt(L"Fecha", VT_DATE), -657434);
  EXPECT_EQ(call.GetInt(L"Duracion", VT_I4), 0);
  Variant value;
  EXPECT_EQ(
      call.Invoke(L"AjustarHoraVespertina12Hrs24Hrs", DISPATCH_METHOD, {Int(1)}, &value).result,
      S_OK);
  EXPECT_EQ(V_VT(&value), VT_EMPTY);
}

TEST_F(DispatchTest, ResultMayBeUnwanted) {
  EXPECT_EQ(config.Invoke(L"NombreConmutador", kCall, {}).result, S_OK);
  EXPECT_EQ(config.Invoke(L"ObtDescDATO", DISPATCH_METHOD, {Int(2)}).result, S_OK);
  EXPECT_EQ(config.Invoke(L"Iniciar", kCall, {}).result, S_OK);
}

TEST_F(DispatchTest, TextsKeepTheirNuls) {
  EXPECT_EQ(translator.Put(L"Llamada", Str(TextView(u"A\0ñ", 3))), S_OK);
  EXPECT_EQ(translator.GetText(L"Llamada"), Text(u"A\0ñ", 3));
}

TEST_F(DispatchTest, ArgumentsAreCoerced) {
  EXPECT_EQ(config.Put(L"Marca", Int(5)), S_OK);
  EXPECT_EQ(config.GetText(L"Marca"), u"5");
  EXPECT_EQ(config.Put(L"Marca", Value(VT_EMPTY)), S_OK);
  EXPECT_EQ(config.GetText(L"Marca"), u"");
  EXPECT_EQ(config.Put(L"DATOActivo", Str(u"2")), S_OK);
  EXPECT_EQ(config.GetInt(L"DATOActivo"), 2);
  EXPECT_EQ(config.Put(L"DATOPos", Real(2.5)), S_OK);
  EXPECT_EQ(config.GetInt(L"DATOPos", VT_UI1), 2);
  EXPECT_EQ(config.Put(L"DATOPos", Real(3.5)), S_OK);
  EXPECT_EQ(config.GetInt(L"DATOPos", VT_UI1), 4);
  EXPECT_EQ(config.Put(L"PuertoActivo", Int(1)), S_OK);
  EXPECT_EQ(config.Put(L"PinIZQ", Str(u" 3 ")), S_OK);
  EXPECT_EQ(config.Put(L"PinDER", Real(2)), S_OK);
  EXPECT_EQ(config.Put(L"PinesConectados", Int(7)), S_OK);
  EXPECT_EQ(config.GetInt(L"PinesConectados", VT_BOOL), -1);
  EXPECT_EQ(call.Put(L"Minutos", Str(u"3"), Str(u"2")), S_OK);
  EXPECT_EQ(call.GetInt(L"Ring"), 120);
}

TEST_F(DispatchTest, ValueBeyondItsTypeOverflowsAndChangesNothing) {
  EXPECT_EQ(config.Put(L"DATOActivo", Int(2)), S_OK);
  EXPECT_EQ(config.Put(L"DATOPos", Int(5)), S_OK);
  for (const VARIANT& value : {Int(300), Int(-1), Int(256), Real(255.6), Str(u"300")}) {
    const Outcome outcome = config.Invoke(L"DATOPos", DISPATCH_PROPERTYPUT, {value});
    EXPECT_EQ(outcome.result, DISP_E_OVERFLOW);
    EXPECT_EQ(outcome.bad_argument, 0u);
  }
  EXPECT_EQ(config.GetInt(L"DATOPos", VT_UI1), 5);
  EXPECT_EQ(config.Put(L"PinIZQ", Int(40000)), DISP_E_OVERFLOW);
  EXPECT_EQ(config.Put(L"IDCfg", Real(1e10)), DISP_E_OVERFLOW);
  EXPECT_EQ(call.Put(L"Horas", Int(1), Int(32768)), DISP_E_OVERFLOW);
  EXPECT_EQ(call.Put(L"Ring", Real(3e9)), DISP_E_OVERFLOW);
}

TEST_F(DispatchTest, ValueOfAnotherKindIsATypeMismatchAndChangesNothing) {
  EXPECT_EQ(config.Put(L"DATOActivo", Int(2)), S_OK);
  EXPECT_EQ(config.Put(L"DATOPos", Int(5)), S_OK);
  for (const VARIANT& value : {Str(u"abc"), Str(u""), Value(VT_NULL)}) {
    const Outcome outcome = config.Invoke(L"DATOPos", DISPATCH_PROPERTYPUT, {value});
    EXPECT_EQ(outcome.result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(outcome.bad_argument, 0u);
  }
  EXPECT_EQ(config.GetInt(L"DATOPos", VT_UI1), 5);
  EXPECT_EQ(config.Put(L"Marca", Value(VT_NULL)), DISP_E_TYPEMISMATCH);
  const Outcome second = call.Invoke(L"Horas", DISPATCH_PROPERTYPUT, {Str(u"x"), Int(2)});
  EXPECT_EQ(second.result, DISP_E_TYPEMISMATCH);
  EXPECT_EQ(second.bad_argument, 1u);
}

TEST_F(DispatchTest, PropertyByReferenceTakesAPlainValue) {
  EXPECT_EQ(config.Put(L"Caso", Int(2)), S_OK);
  EXPECT_EQ(config.GetInt(L"Caso"), 2);
  EXPECT_EQ(config.Put(L"Caso", Str(u"3")), S_OK);
  EXPECT_EQ(config.GetInt(L"Caso"), 3);
  EXPECT_EQ(call.Put(L"TipoLlamada", Int(7)), S_OK);
  EXPECT_EQ(call.GetInt(L"TipoLlamada"), 1);
  EXPECT_EQ(call.Put(L"TipoLlamada", Str(u"abc")), DISP_E_TYPEMISMATCH);
  EXPECT_EQ(call.Put(L"TipoLlamada", Real(1e10)), DISP_E_OVERFLOW);
  EXPECT_EQ(call.GetInt(L"TipoLlamada"), 1);
}

// Asking for the editor may say whether it may change anything; who says nothing only looks.
TEST_F(DispatchTest, ArgumentThatIsOptionalMayBeLeftOut) {
  const auto edit = [&](std::initializer_list<VARIANT> arguments, std::vector<DISPID> names) {
    PostQuitMessage(0);  // the window closes at once
    const HRESULT result =
        config.InvokeNamed(config.Id(L"EDConfigSeriales"), DISPATCH_METHOD, arguments, names)
            .result;
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    }
    return result;
  };
  EXPECT_EQ(edit({}, {}), S_OK);
  EXPECT_EQ(edit({Missing()}, {0}), S_OK);
}

void ExpectWrongCount(const LateBound& object, const wchar_t* name, WORD flags,
                      std::initializer_list<VARIANT> arguments) {
  EXPECT_EQ(object.Invoke(name, flags, arguments).result, DISP_E_BADPARAMCOUNT)
      << name << " with " << arguments.size() << " arguments";
}

TEST_F(DispatchTest, TooFewArgumentsAreRefused) {
  ExpectWrongCount(config, L"ObtNombreCaso", DISPATCH_METHOD, {});
  ExpectWrongCount(config, L"Abrir", DISPATCH_METHOD, {});
  ExpectWrongCount(call, L"Horas", DISPATCH_PROPERTYGET, {});
  ExpectWrongCount(call, L"Horas", DISPATCH_PROPERTYPUT, {Int(1)});
}

TEST_F(DispatchTest, TooManyArgumentsAreRefused) {
  ExpectWrongCount(config, L"ObtNombreCaso", DISPATCH_METHOD, {Int(1), Int(2)});
  ExpectWrongCount(config, L"Marca", DISPATCH_PROPERTYPUT, {Int(1), Str(u"x")});
  ExpectWrongCount(call, L"Horas", kCall, {Int(1), Int(2)});
  ExpectWrongCount(call, L"Horas", kCall, {Int(1), Int(2), Int(3), Int(4), Int(5), Int(6)});
  EXPECT_EQ(config.GetText(L"Marca"), u"");
}

TEST_F(DispatchTest, ArgumentsForAMemberWithoutAnyAreRefused) {
  EXPECT_EQ(config.Put(L"Marca", Str(u"ACME")), S_OK);
  ExpectWrongCount(config, L"Iniciar", DISPATCH_METHOD, {Int(1)});
  ExpectWrongCount(config, L"Iniciar", DISPATCH_METHOD,
                   {Int(1), Int(2), Int(3), Int(4), Int(5), Int(6)});
  EXPECT_EQ(config.GetText(L"Marca"), u"ACME");
  ExpectWrongCount(config, L"Modificado", kCall, {Int(1)});
}

TEST_F(DispatchTest, ArgumentThatIsNeededCannotBeLeftOut) {
  const Outcome outcome = config.Invoke(L"ObtNombreCaso", DISPATCH_METHOD, {Missing()});
  EXPECT_EQ(outcome.result, DISP_E_TYPEMISMATCH);
  EXPECT_EQ(outcome.bad_argument, 0u);
  EXPECT_EQ(config.Put(L"Caso", Missing()), DISP_E_TYPEMISMATCH);
}

TEST_F(DispatchTest, AssignmentSaysWhichArgumentIsTheValue) {
  EXPECT_EQ(config.InvokeNamed(config.Id(L"Marca"), DISPATCH_PROPERTYPUT, {Str(u"x")}, {}).result,
            DISP_E_PARAMNOTFOUND);
}

TEST_F(DispatchTest, ArgumentsMayBeNamed) {
  Variant value;
  EXPECT_EQ(config.InvokeNamed(9, DISPATCH_METHOD, {Int(3)}, {0}, &value).result, S_OK);
  EXPECT_EQ(Text(component::View(V_BSTR(&value))), u"Caso del Nortel Meridian");
  EXPECT_EQ(call.Put(L"Horas", Int(1), Int(8)), S_OK);
  EXPECT_EQ(call.InvokeNamed(call.Id(L"AjustarHoraVespertina12Hrs24Hrs"), DISPATCH_METHOD,
                             {Str(u"1")}, {0})
                .result,
            S_OK);
  Variant hours;
  EXPECT_EQ(call.InvokeNamed(call.Id(L"Horas"), kCall, {Int(1)}, {0}, &hours).result, S_OK);
  EXPECT_EQ(V_VT(&hours), VT_I2);
  EXPECT_EQ(V_I2(&hours), 20);
}

TEST_F(DispatchTest, NameThatNoArgumentHasIsRefused) {
  Variant value;
  for (const DISPID name : {7, -1, DISPID_PROPERTYPUT}) {
    EXPECT_EQ(config.InvokeNamed(9, DISPATCH_METHOD, {Int(3)}, {name}, &value).result,
              DISP_E_BADPARAMCOUNT);
  }
}

TEST_F(DispatchTest, IndexedPropertiesAreReadAndWritten) {
  EXPECT_EQ(call.Put(L"Anio", Int(2), Int(1999)), S_OK);
  for (const WORD flags : {WORD{DISPATCH_PROPERTYGET}, kCall}) {
    Variant value;
    EXPECT_EQ(call.Invoke(L"Anio", flags, {Int(2)}, &value).result, S_OK);
    EXPECT_EQ(V_VT(&value), VT_I2);
    EXPECT_EQ(V_I2(&value), 1999);
  }
}

TEST_F(DispatchTest, ErrorsCarryNumberSourceAndDescription) {
  Outcome outcome = call.Invoke(L"Horas", DISPATCH_PROPERTYPUT, {Int(3), Int(10)});
  EXPECT_EQ(outcome.result, DISP_E_EXCEPTION);
  EXPECT_EQ(outcome.exception, kOverflowFailure);
  outcome = config.Invoke(L"GuardarComo", DISPATCH_METHOD, {Str(u"")});
  EXPECT_EQ(outcome.result, DISP_E_EXCEPTION);
  EXPECT_EQ(outcome.exception,
            (Failure{static_cast<HRESULT>(0x800405DD), u"clsConfigConmut.Exportar",
                     u"No es posible encontrar el archivo deseado."}));
  outcome = translator.Invoke(L"TraduceEstandar", DISPATCH_METHOD, {});
  EXPECT_EQ(outcome.result, DISP_E_EXCEPTION);
  EXPECT_EQ(outcome.exception, kObjectNotSetFailure);
}

TEST_F(DispatchTest, CallWithoutArgumentsNeedsToSaySo) {
  const auto object = NewConfig();
  EXPECT_EQ(object->Invoke(1, IID_NULL, 0, DISPATCH_METHOD, nullptr, nullptr, nullptr, nullptr),
            E_INVALIDARG);
}

TEST_F(DispatchTest, FailureIsKnownWithoutAskingForDetails) {
  const auto object = NewTranslator();
  DISPPARAMS none{};
  EXPECT_TRUE(
      FAILED(object->Invoke(4, IID_NULL, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr)));
}

TEST_F(DispatchTest, ConfigurationIsAssignedEitherWay) {
  const auto object = NewConfig();
  for (const WORD flags : {WORD{DISPATCH_PROPERTYPUTREF}, WORD{DISPATCH_PROPERTYPUT},
                           WORD{DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF}}) {
    EXPECT_EQ(translator.Invoke(L"Conmutador", flags, {Obj(nullptr)}).result, S_OK);
    EXPECT_FALSE(translator.GetObject(L"Conmutador"));
    EXPECT_EQ(translator.Invoke(L"Conmutador", flags, {Obj(object.get())}).result, S_OK);
    EXPECT_TRUE(IsSame(translator.GetObject(L"Conmutador").get(), object.get()));
    // What JScript passes for nothing.
    EXPECT_EQ(translator.Invoke(L"Conmutador", flags, {Value(VT_NULL)}).result, S_OK);
    EXPECT_FALSE(translator.GetObject(L"Conmutador"));
  }
}

TEST_F(DispatchTest, ObjectMayComeInAVariable) {
  const auto object = NewConfig();
  Variant variable;
  static_cast<VARIANT&>(variable) = Obj(object.get());
  EXPECT_EQ(
      translator.Invoke(L"Conmutador", DISPATCH_PROPERTYPUTREF, {RefVariant(variable)}).result,
      S_OK);
  EXPECT_TRUE(IsSame(translator.GetObject(L"Conmutador").get(), object.get()));
  EXPECT_EQ(translator.Put(L"Conmutador", Value(VT_NULL)), S_OK);
  IDispatch* typed = object.get();
  EXPECT_EQ(
      translator.Invoke(L"Conmutador", DISPATCH_PROPERTYPUTREF, {Ref(VT_DISPATCH, &typed)}).result,
      S_OK);
  EXPECT_TRUE(IsSame(translator.GetObject(L"Conmutador").get(), object.get()));
  IUnknown* unknown = object.get();
  EXPECT_EQ(
      translator.Invoke(L"Conmutador", DISPATCH_PROPERTYPUTREF, {Ref(VT_UNKNOWN, &unknown)}).result,
      S_OK);
}

TEST_F(DispatchTest, WhatIsNoConfigurationIsATypeMismatch) {
  const auto wrong = NewCall();
  for (const WORD flags : {WORD{DISPATCH_PROPERTYPUTREF}, WORD{DISPATCH_PROPERTYPUT}}) {
    for (const VARIANT& value : {Obj(wrong.get()), Int(5), Str(u"x"), Value(VT_EMPTY)}) {
      EXPECT_EQ(translator.Invoke(L"Conmutador", flags, {value}).result, DISP_E_TYPEMISMATCH);
    }
  }
  EXPECT_FALSE(translator.GetObject(L"Conmutador"));
}

TEST_F(DispatchTest, WhatIsNoCallIsATypeMismatch) {
  const auto wrong = NewConfig();
  for (const VARIANT& value : {Obj(wrong.get()), Int(5), Str(u"x")}) {
    EXPECT_EQ(call.Invoke(L"CopiaLlamada", DISPATCH_METHOD, {value}).result, DISP_E_TYPEMISMATCH);
  }
  for (const VARIANT& value : {Obj(nullptr), Value(VT_NULL)}) {
    const Outcome outcome = call.Invoke(L"CopiaLlamada", DISPATCH_METHOD, {value});
    EXPECT_EQ(outcome.result, DISP_E_EXCEPTION);
    EXPECT_EQ(outcome.exception, kObjectNotSetFailure);
  }
}

TEST_F(DispatchTest, ObjectsComeBackAsTheSameObjects) {
  EXPECT_TRUE(IsSame(translator.GetObject(L"InfoLlamada").get(),
                     translator.GetObject(L"infollamada").get()));
}

}  // namespace
}  // namespace conmuta::test
