// The definition that an array value holds, if it has taken one.
#pragma once

#include "definitions/array_layout.h"
#include "halyard/definitions/array_def.h"
#include "halyard/object/ptr.h"

namespace halyard {

class ArrayType {
 public:
  // Takes an array definition of this library, whose layout can be read; raises
  // E_INVALIDARG for any other object and what its answers raise.
  void Take(IValueDefBase* definition);

  // Takes an array definition of whoever; nothing is taken from an object that is none.
  void TakeInterface(IValueDefBase* definition);

  void Drop() noexcept;

  [[nodiscard]] explicit operator bool() const noexcept { return static_cast<bool>(definition_); }

  // Whether this very definition was taken.
  [[nodiscard]] bool Is(const IValueDefBase* definition) const noexcept {
    return definition_ && static_cast<const IValueDefBase*>(definition_.get()) == definition;
  }

  // The definition, held. These raise E_POINTER without one.
  [[nodiscard]] Ptr<IArrayDef> Definition() const;
  [[nodiscard]] Ptr<IValueDefBase> BaseDefinition() const;
  [[nodiscard]] SHORT Id() const;

  // The id without raising anything; false where there is none.
  [[nodiscard]] bool FindId(SHORT& id) const noexcept {
    return definition_ && SUCCEEDED(definition_->get_Id(&id));
  }

  // The layout of a definition of this library, as it is at the moment. Raises
  // E_POINTER without one.
  [[nodiscard]] const ArrayLayout& layout() const;

 private:
  Ptr<IArrayDef> definition_;
  Ptr<IArrayLayoutSource> source_;
};

}  // namespace halyard
