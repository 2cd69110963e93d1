#include "tests/misuse/odd_variants.h"

#include <limits>

#include "tests/support/definitions.h"
#include "tests/support/foreign.h"

namespace halyard::test {
namespace {

// Types that automation has, in variants or elsewhere, without a content of their own here.
constexpr int kBareTypes[] = {VT_EMPTY, VT_NULL,    VT_I1,      VT_UI1,      VT_I2,    VT_UI2,
                              VT_I4,    VT_UI4,     VT_I8,      VT_UI8,      VT_INT,   VT_UINT,
                              VT_R4,    VT_R8,      VT_CY,      VT_DATE,     VT_BOOL,  VT_BSTR,
                              VT_ERROR, VT_DECIMAL, VT_UNKNOWN, VT_DISPATCH, VT_RECORD};

// Tags that no variant can have: unknown ones, types of other uses, flags that are reserved.
constexpr int kVector = 0x1000;
constexpr int kReserved = 0x8000;
constexpr int kImpossibleTags[] = {15,
                                   24,
                                   25,
                                   30,
                                   31,
                                   64,
                                   72,
                                   0x0FFF,
                                   kVector | VT_I4,
                                   kVector | VT_BSTR,
                                   kReserved,
                                   kReserved | VT_I4,
                                   0xFFFF,
                                   VT_BYREF,
                                   VT_BYREF | VT_EMPTY,
                                   VT_ARRAY | VT_EMPTY};

constexpr int kElementTypes[] = {VT_UI1, VT_I2, VT_I4, VT_R8, VT_BSTR, VT_VARIANT, VT_DISPATCH};

}  // namespace

OddVariants::OddVariants()
    : stranger_(NewForeign<Foreign<IDispatch>>().get()),
      definition_(SimpleDefinition(kLong).get()),
      text_(OLESTR("1")),
      plain_text_(text_.get()) {
  for (const int type : kBareTypes) Add("type " + std::to_string(type), type);
  AddNumbers();
  AddObjects();
  AddReferences();
  AddArrays();
  AddImpossible();
}

VARIANT& OddVariants::Add(std::string name, int type) {
  rows_.push_back({std::move(name), VARIANT{}});
  rows_.back().value.vt = static_cast<VARTYPE>(type);
  return rows_.back().value;
}

void OddVariants::AddNumbers() {
  Add("negative", VT_I4).lVal = -1;
  Add("largest", VT_I4).lVal = std::numeric_limits<LONG>::max();
  Add("smallest", VT_I4).lVal = std::numeric_limits<LONG>::min();
  Add("beyond 32 bits", VT_I8).llVal = std::int64_t{1} << 32;
  Add("no number", VT_R8).dblVal = std::numeric_limits<double>::quiet_NaN();
  Add("without end", VT_R8).dblVal = std::numeric_limits<double>::infinity();
  Add("huge", VT_R8).dblVal = 1e300;
  Add("outside the calendar", VT_DATE).date = 1e9;
  Add("the type of a structure", VT_I2).iVal = kStructure;
  Add("a failure", VT_ERROR).scode = DISP_E_PARAMNOTFOUND;
  Add("a text of a number", VT_BSTR).bstrVal = text_.get();
}

void OddVariants::AddObjects() {
  Add("a stranger", VT_DISPATCH).pdispVal = stranger_.get();
  Add("an unknown stranger", VT_UNKNOWN).punkVal = stranger_.get();
  Add("a definition", VT_DISPATCH).pdispVal = definition_.get();
  Add("an unknown definition", VT_UNKNOWN).punkVal = definition_.get();
}

void OddVariants::AddReferences() {
  inner_.vt = VT_I4;
  inner_.lVal = 1;
  Add("reference to a Short", VT_BYREF | VT_I2).byref = &short_;
  Add("reference to a Long", VT_BYREF | VT_I4).byref = &long_;
  Add("reference to a Real", VT_BYREF | VT_R8).byref = &real_;
  Add("reference to a date", VT_BYREF | VT_DATE).byref = &real_;
  Add("reference to a text", VT_BYREF | VT_BSTR).byref = &plain_text_;
  Add("reference to a variant", VT_BYREF | VT_VARIANT).byref = &inner_;
  Add("reference to no object", VT_BYREF | VT_DISPATCH).byref = &null_object_;
  Add("reference to a decimal", VT_BYREF | VT_DECIMAL).byref = &decimal_;
  Add("reference to no Short", VT_BYREF | VT_I2).byref = nullptr;
  Add("reference to no Long", VT_BYREF | VT_I4).byref = nullptr;
  Add("reference to no Real", VT_BYREF | VT_R8).byref = nullptr;
  Add("reference to no text", VT_BYREF | VT_BSTR).byref = nullptr;
  Add("reference to no place of an object", VT_BYREF | VT_DISPATCH).byref = nullptr;
  Add("reference to no decimal", VT_BYREF | VT_DECIMAL).byref = nullptr;
  Add("reference to no variant", VT_BYREF | VT_VARIANT).byref = nullptr;
  nowhere_.vt = VT_BYREF | VT_I4;
  nowhere_.byref = nullptr;
  Add("reference to a reference to no Long", VT_BYREF | VT_VARIANT).byref = &nowhere_;
}

// Arrays with elements exist where the platform makes them.
void OddVariants::AddArrays() {
  for (const int type : kElementTypes) {
    const std::string name = "array of type " + std::to_string(type);
    Add("no " + name, VT_ARRAY | type);
#ifdef _WIN32
    SAFEARRAY* array = SafeArrayCreateVector(static_cast<VARTYPE>(type), 0, 2);
    Add(name, VT_ARRAY | type).parray = array;
    Add("reference to an " + name, VT_BYREF | VT_ARRAY | type).pparray = &arrays_.emplace_back(array);
#endif
    Add("reference to no " + name, VT_BYREF | VT_ARRAY | type).pparray = &arrays_.emplace_back(nullptr);
    Add("reference to no place of an " + name, VT_BYREF | VT_ARRAY | type).pparray = nullptr;
  }
}

void OddVariants::AddImpossible() {
  for (const int tag : kImpossibleTags) Add("tag " + std::to_string(tag), tag).llVal = 0;
}

OddVariants::~OddVariants() {
#ifdef _WIN32
  for (SAFEARRAY* array : arrays_) {
    if (array != nullptr) SafeArrayDestroy(array);
  }
#endif
}

}  // namespace halyard::test
