#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "mech/placed_drawer.h"

namespace ardenix::mech {

enum class TrimKind { kFillet, kChamfer };

// How an end of a section is trimmed: by a chamfer of 45 degrees or a fillet, of this width or radius.
struct Trim {
  TrimKind kind = TrimKind::kChamfer;
  double size = 0.0;
};

// A cylinder of a shaft.
struct ShaftSection {
  Trim left;
  double diameter = 0.0;
  double length = 0.0;
  Trim right;
};

// A stepped shaft: its sections from left to right, and which of its ends are broken off.
struct Shaft {
  std::vector<ShaftSection> sections;
  bool leftOpen = false;
  bool rightOpen = false;

  [[nodiscard]] double length() const;
};

inline constexpr size_t kMostShaftSections = 20;

ShaftSection readShaftSection(std::string_view record);
std::string writeShaftSection(const ShaftSection& section);
// Where such a section stands the shaft ends.
bool endsShaft(const ShaftSection& section);

// A shaft's sections lie in a section of the file that bears its name. At most as many as asked for.
std::vector<ShaftSection> readShaft(const TINIFile& file, std::string_view name, size_t most = kMostShaftSections);
void writeShaft(TINIFile& file, std::string_view name, const std::vector<ShaftSection>& sections);

// The first section, counted from 1, whose strokes would run backwards or across the axis; nothing for a sound shaft.
std::optional<size_t> faultySection(const Shaft& shaft);

// Draws the side view of a shaft from its left end.
class ShaftDrawer : public PlacedDrawer {
 public:
  ShaftDrawer(CCadWindow& view, const DefinitionStore& store);

  void take(Shaft shaft) { shaft_ = std::move(shaft); }
  void takeRecord(std::string_view text) override;
  [[nodiscard]] std::string recordText(std::string_view name) const override { return std::string(name); }

 protected:
  void stroke() override;
  void strokeAxes() override;
  [[nodiscard]] Point reference() const override { return position() + Point{shaft_.length(), 0}; }
  [[nodiscard]] std::string groupPrefix() const override { return name() + '_'; }
  void selectDrawn() const override;

 private:
  // The strokes where one section ends and the next begins; beyond the ends of the shaft there is one without size.
  void strokeStep(const ShaftSection& before, const ShaftSection& section, Point at) const;
  void strokeBreak(Point at, double diameter, double outwards) const;
  void strokeShoulder(const ShaftSection& before, const ShaftSection& section, Point at) const;
  void strokeOutline(const ShaftSection& section, Point at) const;
  // The corners of a section's end; `inwards` is 1 for its left end and -1 for its right one.
  void strokeCorners(const Trim& trim, double diameter, bool concave, Point at, double inwards) const;
  const DefinitionStore& store_;
  Shaft shaft_;
};

}  // namespace ardenix::mech
