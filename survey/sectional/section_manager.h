#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "frame/host/dialog.h"
#include "survey/sectional/section_rows.h"
#include "survey/sectional/sectional_plan_job.h"

namespace ardenix::survey {

// Lists the sections of a job with their quotas. Whatever it does to them is done at once, whichever way it is closed.
class SectionManager {
 public:
  explicit SectionManager(SectionalPlanJob& job);
  void run() { job_.services().mainFrame->RunDialog(dialog_, job_.services().mainFrame); }

 private:
  void addList();
  void addButtons();
  void addTotals();

  [[nodiscard]] PartView view() const { return view_.selected() == 1 ? PartView::kExpanded : PartView::kCollapsed; }
  void fill();
  void say(std::string text);
  void hintAtFixedQuotas();

  void insert();
  void deleteAll();

  // ---- Files --------------------------------------------------------------------------------------------------
  void load();
  void save();
  void tellOfLostParts();

  // ---- Quotas -------------------------------------------------------------------------------------------------
  void adjust();
  void adjustByRemainder();
  void noteRule(std::string text);
  void take(const std::vector<Section>& adjusted);

  // ---- A row --------------------------------------------------------------------------------------------------
  void showMenu(int row);
  void deleteRow(const SectionRow& row);
  void editRow(const SectionRow& row);
  void setQuota(const SectionRow& row);
  // False, with a message, for a row of several parts.
  bool isOne(const SectionRow& row, std::string_view what);

  SectionalPlanJob& job_;
  dialog::Dialog dialog_{"Section Manager"};
  dialog::DropDownHandle view_;
  dialog::GridHandle grid_;
  dialog::ReadOnlyHandle totalArea_;
  dialog::ReadOnlyHandle totalQuota_;
  dialog::ButtonHandle byRemainder_;
  dialog::LabelHandle message_;
  std::vector<SectionRow> rows_;
  Quota total_ = 0;
};

}  // namespace ardenix::survey
