#include "arch/wall_lines.h"

#include <span>

#include "frame/drafting/macro_texts.h"

namespace ardenix::arch {

namespace {

// From one line of the wall to the next.
struct Step {
  WallRow row;
  WallWidth width;
};

constexpr Step kOutwards[] = {{kCavity2, kIntWallWidth},
                              {kCavity1, kCavityWidth},
                              {kExtWall, kExtWallWidth},
                              {kExtFoundation, kExtFoundationWidth}};
constexpr Step kInwards[] = {{kCavity1, kExtWallWidth},
                             {kCavity2, kCavityWidth},
                             {kIntWall, kIntWallWidth},
                             {kIntFoundation, kIntFoundationWidth}};
constexpr Step kInternalOutwards[] = {{kExtWall, kIntWallWidth}, {kExtFoundation, kExtFoundationWidth}};
constexpr Step kInternalInwards[] = {{kIntWall, kIntWallWidth}, {kIntFoundation, kIntFoundationWidth}};

std::span<const Step> stepsOf(const WallType& wall, const WallSettings& settings) {
  if (wall.internal) {
    return settings.outside ? std::span<const Step>(kInternalOutwards) : std::span<const Step>(kInternalInwards);
  }
  return settings.outside ? std::span<const Step>(kOutwards) : std::span<const Step>(kInwards);
}

// The foundation on the other side of the reference line.
Step behind(const WallSettings& settings) {
  return settings.outside ? Step{kIntFoundation, kIntFoundationWidth} : Step{kExtFoundation, kExtFoundationWidth};
}

}  // namespace

WallRow referenceRow(const WallSettings& settings) { return settings.outside ? kIntWall : kExtWall; }

std::vector<WallLine> wallLines(const WallType& wall, const WallSettings& settings) {
  constexpr double kPlainZero = 0.0;  // added to it, a zero has no sign
  std::vector<WallLine> lines;
  const Step foundation = behind(settings);
  if (wall.rows[foundation.row].visible) {
    lines.push_back({foundation.row, -settings.sign() * wall.widths[foundation.width] + kPlainZero});
  }
  double offset = 0.0;
  for (const Step& step : stepsOf(wall, settings)) {
    if (!wall.rows[step.row].visible) { continue; }
    offset += settings.sign() * wall.widths[step.width];
    lines.push_back({step.row, offset});
  }
  return lines;
}

std::string parallelDefinition(const WallType& wall, const WallSettings& settings) {
  macroText::ParallelLines definition{.traces = settings.tracks,
                                      .startAngle = wall.startAngle,
                                      .endAngle = wall.endAngle,
                                      .closesEnds = wall.closesEnds,
                                      .roundsCorners = wall.filletsCorners};
  for (const WallLine& line : wallLines(wall, settings)) {
    definition.lines.push_back({wall.rows[line.row], line.offset});
  }
  return macroText::parallelLines(definition);
}

}  // namespace ardenix::arch
