#pragma once

#include <span>

#include "frame/host/cad_window.h"
#include "frame/drafting/pen.h"
#include "mech/fastener.h"
#include "mech/fastener_placement.h"

namespace ardenix {

// Draws the views of one kind of fastener where the user puts them. A kind gives its strokes; they start from
// the fastener's position.
class FastenerDrawer {
 public:
  FastenerDrawer(CCadWindow& view, const DefinitionStore& store, const FastenerTrade& trade)
      : trade_(trade), view_(view), fastener_(makeFastener(store)), placement_(view, fastener_, trade_) {}
  FastenerDrawer(const FastenerDrawer&) = delete;
  FastenerDrawer& operator=(const FastenerDrawer&) = delete;
  virtual ~FastenerDrawer() = default;

  // Takes the values of a definition, in the order of its record's fields.
  virtual void take(std::span<const double> fields) = 0;

  // Each answers whether the view was drawn; false when the user ended at a prompt.
  bool drawSideView();
  bool drawPlanView();
  // Both views beside each other where nobody is asked: a picture of the part.
  void sketch();

  [[nodiscard]] Fastener& fastener() { return fastener_; }
  [[nodiscard]] const Fastener& fastener() const { return fastener_; }
  [[nodiscard]] CCadWindow& view() const { return view_; }
  [[nodiscard]] const FastenerTrade& trade() const { return trade_; }

 protected:
  virtual void strokeSideView() = 0;
  virtual void strokePlanView() = 0;
  [[nodiscard]] virtual FastenerReach reach() const = 0;

  [[nodiscard]] Point position() const { return fastener_.position; }
  [[nodiscard]] DraftingPen pen(const LineStyle& style) const { return {view_, style}; }
  [[nodiscard]] DraftingPen headPen() const { return pen(fastener_.headStyle()); }
  [[nodiscard]] DraftingPen shaftPen() const { return pen(fastener_.shaftStyle()); }
  [[nodiscard]] DraftingPen centrePen() const { return pen(fastener_.centre); }
  // For threads on what the head's, or the shaft's, pen draws.
  [[nodiscard]] DraftingPen headThreadPen() const { return pen(fastener_.threadStyle(fastener_.headStyle())); }
  [[nodiscard]] DraftingPen shaftThreadPen() const { return pen(fastener_.threadStyle(fastener_.shaftStyle())); }

 private:
  const FastenerTrade& trade_;
  CCadWindow& view_;
  Fastener fastener_;
  FastenerPlacement placement_;
};

// Centre lines of plans reach so far beyond the outline, in drawing units.
inline constexpr double kPlanOverhang = 5.0;

// Draws part after part until the user ends at a prompt or presses Escape.
void drawFasteners(FastenerDrawer& drawer, ViewMode mode);

}  // namespace ardenix
