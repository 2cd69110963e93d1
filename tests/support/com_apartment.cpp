#include "tests/support/com_apartment.h"

#include "halyard/object/error.h"

namespace halyard::test {

#ifdef _WIN32

ComApartment::ComApartment() { Check(OleInitialize(nullptr)); }

ComApartment::~ComApartment() { OleUninitialize(); }

#else

ComApartment::ComApartment() = default;

ComApartment::~ComApartment() = default;

#endif

}  // namespace halyard::test
