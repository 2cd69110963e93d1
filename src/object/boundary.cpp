#include "object/boundary.h"

#include <new>
#include <stdexcept>
#include <string>

#include "object/status_text.h"
#include "platform/text.h"

namespace halyard {
namespace {

// Leaves an error object that reads "Class.Operation: reason." with the source
// "Halyard.Class". Without memory for it, the slot stays empty: the code still tells.
void DescribeFailure(const char* class_name, const char* operation, const char* reason) noexcept {
  SetErrorInfo(0, nullptr);
  try {
    Ptr<ICreateErrorInfo> info;
    if (FAILED(CreateErrorInfo(info.Out()))) return;
    WideString source = Widen(std::string("Halyard.") + class_name);
    WideString description = Widen(std::string(class_name) + "." + operation + ": " + reason + ".");
    info->SetSource(source.data());
    info->SetDescription(description.data());
    SetErrorInfo(0, info.As<IErrorInfo>().get());
  } catch (...) {
    SetErrorInfo(0, nullptr);
  }
}

HRESULT Describe(const char* class_name, const char* operation, HRESULT code) noexcept {
  DescribeFailure(class_name, operation, StatusText(code));
  return code;
}

HRESULT Describe(const char* class_name, const char* operation, const Error& error) noexcept {
  if (error.info()) {
    SetErrorInfo(0, error.info().get());
  } else if (error.reason().empty()) {
    DescribeFailure(class_name, operation, StatusText(error.code()));
  } else {
    DescribeFailure(class_name, operation, error.reason().c_str());
  }
  return error.code();
}

}  // namespace

HRESULT ReportFailure(const char* class_name, const char* operation) noexcept {
  try {
    throw;
  } catch (const Error& error) {
    return Describe(class_name, operation, error);
  } catch (const std::bad_alloc&) {
    return Describe(class_name, operation, E_OUTOFMEMORY);
  } catch (const std::length_error&) {
    return Describe(class_name, operation, E_OUTOFMEMORY);
  } catch (...) {
    return Describe(class_name, operation, E_FAIL);
  }
}

void ReraiseAsOf(const char* class_name, const char* operation) {
  const HRESULT code = ReportFailure(class_name, operation);
  Ptr<IErrorInfo> info;
  if (GetErrorInfo(0, info.Out()) != S_OK) info.Reset();
  throw Error(code, std::move(info));
}

}  // namespace halyard
