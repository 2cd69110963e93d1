// The values of a file one after another, as every verb that shows or converts values
// needs them: chosen records, decoded, with what could not be read kept for the end.
#pragma once

#include <functional>
#include <string>

#include "tools/halyard/decoder.h"
#include "tools/halyard/failure.h"
#include "tools/halyard/record_reader.h"
#include "tools/halyard/selection.h"

namespace halyard::tool {

// What ReadValues hands over, valid during the call: each chosen value with its record,
// each definition, chosen or not, and the end.
struct ValueHandlers {
  std::function<void(const Record& record, const DecodedUnit& unit)> value;
  std::function<void(const DefinitionPtr& definition)> definition = [](const DefinitionPtr&) {};
  // Called when no further value comes, also where the file breaks off: what was read before
  // is a result all the same.
  std::function<void()> finish = [] {};
};

// Hands every chosen value of a file over. Records that cannot be read are passed
// over with a remark (the first few by themselves). kFaults where there were any, or
// where the file does not end properly; Failure where it is no file of units.
ExitCode ReadValues(const std::string& file, const Selection& selection, bool shows_progress,
                    const ValueHandlers& handlers);

}  // namespace halyard::tool
