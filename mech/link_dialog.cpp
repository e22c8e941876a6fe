#include "mech/link_drawer.h"
#include "mech/part_commands.h"
#include "mech/placed_dialog.h"

namespace ardenix::mech {

namespace link {

namespace {

constexpr const char* kTypes[] = {"Taper", "Fillet", "Flush"};
constexpr const char* kPictures[] = {"link_taper", "link_fillet", "link_flush"};

constexpr Field<LinkRecord> kFields[] = {
    {.member = &LinkRecord::leftBoss, .place = 2, .label = "D1", .tip = "Outer diameter of left side of link"},
    {.member = &LinkRecord::rightBoss, .place = 5, .label = "D2", .tip = "Outer diameter of right side of link"},
    {.member = &LinkRecord::leftHole,
     .place = 3,
     .label = "H1",
     .tip = "Diameter of the hole at the left side of link"},
    {.member = &LinkRecord::rightHole,
     .place = 6,
     .label = "H2",
     .tip = "Diameter of the hole at the right side of link"},
    {.member = &LinkRecord::distance, .place = 4, .label = "L", .tip = "Distance between the centres of the holes"},
    {.member = choice<&LinkRecord::type>(kTypes), .place = 12, .label = "Type:", .tip = "The shape of the link"},
    {.member = &LinkRecord::leftShoulder,
     .place = 7,
     .label = "T1 =",
     .tip = "Width of a 'taper' type link at its left end"},
    {.member = &LinkRecord::radius,
     .place = 9,
     .label = "Link radius",
     .tip = "The radius of the curve in a 'fillet' type link",
     .captioned = false},
    {.member = &LinkRecord::rightShoulder,
     .place = 8,
     .label = "T2 =",
     .tip = "Width of a 'taper' type link at its right end"},
    {.member = &LinkRecord::leftFillet,
     .place = 10,
     .label = "Left fillet radius",
     .tip = "Radius between the taper and the left end (0 for a sharp corner)",
     .caption = "Fillet R",
     .addressed = true},
    {.member = &LinkRecord::rightFillet,
     .place = 11,
     .label = "Right fillet radius",
     .tip = "Radius between the taper and the right end (0 for a sharp corner)",
     .caption = "Fillet R",
     .addressed = true},
};

bool tapers(const LinkRecord& link) { return link.type == LinkType::kTaper; }

constexpr Rule<LinkRecord> kRules[] = {
    {[](const LinkRecord& link) { return link.leftBoss >= link.leftHole; }, &LinkRecord::leftHole,
     "Hole 1 diameter (H1) must be smaller than left end diameter (D1)!"},
    {[](const LinkRecord& link) { return link.rightBoss >= link.rightHole; }, &LinkRecord::rightHole,
     "Hole 2 diameter (H2) must be smaller than right end diameter (D2)!"},
    {[](const LinkRecord& link) { return (link.leftHole + link.rightHole) / 2.0 <= link.distance; },
     &LinkRecord::distance, "The distance between centres must be larger then the combined hole radii!"},
    {[](const LinkRecord& link) { return !tapers(link) || link.leftBoss >= link.leftShoulder; },
     &LinkRecord::leftShoulder, "Left end shoulder width (T1) must be less than left end diameter (D1)!"},
    {[](const LinkRecord& link) { return !tapers(link) || link.rightBoss >= link.rightShoulder; },
     &LinkRecord::rightShoulder, "Right end shoulder width (T2) must be less than right end diameter (D2)!"},
    {[](const LinkRecord& link) { return link.type != LinkType::kFillet || link.radius > 0.0; }, &LinkRecord::radius,
     "Filler radius (R) must be greater than zero for this type of link!"},
};

constexpr DrawingRule<LinkRecord> kDrawingRules[] = {
    {[](const LinkRecord& link) { return linkOutline(link).has_value(); }, &LinkRecord::distance,
     "The two ends cannot be joined by this type of link at this distance!"},
};

constexpr PictureRow<LinkRecord> kPictureRows[] = {
    {"Shape", [](const LinkRecord& link) { return pictureOf(link.type, kPictures); }},
};

constexpr PlacedForm<LinkRecord> kForm = {.section = "LINKS",
                                          .word = "link",
                                          .styleKey = "LinkLT",
                                          .rules = kRules,
                                          .drawingRules = kDrawingRules,
                                          .pictures = kPictureRows};

}  // namespace

}  // namespace link

Fields<LinkRecord> linkFields() { return link::kFields; }

void drawLinks(MechToolset& toolset) { runPlacedCommand<LinkDrawer>(toolset, link::kForm); }

}  // namespace ardenix::mech
