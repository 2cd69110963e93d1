// Overloads: one visitor out of several lambdas, for std::visit.
#pragma once

namespace halyard {

template <class... Cases>
struct Overloads : Cases... {
  using Cases::operator()...;
};
template <class... Cases>
Overloads(Cases...) -> Overloads<Cases...>;

}  // namespace halyard
