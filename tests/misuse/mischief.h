// What an object of a client's does wrong, and when.
#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "tests/support/foreign.h"

namespace halyard::test {

struct Mischief {
  int calls = 0;                // how many calls the object has had
  int strikes_at = 0;           // the number of the call that goes wrong; 0 for none
  HRESULT failure = S_OK;       // what that call answers, if it fails
  std::function<void()> act;    // what it does before it answers; once
  std::optional<ULONG> size;    // what every size and every count of bytes is answered as
  std::optional<ULONG> counts;  // the same for the counts of bytes moved alone
  bool makes_nothing = false;   // hands out null where an object is promised
  bool changes_id = false;      // answers another id at each call

  // Counts a call, and goes wrong if it is the one.
  HRESULT Enter() {
    if (++calls != strikes_at) return S_OK;
    if (const auto action = std::exchange(act, nullptr)) action();
    return failure;
  }
};

// An object of interface I around one of the library's: it answers as that one does,
// except where the mischief is other. What it needs it holds by itself, so that a call may
// end the object.
template <class I>
class ClientObject : public Foreign<I> {
 public:
  ClientObject(Ptr<I> inner, std::shared_ptr<Mischief> mischief)
      : inner_(std::move(inner)), mischief_(std::move(mischief)) {}

  // The default member, for whoever converts the object.
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* arguments,
                                   VARIANT* result, EXCEPINFO* failure, UINT* wrong) override {
    return Pass([&](I& inner, const Mischief&) {
      return inner.Invoke(id, iid, locale, flags, arguments, result, failure, wrong);
    });
  }

 protected:
  [[nodiscard]] std::shared_ptr<Mischief> shared_mischief() const { return mischief_; }

  template <class Call>
  HRESULT Pass(Call&& call) {
    const auto inner = inner_;
    const auto mischief = mischief_;
    const HRESULT hr = mischief->Enter();
    return FAILED(hr) ? hr : call(*inner, *mischief);
  }

  template <class Call>
  HRESULT PassSize(ULONG* size, Call&& call) {
    return Pass([&](I& inner, const Mischief& mischief) {
      const HRESULT hr = call(inner);
      if (mischief.size) *size = *mischief.size;
      return hr;
    });
  }

  template <class Call>
  HRESULT PassBytes(ULONG* count, Call&& call) {
    return Pass([&](I& inner, const Mischief& mischief) {
      const HRESULT hr = call(inner);
      if (mischief.size) *count = *mischief.size;
      if (mischief.counts) *count = *mischief.counts;
      return hr;
    });
  }

  HRESULT PassId(SHORT* id) {
    return Pass([&](I& inner, const Mischief& mischief) {
      const HRESULT hr = inner.get_Id(id);
      if (mischief.changes_id) *id = static_cast<SHORT>(*id + mischief.calls);
      return hr;
    });
  }

  template <class Made, class Call>
  HRESULT PassMade(Made** out, Call&& call) {
    return Pass([&](I& inner, const Mischief& mischief) {
      *out = nullptr;
      return mischief.makes_nothing ? S_OK : call(inner);
    });
  }

 private:
  const Ptr<I> inner_;
  const std::shared_ptr<Mischief> mischief_;
};

}  // namespace halyard::test
