// SimpleFixedStructure: a record whose members all have a fixed place. It is one block
// of the definition's data size, and its encoding is that block.
#pragma once

#include <span>

#include "halyard/values/structure.h"
#include "values/structure_object.h"

namespace halyard {

class SimpleFixedStructure : public StructureObject<SimpleFixedStructure, ISimpleFixedStructure> {
 public:
  static constexpr char kClassName[] = "SimpleFixedStructure";
  static constexpr ValueTraits kTraits{.stands_alone = false, .keeps_to_itself = true, .writes_at_once = true};

  // A structure of that definition, one of this library, with a copy of these bytes as its
  // block. The definition need not describe them any more.
  static Ptr<IValueBase> NewOver(IValueDefBase* definition, std::span<const unsigned char> block);

  HRESULT GetItem(const VARIANT& index, VARIANT* item) noexcept;
  HRESULT PutItem(const VARIANT& index, const VARIANT& value) noexcept;
  HRESULT STDMETHODCALLTYPE get_At(VARIANT vIndex, IValueBase** ppValue) override;
  HRESULT STDMETHODCALLTYPE Copy(IValueBase** ppCopy) override;
  HRESULT STDMETHODCALLTYPE get_PacketSize(ULONG* pdwSize) override;

  bool FindReadyBody(ReadyBody& body) override;
  bool Renew(IValueDefBase* definition, REFCLSID value_class) override;

  // Makes the block of the definition just taken; a definition without size is dropped.
  void Build();

  [[nodiscard]] bool Decode(ReadCursor& cursor);
  [[nodiscard]] bool Encode(WriteCursor& cursor);

 private:
  // What a member answers that has no field in the block, and no member.
  static VARIANT ItemWithoutField(const MemberLayout* member);

  // The block, where it is as large as the definition says by now.
  [[nodiscard]] bool BlockIsWhole() const { return block_.size() == type_.layout().data_size; }
};

}  // namespace halyard
