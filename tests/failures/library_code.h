// Which code of the program is the library's. The linker lays the library's functions
// between those of two small libraries that are named before and behind it.
#pragma once

namespace halyard::test {

// Whether the place lies in the code of the library.
bool IsLibraryCode(const void* place);

// Whether the place lies in the code of this program, the library included.
bool IsProgramCode(const void* place);

// The ends of the library's code; nobody calls them.
void LibraryCodeBegins();
void LibraryCodeEnds();

}  // namespace halyard::test
