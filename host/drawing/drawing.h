#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "host/drawing/group_log.h"
#include "host/drawing/journal.h"
#include "host/drawing/layer.h"
#include "host/drawing/layer_names.h"
#include "host/drawing/parameters.h"
#include "host/drawing/primitive.h"
#include "host/drawing/refused_change.h"
#include "host/drawing/sheet.h"
#include "host/drawing/spatial_index.h"
#include "host/drawing/symbol_counts.h"
#include "host/drawing/symbol_definition.h"

namespace brevan {

// Is told of every primitive that enters or leaves a drawing, undo and redo included; a change is both.
class DrawingListener {
 public:
  DrawingListener() = default;
  DrawingListener(const DrawingListener&) = delete;
  DrawingListener& operator=(const DrawingListener&) = delete;
  virtual ~DrawingListener() = default;
  virtual void primitiveAdded(PrimitiveId id, const Primitive& primitive) = 0;
  virtual void primitiveRemoved(PrimitiveId id) = 0;
};

// What of a drawing changed, undone and redone changes included. Numbers may come several times, and may be gone.
struct TouchedRows {
  bool all = false;  // so much, or it was not noted: look at everything
  std::vector<PrimitiveId> primitives;
  std::vector<GroupId> groups;
  bool symbols = false;
};

// A drawing: primitives in drawing order under stable ids, layers, groups, selection, parameters and sheet.
// Every change goes through the functions here, which keep the spatial, layer and group indexes in step and
// write the journal; nothing walks the whole drawing but forEach.
class Drawing {
 public:
  Drawing();
  ~Drawing();
  // A drawing that was moved from can only be assigned to or destroyed.
  Drawing(Drawing&& other) noexcept;
  Drawing& operator=(Drawing&& other) noexcept;
  Drawing(const Drawing&) = delete;
  Drawing& operator=(const Drawing&) = delete;

  // ---- Primitives ------------------------------------------------------------------------------------
  // Adding and replacing throw RefusedChange for one that is not finite or lies on a layer that is not there.
  PrimitiveId add(Primitive primitive);
  void remove(PrimitiveId id);
  // What is there under the id; it stays selected if it was.
  void replace(PrimitiveId id, Primitive primitive);
  // Null for an id that is not there (any more).
  [[nodiscard]] const Primitive* find(PrimitiveId id) const;
  [[nodiscard]] size_t count() const { return count_; }
  [[nodiscard]] PrimitiveId lastId() const { return lastId_; }

  // In drawing order.
  template <class Function>
  void forEach(const Function& function) const {
    for (PrimitiveId id = 1; id <= lastId_; ++id) {
      if (const Primitive* primitive = find(id)) { function(id, *primitive); }
    }
  }

  // ---- Layers, counted from 0; layer 0 is "0" and always there ------------------------------------------
  [[nodiscard]] int layerCount() const { return static_cast<int>(layers_.size()); }
  // Null for an index whose layer was deleted.
  [[nodiscard]] const Layer* layer(int index) const;
  [[nodiscard]] int layerNamed(std::string_view name) const;  // -1: none
  int addLayer(Layer layer);                                  // the index, of the existing one where there is one
  void changeLayer(int index, Layer layer);
  void removeLayer(int index);                                      // with what lies on it; layer 0 is emptied only
  [[nodiscard]] std::vector<PrimitiveId> onLayer(int index) const;  // in drawing order
  [[nodiscard]] int currentLayer() const { return currentLayer_; }
  void setCurrentLayer(int index);

  // ---- Groups --------------------------------------------------------------------------------------------
  GroupId addGroup(std::string_view parent, std::string_view name);
  void renameGroup(GroupId group, std::string_view parent, std::string_view name);
  [[nodiscard]] GroupId lastGroup() const { return static_cast<GroupId>(groups_.size()); }
  // Group n stands at n - 1, those without members included.
  [[nodiscard]] std::span<const Group> groups() const { return groups_; }
  [[nodiscard]] const Group& group(GroupId id) const { return groups_[static_cast<size_t>(id) - 1]; }
  // Calls function(const Group&) for each group that has members, in the order of their making.
  template <class Function>
  void forEachGroup(const Function& function) const {
    for (const Group& group : groups_) {
      if (!group.members.empty()) { function(group); }
    }
  }
  // The newest group with members of this parent and name; the second form takes "PARENT NAME". 0: none.
  [[nodiscard]] GroupId newestGroup(std::string_view parent, std::string_view name) const;
  [[nodiscard]] GroupId newestGroup(std::string_view parentAndName) const;
  [[nodiscard]] std::vector<PrimitiveId> membersOf(GroupId group) const;  // in drawing order
  // Each drawing's own for as long as it lives; who keeps it can tell this drawing from another in its place.
  [[nodiscard]] std::shared_ptr<const GroupLog> groupLog() const { return groupLog_; }

  // ---- Selection (no part of the journal) ---------------------------------------------------------------------
  void select(PrimitiveId id);
  void deselect(PrimitiveId id);
  void clearSelection();
  [[nodiscard]] bool isSelected(PrimitiveId id) const;
  [[nodiscard]] std::vector<PrimitiveId> selection() const;  // in drawing order
  [[nodiscard]] bool hasSelection() const { return !selected_.empty(); }

  // ---- Looking ---------------------------------------------------------------------------------------------------
  [[nodiscard]] Box bounds(const Primitive& primitive) const;
  [[nodiscard]] Box extents() const;
  // Ids whose bounds meet the box, in drawing order.
  [[nodiscard]] std::vector<PrimitiveId> inBox(const Box& box) const;
  // The nearest primitive within reach that passes the filter; of equally near ones a symbol, else the newest;
  // a hatch where there is nothing else.
  using Filter = std::function<bool(PrimitiveId, const Primitive&)>;
  [[nodiscard]] PrimitiveId nearest(Point p, double reach, const Filter& filter) const;
  [[nodiscard]] double distanceTo(const Primitive& primitive, Point p) const;

  // ---- Parameters, sheet, symbols
  // ------------------------------------------------------------------------------------
  [[nodiscard]] const Parameters& parameters() const { return parameters_; }
  // Throws RefusedChange for numbers that are not finite, a scale or unit not above 0, flags other than 0 and 1.
  void setParameters(const Parameters& parameters);
  [[nodiscard]] const std::optional<Sheet>& sheet() const { return sheet_; }
  void setSheet(std::optional<Sheet> sheet);
  [[nodiscard]] const SymbolDefinition* symbol(std::string_view name) const;
  // Throws RefusedChange for a definition that would make a symbol contain itself, nest too deep or expand to too many
  // parts (see SymbolCounts), so that whoever follows symbols may call himself.
  void addSymbol(SymbolDefinition symbol);
  // What a symbol expands to, itself and each symbol within it counted; 1 for a name without definition.
  [[nodiscard]] size_t symbolParts(std::string_view name) const;
  [[nodiscard]] const std::map<std::string, SymbolDefinition, std::less<>>& symbols() const { return symbols_; }

  // ---- Loading: what enters a new drawing from a file keeps its own number and is no step of undo ------------
  void beginLoading() { loading_ = true; }
  // Throws RefusedChange for symbols that addSymbol would refuse, whose parts may come in any order while loading, and
  // for placed ones that come to more than SymbolCounts::kMostPlacedParts together.
  void endLoading();
  // Throw RefusedChange for a number that is taken (but for layer 0) or out of range, and for a primitive that
  // add would refuse or whose group is not there. Numbers are indexes: the caller bounds how far they are strewn.
  void load(PrimitiveId id, Primitive&& primitive);
  void loadLayer(int index, Layer layer);
  // For those of these numbers, which must be there, that are of no group yet.
  void loadGroupOf(PrimitiveId first, PrimitiveId last, GroupId group);

  // ---- Journal
  // ---------------------------------------------------------------------------------------------------------- Steps
  // nest: changes belong to the outermost one open. Changes outside a step are steps of their own.
  void beginStep(std::string name);
  void endStep();
  // Within a step: what was changed so far becomes a step of its own, and the open one goes on anew.
  void splitStep();
  // Takes back what the outermost step changed so far, with what was split off it, and ends it.
  void rollBack();
  // Within a step: takes back what changed since a mark.
  [[nodiscard]] size_t mark() const { return open_.changes.size(); }
  void rollBackTo(size_t mark);
  [[nodiscard]] bool inStep() const { return stepDepth_ > 0; }
  [[nodiscard]] const std::string* undoName() const;  // null: nothing to take back
  [[nodiscard]] const std::string* redoName() const;
  bool undo();
  bool redo();
  // One, or null; it outlives its being set.
  void setListener(DrawingListener* listener) { listener_ = listener; }
  // What changed since this was called last; all the first time. Parameters, sheet and layers are not noted.
  [[nodiscard]] TouchedRows takeTouched();
  // The weight of all that ever came in, changed, undone and loaded primitives included. As undo keeps what was, the
  // memory that the drawing takes follows it.
  [[nodiscard]] uint64_t taken() const { return taken_; }
  // Counts up with every change; what is saved and what is shown compare it.
  [[nodiscard]] uint64_t revision() const { return revision_; }

 private:
  struct Slot;
  class Store;

  Slot& slot(PrimitiveId id) const;
  void refuseUnusable(const Primitive& primitive) const;
  void makeRoomFor(PrimitiveId id, const Primitive& primitive);
  void put(PrimitiveId id, Primitive&& primitive);
  Primitive take(PrimitiveId id);
  void note(Change change);  // after makeRoomToNote it cannot fail
  void swapState(Change& change);
  void swapPrimitive(PrimitiveChange& change);
  void swapLayer(LayerChange& change);
  void swapGroup(GroupChange& change);
  void swapPlain(PlainChange& change);
  void swapSymbol(SymbolChange& change);
  void changePlain(PlainState state);
  void makeRoomToNote();
  void flushIndex() const;
  void noteIndexed(const Geometry& geometry) const;
  [[nodiscard]] PrimitiveId nearestWithin(Point p, double reach, const Filter& filter) const;
  [[nodiscard]] PrimitiveId hatchAt(Point p, double reach, const Filter& filter) const;
  [[nodiscard]] PrimitiveId closestOfCentre(PrimitiveId id, Point p, const Filter& filter) const;
  void indexAnew();
  void unindex(PrimitiveId id, Slot& slot);
  std::string_view keptParent(std::string_view parent);
  void nameGroup(GroupId id);
  void unnameGroup(GroupId id);
  void touch(PrimitiveId id) noexcept;
  void touchGroup(GroupId id) noexcept;
  void logGroup(GroupId id) noexcept { groupLog_->note(id, groups_.size()); }
  template <class Wanted>
  GroupId newestNamed(const std::string& key, const Wanted& wanted) const;

  std::unique_ptr<Store> store_;
  size_t count_ = 0;
  PrimitiveId lastId_ = 0;
  std::vector<std::optional<Layer>> layers_;
  mutable LayerNames layerNames_;
  std::vector<std::vector<PrimitiveId>> layerMembers_;
  int currentLayer_ = 0;
  std::set<std::string, std::less<>> parents_;
  std::vector<Group> groups_;
  std::unordered_map<std::string, std::vector<GroupId>> groupsByName_;
  std::shared_ptr<GroupLog> groupLog_ = std::make_shared<GroupLog>();
  std::vector<PrimitiveId> selected_;
  mutable SpatialIndex index_;
  mutable std::vector<PrimitiveId> unindexed_;
  mutable std::set<std::string, std::less<>> indexedSymbols_;  // those whose definitions the index rests on
  Parameters parameters_;
  std::optional<Sheet> sheet_;
  SymbolCounts::Definitions symbols_;
  mutable SymbolCounts symbolCounts_;
  std::vector<Step> done_;
  std::vector<Step> undone_;
  std::vector<Change> spare_;  // where a change outside a step will be noted
  Step open_;
  size_t openBase_ = 0;  // the steps done before the open one
  int stepDepth_ = 0;
  bool loading_ = false;
  uint64_t revision_ = 0;
  uint64_t taken_ = 0;
  DrawingListener* listener_ = nullptr;
  std::optional<TouchedRows> touched_;  // none: nobody asks
};

}  // namespace brevan
