#pragma once

#include <array>

#include "arch/section_drawer.h"

namespace ardenix::arch {

// What a section is drawn from, on the current layer.
struct SectionSheet {
  CCadWindow& view;
  const SectionSettings& settings;
  const WallType& external;
  const WallType& internal;
  double eavesHeight;
  double headHeight;
  const SectionLine& line;
  Point at;                                // the top of the close wall's inside face
  std::array<SectionOpening, 2> openings;  // of the close wall and of the far one

  // The way from the close wall to the far one, of length 1.
  [[nodiscard]] Point towardsFar() const;
  [[nodiscard]] double wallThickness() const { return external.thickness(); }
  // How far from the close wall's inside face, and how far above the tops of the walls.
  [[nodiscard]] Point place(double along, double up) const { return at + towardsFar() * along + Point{0.0, up}; }
  [[nodiscard]] DraftingPen pen() const { return {view, settings.section}; }
  // Of what the section cuts, heavier where the settings say so.
  [[nodiscard]] DraftingPen cutPen() const {
    LineStyle style = settings.section;
    style.width = settings.cutWidth * 10.0;
    return {view, style};
  }
};

void drawSection(const SectionSheet& sheet);

// Asks how the roof is seen and draws it. Without a roof where its sizes make none, which the user is told.
struct RoofSizes {
  double pitch;  // decimal degrees
  double overhang;
};
void drawSectionRoof(const SectionSheet& sheet, const RoofSizes& roof);

}  // namespace ardenix::arch
