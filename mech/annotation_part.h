#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "frame/drafting/line_settings.h"
#include "frame/drafting/pen.h"
#include "frame/drafting/scratch_layer.h"
#include "frame/host/cad_window.h"
#include "frame/host/limits.h"
#include "mech/annotation_style.h"

namespace ardenix::mech {

// Symbols of finishes and tolerances fill cells of 10 mm and are placed in cells of 5.
inline constexpr double kCellScale = 0.5;

// Draws lines, texts and symbols of an annotation on the current layer, in the layer's own pen. Lengths of its strokes
// are units: millimetres on paper x symbol scale.
class AnnotationPen {
 public:
  static constexpr LineStyle kStrokes{.pen = limits::kPenByLayer, .linetype = 1, .width = 0.0};

  AnnotationPen(CCadWindow& view, const AnnotationStyle& style);

  [[nodiscard]] CCadWindow& view() const { return view_; }
  [[nodiscard]] const AnnotationStyle& style() const { return style_; }
  [[nodiscard]] const DraftingPen& strokes() const { return strokes_; }
  [[nodiscard]] double unit() const { return unit_; }
  // -1 on a south-oriented survey sheet, whose axes run left and down on paper; else 1.
  [[nodiscard]] double flip() const { return flip_; }

  void text(Point at, std::string_view text, int justification) const;
  // Makes the symbols of the file known to the view; false where they cannot be read.
  [[nodiscard]] bool loadSymbols() const;
  // Places a symbol by its macro command. Where the file has none of the name, answers false and remembers the first.
  bool symbol(std::string_view name, std::string_view command);
  // The first symbol that the file lacks; "" where it had them all.
  [[nodiscard]] const std::string& missingSymbol() const { return missing_; }

 private:
  CCadWindow& view_;
  const AnnotationStyle style_;
  DraftingPen strokes_;
  double unit_;
  double flip_;
  std::string missing_;
};

// The pen of a picture: without its symbols the annotation is still to be seen.
AnnotationPen sketchingPen(CCadWindow& view, const AnnotationStyle& style);

// How the macro command that links an annotation ends.
enum class LinkEnding { kQuote, kOpen };

// One annotation while it is drawn. First its layer is current, and symbols take the layer's pen; from begin() on its
// group is open on the scratch layer and its layer hidden. An annotation that is not finished leaves nothing behind,
// and layer and pen are the user's again.
class AnnotationPart {
 public:
  // Loads the symbols and makes the layer current. Nothing, after a message, where the annotation cannot be drawn: the
  // symbol file is missing, the layer takes no parts, the settings give no size.
  static std::unique_ptr<AnnotationPart> prepare(CCadWindow& view, const DefinitionStore& store,
                                                 const AnnotationKind& kind);
  AnnotationPart(const AnnotationPart&) = delete;
  AnnotationPart& operator=(const AnnotationPart&) = delete;
  ~AnnotationPart();

  [[nodiscard]] AnnotationPen& pen() { return pen_; }
  [[nodiscard]] const AnnotationPen& pen() const { return pen_; }
  [[nodiscard]] const std::string& group() const { return group_; }
  // Opens the group, named prefix + next free number, and the scratch layer; or the scratch layer first.
  void begin(std::string_view prefix);
  void beginOnScratch(std::string_view prefix);
  // Shows the annotations that are there while a point is asked for, or hides them again.
  void showLayer(bool shown) const { view_.gsSetLayerVisibility(target_, shown ? 1 : 0, 0); }
  // False, after a message, where the file lacked a symbol that was to be placed.
  [[nodiscard]] bool hasSymbols() const;
  // Makes one group of what was drawn and puts it on its layer. False, after a message and with nothing drawn, where a
  // symbol was missing.
  bool finish(LinkEnding ending);
  // The same for an annotation that is drawn straight on its layer.
  void beginOnLayer(std::string_view prefix);
  void finishOnLayer();

 private:
  AnnotationPart(CCadWindow& view, const AnnotationKind& kind, const AnnotationStyle& style);
  void openScratch();
  void leave();
  void abandon();

  CCadWindow& view_;
  const AnnotationKind& kind_;
  AnnotationPen pen_;
  int before_;  // the layer that was current
  bool isNew_;  // the annotation's layer
  int target_ = 0;
  std::string group_;
  std::optional<LineSettings> settings_;
  std::unique_ptr<ScratchLayer> scratch_;
  bool finished_ = false;
};

}  // namespace ardenix::mech
