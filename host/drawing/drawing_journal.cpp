#include <utility>

#include "host/drawing/drawing.h"
#include "host/drawing/drawing_store.h"

// Loading, and the journal: noting changes, taking them back, doing them again.
namespace brevan {

// ---- Loading ---------------------------------------------------------------------------------------------------

void Drawing::load(PrimitiveId id, Primitive&& primitive) {
  if (id < 1 || find(id) != nullptr) {
    throw RefusedChange("There is a primitive with the number " + std::to_string(id) + " already, or it is below 1.");
  }
  refuseUnusable(primitive);
  if (primitive.group < 0 || primitive.group > lastGroup()) {
    throw RefusedChange("There is no group with the number " + std::to_string(primitive.group) + ".");
  }
  put(id, std::move(primitive));
  ++revision_;
}

void Drawing::loadGroupOf(PrimitiveId first, PrimitiveId last, GroupId group) {
  std::vector<PrimitiveId>& members = groups_.at(static_cast<size_t>(group) - 1).members;
  for (PrimitiveId id = first; id <= last; ++id) {
    Slot& place = slot(id);
    if (place.primitive.group != 0) { continue; }
    makeRoom(members);
    place.primitive.group = group;
    place.groupPosition = static_cast<uint32_t>(members.size());
    members.push_back(id);
    if (members.size() == 1) { logGroup(group); }
    touch(id);
  }
  ++revision_;
}

void Drawing::loadLayer(int index, Layer layer) {
  if (index < 0 || (index > 0 && this->layer(index) != nullptr)) {
    throw RefusedChange("There is a layer with the number " + std::to_string(index) + " already, or it is below 0.");
  }
  const size_t needed = std::max(layers_.size(), static_cast<size_t>(index) + 1);
  layers_.resize(needed);
  layerMembers_.resize(needed);
  layers_[static_cast<size_t>(index)] = std::move(layer);
  layerNames_.forget();
  ++revision_;
}

// ---- What changed ----------------------------------------------------------------------------------------------

namespace {

// Noting more than there is would cost more than looking at everything.
template <class Id>
void noteTouched(TouchedRows& touched, std::vector<Id>& list, Id id, size_t most) noexcept {
  constexpr size_t kAlways = 1024;
  if (touched.all) { return; }
  try {
    if (list.size() < kAlways + 2 * most) { return list.push_back(id); }
  } catch (const std::bad_alloc&) {}  // then everything counts, too
  touched.all = true;
  list = {};
}

}  // namespace

TouchedRows Drawing::takeTouched() {
  TouchedRows taken = touched_ ? std::move(*touched_) : TouchedRows{.all = true, .primitives = {}, .groups = {}};
  touched_.emplace();
  return taken;
}

void Drawing::touch(PrimitiveId id) noexcept {
  if (touched_) { noteTouched(*touched_, touched_->primitives, id, count_); }
}

void Drawing::touchGroup(GroupId id) noexcept {
  logGroup(id);
  if (touched_) { noteTouched(*touched_, touched_->groups, id, groups_.size()); }
}

// ---- Journal ---------------------------------------------------------------------------------------------------

namespace {

// A drawing keeps thousands of steps of a change or two, each of which was given room for more.
Step closed(Step step) {
  constexpr size_t kSmall = 16;
  if (step.changes.size() < kSmall) { step.changes.shrink_to_fit(); }
  return step;
}

}  // namespace

void Drawing::makeRoomToNote() {
  if (loading_) { return; }
  if (stepDepth_ > 0) {
    makeRoom(open_.changes);
  } else {
    makeRoom(done_);
    spare_.reserve(1);
  }
}

void Drawing::note(Change change) {
  ++revision_;
  if (loading_) { return; }
  if (stepDepth_ > 0) {
    open_.changes.push_back(std::move(change));
    return;
  }
  done_.push_back(Step{{}, std::move(spare_)});
  done_.back().changes.push_back(std::move(change));
  spare_.clear();
  undone_.clear();
}

void Drawing::beginStep(std::string name) {
  if (stepDepth_++ > 0) { return; }
  open_ = Step{std::move(name), {}};
  openBase_ = done_.size();
}

void Drawing::splitStep() {
  if (open_.changes.empty()) { return; }
  Step goingOn{open_.name, {}};
  done_.push_back(closed(std::move(open_)));
  open_ = std::move(goingOn);
  undone_.clear();
}

void Drawing::endStep() {
  if (--stepDepth_ > 0 || open_.changes.empty()) { return; }
  done_.push_back(closed(std::move(open_)));
  undone_.clear();
}

void Drawing::swapState(Change& change) {
  struct Swapper {
    Drawing& drawing;
    void operator()(PrimitiveChange& change) const { drawing.swapPrimitive(change); }
    void operator()(LayerChange& change) const { drawing.swapLayer(change); }
    void operator()(GroupChange& change) const { drawing.swapGroup(change); }
    void operator()(PlainChange& change) const { drawing.swapPlain(change); }
    void operator()(SymbolChange& change) const {
      drawing.symbolCounts_.forget();
      drawing.swapSymbol(change);
    }
  };
  std::visit(Swapper{*this}, change);
}

void Drawing::swapPrimitive(PrimitiveChange& change) {
  const bool selected = isSelected(change.id);
  std::unique_ptr<Primitive> present;
  if (find(change.id) != nullptr) { present = std::make_unique<Primitive>(take(change.id)); }
  if (change.other != nullptr) {
    put(change.id, std::move(*change.other));
    if (selected) { select(change.id); }
  } else if (change.id == lastId_) {
    --lastId_;  // what was taken back leaves no gap in the numbering
  }
  change.other = std::move(present);
}

void Drawing::swapLayer(LayerChange& change) {
  const size_t needed = std::max(layers_.size(), static_cast<size_t>(change.index) + 1);
  layers_.resize(needed);
  layerMembers_.resize(needed);
  std::swap(layers_[static_cast<size_t>(change.index)], change.other);
  layerNames_.forget();
  while (layers_.size() > 1 && !layers_.back()) {
    layers_.pop_back();
    layerMembers_.pop_back();
  }
}

void Drawing::swapGroup(GroupChange& change) {
  touchGroup(change.id);
  if (change.id > lastGroup()) {  // made again
    groups_.push_back(Group{change.id, change.parent, std::move(change.name), {}});
    nameGroup(change.id);
    change = GroupChange{change.id, false, {}, {}};
    return;
  }
  Group& group = groups_[static_cast<size_t>(change.id) - 1];
  unnameGroup(change.id);
  if (!change.there) {
    change = GroupChange{change.id, true, group.parent, std::move(group.name)};
    groups_.pop_back();
    return;
  }
  std::swap(group.parent, change.parent);
  std::swap(group.name, change.name);
  nameGroup(change.id);
}

void Drawing::swapPlain(PlainChange& change) {
  PlainState& other = *change.other;
  const bool resized = !(other.parameters == parameters_);
  std::swap(parameters_, other.parameters);
  std::swap(sheet_, other.sheet);
  std::swap(currentLayer_, other.currentLayer);
  if (resized) { indexAnew(); }  // texts and arrows keep their size on paper, so their bounds have changed
}

void Drawing::swapSymbol(SymbolChange& change) {
  if (touched_) { touched_->symbols = true; }
  std::unique_ptr<SymbolDefinition> present;
  const auto entry = symbols_.find(change.name);
  if (entry != symbols_.end()) { present = std::make_unique<SymbolDefinition>(std::move(entry->second)); }
  if (change.other != nullptr) {
    symbols_.insert_or_assign(change.name, std::move(*change.other));
  } else {
    symbols_.erase(change.name);
  }
  change.other = std::move(present);
  if (indexedSymbols_.contains(change.name)) { indexAnew(); }  // the bounds of those placed may have changed
}

void Drawing::indexAnew() {
  index_.clear();
  indexedSymbols_.clear();
  unindexed_.clear();
  forEach([this](PrimitiveId id, const Primitive&) {
    slot(id).indexed = false;
    unindexed_.push_back(id);
  });
}

void Drawing::rollBackTo(size_t mark) {
  for (; open_.changes.size() > mark; open_.changes.pop_back()) { swapState(open_.changes.back()); }
  ++revision_;
}

void Drawing::rollBack() {
  if (stepDepth_ == 0) { return; }
  stepDepth_ = 0;
  clearSelection();
  rollBackTo(0);
  for (; done_.size() > openBase_; done_.pop_back()) {
    open_ = std::move(done_.back());
    rollBackTo(0);
  }
}

const std::string* Drawing::undoName() const { return done_.empty() ? nullptr : &done_.back().name; }
const std::string* Drawing::redoName() const { return undone_.empty() ? nullptr : &undone_.back().name; }

bool Drawing::undo() {
  if (done_.empty() || inStep()) { return false; }
  clearSelection();
  Step step = std::move(done_.back());
  done_.pop_back();
  for (auto change = step.changes.rbegin(); change != step.changes.rend(); ++change) { swapState(*change); }
  undone_.push_back(std::move(step));
  ++revision_;
  return true;
}

bool Drawing::redo() {
  if (undone_.empty() || inStep()) { return false; }
  clearSelection();
  Step step = std::move(undone_.back());
  undone_.pop_back();
  for (Change& change : step.changes) { swapState(change); }
  done_.push_back(std::move(step));
  ++revision_;
  return true;
}

}  // namespace brevan
