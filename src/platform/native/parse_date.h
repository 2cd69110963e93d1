// Texts as dates, in the US English forms of automation.
#pragma once

#include "halyard/platform/wide_text.h"

namespace halyard {

// S_OK, DISP_E_TYPEMISMATCH where the text is no date.
HRESULT ParseDate(WideView text, DATE* date) noexcept;

}  // namespace halyard
