#include "mech/screw_drawer.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "mech/outline.h"

namespace ardenix::mech {

namespace {

constexpr FastenerTrade kScrewTrade = {
    .category = "SCREWS", .word = "Screw", .planWord = "cap screw", .sideGroup = "SS", .planGroup = "SP"};

double sinkOf(const ScrewRecord& record) {
  switch (record.head) {
    case ScrewHead::kCountersunk: return record.headHeight;
    case ScrewHead::kRoundedCountersunk: return 0.5 * record.headHeight;
    case ScrewHead::kCylindrical:
    case ScrewHead::kRounded:
    case ScrewHead::kSetScrew: return 0.0;
  }
  return 0.0;
}

}  // namespace

ScrewDimensions screwDimensions(const ScrewRecord& record) {
  ScrewDimensions screw;
  screw.head = record.head;
  screw.key = record.key;
  screw.headRadius = record.headDiameter / 2.0;
  screw.headHeight = record.headHeight;
  screw.radius = record.diameter / 2.0;
  screw.minorRadius = record.minorDiameter / 2.0;
  screw.shoulderRadius = record.shoulderDiameter / 2.0;
  screw.neckRadius = std::max(screw.radius, screw.shoulderRadius);
  screw.keySize = record.keySize;
  screw.length = record.length;
  screw.sink = sinkOf(record);
  screw.threadStart = record.shankLength + screw.sink;
  screw.chamfer = screw.radius - screw.minorRadius;
  const bool setScrew = record.head == ScrewHead::kSetScrew;
  screw.tipChamfer = setScrew ? screw.radius / 2.0 : screw.chamfer;
  screw.tip = record.length + screw.sink;
  const double s = screw.headRadius;
  const double spring = record.headHeight / 2.0;
  screw.domeRadius = radiusThrough({-s, spring}, {0, record.headHeight}, {s, spring});
  const double lowered = setScrew ? screw.tipChamfer : screw.sink;
  screw.axisTop = 0.2 * record.diameter + record.headHeight - lowered;
  screw.axisBottom = 0.2 * record.diameter + record.length + lowered;
  return screw;
}

ScrewDrawer::ScrewDrawer(CCadWindow& view, const DefinitionStore& store)
    : RecordDrawer(screwFields(), view, store, kScrewTrade), dimensions_(screwDimensions({})) {}

FastenerReach ScrewDrawer::reach() const {
  return {.length = dimensions_.length, .axisLength = dimensions_.length, .planRadius = dimensions_.headRadius};
}

// ---- Heads in side view -------------------------------------------------------------------------------------

void ScrewDrawer::strokeSideView() {
  switch (dimensions_.head) {
    case ScrewHead::kCylindrical: drawCylindricalHead(); break;
    case ScrewHead::kCountersunk: drawCountersunkHead(); break;
    case ScrewHead::kRounded: drawRoundedHead(); break;
    case ScrewHead::kRoundedCountersunk: drawRoundedCountersunkHead(); break;
    case ScrewHead::kSetScrew: drawSetScrewTop(); break;
  }
  headed() ? drawHeadedShaft() : drawSetScrewShaft();
  const Point base = position();
  centrePen().line(base + Point{0, -dimensions_.axisBottom}, base + Point{0, dimensions_.axisTop});
}

void ScrewDrawer::drawCylindricalHead() const {
  const DraftingPen pen = headPen();
  const Point base = position();
  const double s = dimensions_.headRadius;
  const double top = dimensions_.headHeight;
  const double edge = 0.9 * top;
  const double face = s - 0.2 * s / std::tan(radians(30.0));
  pen.line(base + Point{-s, 0}, base + Point{s, 0});
  pen.line(base + Point{-s, 0}, base + Point{-s, edge});
  pen.line(base + Point{s, 0}, base + Point{s, edge});
  pen.line(base + Point{-s, edge}, base + Point{-face, top});
  pen.line(base + Point{face, top}, base + Point{s, edge});
  drawLineAcrossSlot(pen, base + Point{0, top}, face);
  drawLineAcrossSlot(pen, base + Point{0, edge}, s);
  drawSlot(pen, base + Point{0, top});
}

void ScrewDrawer::drawCountersunkHead() const {
  const DraftingPen pen = headPen();
  const Point base = position();
  const double s = dimensions_.headRadius;
  const double neck = dimensions_.neckRadius;
  const double bottom = -dimensions_.sink;
  pen.path({base + Point{0, bottom}, base + Point{-neck, bottom}, base + Point{-s, 0}});
  pen.path({base + Point{s, 0}, base + Point{neck, bottom}, base + Point{0, bottom}});
  drawLineAcrossSlot(pen, base, s);
  drawSlot(pen, base);
}

void ScrewDrawer::drawRoundedHead() const {
  const DraftingPen pen = headPen();
  const Point base = position();
  const double s = dimensions_.headRadius;
  const double spring = dimensions_.headHeight / 2.0;
  pen.line(base + Point{s, 0}, base + Point{-s, 0});
  pen.line(base + Point{-s, 0}, base + Point{-s, spring});
  pen.line(base + Point{s, 0}, base + Point{s, spring});
  drawDome(pen, base + Point{0, spring}, dimensions_.headHeight - spring);
}

void ScrewDrawer::drawRoundedCountersunkHead() const {
  const DraftingPen pen = headPen();
  const Point base = position();
  const double s = dimensions_.headRadius;
  const double neck = dimensions_.neckRadius;
  const double bottom = -dimensions_.sink;
  pen.line(base + Point{neck, bottom}, base + Point{-neck, bottom});
  pen.line(base + Point{-neck, bottom}, base + Point{-s, 0});
  pen.line(base + Point{neck, bottom}, base + Point{s, 0});
  pen.line(base + Point{-s, 0}, base + Point{s, 0});
  drawDome(pen, base, dimensions_.headHeight - dimensions_.sink);
}

void ScrewDrawer::drawSetScrewTop() const {
  const DraftingPen pen = shaftPen();
  const Point base = position();
  const double r = dimensions_.radius;
  const double minor = dimensions_.minorRadius;
  const double edge = -dimensions_.chamfer;
  pen.line(base + Point{-minor, 0}, base + Point{-r, edge});
  pen.line(base + Point{minor, 0}, base + Point{r, edge});
  drawLineAcrossSlot(pen, base, minor);
  drawLineAcrossSlot(pen, base + Point{0, edge}, r);
  drawSlot(pen, base);
}

// The crown of a rounded head over the middle of the chord from which it springs.
void ScrewDrawer::drawDome(const DraftingPen& pen, Point foot, double rise) const {
  const double s = dimensions_.headRadius;
  const double radius = dimensions_.domeRadius;
  const Point centre = foot + Point{0, rise - radius};
  const Point left = foot + Point{-s, 0};
  const Point right = foot + Point{s, 0};
  if (!slotted()) { return pen.arc(right, centre, left, ArcSense::kCounterClockwise); }
  const double half = dimensions_.keySize / 2.0;
  const Point slot = centre + Point{0, halfChord(radius, half)};  // level with the slot's edges
  drawSlot(pen, slot);
  pen.arc(slot + Point{-half, 0}, centre, left, ArcSense::kCounterClockwise);
  pen.arc(slot + Point{half, 0}, centre, right, ArcSense::kClockwise);
}

// A line of the head from side to side, open where the slot is.
void ScrewDrawer::drawLineAcrossSlot(const DraftingPen& pen, Point middle, double halfWidth) const {
  if (!slotted()) { return pen.line(middle + Point{-halfWidth, 0}, middle + Point{halfWidth, 0}); }
  const double half = dimensions_.keySize / 2.0;
  pen.line(middle + Point{-halfWidth, 0}, middle + Point{-half, 0});
  pen.line(middle + Point{half, 0}, middle + Point{halfWidth, 0});
}

// Nothing for the other keys, which a side view does not show.
void ScrewDrawer::drawSlot(const DraftingPen& pen, Point middle) const {
  if (!slotted()) { return; }
  const double half = dimensions_.keySize / 2.0;
  const double bottom = -dimensions_.keySize;
  pen.path(
      {middle + Point{-half, 0}, middle + Point{-half, bottom}, middle + Point{half, bottom}, middle + Point{half, 0}});
}

// ---- Shafts in side view ------------------------------------------------------------------------------------

void ScrewDrawer::drawHeadedShaft() const {
  const DraftingPen pen = shaftPen();
  const Point base = position();
  const double shoulder = dimensions_.shoulderRadius;
  const double r = dimensions_.radius;
  const double minor = dimensions_.minorRadius;
  const double top = -dimensions_.sink;
  const double thread = -dimensions_.threadStart;
  const double tip = -dimensions_.tip;
  const double chamfer = tip + dimensions_.tipChamfer;
  pen.path({base + Point{shoulder, top}, base + Point{shoulder, thread}, base + Point{-shoulder, thread},
            base + Point{-shoulder, top}});
  pen.line(base + Point{r, thread}, base + Point{r, chamfer});
  pen.line(base + Point{-r, thread}, base + Point{-r, chamfer});
  pen.path({base + Point{r, chamfer}, base + Point{minor, tip}, base + Point{-minor, tip}, base + Point{-r, chamfer}});
  drawChamferLine(pen, -chamfer);
  const DraftingPen thin = shaftThreadPen();
  const double root = fastener().rootRadius(minor, r);
  thin.line(base + Point{root, thread}, base + Point{root, tip});
  thin.line(base + Point{-root, tip}, base + Point{-root, thread});
}

void ScrewDrawer::drawSetScrewShaft() const {
  const DraftingPen pen = shaftPen();
  const Point base = position();
  const double r = dimensions_.radius;
  const double minor = dimensions_.minorRadius;
  const double tip = -dimensions_.tip;
  const double chamfer = tip + dimensions_.tipChamfer;
  const double point = r - dimensions_.tipChamfer;
  const double shoulder = -dimensions_.chamfer;  // where the chamfer of the top ends
  pen.line(base + Point{r, shoulder}, base + Point{r, chamfer});
  pen.line(base + Point{-r, shoulder}, base + Point{-r, chamfer});
  pen.path({base + Point{r, chamfer}, base + Point{point, tip}, base + Point{-point, tip}, base + Point{-r, chamfer}});
  drawChamferLine(pen, -chamfer);
  const DraftingPen thin = shaftThreadPen();
  const double threadEnd = chamfer - dimensions_.chamfer;
  const double root = fastener().rootRadius(minor, r);
  thin.line(base + Point{root, 0}, base + Point{root, threadEnd});
  thin.line(base + Point{-root, 0}, base + Point{-root, threadEnd});
}

// The chamfer's edge, left open in the middle.
void ScrewDrawer::drawChamferLine(const DraftingPen& pen, double depth) const {
  const Point base = position();
  const double r = dimensions_.radius;
  pen.line(base + Point{r, -depth}, base + Point{0.3 * r, -depth});
  pen.line(base + Point{-0.3 * r, -depth}, base + Point{-r, -depth});
}

// ---- Plan view ----------------------------------------------------------------------------------------------

void ScrewDrawer::strokePlanView() {
  const Point centre = position();
  const DraftingPen pen = headPen();
  pen.circle(centre, headed() ? dimensions_.headRadius : dimensions_.radius);
  if (!headed()) {
    drawThreadArc(headThreadPen(), centre, fastener().rootRadius(dimensions_.minorRadius, dimensions_.radius));
  }
  switch (dimensions_.key) {
    case ScrewKey::kHexagon: drawHexagonKey(pen); break;
    case ScrewKey::kSlot: drawSlotKey(pen); break;
    case ScrewKey::kCross: drawCrossKey(pen); break;
  }
  const DraftingPen axes = centrePen();
  const double reach = dimensions_.headRadius + kPlanOverhang;
  axes.line(centre + Point{0, -reach}, centre + Point{0, reach});
  axes.line(centre + Point{-reach, 0}, centre + Point{reach, 0});
}

void ScrewDrawer::drawHexagonKey(const DraftingPen& pen) const {
  const double corner = dimensions_.keySize / 2.0 / std::cos(radians(30.0));
  std::array<Point, 7> outline;
  for (size_t i = 0; i < outline.size(); ++i) {
    const double angle = radians(60.0 * static_cast<double>(i % 6));
    outline[i] = position() + Point{corner * std::cos(angle), corner * std::sin(angle)};
  }
  pen.path(outline);
}

void ScrewDrawer::drawSlotKey(const DraftingPen& pen) const {
  const double half = dimensions_.keySize / 2.0;
  const double end = halfChord(headed() ? dimensions_.headRadius : dimensions_.radius, half);
  pen.line(position() + Point{-end, -half}, position() + Point{end, -half});
  pen.line(position() + Point{-end, half}, position() + Point{end, half});
}

// Four arms whose ends are a third of their reach wide, joined by quarter circles.
void ScrewDrawer::drawCrossKey(const DraftingPen& pen) const {
  const double arm = dimensions_.keySize / 2.0;
  const double half = arm / 3.0 / 2.0;
  const double bend = arm - arm / 2.0;
  constexpr std::array<std::array<double, 2>, 4> kQuadrants = {{{1, 1}, {1, -1}, {-1, -1}, {-1, 1}}};
  for (const auto& [sx, sy] : kQuadrants) {
    const auto at = [&, sx = sx, sy = sy](double x, double y) { return position() + Point{sx * x, sy * y}; };
    pen.line(at(0, arm), at(half, arm));
    pen.line(at(half, arm), at(half, bend));
    pen.line(at(arm, 0), at(arm, half));
    pen.line(at(arm, half), at(bend, half));
    pen.arc(at(half, bend), at(bend, bend), at(bend, half),
            sx * sy < 0.0 ? ArcSense::kClockwise : ArcSense::kCounterClockwise);
  }
}

}  // namespace ardenix::mech
