// What a random program has made so far, and the text that tells what its calls answered.
//
// A step makes one call with random arguments and adds a line. Lines hold what is the
// same on every platform: status codes, numbers, bits of reals, texts, bytes and the
// messages shown; never addresses, counts of references or words of error objects.
#pragma once

#include <initializer_list>
#include <string>
#include <type_traits>
#include <vector>

#include "halyard/halyard.h"
#include "tests/differential/random.h"
#include "tests/support/bytes.h"

namespace halyard::differential {

using test::Bytes;

class World {
 public:
  explicit World(std::uint64_t seed) : random(seed) {}

  Random random;
  std::vector<Ptr<IValueDefBase>> definitions;
  std::vector<Ptr<IValueBase>> values;
  Ptr<IOrmSession> session;
  // Bytes that something wrote, to be read again.
  std::vector<Bytes> encodings;

  // Everything told so far.
  std::string text;

  // Adds the line "call: outcome".
  void Tell(const std::string& call, const std::string& outcome);

  // One of those made so far, or none. A program keeps a few of each and forgets the
  // oldest.
  Ptr<IValueDefBase> AnyDefinition();
  Ptr<IValueBase> AnyValue();
  void Keep(Ptr<IValueDefBase> definition);
  void Keep(Ptr<IValueBase> value);
  void Keep(Bytes encoding);

  // A definition in use that is too large to make values of, or that holds itself: a
  // program ends when there is one. None when all are small.
  Ptr<IValueDefBase> Heavy() const;

  // Bytes of an earlier encoding, damaged; at times noise.
  Bytes AnyBytes();
  // The bytes whole, cut, changed in a few places or extended.
  Bytes Damaged(Bytes bytes);
};

// True while a call of the library runs that a program tells of.
inline bool g_calling = false;

// What an exception is told as that left a call: no call may do that.
inline constexpr HRESULT kThrown = static_cast<HRESULT>(0xDEADDEAD);

// Makes a call of the library's; its status.
template <class Call>
HRESULT Answered(Call&& call) {
  HRESULT status = kThrown;
  g_calling = true;
  try {
    status = call();
  } catch (...) {
  }
  g_calling = false;
  return status;
}

// How outcomes are told.
std::string Status(HRESULT status);
std::string Show(const VARIANT& value);
std::string Show(BSTR text);
std::string ShowNumber(long long number);

// The status of a call: Status([&] { return value->RemoveAll(); }).
template <class Call>
requires std::is_invocable_r_v<HRESULT, Call> std::string Status(Call&& call) {
  return Status(Answered(call));
}

// Several outcomes with blanks between them. The calls in a braced list are made in their
// order; operands of + are not.
std::string Joined(std::initializer_list<std::string> outcomes);

// The outcome of a call with one out number: "00000000 7". The number starts as a value
// that no call answers, so that one which is not written shows.
template <class T, class Call>
std::string Number(Call&& call) {
  T number = T(0x5A5A);
  const HRESULT status = Answered([&] { return call(&number); });
  return Status(status) + " " + ShowNumber(static_cast<long long>(number));
}

// The same for a text, which is freed, and for a variant, which is cleared.
template <class Call>
std::string Words(Call&& call) {
  Bstr words;
  BSTR* place = words.Out();
  const HRESULT status = Answered([&] { return call(place); });
  return Status(status) + " " + Show(words.get());
}

template <class Call>
std::string Content(Call&& call) {
  Variant content;
  VARIANT* place = content.Out();
  const HRESULT status = Answered([&] { return call(place); });
  return Status(status) + " " + Show(content.get());
}

// The outcome of a call with an out object, which the caller gets.
template <class I, class Call>
std::string Made(Ptr<I>* object, Call&& call) {
  I** place = object->Out();
  const HRESULT status = Answered([&] { return call(place); });
  if (FAILED(status)) static_cast<void>(object->Detach());
  return Status(status) + (*object ? " object" : " none");
}

// The calls on buffers. Writing keeps the bytes for later; the room may be too small.
void WriteAnything(World& world, const std::string& name, IUnknown* object);
void ReadAnything(World& world, const std::string& name, IUnknown* object);

// A random automation value; objects among them are fresh ones.
Variant AnyVariant(World& world);
// A random position, mostly near the first ones.
Variant AnyIndex(World& world);
WideString AnyText(World& world);
// A name for a member, one of the few that paths use.
WideString AnyName(World& world);

// One call on a thing of each kind.
void DefinitionStep(World& world);
void ValueStep(World& world);
void TransferStep(World& world);
void StreamStep(World& world);
void RowsStep(World& world);

// A fresh value of one of the definitions; may be none.
Ptr<IValueBase> FreshValue(World& world);
// Whether a value of the definition has so many parts that it is not worth making.
bool IsHeavy(const Ptr<IValueDefBase>& definition);

// A value with all its parts, a few of each, in one line.
std::string Tree(const Ptr<IValueBase>& value, int depth = 0);

}  // namespace halyard::differential
