#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "mech/record_fields.h"

namespace ardenix::mech {

// A drawer whose records are described by a table of fields; it is made as its base is.
template <class Base, class Record>
class RecordDrawer : public Base {
 public:
  template <class... Arguments>
  explicit RecordDrawer(Fields<Record> fields, Arguments&&... arguments)
      : Base(std::forward<Arguments>(arguments)...), fields_(fields) {}

  void take(const Record& record) {
    record_ = record;
    measure(record_);
  }
  void takeRecord(std::string_view text) override { take(readRecord(text, fields_)); }
  [[nodiscard]] std::string recordText(std::string_view name) const override {
    return writeRecord(name, record_, fields_);
  }
  [[nodiscard]] Fields<Record> fields() const { return fields_; }

 protected:
  // Works out what the drawing measures from.
  virtual void measure(const Record& record) = 0;

 private:
  Fields<Record> fields_;
  Record record_{};
};

}  // namespace ardenix::mech
