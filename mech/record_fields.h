#pragma once

#include <algorithm>
#include <cassert>
#include <cmath>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "frame/host/core_services.h"
#include "frame/host/number_text.h"
#include "frame/records.h"

// The fields of a definition as rows of a table: the record in the library, the controls of the dialog and their
// rules all follow from it.
namespace ardenix::mech {

// A member that is one entry of a list: an enumeration, counted from 0. A record of a library can hold a number beyond
// the list; it is kept until an entry is chosen.
template <class Record>
struct Choice {
  int (*get)(const Record&);
  void (*set)(Record&, int);
  std::span<const char* const> items;

  friend bool operator==(const Choice& a, const Choice& b) { return a.get == b.get; }
};

template <auto kMember, class Record, class Entry>
constexpr Choice<Record> choiceOf(Entry Record::*, std::span<const char* const> items) {
  return {[](const Record& record) { return static_cast<int>(record.*kMember); },
          [](Record& record, int entry) { record.*kMember = static_cast<Entry>(entry); }, items};
}
template <auto kMember>
constexpr auto choice(std::span<const char* const> items) {
  return choiceOf<kMember>(kMember, items);
}

// A number, a whole number, a flag, a text or a choice of a record.
template <class Record>
using Member = std::variant<double Record::*, int Record::*, bool Record::*, std::string Record::*, Choice<Record>>;

template <class Record>
struct Field {
  Member<Record> member;
  int place;  // in the record, counted from 1; 1 is the name
  std::string_view label;
  std::string_view tip;
  std::string_view caption{};  // what the dialog shows instead of the label
  bool captioned = true;       // else the label is only the control's address
  bool addressed = false;      // the label is the address beside a caption, which other fields have, too
  std::string_view box{};      // a framed group of this caption takes it and its neighbours
  std::string_view unit{};     // shown behind the range; empty for drawing units
  double minimum = 0.0;        // inclusive, like the maximum; of numbers
  double maximum = 10000.0;
  int decimals = 3;                               // in the dialog
  std::string_view stored = "%.3f";               // how a number stands in the record
  double fallback = 0.0;                          // of a number that the record lacks
  double (*fallbackOf)(const Record&) = nullptr;  // the same, from the other fields
  std::span<const char* const> pictures{};        // of the entries of a choice; a plain list where there are none
  int limit = 255;                                // characters of a text
  bool multiline = false;                         // its line breaks stand as "\N" in the record
  bool (*shown)(const Record&) = nullptr;         // whether it takes part; always where there is no rule
  bool (*enabled)(const Record&) = nullptr;       // likewise
  bool marksEdited = true;                        // a change counts as an edit of the definition
  bool settlesOnLeave = false;  // what follows from it is shown when it is left, not while it is edited
  bool optional = false;        // at a record's end, which is left out where it is 0, as older libraries have it
};

template <class Record>
using Fields = std::span<const Field<Record>>;

// ---- Records of a library -----------------------------------------------------------------------------------

inline constexpr std::string_view kStoredLineBreak = "\\N";

std::string withStoredLineBreaks(std::string_view text);
std::string withLineBreaks(std::string_view stored);

// Reads one field; numbers are read leniently, as far as they go.
template <class Record>
class FieldReader {
 public:
  FieldReader(std::string_view text, const Field<Record>& field, Record& record)
      : text_(text), field_(field), record_(record) {}

  void operator()(double Record::*member) {
    const double value = coreGetFieldDouble(text_, fallback(), place(), ',');
    assert(std::isfinite(value));
    record_.*member = value;
  }
  void operator()(int Record::*member) { record_.*member = whole(); }
  void operator()(bool Record::*member) { record_.*member = whole() != 0; }
  void operator()(const Choice<Record>& member) { member.set(record_, whole()); }
  void operator()(std::string Record::*member) {
    const std::string text = commasRestored(wholeField(text_, place()));
    record_.*member = field_.multiline ? withLineBreaks(text) : text;
  }

 private:
  [[nodiscard]] int place() const { return field_.place; }
  [[nodiscard]] int whole() const { return coreGetFieldInt(text_, static_cast<int>(field_.fallback), place(), ','); }
  [[nodiscard]] double fallback() const { return field_.fallbackOf ? field_.fallbackOf(record_) : field_.fallback; }

  std::string_view text_;
  const Field<Record>& field_;
  Record& record_;
};

// The record that a library holds; what it lacks takes the fields' fallbacks, those that follow from others last.
template <class Record>
Record readRecord(std::string_view text, Fields<Record> fields) {
  Record record;
  for (const bool derived : {false, true}) {
    for (const Field<Record>& field : fields) {
      if (derived == (field.fallbackOf != nullptr)) {
        std::visit(FieldReader<Record>(text, field, record), field.member);
      }
    }
  }
  return record;
}

template <class Record>
class FieldWriter {
 public:
  FieldWriter(const Field<Record>& field, const Record& record) : field_(field), record_(record) {}

  std::string operator()(double Record::*member) const { return numberText::format(field_.stored, record_.*member); }
  std::string operator()(int Record::*member) const { return numberText::format("%d", record_.*member); }
  std::string operator()(bool Record::*member) const { return record_.*member ? "1" : "0"; }
  std::string operator()(const Choice<Record>& member) const { return numberText::format("%d", member.get(record_)); }
  std::string operator()(std::string Record::*member) const {
    return commasHidden(field_.multiline ? withStoredLineBreaks(record_.*member) : record_.*member);
  }

 private:
  const Field<Record>& field_;
  const Record& record_;
};

// The record as a library holds it: the name, and each field at its place.
template <class Record>
std::string writeRecord(std::string_view name, const Record& record, Fields<Record> fields) {
  std::vector<std::string> texts(fields.size());
  size_t written = 0;
  for (const Field<Record>& field : fields) {
    const size_t place = static_cast<size_t>(field.place) - 2;
    texts.at(place) = std::visit(FieldWriter<Record>(field, record), field.member);
    if (!field.optional || texts[place] != "0") { written = std::max(written, place + 1); }
  }
  texts.resize(written);
  std::string text(name);
  for (const std::string& field : texts) { (text += kFieldSeparator) += field; }
  return text;
}

}  // namespace ardenix::mech
