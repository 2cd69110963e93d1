// The rivals in W5.
#pragma once

#include <memory>

#include "members/member_access.h"

namespace bench {

// Avro C: the fields of a generic record.
std::unique_ptr<MemberAccess> MakeAvroMembers();

// FlatBuffers: the fields of a table, by reflection over its schema.
std::unique_ptr<MemberAccess> MakeFlatbuffersMembers();

// Protocol Buffers: the fields of a dynamic message.
std::unique_ptr<MemberAccess> MakeProtobufMembers();

}  // namespace bench
