#pragma once

#include <span>
#include <vector>

#include "arch/stair_records.h"
#include "arch/stair_settings.h"
#include "frame/drafting/pen.h"
#include "frame/drafting/point.h"
#include "frame/host/cad_window.h"

namespace ardenix::arch {

// What is shorter is not drawn.
inline constexpr double kNoLength = 1e-9;

// The way of length 1 towards one of the four quarters, degrees clockwise from the north.
Point quarterWay(int direction);
// The quarter that the way from one point to another belongs to: 0, 90, 180 or 270.
int quarterOf(Point from, Point to);

// What a stair is drawn with. Its views draw onto the scratch layer, which is current.
struct StairSheet {
  CCadWindow& view;
  const Stair& stair;
  const StairSettings& settings;

  [[nodiscard]] DraftingPen solid() const { return {view, settings.solid}; }
  // Edges that something covers; on plan they keep the pen of what is seen.
  [[nodiscard]] DraftingPen hidden() const {
    return {view, {.pen = settings.solid.pen, .linetype = settings.hidden.linetype}};
  }
  [[nodiscard]] DraftingPen arrow() const { return {view, {.pen = settings.arrowPen}}; }
};

// A flight on plan or on an elevation: its base point, left of somebody who walks up, and the quarter it climbs to.
struct Flight {
  Point base;
  int direction;
};

// How an elevation is turned over about its base point, so that it reads as seen from its side.
enum class StairMirror { kNone, kSideways, kUpDown };
StairMirror mirrorOf(int planDirection, int viewDirection);
// Mirrors all that lies on the scratch layer of the whole.
void mirrorStair(CCadWindow& view, StairMirror mirror, Point base);

void drawFlightPlan(const StairSheet& sheet, const Flight& flight);
void drawFlightSide(const StairSheet& sheet, const Flight& flight);
// `fromTop`: seen by somebody behind the flight's top.
void drawFlightFace(const StairSheet& sheet, const Flight& flight, bool fromTop);

// A landing on plan: its edge on the far side of the turn from `start` along the run to `corner`, then across and back,
// or on, to `end`.
struct Landing {
  enum class Shape { kHalfTurn, kQuarterTurn, kStraightOn };
  Shape shape;
  int direction;  // of the run
  Point start;
  Point corner;
  Point end;   // where the edge across ends, and where the landing does
  Point side;  // the way across, towards the turn; of length 1

  [[nodiscard]] Point run() const { return quarterWay(direction); }
  [[nodiscard]] bool turnsLeft() const { return cross(run(), side) > 0.0; }
  // The outer edge moved inwards.
  [[nodiscard]] std::vector<Point> edge(double inwards) const;
  // The ways of length 1 along the pieces of an edge.
  [[nodiscard]] std::vector<Point> legs() const;
};
// The landing through three points; nothing where its end lies back along the run itself.
std::optional<Landing> landingThrough(Point start, Point corner, Point end, double width);

void drawLandingPlan(const StairSheet& sheet, const Landing& landing);
// As seen from a quarter, with its start above `base`.
void drawLandingView(const StairSheet& sheet, const Landing& landing, int viewDirection, Point base);

// Pieces of a line across a flight, as distances from its left edge.
struct Strip {
  double from;
  double to;
};
// Without what the rails cover.
std::vector<Strip> stripsBesideRails(const Stair& stair);

}  // namespace ardenix::arch
