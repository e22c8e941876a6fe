#pragma once

#include <string>
#include <vector>

#include "frame/drafting/point.h"
#include "frame/host/main_frame.h"
#include "mech/definition_store.h"

namespace ardenix::mech {

// Parts of one definition that lie in the drawing.
struct PlacedPart {
  std::string name;         // of the definition; of a group where no definition fits
  std::string description;  // with its standard, as the library tells it
  int quantity = 0;
  std::vector<Point> outline;  // points of the strokes of the first one
};

// What the commands of bolts, screws, nuts, rivets, shafts, gears, links and flanges drew, counted by definition; by
// shape where that tells no definition. A part shown from the side and from above counts once, copies that were made of
// it count, and what lies on hidden layers does not. In the order of the kinds, and of the names within one.
std::vector<PlacedPart> placedParts(CCadWindow& view, const DefinitionStore& store, CMDIFrameWnd& mainFrame);

}  // namespace ardenix::mech
