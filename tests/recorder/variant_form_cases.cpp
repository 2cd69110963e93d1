#include "tests/recorder/cases.h"
#include "tests/recorder/notation.h"

namespace halyard::recorder {
namespace {

constexpr std::string_view kSamples[] = {
    "I1:-5",
    "I2:-300",
    "I4:70000",
    "I8:-5000000000",
    "INT:7",
    "UI1:200",
    "UI2:65535",
    "UI4:4000000000",
    "UI8:18446744073709551615",
    "UINT:9",
    "R4:40200000",
    "R8:4004000000000000",
    "CY:25000",
    "CY:-123456",
    "DATE:40E2A15AEFE25AE9",
    "DATE:0000000000000000",
    "DECIMAL:80.01.00000000.0000000000000019",
    "BSTR:\"12.5\"",
    "BSTR:\"\"",
    "BSTR:null",
    "BOOL:-1",
    "BOOL:0",
    "ERROR:80020004",
    "DISPATCH:null",
    "DISPATCH:{I4:5}",
    "UNKNOWN:null",
    "UNKNOWN:{I4:5}",
};

constexpr std::string_view kTargets[] = {"EMPTY", "NULL",  "UI1",      "I2",     "I4",      "I8",
                                         "R4",    "R8",    "CY",       "DATE",   "DECIMAL", "BSTR",
                                         "BOOL",  "ERROR", "DISPATCH", "UNKNOWN"};

constexpr std::string_view kObjects[] = {
    "DISPATCH:{EMPTY}",
    "DISPATCH:{NULL}",
    "DISPATCH:{I2:12}",
    "DISPATCH:{R8:4004000000000000}",
    "DISPATCH:{BSTR:\"3/15/2004\"}",
    "DISPATCH:{BSTR:\"17\"}",
    "DISPATCH:{BOOL:-1}",
    "DISPATCH:{CY:25000}",
    "DISPATCH:{DECIMAL:00.01.00000000.0000000000000019}",
    "DISPATCH:{ERROR:80020004}",
    "DISPATCH:{DATE:40E2A15AEFE25AE9}",
    "DISPATCH:{!8002000E}",
    "DISPATCH:{!80004005}",
    "DISPATCH:{!80020003}",
    "DISPATCH:{!8007000E}",
    "DISPATCH:{!80020009}",
    "DISPATCH:{DISPATCH:{I4:5}}",
    "DISPATCH:{DISPATCH:null}",
    "DISPATCH:{UNKNOWN:null}",
    "DISPATCH:{I4:70000}",
    "UNKNOWN:{BSTR:\"17\"}",
};

// Tags beyond the ones that conversions know, with and without their modifiers.
void AddTags(Requests* requests) {
  constexpr unsigned kModifiers[] = {0, 0x1000, 0x2000, 0x4000, 0x6000, 0x8000, 0x3000};
  for (const unsigned modifier : kModifiers) {
    for (unsigned base = 0; base < 72; ++base) {
      requests->push_back("clear TAG:" + FormatHex(modifier | base, 4));
      requests->push_back(Convert(FormatHex(modifier | base, 4), "I4:5"));
    }
    for (const unsigned base : {0x0FFFu, 0x0FFEu, 0x0100u}) {
      requests->push_back("clear TAG:" + FormatHex(modifier | base, 4));
      requests->push_back(Convert(FormatHex(modifier | base, 4), "I4:5"));
    }
  }
  for (unsigned base = 0; base < 72; ++base) {
    for (const unsigned modifier : {0u, 0x1000u, 0x2000u, 0x8000u}) {
      requests->push_back("copy TAG:" + FormatHex(modifier | base, 4));
      requests->push_back("copyind TAG:" + FormatHex(modifier | base, 4));
      requests->push_back(Convert("I4", "TAG:" + FormatHex(modifier | base, 4)));
    }
  }
}

}  // namespace

void AddVariantForms(Requests* requests) {
  for (const std::string_view sample : kSamples) {
    const std::string value(sample);
    for (const std::string& form : {value, '&' + value, '*' + value, "*&" + value}) {
      for (const std::string_view target : kTargets) requests->push_back(Convert(target, form));
      for (const char* verb : {"copy ", "copyind "}) requests->push_back(verb + form);
      requests->push_back("clear " + form);
    }
  }
  for (const std::string_view object : kObjects) {
    for (const std::string_view target : kTargets) {
      requests->push_back(Convert(target, std::string(object)));
      requests->push_back(Convert(target, '&' + std::string(object)));
    }
  }
  for (const char* form : {"*EMPTY", "*NULL", "**I4:5", "***I4:5", "*TAG:2003", "*TAG:000F"}) {
    for (const char* verb : {"copy ", "copyind ", "convert I4 ", "convert BSTR ", "convert EMPTY "}) {
      requests->push_back(std::string(verb) + form);
    }
  }
  AddTags(requests);
}

}  // namespace halyard::recorder
