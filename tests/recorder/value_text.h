// Variants as short texts, exactly: the notation of the conversion table.
//
//   EMPTY  NULL                      no value
//   I4:-5  UI8:7  BOOL:-1  CY:15000  whole numbers (CY in ten-thousandths)
//   R8:3FF8000000000000  DATE:...    the bits of a floating-point number, in hex
//   ERROR:80020004                   a status, in hex
//   DECIMAL:80.02.00000000.0000000000000096   sign, scale, high and low part, in hex
//   BSTR:"a\u00e9\\"                 a text; \uXXXX for all but printable ASCII
//   DISPATCH:null  UNKNOWN:null      no object
//   DISPATCH:{I4:5}  UNKNOWN:{I4:5}  an object whose default member has this value
//   DISPATCH:{!8002000E}             an object whose default member fails
//   TAG:2003                         any other tag (hex), with a value of zero bits
//   &V                               VT_BYREF: a reference to the value V
//   *V                               VT_BYREF | VT_VARIANT: a reference to the variant V
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "halyard/platform/automation.h"

namespace halyard::recorder {

// A variant with everything that it refers to; cleared when destroyed.
class Value {
 public:
  Value() { VariantInit(&variant); }
  Value(const Value&) = delete;
  Value& operator=(const Value&) = delete;
  ~Value();

  VARIANT variant;

  // What references point at.
  std::vector<std::unique_ptr<Value>> targets;
};

// Reads the notation. False where the text is not of it.
bool ParseValue(std::string_view text, Value* value);

// Writes the notation; objects are only told from null.
std::string FormatValue(const VARIANT& value);

// A tag by its name or, where it has none, as four hex digits.
bool ParseType(std::string_view text, VARTYPE* type);
std::string FormatType(VARTYPE type);

// Hexadecimal numbers with as many digits as asked for.
bool ParseHex(std::string_view text, unsigned long long* value);
std::string FormatHex(unsigned long long value, int digits);

}  // namespace halyard::recorder
