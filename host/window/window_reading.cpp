#include <algorithm>
#include <span>

#include "frame/host/core_services.h"
#include "host/drawing/symbol_expansion.h"
#include "host/window/drawing_window.h"

// Picks, scans and what they make current.
namespace brevan {

template <class Kind>
const Kind* DrawingWindow::currentAs() const {
  const Primitive* primitive = drawing_.find(current_);
  return primitive == nullptr ? nullptr : std::get_if<Kind>(&primitive->geometry);
}

int DrawingWindow::gsNearestPrim(int type, double x, double y) {
  if (!isFinite(Point{x, y})) { return 0; }
  current_ = pick({x, y}, type);
  const Primitive* primitive = drawing_.find(current_);
  return primitive == nullptr ? 0 : typeNumber(primitive->geometry);
}

int DrawingWindow::gsGetLine(double& x1, double& y1, double& x2, double& y2) {
  const Line* line = currentAs<Line>();
  if (line == nullptr) { return 0; }
  x1 = line->a.x;
  y1 = line->a.y;
  x2 = line->b.x;
  y2 = line->b.y;
  return 1;
}

int DrawingWindow::gsGetArc(double& startX, double& startY, double& centreX, double& centreY, double& endX,
                            double& endY, int& direction) {
  const Arc* arc = currentAs<Arc>();
  if (arc == nullptr) { return 0; }
  startX = arc->start.x;
  startY = arc->start.y;
  centreX = arc->centre.x;
  centreY = arc->centre.y;
  endX = arc->end.x;
  endY = arc->end.y;
  direction = arc->clockwise ? 1 : 0;
  return 1;
}

int DrawingWindow::gsGetText(double& x, double& y, char* buffer, int size) {
  const Text* text = currentAs<Text>();
  if (text == nullptr) { return 0; }
  x = text->at.x;
  y = text->at.y;
  coreStrncpy(buffer, text->text, size);
  return 1;
}

int DrawingWindow::gsGetFont(FontDef& font) {
  const Text* text = currentAs<Text>();
  if (text == nullptr) { return 0; }
  font = {text->font, text->pen, text->height, text->angle, text->style, text->justification, text->widthFactor};
  return 1;
}

int DrawingWindow::gsSelectGroup() {
  const Primitive* primitive = drawing_.find(current_);
  if (primitive == nullptr || primitive->group == 0) { return 0; }
  drawing_.clearSelection();
  for (const PrimitiveId id : drawing_.membersOf(primitive->group)) { drawing_.select(id); }
  makeCurrent(drawing_.group(primitive->group));
  return static_cast<int>(drawing_.selection().size());
}

int DrawingWindow::gsGetGroup() {
  const Primitive* primitive = drawing_.find(current_);
  if (primitive == nullptr || primitive->group == 0) { return 0; }
  makeCurrent(drawing_.group(primitive->group));
  return primitive->group;
}

// A scan of groups under way goes on later from where it is.
void DrawingWindow::makeCurrent(const Group& group) {
  if (groupCursor_.handle != 0) { scans_[static_cast<size_t>(groupCursor_.handle) - 1]->end = groupCursor_.left; }
  groupCursor_ = {.revision = drawing_.revision()};
  currentGroup_ = &group;
}

int DrawingWindow::gsGetPrimHeader(PrimHeader& header) {
  const Primitive* primitive = drawing_.find(current_);
  if (primitive == nullptr) { return 0; }
  header = {typeNumber(primitive->geometry), primitive->layer, primitive->pen, primitive->linetype, primitive->width};
  return 1;
}

int DrawingWindow::gsGetListHandle(int type, int layer, int flag, double x1, double y1, double x2, double y2, int,
                                   int flag2) {
  Scan scan;
  scan.type = type;
  scan.layer = layer;
  scan.everywhere = x1 == 0.0 && y1 == 0.0 && x2 == 0.0 && y2 == 0.0;
  const bool selectedOnly = flag != 0 && flag2 != 0 && type != kGroupPrimitive && drawing_.hasSelection();
  if (selectedOnly) {
    scan.everywhere = false;
    scan.ids = drawing_.selection();
  } else if (!scan.everywhere && type != kGroupPrimitive) {
    Box box;
    box.add(Point{x1, y1});
    box.add(Point{x2, y2});
    scan.ids = drawing_.inBox(box);
  } else if (layer >= 0 && type != kGroupPrimitive && drawing_.layer(layer) != nullptr) {
    scan.everywhere = false;
    scan.ids = drawing_.onLayer(layer);
  }
  scan.end = type == kGroupPrimitive ? static_cast<size_t>(drawing_.lastGroup())
             : scan.everywhere       ? static_cast<size_t>(drawing_.lastId())
                                     : scan.ids.size();
  const auto freePlace = std::find(scans_.begin(), scans_.end(), nullptr);
  const auto place = static_cast<size_t>(freePlace - scans_.begin());
  if (freePlace == scans_.end()) { scans_.emplace_back(); }
  scans_[place] = std::make_unique<Scan>(std::move(scan));
  return static_cast<int>(place) + 1;
}

bool DrawingWindow::inScan(const Scan& scan, const Primitive& primitive) const {
  return (scan.type == kAnyPrimitive || scan.type == typeNumber(primitive.geometry)) &&
         (scan.layer < 0 || scan.layer == primitive.layer);
}

// Newest first: who looks for the largest number finds it at once. Numbering a part walks every group of the
// drawing, so this looks at no more than it must.
inline int DrawingWindow::nextGroup() {
  while (groupCursor_.left > 0) {
    --groupCursor_.left;
    --groupCursor_.at;
    if (groupCursor_.at->members.empty()) { continue; }
    currentGroup_ = groupCursor_.at;
    return kGroupPrimitive;
  }
  currentGroup_ = nullptr;
  return 0;
}

void DrawingWindow::goOnWithGroups(int handle) {
  if (groupCursor_.handle != 0) { scans_[static_cast<size_t>(groupCursor_.handle) - 1]->end = groupCursor_.left; }
  const std::span<const Group> groups = drawing_.groups();
  const size_t left = std::min(scans_[static_cast<size_t>(handle) - 1]->end, groups.size());
  groupCursor_ = {handle, groups.data() + left, left, drawing_.revision()};
}

int DrawingWindow::nextPrimitive(Scan& scan) {
  while (scan.next < scan.end) {
    const size_t place = scan.next++;
    const PrimitiveId id = scan.everywhere ? static_cast<PrimitiveId>(place + 1) : scan.ids[place];
    const Primitive* primitive = drawing_.find(id);
    if (primitive == nullptr || !inScan(scan, *primitive)) { continue; }
    current_ = id;
    return typeNumber(primitive->geometry);
  }
  return 0;
}

int DrawingWindow::gsGetNextPrim(int handle) {
  if (handle == groupCursor_.handle && groupCursor_.revision == drawing_.revision() && handle != 0) {
    return nextGroup();
  }
  const size_t place = static_cast<size_t>(handle) - 1;  // a handle below 1 wraps to one beyond them all
  if (place >= scans_.size() || scans_[place] == nullptr) { return 0; }
  Scan& scan = *scans_[place];
  if (scan.type != kGroupPrimitive) { return nextPrimitive(scan); }
  goOnWithGroups(handle);
  return nextGroup();
}

void DrawingWindow::gsFreeListHandle(int handle) {
  if (handle < 1 || static_cast<size_t>(handle) > scans_.size()) { return; }
  scans_[static_cast<size_t>(handle) - 1].reset();
  if (handle == groupCursor_.handle) { groupCursor_.handle = 0; }
}

int DrawingWindow::gsGetObject(std::string_view& parent, std::string_view& name) {
  if (currentGroup_ == nullptr || groupCursor_.revision != drawing_.revision()) { return 0; }
  parent = currentGroup_->parent;
  name = currentGroup_->name;
  return 1;
}

namespace {

// A layer's number in another drawing, which gets one of this name where it has none.
int sameLayer(const Drawing& from, int index, Drawing& onto) {
  const Layer& layer = *from.layer(index);
  const Layer* same = onto.layer(index);
  if (same != nullptr && same->name == layer.name) { return index; }
  return onto.addLayer(layer);
}

}  // namespace

int DrawingWindow::gsCopyPrimHeader(CCadWindow& target) {
  const Primitive* primitive = drawing_.find(current_);
  auto* other = dynamic_cast<DrawingWindow*>(&target);
  if (primitive == nullptr || other == nullptr) { return 0; }
  other->newType_ = typeNumber(primitive->geometry);
  other->newPrimitive_ = *primitive;
  other->newPrimitive_.layer = sameLayer(drawing_, primitive->layer, other->drawing_);
  other->newGeometry_ = false;
  return 1;
}

int DrawingWindow::gsCopyPrim(CCadWindow& target) {
  const Primitive* primitive = drawing_.find(current_);
  auto* other = dynamic_cast<DrawingWindow*>(&target);
  if (primitive == nullptr || other == nullptr) { return 0; }
  if (const auto* symbol = std::get_if<Symbol>(&primitive->geometry)) {
    copyDefinition(drawing_, symbol->name, other->drawing_);
  }
  other->setGeometry(primitive->geometry);
  return 1;
}

}  // namespace brevan
