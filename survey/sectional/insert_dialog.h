#pragma once

#include <optional>

#include "frame/host/dialog.h"
#include "survey/sectional/sectional_plan_job.h"

namespace ardenix::survey {

// Asks for what a section is: number, floor area, building, unit, floor, whole or part. A number that is there already
// makes parts of both where the user agrees.
class InsertDialog {
 public:
  explicit InsertDialog(SectionalPlanJob& job);

  // Adds a section to the job's list; of a traced one with its area. Returns its id, nothing where the user gave it
  // up.
  std::optional<long long> insert(CWnd* owner, int area = 0);
  // Changes a section of the list. False where the user left it as it was.
  bool edit(CWnd* owner, const Section& section);

 private:
  bool run(CWnd* owner, const Section& shown);
  void show(const Section& section);
  [[nodiscard]] Section entered() const;
  bool confirm();
  bool checkFields();
  [[nodiscard]] bool keepsItsNumber() const;
  // False where the user does not want parts.
  bool becomeParts(const Section& existing);
  void remember();

  SectionalPlanJob& job_;
  dialog::Dialog dialog_{"Insert section"};
  CIntEdit number_;
  CIntEdit area_;
  COptionalIntEdit building_;
  dialog::TextHandle unit_;
  dialog::DropDownHandle floor_;
  dialog::RadioHandle type_;
  Section shown_;  // what the dialog began with; id 0 for a new one
  std::optional<Section> taken_;
};

}  // namespace ardenix::survey
