#include "object/status_text.h"

namespace halyard {
namespace {

struct StatusWords {
  HRESULT code;
  const char* words;
};

constexpr StatusWords kStatusWords[] = {
    {E_NOTIMPL, "this class has no use for the operation"},
    {E_NOINTERFACE, "the object lacks the interface"},
    {E_POINTER, "an object or an out argument is missing"},
    {E_INVALIDARG, "an argument is not valid"},
    {E_OUTOFMEMORY, "there is not enough memory"},
    {E_FAIL, "an internal failure"},
    {DISP_E_TYPEMISMATCH, "the value cannot be converted to the type that is needed"},
    {DISP_E_OVERFLOW, "the value is out of the range of the type that is needed"},
    {DISP_E_BADVARTYPE, "the value is of a type that cannot be used here"},
    {DISP_E_MEMBERNOTFOUND, "there is no such member"},
    {DISP_E_PARAMNOTFOUND, "a parameter is missing"},
    {DISP_E_BADPARAMCOUNT, "the number of parameters is wrong"},
    {REGDB_E_CLASSNOTREG, "the class is not registered"},
    {CLASS_E_NOAGGREGATION, "an aggregated object can only be asked for IUnknown"},
};

}  // namespace

const char* StatusText(HRESULT code) noexcept {
  for (const StatusWords& row : kStatusWords) {
    if (row.code == code) return row.words;
  }
  return "the call failed";
}

}  // namespace halyard
