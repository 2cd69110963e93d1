#include "values/arrays/array_type.h"

#include "halyard/object/error.h"

namespace halyard {
namespace {

constexpr char kNoDefinition[] = "the array has no definition";

}  // namespace

void ArrayType::Take(IValueDefBase* definition) {
  Ptr<IArrayDef> array = QueryFor<IArrayDef>(definition);
  Ptr<IArrayLayoutSource> source = QueryFor<IArrayLayoutSource>(definition);
  if (!array || !source) throw Error(E_INVALIDARG, "the object is no array definition of this library");
  definition_ = std::move(array);
  source_ = std::move(source);
}

void ArrayType::TakeInterface(IValueDefBase* definition) { definition_ = QueryFor<IArrayDef>(definition); }

void ArrayType::Drop() noexcept {
  source_.Reset();
  definition_.Reset();
}

Ptr<IArrayDef> ArrayType::Definition() const { return Require(definition_, kNoDefinition); }

Ptr<IValueDefBase> ArrayType::BaseDefinition() const { return QueryFor<IValueDefBase>(Definition().get()); }

SHORT ArrayType::Id() const {
  const Ptr<IArrayDef> definition = Definition();
  SHORT id = 0;
  Check(definition->get_Id(&id), definition);
  return id;
}

const ArrayLayout& ArrayType::layout() const { return Require(source_, kNoDefinition)->Layout(); }

}  // namespace halyard
