#include "mech/tolerance_dialog.h"

#include <algorithm>

#include "frame/messages.h"
#include "mech/annotation_commands.h"
#include "mech/fastener_placement.h"
#include "mech/tolerance_drawer.h"

namespace ardenix::mech {

// An entry of a list of symbols: its caption, its picture, the number of its symbol.
struct SymbolRow {
  const char* caption;
  const char* picture;
  int number;
};

namespace {

constexpr SymbolRow kCharacteristics[] = {
    {"Angularity", "tolerance_angularity", 0},      {"Perpendicularity", "tolerance_perpendicity", 1},
    {"Flatness", "tolerance_flatness", 2},          {"Surface profile", "tolerance_surf_profile", 3},
    {"Circularity", "tolerance_circularity", 4},    {"Parallelism", "tolerance_parallelism", 5},
    {"Cylindricity", "tolerance_cylindricity", 6},  {"Runout", "tolerance_runout", 7},
    {"Symmetry", "tolerance_symmetry", 8},          {"Position", "tolerance_position", 9},
    {"Line profile", "tolerance_line_profile", 10}, {"Coaxiality", "tolerance_coaxiality", 17},
    {"Total runout", "tolerance_total_runout", 19}, {"Straightness", "tolerance_straightness", 20}};
constexpr SymbolRow kDiameters[] = {{"None", "", 0}, {"Diameter", "tolerance_diameter", 1}};
constexpr SymbolRow kModifiers[] = {{"None", "", kNoToleranceSymbol},
                                    {"Maximum material", "tolerance_material_m", 12},
                                    {"Least material", "tolerance_material_l", 11},
                                    {"Regardless of feature size", "tolerance_material_s", 18}};

constexpr int kValueLimit = 63;
constexpr int kIdentifierLimit = 31;

struct CellRow {
  const char* box;
  bool tolerance;  // else a datum
};
constexpr CellRow kCells[] = {
    {"1st Tolerance", true}, {"2nd Tolerance", true}, {"1st Datum", false}, {"2nd Datum", false}, {"3rd Datum", false}};

// The number of the entry that is chosen; none where none is.
int numberIn(const dialog::PictureListHandle& list, std::span<const SymbolRow> rows) {
  const int chosen = list.selected();
  return chosen < 0 ? kNoToleranceSymbol : rows[static_cast<size_t>(chosen)].number;
}

void showNumber(const dialog::PictureListHandle& list, std::span<const SymbolRow> rows, int number) {
  const auto row = std::ranges::find(rows, number, &SymbolRow::number);
  list.select(row == rows.end() ? -1 : static_cast<int>(row - rows.begin()));
}

}  // namespace

// ---- Description --------------------------------------------------------------------------------------------

ToleranceDialog::ToleranceDialog(const Services& services, const DefinitionStore& store, ToleranceFrame& frame)
    : services_(services), frame_(frame) {
  equip(dialog_, services_, helpTopic("Tolerance Annotation"));
  describeSymbol();
  describeCells();
  describeRows();
  const int preview = dialog_.addGroup({.caption = "Preview", .place = {.row = 4}});
  constexpr int kWidth = 260;
  constexpr int kHeight = 60;
  dialog::addControl(dialog_,
                     dialog::Preview{kWidth, kHeight,
                                     [this, &store](CCadWindow& view) {
                                       AnnotationPen pen =
                                           sketchingPen(view, annotationStyle(store, kToleranceAnnotation));
                                       sketchToleranceFrame(pen, shown(), {});
                                     }},
                     {.group = preview});
  addOkCancel(dialog_, 5);
  dialog_.onOpen = [this] { show(frame_); };
  dialog_.onOk = [this] { return confirm(); };
}

dialog::PictureListHandle ToleranceDialog::addSymbols(std::span<const SymbolRow> rows, dialog::Setting setting) {
  std::vector<const char*> captions;
  std::vector<const char*> pictures;
  for (const SymbolRow& row : rows) {
    captions.push_back(row.caption);
    pictures.push_back(row.picture);
  }
  return addPictureList(dialog_, std::move(setting), captions, pictures);
}

dialog::TextHandle ToleranceDialog::addValue(int limit, dialog::Setting setting) {
  const dialog::TextHandle text = addText(dialog_, std::move(setting), limit);
  texts_.push_back(text);
  return text;
}

void ToleranceDialog::describeSymbol() {
  const int group = dialog_.addGroup({});
  characteristic_ = addSymbols(
      kCharacteristics, {.caption = "Symbol", .toolTip = "Tolerance symbol (type of tolerance)", .group = group});
  addButton(dialog_,
            {.caption = "Clear", .toolTip = "Reset the tolerance frame", .group = group, .place = {.column = 1}})
      .onPress([this] { show({}); });
}

// Tolerances above datums, as they follow each other in the frame.
void ToleranceDialog::describeCells() {
  constexpr size_t kTolerances = 2;
  const int rows[] = {dialog_.addGroup({.place = {.row = 1}}), dialog_.addGroup({.place = {.row = 2}})};
  for (size_t i = 0; i < cells_.size(); ++i) {
    const bool tolerance = kCells[i].tolerance;
    const size_t column = tolerance ? i : i - kTolerances;
    const int group = dialog_.addGroup(
        {.caption = kCells[i].box, .parent = rows[tolerance ? 0 : 1], .place = {.column = static_cast<int>(column)}});
    if (tolerance) {
      cells_[i].diameter = addSymbols(kDiameters, {.toolTip = "Diameter symbol", .group = group, .name = "Diameter"});
    }
    cells_[i].value = addValue(
        kValueLimit,
        {.toolTip = tolerance ? "Tolerance value" : "Datum ID", .group = group, .place = {.row = 1}, .name = "Value"});
    cells_[i].modifier = addSymbols(kModifiers, {.toolTip = tolerance ? "Modifier symbol" : "Datum modifier",
                                                 .group = group,
                                                 .place = {.row = 2},
                                                 .name = "Modifier"});
  }
}

void ToleranceDialog::describeRows() {
  const int group = dialog_.addGroup({.place = {.row = 3}});
  projected_ = addCheck(dialog_, {.caption = "Projected tolerance zone",
                                  .toolTip = "Check this if this annotation will refer to a projected tolerance zone",
                                  .group = group});
  height_ = addValue(
      kValueLimit,
      {.caption = "Height", .toolTip = "Projected tolerance zone value", .group = group, .place = {.column = 1}});
  identifier_ = addValue(kIdentifierLimit, {.caption = "Datum identifier",
                                            .toolTip = "The ID of the datum that this refers to (optional)",
                                            .group = group,
                                            .place = {.row = 1, .column = 1}});
}

bool ToleranceDialog::run() { return services_.mainFrame->RunDialog(dialog_, services_.mainFrame); }

// ---- Values -------------------------------------------------------------------------------------------------

void ToleranceDialog::show(const ToleranceFrame& frame) const {
  showNumber(characteristic_, kCharacteristics, frame.characteristic);
  for (size_t i = 0; i < cells_.size(); ++i) {
    if (kCells[i].tolerance) { showNumber(cells_[i].diameter, kDiameters, frame.cells[i].diameter ? 1 : 0); }
    cells_[i].value.setText(frame.cells[i].value);
    showNumber(cells_[i].modifier, kModifiers, frame.cells[i].modifier);
  }
  projected_.setChecked(frame.projected);
  height_.setText(frame.height);
  identifier_.setText(frame.identifier);
}

ToleranceFrame ToleranceDialog::shown() const {
  ToleranceFrame frame;
  frame.characteristic = numberIn(characteristic_, kCharacteristics);
  for (size_t i = 0; i < cells_.size(); ++i) {
    frame.cells[i] = {.diameter = kCells[i].tolerance && numberIn(cells_[i].diameter, kDiameters) == 1,
                      .value = cells_[i].value.text(),
                      .modifier = numberIn(cells_[i].modifier, kModifiers)};
  }
  frame.projected = projected_.checked();
  frame.height = height_.text();
  frame.identifier = identifier_.text();
  return frame;
}

bool ToleranceDialog::refuse(const dialog::Handle& field, std::string_view message) {
  warn(&dialog_, "%s", message);
  field.focus();
  return false;
}

bool ToleranceDialog::confirm() {
  if (characteristic_.selected() < 0) { return refuse(characteristic_, "You must select a symbol first!"); }
  const auto broken = std::ranges::find_if(texts_, [](const auto& text) { return breaksLine(text.text()); });
  if (broken != texts_.end()) {
    return refuse(
        *broken,
        numberText::format("A compartment has one line: \"%s\" cannot hold \"\\N\", which breaks it.", broken->text()));
  }
  frame_ = shown();
  return true;
}

// ---- The command --------------------------------------------------------------------------------------------

void drawTolerances(MechToolset& toolset) {
  if (!toolset.checkConfiguration()) { return; }
  CCadWindow& view = toolset.view();
  const DefinitionStore& store = toolset.configuration().store();
  ToleranceFrame& frame = toolset.toleranceFrame();
  if (ToleranceDialog(toolset.services(), store, frame).run()) {
    view.SetFocus();
    drawToleranceFrame(view, store, frame);
  }
  endFastener(view);
}

}  // namespace ardenix::mech
