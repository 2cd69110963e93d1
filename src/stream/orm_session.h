// OrmSession: the definitions of one stream, a list whose first match counts. Clients may
// change the keys of definitions; those of this library tell when that happens, so their
// keys are remembered. Other definitions are asked each time.
#pragma once

#include <cstdint>
#include <unordered_map>
#include <vector>

#include "definitions/definition_key.h"
#include "definitions/held_definition.h"
#include "halyard/definitions/structure_def.h"
#include "halyard/definitions/value_def_base.h"
#include "halyard/stream/orm_session.h"
#include "object/object.h"

namespace halyard {

class OrmSession;

// Answered by the sessions of this library only, and only inside it.
struct IInsideSession : IUnknown {
  using Base = IUnknown;
  static constexpr IID kIid = {0x5B0E8C94, 0x7A13, 0x4F6D, {0x92, 0xE8, 0x3C, 0x41, 0xD7, 0x06, 0xBA, 0x5F}};

  virtual OrmSession* Self() noexcept = 0;
};

class OrmSession : public Object<OrmSession, IOrmSession, IInsideSession> {
 public:
  static constexpr char kClassName[] = "OrmSession";

  HRESULT STDMETHODCALLTYPE GetTypeFromId(VARIANT vtType, SHORT wId, IValueDefBase** ppTypeInfo) override;
  HRESULT STDMETHODCALLTYPE AddType(IValueDefBase* pType, VARIANT_BOOL* pbResult) override;
  HRESULT STDMETHODCALLTYPE GetStructureByName(BSTR szName, IStructureDef** pStruct) override;

  OrmSession* Self() noexcept override { return this; }

  // The session behind an interface; null where it is not one of this library.
  static OrmSession* Behind(IOrmSession* session) noexcept;

  // What GetTypeFromId would hand out, where it was asked for the same definition last,
  // nothing has changed since and the definition is one of this library; else none.
  // The session holds it at least until somebody adds a definition.
  [[nodiscard]] KnownDefinition FindAgain(SHORT type, SHORT id) const noexcept {
    if (last_.inside == nullptr || last_.key != KeyOf(type, id)) return {};
    if (known_changes_ != KeyChanges::Count()) return {};
    return {definitions_[last_.place].get(), last_.inside};
  }

 private:
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

  static std::uint32_t KeyOf(SHORT type, SHORT id) noexcept {
    return std::uint32_t{static_cast<std::uint16_t>(type)} << 16 | static_cast<std::uint16_t>(id);
  }

  // The place of the first definition with that type and id, or kNone.
  std::size_t Find(SHORT type, SHORT id);

  // The same, by asking every definition.
  std::size_t Search(SHORT type, SHORT id) const;

  // Puts a definition at a place, or behind the last one for kNone.
  void Put(std::size_t place, Ptr<IValueDefBase> definition, SHORT type, SHORT id);

  // Remembers that the definition at a place was found for a key.
  void Remember(std::size_t place, std::uint32_t key) noexcept;

  // Learns the keys anew where one has changed.
  void LearnKeys();

  std::vector<Ptr<IValueDefBase>> definitions_;

  // The first place of each key, as long as all definitions tell of changes.
  std::unordered_map<std::uint32_t, std::size_t> places_;
  bool keys_are_told_ = true;
  std::uint64_t known_changes_ = 0;

  // What was found last, without an inner side where the next answer may be another one.
  struct Found {
    std::size_t place = kNone;
    std::uint32_t key = 0;
    IInsideDefinition* inside = nullptr;  // lives as long as the place holds the definition
  };
  Found last_;
};

}  // namespace halyard
