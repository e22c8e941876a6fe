#include "host/window/drawing_window.h"

#include <utility>

#include "frame/host/core_services.h"
#include "host/drawing/part_selection.h"

namespace brevan {

void OpenGroup::setParent(std::string_view parent) {
  parent_ = parent;
  parentIsFresh_ = true;
  name_.reset();
}

void OpenGroup::begin(std::string_view name) {
  if (!parentIsFresh_ && name_ == name && name != kUnnamedGroup) { return; }
  name_ = name.empty() ? std::nullopt : std::optional<std::string>(name);
  id_ = 0;
  parentIsFresh_ = false;
}

GroupId OpenGroup::idIn(const Drawing& drawing) const {
  if (id_ == 0 || id_ > drawing.lastGroup()) { return 0; }
  // An undo may have taken the group back, and another may bear its number now.
  const Group& group = drawing.group(id_);
  return group.parent == madeParent_ && group.name == name_ ? id_ : 0;
}

GroupId OpenGroup::forNewPrimitive(Drawing& drawing) {
  if (!name_) { return 0; }
  if (idIn(drawing) == 0) {
    id_ = drawing.addGroup(parent_, *name_);
    madeParent_ = parent_;
  }
  return id_;
}

DrawingWindow::DrawingWindow(std::string name, const WindowServices& services)
    : name_(std::move(name)), services_(services) {}

void DrawingWindow::beginCommand(std::string name) {
  setUndoBracket(false);
  resetForCommand();
  inCommand_ = true;
  lastDrawn_ = 0;
  drawing_.beginStep(std::move(name));
}

void DrawingWindow::endCommand(bool well) {
  if (well) {
    fitPaper();
    macroState_.paper.wanted = false;
    drawing_.endStep();
  } else {
    drawing_.rollBack();
  }
  inCommand_ = undoBracket_ = false;
  resetForCommand();
}

void DrawingWindow::resetForCommand() {
  drawing_.clearSelection();
  cursor_.reset();
  selectsNew_ = false;
  escaped_ = back_ = false;
  services_.user.allowBack(false);
  macroState_.promptsForPerimeter = false;
  marks_.clear();
  scans_.clear();
  groupCursor_ = {};
  currentGroup_ = nullptr;
}

namespace {

void refuseLocked(const Drawing& drawing, int index) {
  const Layer* layer = drawing.layer(index);
  if (layer != nullptr && layer->locked) { throw RefusedChange("The layer \"" + layer->name + "\" is locked."); }
}

}  // namespace

PrimitiveId DrawingWindow::addPlain(Geometry geometry, GroupId group) {
  refuseLocked(drawing_, drawing_.currentLayer());
  const PrimitiveId id = drawing_.add(
      Primitive{drawing_.currentLayer(), style_.pen, style_.linetype, style_.width, group, std::move(geometry)});
  if (services_.events != nullptr) { services_.events->primitiveAdded(drawing_, id); }
  return id;
}

void DrawingWindow::requireDrawable() const {
  const Layer& layer = *drawing_.layer(drawing_.currentLayer());
  refuseLocked(drawing_, drawing_.currentLayer());
  if (!layer.visible) { throw RefusedChange("The layer \"" + layer.name + "\" is hidden."); }
}

PrimitiveId DrawingWindow::addDrawn(Primitive primitive) {
  refuseLocked(drawing_, primitive.layer);
  primitive.group = openGroup_.forNewPrimitive(drawing_);
  const PrimitiveId id = lastDrawn_ = drawing_.add(std::move(primitive));
  if (selectsNew_) { drawing_.select(id); }
  if (services_.events != nullptr) { services_.events->primitiveAdded(drawing_, id); }
  return id;
}

bool DrawingWindow::isChangeable(PrimitiveId id) const {
  return drawing_.find(id) != nullptr && brevan::isChangeable(drawing_, id);
}

PrimitiveId DrawingWindow::pick(Point p, int type) const {
  const auto seen = [this, type](PrimitiveId, const Primitive& primitive) {
    return drawing_.layer(primitive.layer)->visible &&
           (type == kAnyPrimitive || typeNumber(primitive.geometry) == type);
  };
  const GroupId open = openGroup_.idIn(drawing_);
  if (open != 0 && !drawing_.group(open).members.empty()) {
    const auto inOpenGroup = [&](PrimitiveId id, const Primitive& primitive) {
      return primitive.group == open && seen(id, primitive);
    };
    if (const PrimitiveId own = drawing_.nearest(p, aperture(drawing_), inOpenGroup)) { return own; }
  }
  return drawing_.nearest(p, aperture(drawing_), seen);
}

void DrawingWindow::setUndoBracket(bool open) {
  if (open == undoBracket_) { return; }
  undoBracket_ = open;
  if (inCommand_) {
    drawing_.splitStep();
  } else if (open) {
    drawing_.beginStep("Macro");
  } else {
    drawing_.endStep();
  }
}

// ---- Adding a primitive --------------------------------------------------------------------------------

void DrawingWindow::SetFocus() { call("SetFocus"); }

void DrawingWindow::gsSetPrimHeader(int type, int, int, int layer, int pen, int linetype, double width, int, int) {
  newType_ = type;
  newGeometry_ = false;
  newPrimitive_ = Primitive{layer, pen, linetype, width, 0, Line{}};
}

void DrawingWindow::setGeometry(Geometry geometry) {
  newPrimitive_.geometry = std::move(geometry);
  newGeometry_ = true;
}

void DrawingWindow::gsSetLine(double x1, double y1, double x2, double y2) { setGeometry(Line{{x1, y1}, {x2, y2}}); }

void DrawingWindow::gsSetArc(double startX, double startY, double centreX, double centreY, double endX, double endY,
                             int direction, double, double) {
  setGeometry(Arc{{startX, startY}, {centreX, centreY}, {endX, endY}, direction != 0});
}

void DrawingWindow::gsSetFont(std::string_view font, int pen, double height, double angle, int style, int justification,
                              double widthFactor, double, double) {
  newFont_ = Text{{}, {}, std::string(font), height, angle, justification, style, pen, widthFactor};
}

void DrawingWindow::gsSetText(double x, double y, std::string_view text) {
  Text whole = newFont_;
  whole.at = {x, y};
  whole.text = text;
  setGeometry(std::move(whole));
}

void DrawingWindow::gsSetArrow(double x1, double y1, double x2, double y2, double length, double width, int style1,
                               int style2, int style3) {
  setGeometry(Arrow{{x1, y1}, {x2, y2}, length, width, {style1, style2, style3}});
}

int DrawingWindow::gsAddPrim() {
  if (!newGeometry_) {
    throw HostFailure("A primitive of type " + std::to_string(newType_) + " was given no geometry.");
  }
  if (typeNumber(newPrimitive_.geometry) != newType_) {
    throw HostFailure("A primitive of type " + std::to_string(newType_) + " was given the geometry of a " +
                      std::string(kindName(newPrimitive_.geometry)) + ".");
  }
  try {
    return addDrawn(newPrimitive_);
  } catch (const RefusedChange& refused) { throw HostFailure(refused.what()); }
}

int typeNumber(const Geometry& geometry) {
  constexpr int kTypes[] = {kLinePrimitive,   kArcPrimitive,       kTextPrimitive, kArrowPrimitive,
                            kSymbolPrimitive, kDimensionPrimitive, kHatchPrimitive};
  static_assert(std::size(kTypes) == std::variant_size_v<Geometry>);
  return kTypes[geometry.index()];
}

}  // namespace brevan
