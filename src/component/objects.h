// The objects of the public classes, and how one finds the core object behind another.
#pragma once

#include <memory>

#include "component/automation_object.h"
#include "config/clsCfgConmut.h"
#include "translate/clsLlamadaTRD.h"

namespace conmuta::component {

inline constexpr IID kConfigCoreIid = {
    0x39c59098, 0xe47e, 0x46bc, {0xbc, 0x0b, 0x19, 0x1d, 0x8a, 0xcf, 0x25, 0xf6}};
inline constexpr IID kCallCoreIid = {
    0xf3c3763d, 0xde20, 0x48da, {0x8c, 0x84, 0x15, 0x9d, 0xe2, 0x0a, 0xd7, 0x31}};
inline constexpr IID kTranslatorCoreIid = {
    0x25c5ecf6, 0x504a, 0x4fc0, {0xa3, 0x17, 0xed, 0x6b, 0x17, 0x12, 0x81, 0xd4}};
inline constexpr IID kCatalogueCoreIid = {
    0x62c50737, 0xb243, 0x47b9, {0x8a, 0x61, 0xd1, 0x64, 0x67, 0x92, 0xfc, 0xec}};

using ConfigAccess = CoreAccess<clsCfgConmut>;
using CallAccess = CoreAccess<clsLlamadaTRD>;

// What the class table needs: each gives a new object with one reference.
HRESULT CreateCfgConmut(IUnknown** object);
HRESULT CreateTradEST(IUnknown** object);
HRESULT CreateLlamadaTRD(IUnknown** object);
HRESULT CreateConmutadores(IUnknown** object);

// A call record object over a record that something else owns a share of.
ComPtr<_clsLlamadaTRD> WrapCall(std::shared_ptr<clsLlamadaTRD> call);

// For a creation function, with what makes the object: E_OUTOFMEMORY and the like instead of an
// exception.
template <class Make>
HRESULT Create(IUnknown** object, Make&& make) {
  return GuardedResult(nullptr, IID_NULL, object,
                       [&]() -> IUnknown* { return static_cast<IDispatch*>(make()); });
}

}  // namespace conmuta::component
