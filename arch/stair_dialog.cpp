#include "arch/stair_dialog.h"

#include "arch/stair_limits.h"
#include "frame/drafting/scratch_layer.h"
#include "frame/messages.h"

namespace ardenix::arch {

namespace {

enum Page { kGeneralPage, kTreadsPage, kRailingsPage };
enum Type { kLandingType, kStraightType };

constexpr double kMostOfAll = 9999.0;

const StairPageForm<TreadRecord> kTreadForm = {.words = {.section = kTreads,
                                                         .caption = "Treads",
                                                         .word = "tread definition",
                                                         .namePrompt = "Name for new treads",
                                                         .listTip = "The treads to draw or to edit",
                                                         .addTip = "Add what is shown as new treads",
                                                         .deleteTip = "Delete the treads shown"},
                                               .fields = treadFields(),
                                               .read = readTread,
                                               .write = treadRecord,
                                               .saveTitle = "Save Tread",
                                               .deleteTitle = "Delete Tread?",
                                               .deleteQuestion = "Are you sure you want to delete Tread definition '"};

const StairPageForm<RailingRecord> kRailingForm = {
    .words = {.section = kRailings,
              .caption = "Railings",
              .word = "railing definition",
              .namePrompt = "Name for new railings",
              .listTip = "The railing to draw or to edit",
              .addTip = "Add what is shown as a new railing",
              .deleteTip = "Delete the railing shown"},
    .fields = railingFields(),
    .read = readRailing,
    .write = railingRecord,
    .saveTitle = "Save Railing",
    .deleteTitle = "Delete Railing?",
    .deleteQuestion = "Are you sure you want to delete Railing definition '"};

}  // namespace

// ---- Description --------------------------------------------------------------------------------------------

StairDialog::StairDialog(const Services& services, ArchSpecStore& store, StairDrawer& drawer)
    : services_(services),
      store_(store),
      drawer_(drawer),
      standard_(store, &dialog_),
      layers_(store, kStairSection),
      treads_(services, store, dialog_, kTreadForm),
      railings_(services, store, dialog_, kRailingForm) {
  equip(dialog_, services_, helpTopic("Stairs Setup"));
  tabs_ = addControl(dialog_, dialog::Tabs{.pages = {"General", "Treads", "Railings"}}, {.name = "Page"});
  describeGeneral();
  describeTreads();
  describeRailings();
  describePreviews();
  addOkCancel(dialog_, 3);
  dialog_.onOpen = [this] { open(); };
  dialog_.onOk = [this] { return confirm(); };
}

void StairDialog::describeGeneral() {
  const int page = dialog_.addGroup({.place = {.row = 1}, .page = kGeneralPage});
  type_ = addRadio(dialog_, {.caption = "Stair type:", .group = page},
                   {{"Landing", "Draw landings between flights"}, {"Straight section", "Draw straight flights"}});
  describeStyles(dialog_.addGroup({.parent = page, .place = {.row = 1}}));
  std::vector<LayerFields::Row> rows = {{"Plan view", placeOnPlan().layerKey, "The layer of stairs on plan"}};
  rows.reserve(kElevationViews.size() + 1);
  for (const ElevationView& view : kElevationViews) {
    rows.push_back({std::string(view.name) + " view", placeOf(view).layerKey, "The layer of stairs seen from there"});
  }
  layers_.describe(dialog_, std::move(rows), {.row = 2}, page);
}

// A list and the pen beside it bear one caption; the pen has a name of its own.
void StairDialog::describeStyles(int group) {
  const auto pen = [&](int row, std::string name, std::string toolTip) {
    return addPen(
        dialog_,
        {.toolTip = std::move(toolTip), .group = group, .place = {.row = row, .column = 1}, .name = std::move(name)});
  };
  const auto linetype = [&](int row, std::string caption, std::string toolTip) {
    return addLineType(
        dialog_, {.caption = std::move(caption), .toolTip = std::move(toolTip), .group = group, .place = {.row = row}});
  };
  solidLinetype_ = linetype(0, "Solid line type and pen", "The lines of what is seen");
  solidPen_ = pen(0, "Solid pen", "The pen of what is seen");
  hiddenLinetype_ = linetype(1, "Hidden line type and pen", "The lines of what something covers");
  hiddenPen_ = pen(1, "Hidden pen", "The pen of what something covers");
  arrowPen_ = addPen(dialog_, {.caption = "Arrow pen",
                               .toolTip = "The pen of the arrow that points up the stair",
                               .group = group,
                               .place = {.row = 2}});
  const auto head = [&](int row, std::string caption, std::string toolTip) {
    return addFloat(
        dialog_, {.caption = std::move(caption), .toolTip = std::move(toolTip), .group = group, .place = {.row = row}},
        0.0, kMostOfAll, "%.2f");
  };
  arrowLength_ = head(3, "Arrow head length", "The length of the arrow's head in millimetres on paper");
  arrowWidth_ = head(4, "Arrow head width", "The width of the arrow's head in millimetres on paper");
}

void StairDialog::describeTreads() {
  treads_.describe(kTreadsPage, [this] { showResults(); });
  const int results = dialog_.addGroup({.place = {.row = 2}, .page = kTreadsPage});
  height_ = addFloat(dialog_,
                     {.caption = "Staircase height",
                      .toolTip = "From floor to floor; the rise follows what is typed",
                      .group = results},
                     0.01, kMostOfAll * kMostOfAll, "%.2f");
  height_.onEdit([this] { followHeight(); });
  length_ = addReadOnly(dialog_, {.caption = "Staircase length",
                                  .toolTip = "The number of treads times the going",
                                  .group = results,
                                  .place = {.row = 1}});
  pitch_ = addReadOnly(
      dialog_,
      {.caption = "Pitch", .toolTip = "The angle of the stair in degrees", .group = results, .place = {.row = 2}});
  treadLimits_ =
      addLabel(dialog_, {.group = results, .place = {.row = 3, .columnSpan = 2}, .name = "Treads by the standard"}, "");
}

void StairDialog::describeRailings() {
  railings_.describe(kRailingsPage, [this] {
    enableFlags();
    showResults();
  });
  const int results = dialog_.addGroup({.place = {.row = 2}, .page = kRailingsPage});
  gapLimit_ = addLabel(dialog_, {.group = results, .name = "Balusters by the standard"}, "");
}

// A flight of more treads takes longer than a key stroke may, and shows as a black bar.
void StairDialog::describePreviews() {
  constexpr int kSide = 130;
  constexpr int kMostTreadsShown = 200;
  const int group = dialog_.addGroup({.caption = "Preview", .place = {.row = 1, .column = 1}, .page = kTreadsPage});
  const auto preview = [&](int row, void (*draw)(const StairSheet&, const Flight&)) {
    dialog::Preview picture{kSide, kSide, [this, draw](CCadWindow& view) {
                              const Stair shown = stair();
                              if (faultOf(shown) || shown.treads.treads > kMostTreadsShown) { return; }
                              view.gsAddLayer(scratchNames::kArchitectural);
                              draw({view, shown, drawer_.settings}, {{}, 90});
                            }};
    addControl(dialog_, std::move(picture), {.group = group, .place = {.row = row}});
  };
  preview(0, drawFlightPlan);
  preview(1, drawFlightSide);
}

// ---- What is shown ------------------------------------------------------------------------------------------

bool StairDialog::run() { return services_.mainFrame->RunDialog(dialog_, services_.mainFrame); }

void StairDialog::open() {
  const StairSettings& settings = drawer_.settings;
  type_.choose(settings.landing ? kLandingType : kStraightType);
  solidPen_.SetPen(settings.solid.pen);
  solidLinetype_.SetCurSel(settings.solid.linetype - 1);
  hiddenPen_.SetPen(settings.hidden.pen);
  hiddenLinetype_.SetCurSel(settings.hidden.linetype - 1);
  arrowPen_.SetPen(settings.arrowPen);
  arrowLength_.SetValue(settings.arrowLength);
  arrowWidth_.SetValue(settings.arrowWidth);
  layers_.show();
  treads_.open(settings.currentTread);
  railings_.open(settings.currentRailing);
}

void StairDialog::showResults() {
  const Stair shown = stair();
  height_.SetValue(shown.height());
  showRest();
}

void StairDialog::showRest() {
  const Stair shown = stair();
  length_.setText(numberText::format("%.2f", shown.length()));
  pitch_.setText(numberText::format("%.2f", shown.pitch()));
  const bool known = standard_.number() > 0;
  const std::string by = known ? standard_.name() + ": " : "";
  treadLimits_.setText(known ? by + treadsAgainst(standard_.limits(), shown.treads) : "");
  gapLimit_.setText(known && shown.railing.hasBalusters() ? by + gapAgainst(standard_.limits(), shown) : "");
}

void StairDialog::followHeight() {
  TreadRecord treads = treads_.record();
  if (treads.treads < 1 || height_.GetValue() <= 0.0) { return; }
  treads.rise = height_.GetValue() / treads.treads;
  treads_.set(treads);
  showRest();
}

void StairDialog::enableFlags() {
  const RailingRecord railing = railings_.record();
  railings_.field("Bottom rail flag")->enable(railing.hasRail());
  railings_.field("Balluster flag")->enable(railing.hasRail() && railing.bottomRail);
}

// ---- Saving -------------------------------------------------------------------------------------------------

bool StairDialog::refuse(const StairFault& fault) {
  const bool ofTreads = treads_.field(fault.field) != nullptr;
  dialog_.state<dialog::Tabs>(tabs_).current = ofTreads ? kTreadsPage : kRailingsPage;
  dialog_.changed(tabs_);
  warn(&dialog_, "%s", fault.message);
  (ofTreads ? treads_.field(fault.field) : railings_.field(fault.field))->focus();
  return false;
}

void StairDialog::takeSettings() {
  StairSettings& settings = drawer_.settings;
  settings.landing = type_.chosen() == kLandingType;
  settings.solid = {.pen = solidPen_.GetPen(), .linetype = solidLinetype_.GetCurSel() + 1};
  settings.hidden = {.pen = hiddenPen_.GetPen(), .linetype = hiddenLinetype_.GetCurSel() + 1};
  settings.arrowPen = arrowPen_.GetPen();
  settings.arrowLength = arrowLength_.GetValue();
  settings.arrowWidth = arrowWidth_.GetValue();
  if (treads_.number() > 0) { settings.currentTread = treads_.number(); }
  if (railings_.number() > 0) { settings.currentRailing = railings_.number(); }
}

bool StairDialog::confirm() {
  if (const auto fault = faultOf(stair())) { return refuse(*fault); }
  if (!treads_.takeName() || !railings_.takeName() || !layers_.mayBeSaved()) { return false; }
  takeSettings();
  writeStairSettings(store_, drawer_.settings);
  layers_.write();
  store_.flush();
  treads_.save();
  railings_.save();
  return true;
}

}  // namespace ardenix::arch
