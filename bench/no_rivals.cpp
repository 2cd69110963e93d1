// The glance at speed that the tests print has no rivals.
#include "rival_actions.h"

namespace bench {

void AddRivalActions(Actions&) {}

}  // namespace bench
