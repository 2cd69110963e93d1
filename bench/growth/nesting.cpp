// Nesting: records in records, 1 to 32 deep, a number at each level. Work is counted per
// level.
#include "growth/point.h"
#include "support/client.h"
#include "support/demand.h"

namespace bench {

using namespace halyard;

namespace {

constexpr LONG kDeepest = 32;

// Positions of the members.
enum Member : LONG { kNumber, kInner };

Ptr<IStructureDef> Define(LONG depth) {
  const auto definition = NewStructure(static_cast<SHORT>(depth));
  AddMember(definition, "number", kLong);
  if (depth > 1) {
    VARIANT_BOOL done = VARIANT_FALSE;
    Check(definition->AddMember(Name("inner").get(), Define(depth - 1).get(), &done));
    DemandTrue(done, "the inner record cannot be added");
  }
  return definition;
}

Ptr<IStructureDef> DefineCalculated(LONG depth) {
  const auto definition = Define(depth);
  Calculate(definition);
  return definition;
}

// Puts the number of each level, from the outside to the inside.
void PutAll(Ptr<IValueBase> record, LONG depth) {
  for (LONG level = 1; level <= depth; ++level) {
    Check(record->put_Item(Position(kNumber), Number(level)));
    if (level == depth) return;
    Ptr<IValueBase> inner;
    Check(record->get_At(Position(kInner), inner.Out()));
    record = inner;
  }
}

std::vector<unsigned char> Encoded(const Ptr<IValueBase>& record) {
  ULONG size = 0;
  VARIANT_BOOL done = VARIANT_FALSE;
  Check(record->get_PacketSize(&size));
  std::vector<unsigned char> bytes(size);
  Check(record->WriteToBuffer(bytes.data(), size, &size, &done));
  DemandTrue(done, "the record cannot be written");
  return bytes;
}

void AddPoints(Curve& curve, LONG depth) {
  const auto definition = DefineCalculated(depth);
  const auto record = NewValue(definition);
  std::vector<unsigned char> bytes = Encoded(record);
  curve.Add("define", depth, depth, [&] { return std::any(DefineCalculated(depth)); });
  curve.Add("make a value", depth, depth, [&] { return std::any(NewValue(definition)); });
  curve.Add("put at every level", depth, depth, [&] {
    PutAll(record, depth);
    return std::any();
  });
  curve.Add("write", depth, depth, [&] {
    Demand(Encoded(record).size() == bytes.size(), "the size has changed");
    return std::any();
  });
  curve.Add("read", depth, depth, [&] {
    ULONG taken = 0;
    VARIANT_BOOL done = VARIANT_FALSE;
    Check(record->ReadFromBuffer(bytes.data(), static_cast<ULONG>(bytes.size()), &taken, &done));
    DemandTrue(done, "the record cannot be read");
    return std::any();
  });
}

}  // namespace

std::vector<Point> GrowNesting() {
  Curve curve("nesting");
  for (LONG depth = 1; depth <= kDeepest; depth *= 2) AddPoints(curve, depth);
  return curve.points();
}

}  // namespace bench
