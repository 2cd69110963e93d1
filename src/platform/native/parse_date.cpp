#include "platform/native/parse_date.h"

namespace halyard {

HRESULT ParseDate(WideView, DATE*) noexcept { return DISP_E_TYPEMISMATCH; }

}  // namespace halyard
