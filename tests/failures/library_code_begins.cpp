#include "tests/failures/library_code.h"

void halyard::test::LibraryCodeBegins() {}
