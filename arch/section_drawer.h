#pragma once

#include <array>
#include <optional>
#include <vector>

#include "arch/plan_pick.h"
#include "arch/section_settings.h"
#include "arch/spec_store.h"
#include "arch/wall_type.h"

namespace ardenix::arch {

// The height of the heads of windows and doors above the floor, which elevations set.
double headHeight(const ArchSpecStore& store);

// A section line across a building, from the inside face of one external wall to that of the other.
struct SectionLine {
  Point close;
  Point far;
  int direction = 0;                  // from close to far: 0, 90, 180 or 270 degrees clockwise from the north
  std::vector<double> internalWalls;  // how far from `close` their faces are

  [[nodiscard]] bool isVertical() const { return direction % 180 == 0; }
  [[nodiscard]] double length() const { return distance(close, far); }
};

// An opening that the section cuts through an external wall.
enum class SectionOpening { kNone, kWindow, kDoor };

struct SectionSheet;

// Draws cross sections, one a round: the section line on plan, and the section with its roof.
class SectionDrawer {
 public:
  explicit SectionDrawer(ArchSpecStore& store);

  // Asks for a section and draws it. False when the user ended at a prompt, or when it cannot be drawn.
  bool drawRound();

  SectionSettings settings;

 private:
  struct Face {
    Point at;
    PlanLine wall;
  };

  bool hasWallTypes();
  std::optional<Face> faceAtCursor();
  std::optional<SectionLine> askLine();
  std::optional<Point> askFarFace(const Face& close);
  void askInternalWalls(SectionLine& line);
  std::optional<Point> askArrowSide(const SectionLine& line);
  void drawLine(const SectionLine& line, Point arrowWay, int layer);
  SectionOpening openingAt(Point wall);
  std::array<SectionOpening, 2> openingsAcross(const SectionLine& line);
  SectionSheet sheetOf(const SectionLine& line, Point at);

  ArchSpecStore& store_;
  CCadWindow& view_;
  WallType external_;
  WallType internal_;
  bool toldOfFolder_ = false;
};

}  // namespace ardenix::arch
