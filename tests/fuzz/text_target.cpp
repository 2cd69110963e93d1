#include <cstring>
#include <string>

#include "halyard/halyard.h"
#include "platform/native/utf.h"
#include "platform/text.h"
#include "tests/fuzz/support/input.h"
#include "tests/fuzz/support/memory_bound.h"
#include "tests/fuzz/support/promise.h"
#include "tests/fuzz/targets.h"
#include "types/packed_date.h"

namespace halyard::fuzz {
namespace {

constexpr VARTYPE kScalars[] = {VT_I1,  VT_UI1, VT_I2, VT_UI2, VT_I4,   VT_UI4,  VT_I8,
                                VT_UI8, VT_R4,  VT_R8, VT_CY,  VT_DATE, VT_BOOL, VT_BSTR};

// The value as another type; false where there is no such conversion.
bool Convert(const Variant& value, VARTYPE type, Variant& result) {
  return SUCCEEDED(VariantChangeType(result.Out(), const_cast<VARIANT*>(&value.get()), 0, type));
}

// A number made of a text gives a text that is the same number again.
void ConvertText(const Variant& text) {
  for (const VARTYPE type : kScalars) {
    Variant number;
    if (!Convert(text, type, number)) continue;
    Variant shown;
    if (!Convert(number, VT_BSTR, shown)) continue;
    Variant again;
    Hold(Convert(shown, type, again), "the text of a number can be read");
    Variant shown_again;
    Hold(Convert(again, VT_BSTR, shown_again), "a number has a text");
    Hold(Bstr(shown->bstrVal).get() != nullptr && ViewOf(shown->bstrVal) == ViewOf(shown_again->bstrVal),
         "the text of a number is read as the same number");
  }
}

bool IsSurrogate(OLECHAR c) noexcept { return c >= 0xD800 && c <= 0xDFFF; }

// Text that went through a narrow form has as many characters, and each is its own or, where
// `is_lost` says that it may be, the one that stands for what has no such form.
template <class IsLost>
void HoldSame(const WideString& text, const WideString& back, OLECHAR stand_in, IsLost&& is_lost) {
  Hold(text.size() == back.size(), "text keeps its length in another form");
  for (std::size_t i = 0; i < text.size(); ++i)
    Hold(text[i] == back[i] || (back[i] == stand_in && is_lost(i)),
         "a character comes back from another form");
}

void ChangeForm(const WideString& text) {
  HoldSame(text, Widen(Narrow(text)), u'?', [&](std::size_t i) { return text[i] > 0x7F; });
  const WideString back = FromUtf8(ToUtf8(text));
  HoldSame(text, back, kReplacementCharacter, [&](std::size_t i) { return IsSurrogate(text[i]); });
  Hold(FromUtf8(ToUtf8(back)) == back, "text that is well-formed comes back from UTF-8 as it was");
}

void PackDates(Input input) {
  while (!input.AtEnd()) {
    PackedDate packed{};
    const Bytes bytes = input.Take(sizeof packed);
    std::memcpy(&packed, bytes.data(), bytes.size());
    const DATE date = DateFromPacked(packed);
    try {
      const PackedDate first = PackedFromDate(date);
      const PackedDate second = PackedFromDate(DateFromPacked(first));
      Hold(std::memcmp(&first, &second, sizeof first) == 0, "a packed date is read and packed as it was");
    } catch (const Error&) {
    }
  }
}

}  // namespace

void TextTarget(InputBytes bytes) {
  const MemoryBound bound(bytes.size());
  const std::string narrow(bytes.begin(), bytes.end());
  const WideString wide = Widen(narrow);
  Hold(Narrow(wide) == narrow, "narrow text comes back from its wide form");
  ConvertText(Variant(WideView(wide)));
  const WideString text = Input(bytes).Text();
  ChangeForm(text);
  if (text != wide) ConvertText(Variant(WideView(text)));
  PackDates(Input(bytes));
}

}  // namespace halyard::fuzz
