#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "survey/figure.h"
#include "survey/job_settings.h"

// The length and the direction of a boundary line, written along it. Each dimension is a group whose category says what
// it holds and whose name carries the values, so that both can be read back.
namespace ardenix::survey {

inline constexpr std::string_view kDimensionLayer = "SURV_DIMS";

// Justifications of texts that stand above a line, at its nearer side, and below it.
inline constexpr int kAboveLine = 4;
inline constexpr int kBelowLine = 6;

// The categories.
namespace dimensionParents {
inline constexpr std::string_view kDistance = "SD";
inline constexpr std::string_view kBearing = "SB";
inline constexpr std::string_view kBoth = "SC";
}  // namespace dimensionParents

// How texts lie along a line: those that would stand on their heads are turned over.
struct TextsAlong {
  double angle = 0.0;  // degrees
  bool turnedOver = false;
};

// Where a combined dimension stands, and how much of it.
enum class CombinedPlace { kInside, kOutside, kDistanceOnly };

class SurveyDimensions {
 public:
  SurveyDimensions(CCadWindow& view, const JobSettings& job);

  // Makes and shows the layer. False, with a message, where nothing can be drawn on it or the view's texts have no
  // height.
  bool begin();
  // Distance and bearing as two dimensions, one on each side of the line, as far as the settings want them. Points that
  // coincide have none; that holds below, too.
  void drawApart(Point from, Point to) const;
  // Both as one dimension on the inside of a figure walked clockwise on paper, or as another place has it.
  void drawTogether(Point from, Point to, CombinedPlace place = CombinedPlace::kInside) const;
  // How long the texts of the combined dimension are on paper, about, in drawing units.
  [[nodiscard]] double lengthOfTexts(Point from, Point to) const;
  // From a line to its nearest text, in drawing units, for texts of this height (tenths of a millimetre on paper).
  [[nodiscard]] double offsetOf(double height) const;

 private:
  struct Line {
    Point from;
    Point to;
    Join join;
    std::string distance{};
    std::string bearing{};
    TextsAlong texts{};
  };

  [[nodiscard]] std::optional<Line> measured(Point from, Point to) const;
  [[nodiscard]] Point beside(const Line& line, double side, double steps) const;
  void drawOne(std::string_view parent, const std::string& pattern, const Line& line, double side,
               const std::string& text) const;
  void write(const Line& line, Point at, std::string_view text, int justification, double style) const;
  void drawTextsTogether(const Line& line, CombinedPlace place) const;
  void endDimension() const;

  CCadWindow& view_;
  const JobSettings& job_;
  double side_;  // of the bearing, as the direction turns: 1 or -1
  int layer_ = 0;
};

// Survey figures are walked clockwise on paper; where coordinates do not grow with it, a line is taken the other way
// round, so that its texts read the same.
bool swapsEnds(const JobSettings& job);

}  // namespace ardenix::survey
