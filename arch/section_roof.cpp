#include <cmath>
#include <utility>

#include "arch/section_drawing.h"
#include "arch/truss.h"
#include "frame/drafting/macro_texts.h"
#include "frame/host/core_services.h"

namespace ardenix::arch {

namespace {

constexpr std::string_view kSideOnlyPrompt =
    "Select side truss height for side truss only (else spacebar for facing and/or side truss)";
constexpr std::string_view kFacingPrompt =
    "Select facing truss for facing and side truss (else spacebar for facing truss only)";
constexpr std::string_view kCloseSidePrompt =
    "Select close side truss height (else spacebar for default (facing truss) height)";
constexpr std::string_view kFarSidePrompt =
    "Select far side truss height (else spacebar for default (facing truss) height)";

constexpr double kUpright = 90.0;

// The roof over a section. Places count from the plate over the close wall: the top of its outer face.
class SectionRoof {
 public:
  SectionRoof(const SectionSheet& sheet, const RoofSizes& roof)
      : sheet_(sheet), slope_(std::tan(radians(roof.pitch))), overhang_(roof.overhang) {}

  void draw() {
    if (const auto height = askHeight(kSideOnlyPrompt)) {
      drawSide(sideTruss(*height));
      return;
    }
    const auto picked = pickLine(sheet_.view, kFacingPrompt);
    if (!picked) {
      drawFacing(facingTruss(span()), 0.0);
    } else {
      drawFacingAndSides(*picked);
    }
  }

 private:
  [[nodiscard]] double thickness() const { return sheet_.wallThickness(); }
  [[nodiscard]] double span() const { return sheet_.line.length() + 2.0 * thickness(); }
  [[nodiscard]] Point place(Point p) const { return sheet_.place(p.x - thickness(), p.y); }
  [[nodiscard]] FacingTruss facingTruss(double span) const {
    return {span, slope_, overhang_, sheet_.settings.battenWidth, sheet_.settings.supportTrussWidth};
  }
  [[nodiscard]] SideTruss sideTruss(double height) const {
    return {span(), height, slope_, overhang_, thickness(), sheet_.settings.strutWidth, sheet_.settings.strutSpacing};
  }

  // The height of a roof over a line of the plan; nothing when the user gave none.
  std::optional<double> askHeight(std::string_view prompt) const {
    return askUntil(sheet_.view, prompt, [this](Point) -> std::optional<double> {
      const auto line = jumpToLine(sheet_.view);
      if (!line) { return std::nullopt; }
      const double length = distance(line->a, line->b);
      if (length > 0.0) { return slope_ * length / 2.0; }
      tellMiss(sheet_.view, "This line has no length");
      return std::nullopt;
    });
  }

  bool isSound(const std::string& fault) const {
    if (!fault.empty()) { ErrorMessage(fault, &sheet_.view); }
    return fault.empty();
  }

  void drawStrokes(const std::vector<Stroke>& strokes) const {
    for (const Stroke& stroke : strokes) { sheet_.pen().line(place(stroke.from), place(stroke.to)); }
  }

  // ---- Facing truss: one half, mirrored ------------------------------------------------------------------------

  bool drawFacing(const FacingTruss& truss, double plate) const {
    if (!isSound(truss.fault())) { return false; }
    CCadWindow& view = sheet_.view;
    view.gsExecuteMacro(macroText::kPlainClearSelection);
    view.gsExecuteMacro(macroText::kSelectNewPlain);
    view.gsExecuteMacro(macroText::kTrussGroup);
    for (const Stroke& stroke : truss.strokes()) {
      const Point from{plate, 0.0};
      sheet_.pen().line(place(from + stroke.from), place(from + stroke.to));
    }
    view.gsExecuteMacro(macroText::mirrorKeeping(place({plate + truss.middle(), 0.0})));
    view.gsExecuteMacro(macroText::kPlainClearSelection);
    view.gsExecuteMacro(macroText::kSelectNewPlainEnd);
    return true;
  }

  // ---- Side trusses ----------------------------------------------------------------------------------------------

  void drawSide(const SideTruss& truss) const {
    if (isSound(truss.fault())) { drawStrokes(truss.strokes()); }
  }

  // An end of a line on plan, along the section from the close plate; within a wall it is the plate over that wall.
  [[nodiscard]] double plateUnder(Point end) const {
    const SectionLine& line = sheet_.line;
    const double along = dot(end - line.close, unit(line.far - line.close)) + thickness();
    if (std::fabs(along) < thickness()) { return 0.0; }
    return std::fabs(along - span()) < thickness() ? span() : along;
  }

  void drawFacingAndSides(const PlanLine& picked) {
    const auto [left, right] = std::minmax(plateUnder(picked.a), plateUnder(picked.b));
    const FacingTruss truss = facingTruss(right - left);
    if (!drawFacing(truss, left)) { return; }
    if (left != 0.0) { drawBeside(truss, left, kCloseSidePrompt, false); }
    if (right != span()) { drawBeside(truss, span() - right, kFarSidePrompt, true); }
  }

  // What stands between a wall and the facing truss; that of the far wall is the other's mirror image.
  void drawBeside(const FacingTruss& facing, double plate, std::string_view prompt, bool atFarWall) const {
    const SideTruss truss = sideTruss(askHeight(prompt).value_or(facing.height()));
    if (!isSound(truss.fault())) { return; }
    std::vector<Stroke> strokes = truss.strokesBeside(facing, plate);
    for (Stroke& stroke : strokes) {
      if (!atFarWall) { break; }
      stroke.from.x = span() - stroke.from.x;
      stroke.to.x = span() - stroke.to.x;
    }
    drawStrokes(strokes);
  }

  const SectionSheet& sheet_;
  double slope_;
  double overhang_;
};

}  // namespace

void drawSectionRoof(const SectionSheet& sheet, const RoofSizes& roof) {
  if (roof.pitch > 0.0 && roof.pitch < kUpright) {
    SectionRoof(sheet, roof).draw();
  } else {
    ErrorMessage("The section has no roof: the roof pitch takes more than 0 and less than 90 degrees", &sheet.view);
  }
}

}  // namespace ardenix::arch
