// Members: records of one to ten thousand numbers. Work is counted per member.
#include "growth/point.h"
#include "support/client.h"
#include "support/demand.h"

namespace bench {

using namespace halyard;

namespace {

constexpr LONG kMostMembers = 10000;

std::string MemberName(LONG position) { return "Member" + std::to_string(position); }

Ptr<IStructureDef> Define(LONG members) {
  const auto definition = NewStructure(1);
  for (LONG i = 0; i < members; ++i) AddMember(definition, MemberName(i), kLong);
  Calculate(definition);
  return definition;
}

// The bytes of a definition, or of a value.
template <class Object>
std::vector<unsigned char> Encoded(const Ptr<Object>& object) {
  ULONG size = 0;
  VARIANT_BOOL done = VARIANT_FALSE;
  Check(object->get_PacketSize(&size));
  std::vector<unsigned char> bytes(size);
  Check(object->WriteToBuffer(bytes.data(), size, &size, &done));
  DemandTrue(done, "the bytes do not fit");
  return bytes;
}

template <class Object>
Ptr<Object> Decoded(Ptr<Object> object, std::vector<unsigned char>& bytes) {
  ULONG taken = 0;
  VARIANT_BOOL done = VARIANT_FALSE;
  Check(object->ReadFromBuffer(bytes.data(), static_cast<ULONG>(bytes.size()), &taken, &done));
  DemandTrue(done, "the bytes cannot be read");
  return object;
}

void PutByPosition(IValueBase& record, LONG members) {
  for (LONG i = 0; i < members; ++i) Check(record.put_Item(Position(i), Number(i)));
}

void PutByName(IValueBase& record, const std::vector<Variant>& names) {
  LONG i = 0;
  for (const Variant& name : names) Check(record.put_Item(name.get(), Number(i++)));
}

void AddPoints(Curve& curve, LONG members) {
  const auto definition = Define(members);
  std::vector<unsigned char> definition_bytes = Encoded(definition);
  const auto record = NewValue(definition);
  std::vector<unsigned char> record_bytes = Encoded(record);
  std::vector<Variant> names;
  for (LONG i = 0; i < members; ++i) names.push_back(TextValue(MemberName(i)));

  curve.Add("define", members, members, [&] { return std::any(Define(members)); });
  curve.Add("read the definition", members, members, [&] {
    return std::any(Decoded(CreateObject<IStructureDef>(kStructureInfoClass), definition_bytes));
  });
  curve.Add("put by position", members, members, [&] {
    PutByPosition(*record, members);
    return std::any();
  });
  curve.Add("put by name", members, members, [&] {
    PutByName(*record, names);
    return std::any();
  });
  curve.Add("make and read a value", members, members,
            [&] { return std::any(Decoded(NewValue(definition), record_bytes)); });
}

}  // namespace

std::vector<Point> GrowMembers() {
  Curve curve("members");
  for (LONG members = 1; members <= kMostMembers; members *= 10) AddPoints(curve, members);
  return curve.points();
}

}  // namespace bench
