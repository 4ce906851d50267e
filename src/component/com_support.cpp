#include "component/com_support.h"

#include <new>

namespace conmuta::component {

BSTR ToBstr(TextView text) {
  const BSTR copy = SysAllocStringLen(reinterpret_cast<const OLECHAR*>(text.data()),
                                      static_cast<UINT>(text.size()));
  if (copy == nullptr) throw std::bad_alloc();
  return copy;
}

}  // namespace conmuta::component
