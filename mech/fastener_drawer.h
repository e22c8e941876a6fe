#pragma once

#include <string>
#include <string_view>

#include "frame/drafting/pen.h"
#include "frame/host/cad_window.h"
#include "mech/fastener.h"
#include "mech/fastener_placement.h"
#include "mech/part_drawer.h"
#include "mech/record_drawer.h"

namespace ardenix::mech {

// Draws the views of one kind of fastener where the user puts them. A kind gives its strokes; they start from
// the fastener's position.
class FastenerDrawer : public PartDrawer {
 public:
  FastenerDrawer(CCadWindow& view, const DefinitionStore& store, const FastenerTrade& trade)
      : trade_(trade), view_(view), fastener_(makeFastener(view, store)), placement_(view, fastener_, trade_) {}
  // Each answers whether the view was drawn; false when the user ended at a prompt.
  bool drawSideView();
  bool drawPlanView();
  // Both views beside each other.
  void sketch() override;

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

// A fastener whose records are described by a table of fields.
template <class Record>
using FastenerOf = RecordDrawer<FastenerDrawer, Record>;

// Centre lines of plans reach so far beyond the outline, in drawing units.
inline constexpr double kPlanOverhang = 5.0;

// Draws part after part until the user ends at a prompt or presses Escape.
void drawFasteners(FastenerDrawer& drawer, ViewMode mode);

}  // namespace ardenix::mech
