// Whether the library still holds objects, asked after every test.
#pragma once

namespace halyard::test {

// True when every object of the library that this process made has been released.
bool NoObjectsAreAlive();

}  // namespace halyard::test
