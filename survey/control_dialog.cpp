#include "survey/control_dialog.h"

#include <algorithm>
#include <cmath>

#include "frame/host/core_services.h"
#include "frame/host/number_text.h"
#include "survey/figure.h"
#include "survey/number_formats.h"

namespace ardenix::survey {

namespace {

constexpr double kFarthest = 99999999.999;
constexpr int kNameLimit = 127;

void tell(CWnd* owner, std::string_view text, std::string_view caption) {
  coreMessageBox(owner, text, caption, BoxIcon::kWarning, BoxButtons::kOk);
}

bool linesOf(const std::string& path, std::vector<std::string>& lines) {
  const int file = coreFileOpen(path, "r");
  if (file == 0) { return false; }
  std::string line;
  while (coreFileTxtRead(file, line) != 0) { lines.push_back(line); }
  coreFileClose(file);
  return true;
}

}  // namespace

ControlDialog::ControlDialog(std::array<ControlPoint, 2>& points, std::string storePath, const Services& services)
    : points_(points), initialPath_(std::move(storePath)), services_(services) {
  equip(dialog_, services_, helpTopic("Control Coordinates"));
  const int store = dialog_.addGroup({.place = {.columnSpan = 2}});
  storeName_ = addReadOnly(dialog_, {.caption = "Storage file:",
                                     .toolTip = "Control points are stored in an .ini file for future reuse",
                                     .group = store});
  addButton(dialog_, {.caption = "...", .toolTip = "Open file", .group = store, .place = {.column = 1}})
      .onPress([this] { browse(); });
  for (size_t i = 0; i < controls_.size(); ++i) { addPoint(i); }
  const int lists = dialog_.addGroup({.caption = "Load external data:", .place = {.row = 2, .columnSpan = 2}});
  addButton(dialog_, {.caption = "Trig lists", .group = lists}).onPress([this] {
    readListing(ControlCategory::kTrigonometricalBeacon);
  });
  addButton(dialog_, {.caption = "Tsm lists", .group = lists, .place = {.column = 1}}).onPress([this] {
    readListing(ControlCategory::kTownSurveyMark);
  });
  join_ = addLabel(dialog_, {.place = {.row = 3, .columnSpan = 2}, .name = "Join"}, "");
  addOkCancel(dialog_, 4);
  dialog_.onOpen = [this] { open(); };
  dialog_.onOk = [this] { return confirm(); };
}

void ControlDialog::addPoint(size_t index) {
  const int column = static_cast<int>(index);
  const int group = dialog_.addGroup(
      {.caption = numberText::format("Control point %d", column + 1), .place = {.row = 1, .column = column}});
  PointControls& controls = controls_[index];
  controls.category = addDropDown(
      dialog_,
      {.caption = "Category:", .toolTip = "Select whether control point denotes a Trig beacon or TSM", .group = group},
      {"Town Survey Mark", "Trigonometrical Beacon"});
  dialog::DropDown names;
  names.editable = true;
  controls.name = {dialog_,
                   addControl(dialog_, std::move(names), {.caption = "Name:", .group = group, .place = {.row = 1}})};
  controls.number = addText(
      dialog_,
      {.caption = "No", .toolTip = "Trig beacon number in degsqr/number format", .group = group, .place = {.row = 2}},
      kNameLimit);
  const auto number = [&](std::string caption, int row) {
    return addFloat(dialog_, {.caption = std::move(caption), .group = group, .place = {.row = row}}, -kFarthest,
                    kFarthest, "%.2f");
  };
  controls.y = number("Y", 3);
  controls.x = number("X", 4);
  controls.category.onEdit([this, index] { categoryChanged(controls_[index]); });
  controls.name.onEdit([this, index] { nameChosen(controls_[index]); });
  for (const CFloatEdit& edit : {controls.y, controls.x}) {
    edit.onEdit([this] { showJoin(); });
  }
}

bool ControlDialog::run(CWnd* owner) { return services_.mainFrame->RunDialog(dialog_, owner); }

// ---- Showing ----------------------------------------------------------------------------------------------------

void ControlDialog::open() {
  if (!initialPath_.empty()) { openStore(initialPath_); }
  for (size_t i = 0; i < controls_.size(); ++i) { show(controls_[i], points_[i]); }
}

void ControlDialog::openStore(const std::string& path) {
  try {
    store_ = std::make_unique<ControlStore>(path);
    storeName_.setText(path);
  } catch (const HostFailure& failure) { ErrorMessage(failure.what(), &dialog_); }
}

ControlCategory ControlDialog::categoryOf(const PointControls& controls) const {
  return controls.category.selected() == 1 ? ControlCategory::kTrigonometricalBeacon : ControlCategory::kTownSurveyMark;
}

void ControlDialog::setName(const PointControls& controls, const std::string& text) {
  auto& list = dialog_.state<dialog::DropDown>(controls.name.index());
  const auto entry = std::ranges::find(list.items, text);
  list.selected = entry == list.items.end() ? -1 : static_cast<int>(entry - list.items.begin());
  list.text = text;
  dialog_.changed(controls.name.index());
}

void ControlDialog::fillNames(const PointControls& controls) {
  const ControlCategory category = categoryOf(controls);
  const bool beacon = category == ControlCategory::kTrigonometricalBeacon;
  controls.number.enable(beacon);
  controls.number.show(beacon);
  controls.name.control().toolTip = beacon ? "Enter new Trig beacon or choose from list in the above file"
                                           : "Enter new TSM or choose from list in the above file";
  controls.name.setItems(store_ ? store_->keys(category) : std::vector<std::string>());
}

// So that a coordinate that is far out is seen; nothing until both points have a place.
void ControlDialog::showJoin() {
  const auto placeOf = [](const PointControls& controls) {
    return Point{controls.y.GetValue(), controls.x.GetValue()};
  };
  const Point from = placeOf(controls_[0]);
  const Point to = placeOf(controls_[1]);
  if (isOrigin(from) || isOrigin(to)) { return join_.setText(""); }
  const NumberStyle style{.thousands = " ", .bearing = std::string(1, kDegreeSign)};
  const Join join = joinOf(from, to);
  join_.setText(numberText::format("From point 1 to point 2: %s m, %s",
                                   std::string_view(formattedNumber(join.distance, style)),
                                   std::string_view(formattedBearing(join.direction, style).text)));
}

// A point that the store knows by its key is shown by it, any other as it stands in the settings.
void ControlDialog::show(const PointControls& controls, const ControlPoint& point) {
  controls.category.select(static_cast<int>(point.category));
  fillNames(controls);
  const std::string key = controlKey(point);
  const auto& names = controls.name.items();
  const bool known = std::ranges::find(names, key) != names.end();
  setName(controls, known ? key : point.name);
  controls.number.setText(point.number);
  controls.y.SetValue(point.y);
  controls.x.SetValue(point.x);
  showJoin();
  if (known && !isDamaged(controls)) { nameChosen(controls); }
}

void ControlDialog::categoryChanged(const PointControls& controls) {
  controls.number.setText("");
  fillNames(controls);
  controls.name.select(0);
  controls.y.SetValue(0.0);
  controls.x.SetValue(0.0);
  showJoin();
  nameChosen(controls);
  needStore();
}

void ControlDialog::tellDamage(const std::string& key) {
  ErrorMessage(numberText::format("%s: the record of \"%s\" has no coordinates that can be read.", store_->path(), key),
               &dialog_);
}

void ControlDialog::nameChosen(const PointControls& controls) {
  if (!store_ || controls.name.selected() < 0) { return; }
  const auto point = store_->find(categoryOf(controls), controls.name.text());
  if (!point) { tellDamage(controls.name.text()); }
  const ControlPoint shown = point.value_or(ControlPoint());
  controls.number.setText(shown.number);
  controls.y.SetValue(shown.y);
  controls.x.SetValue(shown.x);
  showJoin();
}

// ---- The store --------------------------------------------------------------------------------------------------

bool ControlDialog::needStore() {
  if (!store_) { tell(&dialog_, "First load or create a new setup ini file.", "Ini file needed"); }
  return store_ != nullptr;
}

void ControlDialog::browse() {
  std::string path;
  if (coreChooseFile(&dialog_, true, "(*.ini)|*.ini||", "ini", storePath(), path) == 0) { return; }
  openStore(path);
  for (const PointControls& controls : controls_) {
    controls.category.select(static_cast<int>(ControlCategory::kTownSurveyMark));
    categoryChanged(controls);
  }
}

void ControlDialog::readListing(ControlCategory category) {
  if (!needStore()) { return; }
  const bool beacons = category == ControlCategory::kTrigonometricalBeacon;
  const std::string filter =
      numberText::format(" CDSM %s listing (*.txt)|*.txt| Comma delimited (*.csv)|*.csv||", beacons ? "Trig" : "TSM");
  constexpr int kTable = 2;
  std::string path;
  int chosen = 1;
  if (coreChooseFile(&dialog_, true, filter, "txt", "", path, &chosen) == 0) { return; }
  std::vector<std::string> lines;
  if (coreFileExist(path) == 0) { return tell(&dialog_, "File does not exist.", "File read error"); }
  try {
    if (!linesOf(path, lines)) { return tell(&dialog_, "Problem with the input file.", "File read error"); }
    const Reader table = beacons ? beaconsOfTable : marksOfTable;
    const Reader listing = beacons ? beaconsOfListing : marksOfListing;
    for (const ListedPoint& point : (chosen == kTable ? table : listing)(lines)) { store_->add(category, point); }
  } catch (const HostFailure&) { return tell(&dialog_, "Problem with the input file.", "File read error"); }
  for (const PointControls& controls : controls_) {
    controls.category.select(static_cast<int>(category));
    categoryChanged(controls);
  }
}

// A chosen entry of a numbered beacon ends in its number, which the point keeps apart.
ControlPoint ControlDialog::pointOf(const PointControls& controls) const {
  ControlPoint point{.category = categoryOf(controls),
                     .name = controls.name.text(),
                     .number = controls.number.text(),
                     .y = controls.y.GetValue(),
                     .x = controls.x.GetValue()};
  for (std::string* text : {&point.name, &point.number}) {
    std::ranges::replace(*text, ',', ' ');
    coreTrimStr(*text);
  }
  if (point.category == ControlCategory::kTownSurveyMark) { point.number.clear(); }
  const std::string ending = ' ' + point.number;
  if (!point.number.empty() && point.name.ends_with(ending)) { point.name.resize(point.name.size() - ending.size()); }
  return point;
}

// Until coordinates are typed, a name whose record cannot be read is no control point.
bool ControlDialog::isDamaged(const PointControls& controls) const {
  return controls.name.selected() >= 0 && !store_->find(categoryOf(controls), controls.name.text());
}

bool ControlDialog::confirm() {
  if (!needStore()) { return false; }
  constexpr double kNowhere = 1e-12;
  std::array<ControlPoint, 2> chosen;
  try {
    for (size_t i = 0; i < chosen.size(); ++i) {
      chosen[i] = pointOf(controls_[i]);
      // A point on the central meridian has a Y of 0.
      const bool placed = std::fabs(chosen[i].y) > kNowhere || std::fabs(chosen[i].x) > kNowhere;
      if (!placed && isDamaged(controls_[i])) {
        tellDamage(controls_[i].name.text());
        controls_[i].y.focus();
        return false;
      }
      if (placed && !chosen[i].name.empty()) { store_->add(chosen[i]); }
    }
    store_->save();
  } catch (const HostFailure& failure) {
    ErrorMessage(failure.what(), &dialog_);
    return false;
  }
  points_ = chosen;
  return true;
}

}  // namespace ardenix::survey
