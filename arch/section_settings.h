#pragma once

#include <span>
#include <string>
#include <string_view>

#include "arch/spec_store.h"
#include "frame/drafting/line_style.h"
#include "frame/drafting/pen.h"

namespace ardenix::arch {

inline constexpr std::string_view kCrossSections = "XSECTIONS";

// How cross sections are drawn, in drawing units but for text and arrow heads, which are millimetres on paper. 1 is the
// close side, 2 the far one.
struct SectionSettings {
  std::string parentName;
  double windowHeight = 1500.0;  // of window frames
  double footingWidth1 = 350.0;
  double footingWidth2 = 350.0;
  double footingHeight1 = 600.0;
  double footingHeight2 = 600.0;
  double floorToGround1 = 200.0;
  double floorToGround2 = 200.0;
  double floorToFooting1 = 500.0;
  double floorToFooting2 = 500.0;
  double slabHeight = 100.0;
  double battenWidth = 114.0;        // of rafters, posts and braces of a truss
  double supportTrussWidth = 152.0;  // of its tie
  double strutWidth = 38.0;
  double strutSpacing = 800.0;
  LineStyle section;
  LineStyle line;  // of the section line on plan
  std::string verticalLayer;
  std::string horizontalLayer;
  bool countsLabels = true;
  std::string label = "A";
  double textHeight = 5.0;
  double arrowLength = 3.0;
  double arrowWidth = 1.5;
  double cutWidth = 0.0;    // of lines round what is cut, millimetres on paper
  double hatchScale = 1.0;  // of the patterns of materials
  bool hatches = false;     // what is cut
  bool measures = false;    // the heights

  [[nodiscard]] ArrowHead arrowHead() const;
  [[nodiscard]] TextStyle text(int pen, int justification) const;
};

// A number of the settings: its key and what the dialog calls it.
struct SectionNumber {
  std::string_view key;
  std::string_view caption;
  std::string_view toolTip;
  double SectionSettings::*member;
  bool mayBeZero = false;
};
// In the order of the dialog.
std::span<const SectionNumber> sectionNumbers();

// An option of the settings, off where its key is missing.
struct SectionOption {
  std::string_view key;
  std::string_view caption;
  std::string_view toolTip;
  bool SectionSettings::*member;
};
std::span<const SectionOption> sectionOptions();

SectionSettings readSectionSettings(const ArchSpecStore& store);
void saveSectionSettings(ArchSpecStore& store, const SectionSettings& settings);

// What follows a label: its first letter or digit counted on, the last one followed by the first.
std::string nextLabel(std::string label);
void saveLabel(ArchSpecStore& store, std::string_view label);

}  // namespace ardenix::arch
