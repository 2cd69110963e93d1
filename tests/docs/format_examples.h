// The checks of docs/format.md, by chapter.
#pragma once

#include <vector>

#include "tests/docs/document_examples.h"

namespace halyard::test {

std::vector<ExampleCheck> DefinitionExamples();
std::vector<ExampleCheck> ValueExamples();
std::vector<ExampleCheck> FileExamples();

}  // namespace halyard::test
