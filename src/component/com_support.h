// Owning types for what COM hands around.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <utility>

#include "platform/text.h"

namespace conmuta::component {

// Owns one reference to an interface.
template <class Interface>
class ComPtr {
 public:
  ComPtr() = default;
  explicit ComPtr(Interface* shared) : pointer_(shared) {
    if (pointer_ != nullptr) pointer_->AddRef();
  }
  ComPtr(const ComPtr& other) : ComPtr(other.pointer_) {}
  ComPtr(ComPtr&& other) noexcept : pointer_(std::exchange(other.pointer_, nullptr)) {}
  ComPtr& operator=(ComPtr other) noexcept {
    std::swap(pointer_, other.pointer_);
    return *this;
  }
  ~ComPtr() {
    if (pointer_ != nullptr) pointer_->Release();
  }

  // Takes over a reference that the caller owns.
  static ComPtr Adopt(Interface* owned) {
    ComPtr result;
    result.pointer_ = owned;
    return result;
  }

  Interface* get() const { return pointer_; }
  Interface* operator->() const { return pointer_; }
  explicit operator bool() const { return pointer_ != nullptr; }

  // A place for a function to put an owned reference.
  Interface** Receive() {
    *this = ComPtr();
    return &pointer_;
  }
  void** ReceiveVoid() { return reinterpret_cast<void**>(Receive()); }

  Interface* CopyTo() const {
    if (pointer_ != nullptr) pointer_->AddRef();
    return pointer_;
  }

 private:
  Interface* pointer_ = nullptr;
};

template <class To, class From>
ComPtr<To> QueryFor(From* from, REFIID iid) {
  ComPtr<To> to;
  if (from != nullptr) from->QueryInterface(iid, to.ReceiveVoid());
  return to;
}

// A VARIANT that is cleared when it goes.
class Variant : public VARIANT {
 public:
  Variant() { VariantInit(this); }
  ~Variant() { VariantClear(this); }
  Variant(const Variant&) = delete;
  Variant& operator=(const Variant&) = delete;
};

// A call of the system's or of another object's failed; hosts get its answer.
struct CallFailed {
  HRESULT result;
};
inline void Require(HRESULT result) {
  if (FAILED(result)) throw CallFailed{result};
}

// Null and the empty BSTR are the same text.
inline TextView View(BSTR text) {
  return {reinterpret_cast<const char16_t*>(text), SysStringLen(text)};
}

// std::bad_alloc when there is no memory.
BSTR ToBstr(TextView text);

constexpr VARIANT_BOOL ToVariantBool(bool value) {
  return value ? VARIANT_TRUE : VARIANT_FALSE;
}

}  // namespace conmuta::component
