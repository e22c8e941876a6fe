#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "arch/spec_store.h"
#include "frame/host/dialog.h"
#include "frame/services.h"

namespace ardenix::arch {

// What a list of records holds, in the words of its dialog.
struct RecordWords {
  std::string_view section;
  std::string_view caption;
  std::string_view word;  // for one of them, in messages
  std::string_view namePrompt;
  std::string_view listTip;
  std::string_view addTip;
  std::string_view deleteTip;
};

// How a dialog shows a record and makes one.
struct RecordRules {
  std::function<void(int number)> show;                        // record `number`, counted from 1; 0: there is none
  std::function<bool()> mayBeSaved;                            // else says why what is shown makes no record
  std::function<std::string(const std::string& name)> record;  // of what is shown
  std::function<void()> leaving{};                             // before another is shown than the one chosen
  std::function<bool()> mayBeRemoved{};                        // the one chosen
};

// The list of a dialog's records with Add and Delete, which act on the file at once. The first record is chosen where
// the file names none that is there. Another name typed over that of the record chosen is its name from the next saving
// on; the full name of another record chooses that one when the user leaves the list.
class RecordChooser {
 public:
  RecordChooser(const Services& services, ArchSpecStore& store, dialog::Dialog& dialog, const RecordWords& words)
      : services_(services), store_(store), dialog_(dialog), words_(words) {}
  RecordChooser(const RecordChooser&) = delete;
  RecordChooser& operator=(const RecordChooser&) = delete;

  // Adds the controls to a group.
  void describe(int group, RecordRules rules);
  // Fills the list and shows record `number`, counted from 1, or the first.
  void open(int number);

  [[nodiscard]] int number() const { return index_ + 1; }  // 0: none
  // The name under which what is shown can be saved as the record chosen; else says what is missing.
  [[nodiscard]] std::optional<std::string> nameToSave() const;

 private:
  void choose();
  void chooseAnother();
  void leave();
  void add();
  void remove();

  const Services& services_;
  ArchSpecStore& store_;
  dialog::Dialog& dialog_;
  const RecordWords& words_;
  RecordRules rules_;
  dialog::DropDownHandle list_;
  int index_ = -1;  // of the record chosen
};

}  // namespace ardenix::arch
