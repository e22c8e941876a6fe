#include "mech/flange_drawer.h"
#include "mech/part_commands.h"
#include "mech/placed_dialog.h"

namespace ardenix::mech {

namespace flange {

namespace {

constexpr const char* kPictures[] = {"", "flange_oval", "flange_triangular", "flange_round"};

bool hasOutside(const FlangeRecord& flange) { return flange.holes != 3; }
bool hasCorners(const FlangeRecord& flange) { return flange.holes < 4; }

constexpr Field<FlangeRecord> kFields[] = {
    {.member = &FlangeRecord::holes,
     .place = 7,
     .label = "Number of (H2) Holes",
     .tip = "Specify the number of bolt holes to draw in the flange",
     .minimum = 2,
     .fallback = 2,
     .marksEdited = false,
     .settlesOnLeave = true},
    {.member = &FlangeRecord::pitchCircle,
     .place = 6,
     .label = "PCD = ",
     .tip = "Specify pitch circle diameter of the bolt holes of the flange"},
    {.member = &FlangeRecord::boltHole, .place = 5, .label = "H2 = ", .tip = "Diameter of the bolt holes"},
    {.member = &FlangeRecord::corner,
     .place = 4,
     .label = "D2 = ",
     .tip = "Diameter of the 'corners' of the flange",
     .enabled = hasCorners},
    {.member = &FlangeRecord::outside,
     .place = 2,
     .label = "D1 = ",
     .tip = "'Outside diameter' of the flange",
     .enabled = hasOutside},
    {.member = &FlangeRecord::bore, .place = 3, .label = "H1 = ", .tip = "Centre hole diameter"},
};

constexpr Rule<FlangeRecord> kRules[] = {
    {[](const FlangeRecord& flange) { return flange.pitchCircle > flange.bore; }, &FlangeRecord::bore,
     "The centre hole diameter (H1) must be smaller than the pitch circle diameter (PCD)!"},
    {[](const FlangeRecord& flange) { return !hasCorners(flange) || flange.corner > flange.boltHole; },
     &FlangeRecord::boltHole, "The bolt hole diameter (H2) must be smaller then the edge diameter (D2)!"},
    {[](const FlangeRecord& flange) { return !hasOutside(flange) || flange.outside > flange.bore; },
     &FlangeRecord::bore, "The centre hole diameter must be smaller than the external diameter (D1)!"},
    {[](const FlangeRecord& flange) { return hasCorners(flange) || flange.outside > flange.pitchCircle; },
     &FlangeRecord::pitchCircle,
     "The pitch circle diameter (PCD) must be smaller than the external diameter (D1) for this type of flange!"},
};

// Bolt holes stand clear of the centre hole.
bool holesStandClear(const FlangeRecord& flange) {
  const double radius = flange.pitchCircle / 2.0;
  return radius - (std::fabs(radius) * 1e-12 + 1e-12) > (flange.bore + flange.boltHole) / 2.0;
}

// Without it no line touches both the boss and a lobe.
bool hasTangents(const FlangeRecord& flange) {
  return flangeShape(flange) != FlangeShape::kOval || std::fabs(flange.outside - flange.corner) < flange.pitchCircle;
}

constexpr DrawingRule<FlangeRecord> kDrawingRules[] = {
    {holesStandClear, &FlangeRecord::boltHole, "Holes are too big, or PCD too small."},
    {hasTangents, &FlangeRecord::outside,
     "The difference between D1 and D2 must be smaller than the pitch circle diameter (PCD)!"},
};

constexpr PictureRow<FlangeRecord> kPictureRows[] = {
    {"Shape", [](const FlangeRecord& flange) { return pictureOf(flangeShape(flange), kPictures); }},
};

constexpr ExtraRow kExtras[] = {
    {"FlangePitchCircle", "Draw pitch circle", "Check this to draw the circle on which the bolt holes lie"},
};

constexpr PlacedForm<FlangeRecord> kForm = {.section = "FLANGES",
                                            .word = "flange",
                                            .styleKey = "FlangeLT",
                                            .rules = kRules,
                                            .drawingRules = kDrawingRules,
                                            .pictures = kPictureRows,
                                            .extras = kExtras};

}  // namespace

}  // namespace flange

Fields<FlangeRecord> flangeFields() { return flange::kFields; }

void drawFlanges(MechToolset& toolset) { runPlacedCommand<FlangeDrawer>(toolset, flange::kForm); }

}  // namespace ardenix::mech
