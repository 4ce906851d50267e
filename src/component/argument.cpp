#include "component/argument.h"

namespace conmuta::component {
namespace {

Word WordOf(const VARIANT& value) {
  switch (V_VT(&value)) {
    case VT_UI1:
      return V_UI1(&value);
    case VT_I2:
    case VT_BOOL:
      return static_cast<Word>(V_I2(&value));
    case VT_I4:
      return static_cast<Word>(V_I4(&value));
    default:  // texts and objects
      return reinterpret_cast<Word>(V_BYREF(&value));
  }
}

}  // namespace

VARIANT& Argument::Source() const {
  return V_VT(given_) == (VT_BYREF | VT_VARIANT) ? *V_VARIANTREF(given_) : *given_;
}

HRESULT Argument::Take(VARIANT& given) {
  given_ = &given;
  if (wanted_.type == VT_DISPATCH) return TakeObject();
  // A variable of the caller's may change during the call, a value does not.
  is_borrowed_ = V_VT(&given) == wanted_.type && !wanted_.by_reference;
  return is_borrowed_ ? S_OK : VariantChangeType(&value_, &Source(), 0, wanted_.type);
}

HRESULT Argument::TakeObject() {
  IUnknown* object = nullptr;
  switch (const VARIANT& source = Source(); V_VT(&source)) {
    case VT_NULL:
      break;
    case VT_DISPATCH:
    case VT_UNKNOWN:
      object = V_UNKNOWN(&source);
      break;
    case VT_BYREF | VT_DISPATCH:
    case VT_BYREF | VT_UNKNOWN:
      object = *V_UNKNOWNREF(&source);
      break;
    default:
      return DISP_E_TYPEMISMATCH;
  }
  const auto typed = QueryFor<IDispatch>(object, wanted_.iid);
  if (object != nullptr && !typed) return DISP_E_TYPEMISMATCH;
  V_VT(&value_) = VT_DISPATCH;
  V_DISPATCH(&value_) = typed.CopyTo();
  return S_OK;
}

Word Argument::Pass() {
  if (!wanted_.by_reference) return WordOf(is_borrowed_ ? *given_ : value_);
  before_ = WordOf(value_);
  return reinterpret_cast<Word>(&V_NONE(&value_));
}

HRESULT Argument::WriteBack() {
  if (!wanted_.by_reference || given_ == nullptr || !V_ISBYREF(given_)) return S_OK;
  if (WordOf(value_) == before_) return S_OK;
  if (V_VT(given_) == (VT_BYREF | VT_VARIANT)) return VariantCopy(V_VARIANTREF(given_), &value_);
  Variant back;
  const auto type = static_cast<VARTYPE>(V_VT(given_) & ~VT_BYREF);
  const HRESULT result = VariantChangeType(&back, &value_, 0, type);
  if (SUCCEEDED(result)) Store(back, type);
  return result;
}

// Puts a plain value where the caller's pointer points.
void Argument::Store(Variant& value, VARTYPE type) {
  switch (type) {
    case VT_I1:
    case VT_UI1:
      *V_UI1REF(given_) = V_UI1(&value);
      break;
    case VT_I2:
    case VT_UI2:
    case VT_BOOL:
      *V_I2REF(given_) = V_I2(&value);
      break;
    case VT_I8:
    case VT_UI8:
    case VT_R8:
    case VT_CY:
    case VT_DATE:
      *V_I8REF(given_) = V_I8(&value);
      break;
    case VT_BSTR:
      std::swap(*V_BSTRREF(given_), V_BSTR(&value));
      break;
    case VT_DECIMAL:
      *V_DECIMALREF(given_) = V_DECIMAL(&value);
      V_DECIMALREF(given_)->wReserved = 0;
      break;
    default:  // the four-byte types
      *V_I4REF(given_) = V_I4(&value);
  }
}

}  // namespace conmuta::component
