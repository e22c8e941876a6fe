#include "arch/section_settings.h"

namespace ardenix::arch {

namespace {

constexpr double kTenths = 10.0;  // of a millimetre

constexpr SectionNumber kNumbers[] = {
    {"WinFrameHt", "Window frame height", "From the sill to the head of windows", &SectionSettings::windowHeight},
    {"FndWid1", "Left foundation width", "The width of the footing at the close wall", &SectionSettings::footingWidth1},
    {"FndWid2", "Right foundation width", "The width of the footing at the far wall", &SectionSettings::footingWidth2},
    {"FndHt1", "Left foundation height", "The height of the footing at the close wall",
     &SectionSettings::footingHeight1},
    {"FndHt2", "Right foundation height", "The height of the footing at the far wall",
     &SectionSettings::footingHeight2},
    {"Flr2GndHt1", "Left floor to ground height", "How far the ground lies below the floor at the close wall",
     &SectionSettings::floorToGround1, true},
    {"Flr2GndHt2", "Right floor to ground height", "How far the ground lies below the floor at the far wall",
     &SectionSettings::floorToGround2, true},
    {"Flr2FndHt1", "Left floor to foundation height", "How far the footing lies below the floor at the close wall",
     &SectionSettings::floorToFooting1},
    {"Flr2FndHt2", "Right floor to foundation height", "How far the footing lies below the floor at the far wall",
     &SectionSettings::floorToFooting2},
    {"SlabHeight", "Slab width", "The thickness of the floor slab", &SectionSettings::slabHeight},
    {"BattonWidth", "Batton Width", "The depth of rafters, king post, struts and braces",
     &SectionSettings::battenWidth},
    {"SupportTrussWidth", "Support truss width", "The depth of the ceiling tie", &SectionSettings::supportTrussWidth},
    {"StrutWidth", "Strut width", "The width of the posts of a side truss", &SectionSettings::strutWidth},
    {"StrutSpacing", "Strut spacing", "The clear width between the posts of a side truss",
     &SectionSettings::strutSpacing},
    {"TxtHt", "Label text height", "The height of labels and title in millimetres on paper",
     &SectionSettings::textHeight},
    {"ArrowLen", "Arrow head length", "The length of the arrows' heads in millimetres on paper",
     &SectionSettings::arrowLength},
    {"ArrowWid", "Arrow head width", "The width of the arrows' heads in millimetres on paper",
     &SectionSettings::arrowWidth},
    {"CutWidth", "Width of cut lines",
     "The width of lines round what is cut, in millimetres on paper; 0 as thin as the others",
     &SectionSettings::cutWidth, true},
    {"HatchScale", "Hatch scale", "How much wider than usual the patterns of materials are",
     &SectionSettings::hatchScale},
};

constexpr SectionOption kOptions[] = {
    {"HatchCut", "Hatch what is cut", "Masonry, concrete, hardcore and ground are shown by their patterns",
     &SectionSettings::hatches},
    {"Heights", "Dimension the heights",
     "Footing, floor, sill, head and wall plate are dimensioned beside the far wall", &SectionSettings::measures},
};

}  // namespace

std::span<const SectionNumber> sectionNumbers() { return kNumbers; }
std::span<const SectionOption> sectionOptions() { return kOptions; }

ArrowHead SectionSettings::arrowHead() const {
  return {.length = arrowLength * kTenths, .width = arrowWidth * kTenths, .style3 = line.pen};
}

TextStyle SectionSettings::text(int pen, int justification) const {
  return {.height = textHeight * kTenths, .justification = justification, .font = "Times New Roman", .pen = pen};
}

SectionSettings readSectionSettings(const ArchSpecStore& store) {
  SectionSettings settings;
  const auto whole = [&store](std::string_view key) { return store.readInt(kCrossSections, key, 1); };
  const auto text = [&store](std::string_view key, std::string_view fallback) {
    return store.readString(kCrossSections, key, fallback);
  };
  for (const SectionNumber& row : kNumbers) {
    settings.*row.member = store.readDouble(kCrossSections, row.key, settings.*row.member);
  }
  for (const SectionOption& row : kOptions) { settings.*row.member = store.readInt(kCrossSections, row.key, 0) != 0; }
  settings.section = {.pen = whole("Pen"), .linetype = whole("Linetyp")};
  settings.line = {.pen = whole("LnPen"), .linetype = whole("XSectLn")};
  settings.parentName = text("ParentName", "");
  settings.verticalLayer = text("VertXSect", "");
  settings.horizontalLayer = text("HorizXSect", "");
  settings.countsLabels = whole("IncLabel") != 0;
  settings.label = text("Label", settings.label);
  return settings;
}

void saveSectionSettings(ArchSpecStore& store, const SectionSettings& settings) {
  const auto whole = [&store](std::string_view key, int value) { store.writeInt(kCrossSections, key, value); };
  const auto text = [&store](std::string_view key, std::string_view value) {
    store.writeString(kCrossSections, key, value);
  };
  for (const SectionNumber& row : kNumbers) { store.writeDouble(kCrossSections, row.key, settings.*row.member); }
  for (const SectionOption& row : kOptions) { whole(row.key, settings.*row.member ? 1 : 0); }
  text("ParentName", settings.parentName);
  whole("Pen", settings.section.pen);
  whole("Linetyp", settings.section.linetype);
  whole("LnPen", settings.line.pen);
  whole("XSectLn", settings.line.linetype);
  text("VertXSect", settings.verticalLayer);
  text("HorizXSect", settings.horizontalLayer);
  whole("IncLabel", settings.countsLabels ? 1 : 0);
  saveLabel(store, settings.label);
}

std::string nextLabel(std::string label) {
  if (label.empty()) { return label; }
  char& first = label.front();
  const auto isBetween = [&first](char low, char high) { return first >= low && first < high; };
  if (isBetween('A', 'Z') || isBetween('a', 'z') || isBetween('0', '9')) {
    ++first;
  } else if (first == 'Z' || first == 'z') {
    first = first == 'Z' ? 'A' : 'a';
  } else if (first == '9') {
    first = '0';
  }
  return label;
}

void saveLabel(ArchSpecStore& store, std::string_view label) {
  store.writeString(kCrossSections, "Label", label);
  store.flush();
}

}  // namespace ardenix::arch
