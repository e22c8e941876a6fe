#include "host/drawing/hatch_patterns.h"

#include <algorithm>

namespace brevan {

std::span<const HatchPattern> hatchPatterns() {
  static const std::vector<HatchPattern> kPatterns = {
      {"GENERAL", "General (45 degrees)", {{45.0, {}, {0.0, 3.0}, {}}}},
      {"FINE", "Thin parts (45 degrees and close)", {{45.0, {}, {0.0, 1.5}, {}}}},
      {"CROSSED", "Crossed", {{45.0, {}, {0.0, 3.0}, {}}, {135.0, {}, {0.0, 3.0}, {}}}},
      // Pairs of lines for bricks and blocks.
      {"MASONRY", "Masonry", {{45.0, {}, {0.0, 4.0}, {}}, {45.0, {-0.707107, 0.707107}, {0.0, 4.0}, {}}}},
      // Continuous and broken lines in turn for reinforced, broken ones alone for plain concrete.
      {"CONCRETE",
       "Reinforced concrete",
       {{45.0, {}, {0.0, 5.0}, {}}, {45.0, {-1.767767, 1.767767}, {0.0, 5.0}, {3.0, -1.5}}}},
      {"PLAIN CONCRETE", "Concrete without reinforcement", {{45.0, {}, {2.25, 2.5}, {3.0, -1.5}}}},
      {"SCREED", "Screed and plaster", {{0.0, {}, {0.7, 1.2}, {0.0, -1.4}}}},
      // Strokes in threes, leaning to either side in turn like a basket's.
      {"EARTH",
       "Ground",
       {{45.0, {-0.282843, 0.707107}, {2.8, 2.8}, {2.2, -3.4}},
        {45.0, {-0.777817, 1.202082}, {2.8, 2.8}, {2.2, -3.4}},
        {45.0, {-1.272792, 1.697056}, {2.8, 2.8}, {2.2, -3.4}},
        {135.0, {2.262742, 2.687006}, {2.8, 2.8}, {2.2, -3.4}},
        {135.0, {2.757717, 3.181981}, {2.8, 2.8}, {2.2, -3.4}},
        {135.0, {3.252691, 3.676955}, {2.8, 2.8}, {2.2, -3.4}}}},
      {"HARDCORE", "Hardcore", {{60.0, {}, {0.0, 4.0}, {3.0, -2.0}}, {120.0, {2.0, 0.0}, {0.0, 4.0}, {3.0, -2.0}}}},
      {"SAND", "Sand", {{0.0, {}, {1.5, 1.0}, {0.0, -3.0}}, {0.0, {0.8, 0.5}, {1.1, 1.0}, {0.0, -4.0}}}},
      {"INSULATION", "Insulation", {{60.0, {}, {0.0, 2.0}, {}}, {120.0, {}, {0.0, 2.0}, {}}}},
      {"TIMBER ALONG", "Timber along the grain", {{0.0, {}, {4.0, 1.2}, {12.0, -1.0}}}},
      {"TIMBER ACROSS", "Timber across the grain", {{45.0, {}, {0.0, 1.0}, {}}, {135.0, {}, {0.0, 6.0}, {}}}},
      {"TILES", "Tiles", {{0.0, {}, {0.0, 4.0}, {}}, {90.0, {}, {0.0, 4.0}, {}}}},
      {"BRICKWORK", "Brickwork in view", {{0.0, {}, {0.0, 1.5}, {}}, {90.0, {}, {1.5, 2.5}, {1.5, -1.5}}}},
      {"WATER", "Water", {{0.0, {}, {3.0, 1.5}, {4.0, -2.0}}}},
      {kSolidPattern, "Solid", {}},
  };
  return kPatterns;
}

const HatchPattern* hatchPattern(std::string_view name) {
  const std::span<const HatchPattern> patterns = hatchPatterns();
  const auto found = std::find_if(patterns.begin(), patterns.end(),
                                  [name](const HatchPattern& pattern) { return pattern.name == name; });
  return found == patterns.end() ? nullptr : &*found;
}

std::span<const HatchLines> linesOf(const Hatch& hatch) {
  if (!hatch.lines.empty()) { return hatch.lines; }
  const HatchPattern* pattern = hatchPattern(hatch.pattern);
  return pattern == nullptr ? std::span<const HatchLines>() : pattern->lines;
}

}  // namespace brevan
