// The requests of the conversion table, in a fixed order.
#pragma once

#include <string>
#include <vector>

namespace halyard::recorder {

using Requests = std::vector<std::string>;

// Every scalar type to every type, with values at the borders of each.
void AddTypePairs(Requests* requests);

// By-reference forms, objects, tags without a value, copies and clearing.
void AddVariantForms(Requests* requests);

// Floating-point numbers of all magnitudes to texts and to the other number types.
void AddMagnitudes(Requests* requests);

// Texts of numbers, well-formed and not, to every number type.
void AddNumberTexts(Requests* requests);

// Texts of dates and times, well-formed and not.
void AddDateTexts(Requests* requests);

// Dates to texts and to calendar times, and calendar times to dates.
void AddDates(Requests* requests);

}  // namespace halyard::recorder
