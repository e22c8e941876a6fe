#include "arch/wall_dialog.h"

#include "frame/drafting/scratch_layer.h"
#include "frame/host/core_services.h"
#include "frame/messages.h"
#include "frame/names.h"

namespace ardenix::arch {

namespace {

constexpr double kLargestWidth = 999999999.0;
constexpr double kLargestAngle = 360.0;

constexpr RecordWords kWallWords = {.section = kWallTypes,
                                    .caption = "Wall",
                                    .word = "wall type",
                                    .namePrompt = "Name for new wall",
                                    .listTip = "The wall type to draw or to edit",
                                    .addTip = "Add what is shown as a new wall type",
                                    .deleteTip = "Delete the wall type shown"};

// The first entry of each radio group stands for true.
enum Choice { kFirst, kSecond };
Choice choiceOf(bool first) { return first ? kFirst : kSecond; }

constexpr LayerGridRow kExternalRows[] = {{kWallRowNames[kExtFoundation], kExtFoundation},
                                          {kWallRowNames[kExtWall], kExtWall, true},
                                          {kWallRowNames[kCavity1], kCavity1},
                                          {kWallRowNames[kCavity2], kCavity2},
                                          {kWallRowNames[kIntWall], kIntWall, true},
                                          {kWallRowNames[kIntFoundation], kIntFoundation}};
constexpr LayerGridRow kInternalRows[] = {{kWallRowNames[kExtFoundation], kExtFoundation},
                                          {kWallRowNames[kExtWall], kExtWall, true},
                                          {kWallRowNames[kIntWall], kIntWall, true},
                                          {kWallRowNames[kIntFoundation], kIntFoundation}};

}  // namespace

// ---- Description --------------------------------------------------------------------------------------------

WallDialog::WallDialog(const Services& services, ArchSpecStore& store, WallDrawer& drawer)
    : services_(services), store_(store), drawer_(drawer), chooser_(services, store, dialog_, kWallWords) {
  constexpr WidthRow kExternalWidths[] = {
      {kExtFoundationWidth, "External foundation width", "How far the foundation stands out from the outside face"},
      {kExtWallWidth, "External wall width", "The thickness of the outer leaf"},
      {kCavityWidth, "Cavity width", "The clear width between the leaves"},
      {kIntWallWidth, "Internal wall width", "The thickness of the inner leaf"},
      {kIntFoundationWidth, "Internal foundation width", "How far the foundation stands out from the inside face"}};
  constexpr WidthRow kInternalWidths[] = {
      {kExtFoundationWidth, "External foundation width", "How far the foundation stands out from one face"},
      {kIntWallWidth, "Wall width", "The thickness of the wall"},
      {kIntFoundationWidth, "Internal foundation width", "How far the foundation stands out from the other face"}};
  dialog_.enableToolTips(services_.toolTips);
  dialog_.onHelp = [this](int) {
    const char* page = internalChosen() ? "Wall Setup (internal)" : "Wall Setup (external)";
    services_.help->open(dialog_, helpTopic(page));
  };
  describeList();
  describeLayout(external_, kExternalWidths, kExternalRows);
  describeLayout(internal_, kInternalWidths, kInternalRows);
  const int drawing = dialog_.addGroup({.place = {.row = 1, .column = 1}});
  describeDrawing(drawing);
  describeEnds(drawing);
  addOkCancel(dialog_, 2);
  dialog_.onOpen = [this] { open(); };
  dialog_.onOk = [this] { return confirm(); };
}

void WallDialog::describeList() {
  const int group = dialog_.addGroup({.place = {.columnSpan = 2}});
  chooser_.describe(group, {.show = [this](int number) { chooseType(number); },
                            .mayBeSaved = [this] { return mayBeSaved(); },
                            .record =
                                [this](const std::string& name) {
                                  takeType();
                                  drawer_.type.name = name;
                                  return wallRecord(drawer_.type);
                                }});
  layer_ = addEditableList(dialog_, {.caption = "Wall layer",
                                     .toolTip = "The layer on which walls of this type are drawn",
                                     .group = group,
                                     .place = {.row = 1}});
}

void WallDialog::describeLayout(Layout& layout, std::span<const WidthRow> widths, std::span<const LayerGridRow> rows) {
  layout.group = dialog_.addGroup({.caption = "Wall thickness", .place = {.row = 1}});
  int row = 0;
  for (const WidthRow& width : widths) {
    const CFloatEdit edit = addFloat(dialog_,
                                     {.caption = std::string(width.caption),
                                      .toolTip = std::string(width.toolTip),
                                      .group = layout.group,
                                      .place = {.row = row++}},
                                     0.0, kLargestWidth, "%.2f");
    layout.widths.push_back({width.width, edit});
  }
  layout.grid.describe(dialog_, {.group = layout.group, .place = {.row = row}, .name = "Layers"}, rows, store_.view());
}

void WallDialog::describeDrawing(int group) {
  const auto radio = [&](int row, std::string caption, std::vector<dialog::RadioItem> items) {
    return addRadio(dialog_, {.caption = std::move(caption), .group = group, .place = {.row = row}}, std::move(items));
  };
  method_ = radio(0, "Drawing method:",
                  {{"Draw &fresh", "Draw the wall from point to point"},
                   {"&Track line or perimeter", "Draw the wall along lines that are there already"}});
  justification_ = radio(1, "Justification:",
                         {{"Outside", "The wall stands outside of the line that is drawn or tracked"},
                          {"Inside", "The wall stands inside of the line that is drawn or tracked"}});
  direction_ = radio(2, "Drawing direction:",
                     {{"Clockwise", "The points go round the building clockwise"},
                      {"Anticlockwise", "The points go round the building anticlockwise"}});
  const auto picture = [&](std::string name, std::string file) {
    return addPicture(dialog_, {.group = group, .place = {.row = 2, .column = 1}, .name = std::move(name)},
                      {.name = std::move(file), .width = 50, .height = 40});
  };
  clockwise_ = picture("Clockwise picture", "wall_clockwise");
  anticlockwise_ = picture("Anticlockwise picture", "wall_anticlockwise");
  type_ =
      radio(3, "Wall type:", {{"Internal", "A wall of one leaf"}, {"External", "A wall of two leaves and a cavity"}});
  method_.onEdit([this] { methodChosen(); });
  justification_.onEdit([this] { followJustification(); });
  direction_.onEdit([this] { showDirection(); });
  type_.onEdit([this] { showLayout(); });
}

void WallDialog::describeEnds(int parent) {
  const int group =
      dialog_.addGroup({.caption = "Wall end finish:", .parent = parent, .place = {.row = 4, .columnSpan = 2}});
  const auto angle = [&](int row, std::string caption, std::string toolTip) {
    return addFloat(
        dialog_, {.caption = std::move(caption), .toolTip = std::move(toolTip), .group = group, .place = {.row = row}},
        0.0, kLargestAngle, "%.2f");
  };
  startAngle_ = angle(0, "Start angle", "The angle between the wall and the line that ends it at its start");
  endAngle_ = angle(1, "End angle", "The angle between the wall and the line that ends it at its end");
  fillet_ = addCheck(dialog_, {.caption = "F&illet corners",
                               .toolTip = "Round the outer lines of each corner",
                               .group = group,
                               .place = {.column = 1}});
  close_ = addCheck(dialog_, {.caption = "&Close off ends",
                              .toolTip = "Draw a line across each end",
                              .group = group,
                              .place = {.row = 1, .column = 1}});
  join_ = addCheck(dialog_, {.caption = "&Join walls",
                             .toolTip = "Open walls to each other where they meet",
                             .group = group,
                             .place = {.row = 2, .column = 1}});
}

// ---- What is shown ------------------------------------------------------------------------------------------

bool WallDialog::run() { return services_.mainFrame->RunDialog(dialog_, services_.mainFrame); }

bool WallDialog::internalChosen() const { return type_.chosen() == kFirst; }

void WallDialog::open() {
  layer_.setItems(store_.layersAndWallLayers());
  showSettings();
  chooser_.open(drawer_.settings.current);
}

void WallDialog::showSettings() {
  const WallSettings& settings = drawer_.settings;
  method_.choose(choiceOf(!settings.tracks));
  justification_.choose(choiceOf(settings.outside));
  direction_.choose(choiceOf(settings.clockwise));
  direction_.enable(!settings.tracks);
  join_.setChecked(settings.joins);
  showDirection();
}

void WallDialog::showType() {
  const WallType& wall = drawer_.type;
  layer_.setText(wall.layer);
  type_.choose(choiceOf(wall.internal));
  startAngle_.SetValue(wall.startAngle);
  endAngle_.SetValue(wall.endAngle);
  fillet_.setChecked(wall.filletsCorners);
  close_.setChecked(wall.closesEnds);
  for (Layout* layout : {&external_, &internal_}) {
    for (const Layout::Width& width : layout->widths) { width.edit.SetValue(wall.widths[width.width]); }
    layout->grid.show(wall.rows);
  }
  showLayout();
}

void WallDialog::showLayout() {
  dialog_.setGroupVisible(external_.group, !internalChosen());
  dialog_.setGroupVisible(internal_.group, internalChosen());
}

void WallDialog::methodChosen() {
  direction_.enable(method_.chosen() == kFirst);
  followJustification();
}

// Tracked perimeters have their direction from the side on which the wall stands.
void WallDialog::followJustification() {
  if (method_.chosen() == kSecond) { direction_.choose(justification_.chosen() == kFirst ? kSecond : kFirst); }
  showDirection();
}

void WallDialog::showDirection() {
  const bool fresh = method_.chosen() == kFirst;
  clockwise_.show(direction_.chosen() == kFirst);
  anticlockwise_.show(direction_.chosen() == kSecond);
  clockwise_.enable(fresh);
  anticlockwise_.enable(fresh);
}

// ---- Edits --------------------------------------------------------------------------------------------------

void WallDialog::chooseType(int number) {
  drawer_.loadType(number);
  showType();
}

std::string WallDialog::layerName() const {
  std::string name = layer_.text();
  coreTrimStr(name);
  cleanName(name, true);
  return name;
}

void WallDialog::takeType() {
  WallType& wall = drawer_.type;
  wall.layer = layerName();
  wall.internal = internalChosen();
  wall.startAngle = startAngle_.GetValue();
  wall.endAngle = endAngle_.GetValue();
  wall.filletsCorners = fillet_.checked();
  wall.closesEnds = close_.checked();
  for (const Layout::Width& width : shownLayout().widths) { wall.widths[width.width] = width.edit.GetValue(); }
  shownLayout().grid.take(wall.rows);
}

void WallDialog::takeSettings() {
  WallSettings& settings = drawer_.settings;
  settings.tracks = method_.chosen() == kSecond;
  settings.outside = justification_.chosen() == kFirst;
  settings.clockwise = direction_.chosen() == kFirst;
  settings.current = chooser_.number();
  settings.joins = join_.checked();
}

// The host cuts no end at a sharper angle, and the scratch layers come and go.
bool WallDialog::mayBeSaved() {
  const auto refuse = [this](const dialog::Handle& field, std::string_view why) {
    warn(&dialog_, "%s", why);
    field.focus();
    return false;
  };
  constexpr std::string_view kAngles = "A wall's end is cut at 1 to 179 degrees, or 181 to 359.";
  if (!isEndAngle(startAngle_.GetValue())) { return refuse(startAngle_, kAngles); }
  if (!isEndAngle(endAngle_.GetValue())) { return refuse(endAngle_, kAngles); }
  if (!isScratchName(layerName())) { return true; }
  return refuse(layer_, numberText::format("The layer \"%s\" holds parts in the making only.", layerName()));
}

bool WallDialog::confirm() {
  auto name = chooser_.nameToSave();
  if (!name || !mayBeSaved()) { return false; }
  takeType();
  takeSettings();
  drawer_.type.name = *std::move(name);
  drawer_.save();
  return true;
}

}  // namespace ardenix::arch
