// A standard COM enumerator over a snapshot of items.
#pragma once

#include <windows.h>

#include <algorithm>
#include <atomic>
#include <new>
#include <vector>

#include "component/module.h"

namespace conmuta::component {

// Traits: Interface, Item (what Next hands out), Kept (what the snapshot holds; owns its
// references), kIid, and Item Hand(const Kept&), which gives the caller a reference of its own.
template <class Traits>
class Enumerator final : public Traits::Interface {
 public:
  using Item = typename Traits::Item;
  using Snapshot = std::vector<typename Traits::Kept>;

  explicit Enumerator(Snapshot items, std::size_t next = 0)
      : items_(std::move(items)), next_(next) {}

  STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (!IsEqualGUID(iid, IID_IUnknown) && !IsEqualGUID(iid, Traits::kIid)) return E_NOINTERFACE;
    *object = static_cast<typename Traits::Interface*>(this);
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return static_cast<ULONG>(++references_); }
  STDMETHODIMP_(ULONG) Release() override {
    const long left = --references_;
    if (left == 0) delete this;
    return static_cast<ULONG>(left);
  }

  STDMETHODIMP Next(ULONG count, Item* items, ULONG* fetched) override {
    if (items == nullptr || (fetched == nullptr && count != 1)) return E_POINTER;
    const auto given = std::min<std::size_t>(count, items_.size() - next_);
    for (std::size_t i = 0; i < given; ++i) items[i] = Traits::Hand(items_[next_ + i]);
    next_ += given;
    if (fetched != nullptr) *fetched = static_cast<ULONG>(given);
    return given == count ? S_OK : S_FALSE;
  }
  STDMETHODIMP Skip(ULONG count) override {
    const auto skipped = std::min<std::size_t>(count, items_.size() - next_);
    next_ += skipped;
    return skipped == count ? S_OK : S_FALSE;
  }
  STDMETHODIMP Reset() override {
    next_ = 0;
    return S_OK;
  }
  STDMETHODIMP Clone(typename Traits::Interface** clone) override {
    if (clone == nullptr) return E_POINTER;
    *clone = nullptr;
    try {
      *clone = new Enumerator(items_, next_);
      return S_OK;
    } catch (const std::bad_alloc&) {
      return E_OUTOFMEMORY;
    }
  }

 private:
  const ModuleLock module_lock_;
  std::atomic<long> references_ = 1;
  const Snapshot items_;
  std::size_t next_;
};

}  // namespace conmuta::component
