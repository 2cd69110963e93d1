// Automation values of every kind that a client can pass where none of them belongs.
#pragma once

#include <deque>
#include <string>
#include <vector>

#include "halyard/object/bstr.h"
#include "halyard/object/ptr.h"

namespace halyard::test {

class OddVariants {
 public:
  struct Row {
    std::string name;
    VARIANT value;  // owns nothing: it lives as long as the rows
  };

  OddVariants();
  ~OddVariants();
  OddVariants(const OddVariants&) = delete;
  OddVariants& operator=(const OddVariants&) = delete;

  [[nodiscard]] const std::vector<Row>& rows() const { return rows_; }

 private:
  VARIANT& Add(std::string name, int type);
  void AddNumbers();
  void AddObjects();
  void AddReferences();
  void AddArrays();
  void AddImpossible();

  std::vector<Row> rows_;
  Ptr<IDispatch> stranger_;  // somebody's object that is neither value nor definition
  Ptr<IDispatch> definition_;
  IDispatch* null_object_ = nullptr;
  Bstr text_;
  BSTR plain_text_ = nullptr;
  VARIANT inner_{};
  VARIANT nowhere_{};
  SHORT short_ = 1;
  LONG long_ = 1;
  double real_ = 1.0;
  DECIMAL decimal_{};
  std::deque<SAFEARRAY*> arrays_;  // null ones too, for references; they stay in their places
};

}  // namespace halyard::test
