// What a test needs to behave like a host in C++: objects made through COM, members called with
// places that hold rubbish, failures with all that they say.
#pragma once

#include <windows.h>

#include <gtest/gtest.h>
#include <oleauto.h>

#include <cstring>
#include <ostream>
#include <string>
#include <type_traits>

#include "component/com_support.h"
#include "component/conmuta_idl.h"

namespace conmuta::test {

using component::ComPtr;
using component::QueryFor;
using component::Variant;

using Cfg = ::_clsCfgConmut;
using Trad = ::_clsTradEST;
using Trd = ::_clsLlamadaTRD;
using Catalogue = ::_clsConmutadores;

// A BSTR of our own to hand in.
class Bstr {
 public:
  explicit Bstr(TextView text)
      : text_(SysAllocStringLen(reinterpret_cast<const OLECHAR*>(text.data()),
                                static_cast<UINT>(text.size()))) {}
  ~Bstr() { SysFreeString(text_); }
  Bstr(const Bstr&) = delete;
  Bstr& operator=(const Bstr&) = delete;
  BSTR get() const { return text_; }

 private:
  BSTR text_;
};

// The text of a BSTR that was handed to us; frees it.
inline Text TakeText(BSTR text) {
  Text taken(component::View(text));
  SysFreeString(text);
  return taken;
}

inline std::wstring Wide(TextView text) {
  return {text.begin(), text.end()};
}
inline Text FromWide(const std::wstring& text) {
  return {text.begin(), text.end()};
}

// What a failed call tells its caller.
struct Failure {
  HRESULT result = S_OK;
  Text source;
  Text description;
  bool operator==(const Failure&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, const Failure& failure) {
  return out << std::hex << "0x" << static_cast<unsigned long>(failure.result) << std::dec
             << " from " << ::testing::PrintToString(failure.source) << ": "
             << ::testing::PrintToString(failure.description);
}

inline constexpr HRESULT kOverflow = static_cast<HRESULT>(0x800A0006);
inline constexpr HRESULT kInvalidArgument = static_cast<HRESULT>(0x800A0005);
inline constexpr HRESULT kObjectNotSet = static_cast<HRESULT>(0x800A005B);

inline const Failure kOverflowFailure{kOverflow, u"Conmuta", u"Desbordamiento"};
inline const Failure kInvalidArgumentFailure{kInvalidArgument, u"Conmuta",
                                             u"Argumento o llamada a procedimiento no válida"};
inline const Failure kObjectNotSetFailure{kObjectNotSet, u"Conmuta",
                                          u"Variable de objeto o de bloque With no establecida"};

// The result of a call with what it left for its caller to fetch; fetching takes it away.
inline Failure FailureOf(HRESULT result) {
  Failure failure{result, {}, {}};
  ComPtr<IErrorInfo> info;
  if (GetErrorInfo(0, info.Receive()) != S_OK) return failure;
  BSTR text = nullptr;
  if (SUCCEEDED(info->GetSource(&text))) failure.source = TakeText(text);
  text = nullptr;
  if (SUCCEEDED(info->GetDescription(&text))) failure.description = TakeText(text);
  return failure;
}

// A plain result: nothing left to fetch.
inline Failure Plain(HRESULT result) {
  return {result, {}, {}};
}

// What a host sees of a value: texts as such, objects with a reference of their own.
template <class Out>
struct Seen {
  using Type = Out;
  static Type Take(Out value) { return value; }
};
template <>
struct Seen<BSTR> {
  using Type = Text;
  static Type Take(BSTR value) { return TakeText(value); }
};
template <class Interface>
struct Seen<Interface*> {
  using Type = ComPtr<Interface>;
  static Type Take(Interface* value) { return Type::Adopt(value); }
};

// A code as hosts may send it, within the enumeration or not.
template <class Enum>
Enum Code(int value) {
  return static_cast<Enum>(value);
}

template <class Out>
void FillWithRubbish(Out& place) {
  std::memset(&place, 0xCD, sizeof place);
}

// Reads a property, into a place full of rubbish.
template <class I, class Out>
auto Read(const ComPtr<I>& object, HRESULT (STDMETHODCALLTYPE I::*member)(Out*)) {
  Out value;
  FillWithRubbish(value);
  EXPECT_EQ((object.get()->*member)(&value), S_OK);
  return Seen<Out>::Take(value);
}
template <class I, class In, class Out>
auto Read(const ComPtr<I>& object, HRESULT (STDMETHODCALLTYPE I::*member)(In, Out*),
          std::type_identity_t<In> argument) {
  Out value;
  FillWithRubbish(value);
  EXPECT_EQ((object.get()->*member)(argument, &value), S_OK);
  return Seen<Out>::Take(value);
}
template <class I>
Text Read(const ComPtr<I>& object, HRESULT (STDMETHODCALLTYPE I::*member)(BSTR, BSTR*),
          TextView argument) = delete;

// Calls a member and expects it to succeed.
template <class I, class... In>
void Do(const ComPtr<I>& object, HRESULT (STDMETHODCALLTYPE I::*member)(In...),
        std::type_identity_t<In>... arguments) {
  EXPECT_EQ((object.get()->*member)(arguments...), S_OK);
}
template <class I>
void Do(const ComPtr<I>& object, HRESULT (STDMETHODCALLTYPE I::*member)(BSTR), TextView text) {
  EXPECT_EQ((object.get()->*member)(Bstr(text).get()), S_OK);
}

// Calls a member and gives what it answers.
template <class I, class... In>
Failure Try(const ComPtr<I>& object, HRESULT (STDMETHODCALLTYPE I::*member)(In...),
            std::type_identity_t<In>... arguments) {
  return FailureOf((object.get()->*member)(arguments...));
}
template <class I>
Failure Try(const ComPtr<I>& object, HRESULT (STDMETHODCALLTYPE I::*member)(BSTR), TextView text) {
  return FailureOf((object.get()->*member)(Bstr(text).get()));
}

// A new object, as every host gets it.
template <class Interface>
ComPtr<Interface> CreateObject(REFCLSID clsid, REFIID iid) {
  ComPtr<Interface> object;
  EXPECT_EQ(CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, iid, object.ReceiveVoid()),
            S_OK);
  return object;
}
inline ComPtr<Cfg> NewConfig() {
  return CreateObject<Cfg>(CLSID_clsCfgConmut, IID__clsCfgConmut);
}
inline ComPtr<Trad> NewTranslator() {
  return CreateObject<Trad>(CLSID_clsTradEST, IID__clsTradEST);
}
inline ComPtr<Trd> NewCall() {
  return CreateObject<Trd>(CLSID_clsLlamadaTRD, IID__clsLlamadaTRD);
}
inline ComPtr<Catalogue> NewCatalogue() {
  return CreateObject<Catalogue>(CLSID_clsConmutadores, IID__clsConmutadores);
}

// Whether two interfaces are of one object.
inline bool IsSame(IUnknown* one, IUnknown* other) {
  return QueryFor<IUnknown>(one, IID_IUnknown).get() ==
         QueryFor<IUnknown>(other, IID_IUnknown).get();
}

}  // namespace conmuta::test
