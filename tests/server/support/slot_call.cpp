#include "tests/server/support/slot_call.h"

#include <algorithm>
#include <array>
#include <deque>
#include <filesystem>
#include <ostream>

#include "tests/server/support/sample_objects.h"
#include "tests/support/raised.h"
#include "tests/support/variants.h"

namespace halyard::test {
namespace {

constexpr std::size_t kBufferSize = 256;
constexpr SHORT kSampleType = kReal;
constexpr LONG kNoHandle = -1;

bool IsOutput(const Parameter& parameter) {
  return (parameter.flags & (PARAMFLAG_FOUT | PARAMFLAG_FRETVAL)) != 0;
}
bool IsResult(const Parameter& parameter) { return (parameter.flags & PARAMFLAG_FRETVAL) != 0; }

VARIANT Raw(VARTYPE type) {
  VARIANT value{};
  value.vt = type;
  return value;
}

VARIANT Number(VARTYPE type, LONGLONG number) {
  VARIANT value = Raw(type);
  value.llVal = number;
  return value;
}

// The text of what an out argument holds; addresses differ from call to call.
std::string Shown(const VARIANT& value) {
  if (value.vt == VT_DISPATCH || value.vt == VT_UNKNOWN) return value.punkVal == nullptr ? "none" : "object";
  if (value.vt == VT_I8) return value.llVal == 0 ? "no address" : "address";
  Variant text;
  if (FAILED(VariantChangeType(text.Out(), const_cast<VARIANT*>(&value), 0, VT_BSTR))) return Describe(value);
  return Plain(text->bstrVal);
}

// A text for an argument of that name; a file is one that may be written.
WideString SampleText(const std::string& name) {
  if (name == "sFileName")
    return (std::filesystem::temp_directory_path() / L"halyard slot call.orm").wstring();
  return name == "szMemberString" ? L"Depth" : L"sample";
}

// Arguments for one call, and all that they refer to.
class Arguments {
 public:
  explicit Arguments(const FunctionDescription& function) : function_(function) {
    for (const Parameter& parameter : function.parameters) {
      values_.push_back(IsOutput(parameter) ? OutputOf(parameter) : InputOf(parameter));
    }
  }

  // In the order of the declaration.
  [[nodiscard]] std::vector<VARIANT>& values() { return values_; }

  [[nodiscard]] std::vector<std::string> Outputs() const {
    std::vector<std::string> texts;
    for (const Variant& output : outputs_) texts.push_back(Shown(output.get()));
    return texts;
  }

 private:
  VARIANT InputOf(const Parameter& parameter) {
    if (parameter.type == ArgumentType{VT_UI1, 1}) {
      VARIANT buffer = Raw(VT_BYREF | VT_UI1);
      buffer.pbVal = buffer_.data();
      return buffer;
    }
    if (parameter.type.type == VT_BSTR) return TextOf(parameter.name);
    if (parameter.type.type == VT_VARIANT)
      return Number(VT_I2, parameter.name == "vtNumberType" ? kSampleType : 0);
    if (parameter.type.type == VT_USERDEFINED || parameter.type.type == VT_DISPATCH)
      return ObjectOf(parameter);
    if (parameter.name == "nHandle") return Number(VT_I4, kNoHandle);
    if (parameter.name == "dwBufferSize") return Number(VT_UI4, kBufferSize);
    return Number(parameter.type.type, 0);
  }

  VARIANT TextOf(const std::string& name) {
    texts_.emplace_back(SampleText(name));
    VARIANT value = Raw(VT_BSTR);
    value.bstrVal = texts_.back().get();
    return value;
  }

  VARIANT ObjectOf(const Parameter& parameter) {
    objects_.push_back(SampleArgument(parameter.type.interface_id));
    VARIANT value = Raw(VT_DISPATCH);
    value.pdispVal = static_cast<IDispatch*>(objects_.back().get());
    return value;
  }

  VARIANT OutputOf(const Parameter& parameter) {
    const bool is_object = parameter.type.type == VT_USERDEFINED || parameter.type.type == VT_DISPATCH;
    const bool is_variant = parameter.type.type == VT_VARIANT;
    const VARTYPE type = is_object ? VARTYPE{VT_DISPATCH} : parameter.type.type;
    Variant& output = outputs_.emplace_back();
    output.get().vt = is_variant ? VARTYPE{VT_EMPTY} : type;
    VARIANT value = Raw(static_cast<VARTYPE>(VT_BYREF | type));
    value.byref = is_variant ? static_cast<void*>(&output.get()) : static_cast<void*>(&output.get().llVal);
    return value;
  }

  const FunctionDescription& function_;
  std::array<unsigned char, kBufferSize> buffer_{};
  std::deque<Bstr> texts_;
  std::deque<Ptr<IUnknown>> objects_;
  std::deque<Variant> outputs_;
  std::vector<VARIANT> values_;
};

}  // namespace

std::ostream& operator<<(std::ostream& stream, const SlotOutcome& outcome) {
  stream << StatusText(outcome.status);
  for (const std::string& output : outcome.outputs) stream << ", " << output;
  return stream;
}

SlotOutcome CallThroughVtable(IUnknown* object, const FunctionDescription& function) {
  Arguments arguments(function);
  std::vector<VARTYPE> types;
  std::vector<VARIANTARG*> places;
  for (std::size_t i = 0; i != arguments.values().size(); ++i) {
    VARIANT& value = arguments.values()[i];
    const bool is_variant = function.parameters[i].type == ArgumentType{VT_VARIANT};
    types.push_back(is_variant ? VARTYPE{VT_VARIANT} : value.vt);
    places.push_back(&value);
  }
  Variant status;
  Check(DispCallFunc(object, function.vtable_offset, CC_STDCALL, VT_ERROR, static_cast<UINT>(types.size()),
                     types.data(), places.data(), status.Out()));
  return {status->scode, arguments.Outputs()};
}

SlotOutcome CallThroughDispatch(IDispatch* object, const FunctionDescription& function) {
  Arguments arguments(function);
  const bool has_result = !function.parameters.empty() && IsResult(function.parameters.back());
  std::vector<VARIANT> values = arguments.values();
  if (has_result) values.pop_back();
  std::reverse(values.begin(), values.end());

  DISPID put = DISPID_PROPERTYPUT;
  DISPPARAMS params{values.data(), nullptr, static_cast<UINT>(values.size()), 0};
  if (function.kind == INVOKE_PROPERTYPUT) {
    params.rgdispidNamedArgs = &put;
    params.cNamedArgs = 1;
  }
  Variant result;
  EXCEPINFO exception{};
  const HRESULT status =
      object->Invoke(function.id, IID_NULL, LOCALE_USER_DEFAULT, static_cast<WORD>(function.kind), &params,
                     result.Out(), &exception, nullptr);
  const Bstr source = Bstr::Adopt(exception.bstrSource);
  const Bstr description = Bstr::Adopt(exception.bstrDescription);
  const Bstr help = Bstr::Adopt(exception.bstrHelpFile);
  SlotOutcome outcome{status == DISP_E_EXCEPTION ? exception.scode : status, arguments.Outputs()};
  if (has_result && SUCCEEDED(status)) outcome.outputs.back() = Shown(result.get());
  return outcome;
}

}  // namespace halyard::test
