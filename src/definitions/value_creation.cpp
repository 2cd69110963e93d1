#include "definitions/value_creation.h"

#include "object/class_table.h"
#include "object/nesting.h"

namespace halyard {

Ptr<IValueBase> CreateValueOf(IValueDefBase* definition, REFCLSID value_class) {
  const WalkingLevel level;
  Ptr<IValueBase> value = ConstructAs<IValueBase>(value_class);
  Require(value, "the class of the value is not a value class");
  Check(value->put_Info(definition), value);
  return value;
}

}  // namespace halyard
