// Requests to the automation library and its answers, one line of text each.
//
//   convert TYPE VALUE        VariantChangeType     STATUS [VALUE]
//   copy VALUE                VariantCopy           STATUS [VALUE]
//   copyind VALUE             VariantCopyInd        STATUS [VALUE]
//   clear VALUE               VariantClear          STATUS VALUE
//   split DATE                VariantTimeToSystemTime   0, or 1 Y M W D h m s ms
//   join Y M D h m s ms       SystemTimeToVariantTime   0, or 1 DATE
//
// The recorder asks the real library; the tests ask this project's own.
#pragma once

#include <string>
#include <string_view>

namespace halyard::recorder {

// The library's answer; empty where the request is not of these forms.
std::string Answer(std::string_view request);

}  // namespace halyard::recorder
