#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "frame/drafting/point.h"
#include "mech/mech_toolset.h"
#include "mech/table_drawer.h"

namespace ardenix::mech {

// What a list that is collected from the drawing is called and asks.
struct ListTrade {
  std::string_view title;
  std::string_view help;
  std::string_view listName;
  std::string_view listTip;
  std::string_view saveQuestion;
  std::string_view kind;  // the name of the group that its table is drawn into
  std::string_view placePrompt;
};

// What a list is drawn as: the widths of the columns in pixels, and the rows with the header before them.
struct DrawnList {
  std::vector<int> pixels;
  std::vector<TableRow> rows;
};

// The command of a list: its dialog, which is shown again after each round of picking in the drawing, and its table.
class ListCommand {
 public:
  ListCommand(MechToolset& toolset, const ListTrade& trade);
  ListCommand(const ListCommand&) = delete;
  ListCommand& operator=(const ListCommand&) = delete;
  virtual ~ListCommand() = default;

  void run();

 protected:
  // ---- Of a kind of list
  // The dialog is about to be shown again.
  virtual void donePicking() {}
  [[nodiscard]] virtual std::vector<std::string> fileLines() const = 0;
  [[nodiscard]] virtual DrawnList drawn() const = 0;
  // The table lies in the drawing.
  virtual void placed() {}

  // ---- For it
  // Closes the dialog for picking in the drawing, one thing after another until the user has enough: false.
  void addPickButton(std::string caption, std::string toolTip, int column, std::function<bool()> pickOne);
  // Rows changed: columns become wide enough for them.
  void showRows(std::vector<TableRow> rows) const;
  // The text nearest to a point, as far as rows hold it; says so where there is none.
  [[nodiscard]] std::string textAt(Point at) const;
  [[nodiscard]] dialog::Dialog& box() { return dialog_; }
  [[nodiscard]] const dialog::ColumnListHandle& list() const { return list_; }
  [[nodiscard]] CCadWindow& view() const { return view_; }
  [[nodiscard]] const Services& services() const { return services_; }
  [[nodiscard]] int optionsGroup() const { return options_; }
  [[nodiscard]] int buttonGroup() const { return buttons_; }
  void addFrameChoice(std::string toolTip, dialog::Place place);

 private:
  void widenFor(const TableRow& row) const;
  void pick(const std::function<bool()>& pickOne);
  bool confirm();
  void save();
  void place();

  const Services& services_;
  CCadWindow& view_;
  const ListTrade& trade_;
  dialog::Dialog dialog_;
  int options_;
  int buttons_;
  dialog::ColumnListHandle list_;
  dialog::CheckHandle frame_;
  std::function<bool()> picks_;  // what the dialog was closed for
};

}  // namespace ardenix::mech
