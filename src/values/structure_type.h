// StructureType: the definition that a structure value holds, if it has taken one.
#pragma once

#include "definitions/structure_layout.h"
#include "halyard/definitions/structure_def.h"

namespace halyard {

class StructureType {
 public:
  // Takes a structure definition of this library; raises E_INVALIDARG for any other
  // object and what its answers raise.
  void Take(IValueDefBase* definition);
  void Drop() noexcept;

  [[nodiscard]] explicit operator bool() const noexcept { return static_cast<bool>(definition_); }

  // The member table as it is at the moment; one without members where there is no
  // definition.
  [[nodiscard]] const StructureLayout& layout() const {
    return table_ != nullptr ? table_->Whole() : NoMembers();
  }

  // The definition with a reference, and its id. Both raise E_POINTER without one.
  [[nodiscard]] Ptr<IValueDefBase> Definition() const;
  [[nodiscard]] SHORT Id() const;

  // The id without raising anything; false where there is none.
  [[nodiscard]] bool FindId(SHORT& id) const noexcept {
    return definition_ && SUCCEEDED(definition_->get_Id(&id));
  }

  // Whether this very definition was taken.
  [[nodiscard]] bool Is(const IValueDefBase* definition) const noexcept {
    return definition_ && static_cast<const IValueDefBase*>(definition_.get()) == definition;
  }

  // The member at a client's index, where that is a plain position of one; else null.
  [[nodiscard]] const MemberLayout* FindQuickly(const VARIANT& index) const noexcept {
    if (index.vt != VT_I4 || table_ == nullptr || table_->announced != 0) return nullptr;
    return table_->At(index.lVal);
  }

  // The member that a client's index means, null for none: a name, or a position.
  // Raises what the conversion of the index raises.
  [[nodiscard]] const MemberLayout* Find(const VARIANT& index) const {
    switch (index.vt) {
      case VT_I4:
        return layout().At(index.lVal);
      case VT_I2:
        return layout().At(index.iVal);
      default:
        return FindOther(index);
    }
  }

 private:
  static const StructureLayout& NoMembers() noexcept;
  [[nodiscard]] const MemberLayout* FindOther(const VARIANT& index) const;

  Ptr<IStructureDef> definition_;
  Ptr<IStructureLayoutSource> source_;
  StructureLayout* table_ = nullptr;  // of source_
};

}  // namespace halyard
