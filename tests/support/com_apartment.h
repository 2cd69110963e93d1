// What a program's thread needs before it makes objects: COM on Windows, nothing elsewhere.
#pragma once

namespace halyard::test {

class ComApartment {
 public:
  ComApartment();
  ~ComApartment();
  ComApartment(const ComApartment&) = delete;
  ComApartment& operator=(const ComApartment&) = delete;
};

}  // namespace halyard::test
