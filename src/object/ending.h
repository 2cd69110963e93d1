// The end of objects. An object releases its parts as it ends, and these theirs; a chain
// of parts can be as long as a client made it, the stack cannot.
#pragma once

namespace halyard {

// Deletes `object` with `end`, at once or, when this call is itself deep inside the end
// of other objects, as soon as those are gone.
void EndObject(void* object, void (*end)(void* object)) noexcept;

}  // namespace halyard
