#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "frame/drafting/pen.h"
#include "frame/drafting/point.h"
#include "frame/host/cad_window.h"
#include "mech/definition_store.h"
#include "mech/line_style.h"
#include "mech/part_drawer.h"

namespace ardenix::mech {

// How a kind of part is named, and what the user is asked for each.
struct PlacedTrade {
  std::string_view category;         // parent of the groups
  std::string_view prefix;           // of their names, which a number follows
  std::string_view positionPrompt;   // for the point that the part is drawn from
  std::string_view directionPrompt;  // for a point that it is turned to; none is asked where this is empty
  // The part is drawn on a layer of its own, with the current layer hidden, so that trimming it leaves the drawing
  // alone; finished, it goes to the layer that was current.
  std::string_view scratchLayer{};
};

// A part that the user places by a point or two, part after part until he gives none. A kind gives its strokes, which
// start from the position and lie unturned. Parts of one session share line styles, and the choice between solid and
// hidden.
class PlacedDrawer : public PartDrawer {
 public:
  PlacedDrawer(CCadWindow& view, const DefinitionStore& store, const PlacedTrade& trade)
      : view_(view), trade_(trade), styles_(lineStyles(store)) {}

  void drawHidden(bool hidden) { hidden_ = hidden; }
  // What the dialog offers to draw besides, in its order.
  void drawExtras(std::vector<bool> extras) { extras_ = std::move(extras); }
  // The definition's name, which is empty until it is set.
  void setName(std::string name) { name_ = std::move(name); }

  // Draws parts until the user ends a prompt or presses Escape. Nothing is asked where the current layer takes none.
  void placeParts();
  void sketch() override;

 protected:
  // What `placeParts` does before the parts end; and what it does with one, at the position given.
  virtual void placeAll();
  virtual void drawPart(std::optional<Point> target);
  // All strokes of the part but for those that `strokeAxes` draws, in the group of the part.
  virtual void stroke() = 0;
  // What is drawn when the other layers can be seen again.
  virtual void strokeAxes() {}
  // The point of the unturned part that is to lie in the direction given.
  [[nodiscard]] virtual Point reference() const = 0;
  [[nodiscard]] virtual std::string groupPrefix() const { return std::string(trade_.prefix); }
  // Selects what was drawn and makes one part of it.
  virtual void selectDrawn() const;
  // The part is turned and lies where it belongs.
  virtual void finished() const {}

  void openGroup();
  [[nodiscard]] CCadWindow& view() const { return view_; }
  [[nodiscard]] Point position() const { return position_; }
  [[nodiscard]] const std::string& name() const { return name_; }
  [[nodiscard]] bool drawsExtra(size_t extra) const { return extra < extras_.size() && extras_[extra]; }
  [[nodiscard]] std::string_view category() const { return trade_.category; }
  [[nodiscard]] const std::string& group() const { return group_; }
  [[nodiscard]] const LineStyle& outlineStyle() const { return hidden_ ? styles_.hidden : styles_.solid; }
  [[nodiscard]] DraftingPen outlinePen() const { return {view_, outlineStyle()}; }
  [[nodiscard]] DraftingPen centrePen() const { return {view_, styles_.centre}; }
  // Whether the host carried it out.
  bool send(std::string_view macro) const { return view_.gsExecuteMacro(macro) != 0; }
  // Something that the user should know of the part, though it is drawn; said once a session, never of a sketch.
  void notice(std::string_view text) { notice_ = text; }

 private:
  bool placePart();
  void tellNotice();

  CCadWindow& view_;
  const PlacedTrade& trade_;
  LineStyles styles_;
  bool hidden_ = false;
  std::vector<bool> extras_;
  std::string name_;
  std::string group_;  // of the part last drawn
  Point position_;     // likewise
  std::string_view notice_;
  bool noticeTold_ = false;
};

}  // namespace ardenix::mech
