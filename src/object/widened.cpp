#include "object/widened.h"

#include "platform/text.h"

namespace halyard {

Bstr Widened(std::string_view narrow) {
  if (!IsPlainText(narrow)) return Bstr(Widen(narrow));
  Bstr wide = Bstr::Adopt(SysAllocStringLen(nullptr, static_cast<UINT>(narrow.size())));
  if (wide.get() == nullptr) throw std::bad_alloc();
  WidenPlainText(narrow, wide.get());
  return wide;
}

}  // namespace halyard
