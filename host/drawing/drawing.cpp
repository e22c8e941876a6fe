#include "host/drawing/drawing.h"

#include <algorithm>
#include <array>
#include <utility>

#include "host/drawing/symbol_expansion.h"
#include "host/drawing/text_layout.h"

namespace brevan {

// A primitive's place; ids index it, so a removed one leaves its place empty.
struct Drawing::Slot {
  Primitive primitive;
  uint32_t layerPosition = 0;  // in the lists of its layer and its group
  uint32_t groupPosition = 0;
  uint32_t selectionPosition = 0;
  bool there = false;
  bool indexed = false;
  bool selected = false;
};

// Places in blocks, so that growing moves nothing.
class Drawing::Store {
 public:
  static constexpr size_t kBlock = 1024;
  Slot& at(PrimitiveId id) {
    const size_t place = static_cast<size_t>(id) - 1;
    return (*blocks_[place / kBlock])[place % kBlock];
  }
  void reach(PrimitiveId id) {
    while (blocks_.size() * kBlock < static_cast<size_t>(id)) {
      blocks_.push_back(std::make_unique_for_overwrite<Block>());
    }
  }

 private:
  using Block = std::array<Slot, kBlock>;
  std::vector<std::unique_ptr<Block>> blocks_;
};

namespace {

std::string groupKey(std::string_view parent, std::string_view name) {
  std::string key(parent);
  key += ' ';
  key += name;
  return key;
}

// So that the next push_back cannot fail.
template <class Item>
void makeRoom(std::vector<Item>& list) {
  if (list.size() == list.capacity()) { list.reserve(std::max<size_t>(16, 2 * list.size())); }
}

// Swap-removal from a list whose items know their position.
template <class Position>
void removeAt(std::vector<PrimitiveId>& list, uint32_t position, const Position& positionOf) {
  list[position] = list.back();
  positionOf(list[position]) = position;
  list.pop_back();
}

}  // namespace

Drawing::Drawing() : store_(std::make_unique<Store>()) {
  layers_.emplace_back(Layer{"0"});
  layerMembers_.emplace_back();
}

Drawing::~Drawing() = default;
Drawing::Drawing(Drawing&& other) noexcept = default;
Drawing& Drawing::operator=(Drawing&& other) noexcept = default;

Drawing::Slot& Drawing::slot(PrimitiveId id) const { return store_->at(id); }

// ---- Primitives ----------------------------------------------------------------------------------------

const Primitive* Drawing::find(PrimitiveId id) const {
  if (id < 1 || id > lastId_) { return nullptr; }
  const Slot& place = slot(id);
  return place.there ? &place.primitive : nullptr;
}

void Drawing::refuseUnusable(const Primitive& primitive) const {
  if (!isFinite(primitive.geometry) || !std::isfinite(primitive.width)) {
    throw RefusedChange("A " + std::string(kindName(primitive.geometry)) +
                        " with a coordinate that is not a finite number cannot be drawn.");
  }
  if (layer(primitive.layer) == nullptr) {
    throw RefusedChange("There is no layer with the number " + std::to_string(primitive.layer) + ".");
  }
}

PrimitiveId Drawing::add(Primitive primitive) {
  refuseUnusable(primitive);
  makeRoomToNote();
  const PrimitiveId id = lastId_ + 1;
  put(id, std::move(primitive));
  note(PrimitiveChange{id, nullptr});
  return id;
}

void Drawing::remove(PrimitiveId id) {
  if (find(id) == nullptr) { return; }
  makeRoomToNote();
  auto removed = std::make_unique<Primitive>();
  *removed = take(id);
  note(PrimitiveChange{id, std::move(removed)});
}

void Drawing::replace(PrimitiveId id, Primitive primitive) {
  refuseUnusable(primitive);
  makeRoomToNote();
  const bool selected = slot(id).selected;
  auto before = std::make_unique<Primitive>();
  makeRoomFor(id, primitive);
  *before = take(id);
  put(id, std::move(primitive));
  if (selected) { select(id); }
  note(PrimitiveChange{id, std::move(before)});
}

// After this, putting the primitive there cannot fail half-way.
void Drawing::makeRoomFor(PrimitiveId id, const Primitive& primitive) {
  store_->reach(id);
  makeRoom(layerMembers_[static_cast<size_t>(primitive.layer)]);
  if (primitive.group != 0) { makeRoom(groups_[static_cast<size_t>(primitive.group) - 1].members); }
  makeRoom(unindexed_);
}

void Drawing::put(PrimitiveId id, Primitive&& primitive) {
  makeRoomFor(id, primitive);
  lastId_ = std::max(lastId_, id);
  Slot& place = slot(id);
  place.primitive = std::move(primitive);
  place.there = true;
  std::vector<PrimitiveId>& layerList = layerMembers_[static_cast<size_t>(place.primitive.layer)];
  place.layerPosition = static_cast<uint32_t>(layerList.size());
  layerList.push_back(id);
  if (place.primitive.group != 0) {
    std::vector<PrimitiveId>& members = groups_[static_cast<size_t>(place.primitive.group) - 1].members;
    place.groupPosition = static_cast<uint32_t>(members.size());
    members.push_back(id);
  }
  unindexed_.push_back(id);
  ++count_;
  if (listener_ != nullptr) { listener_->primitiveAdded(id, place.primitive); }
}

Primitive Drawing::take(PrimitiveId id) {
  Slot& place = slot(id);
  unindex(id, place);
  deselect(id);
  removeAt(layerMembers_[static_cast<size_t>(place.primitive.layer)], place.layerPosition,
           [this](PrimitiveId moved) -> uint32_t& { return slot(moved).layerPosition; });
  if (place.primitive.group != 0) {
    removeAt(groups_[static_cast<size_t>(place.primitive.group) - 1].members, place.groupPosition,
             [this](PrimitiveId moved) -> uint32_t& { return slot(moved).groupPosition; });
  }
  place.there = false;
  --count_;
  if (listener_ != nullptr) { listener_->primitiveRemoved(id); }
  return std::move(place.primitive);
}

// ---- Layers ----------------------------------------------------------------------------------------------

const Layer* Drawing::layer(int index) const {
  if (index < 0 || index >= layerCount()) { return nullptr; }
  const std::optional<Layer>& found = layers_[static_cast<size_t>(index)];
  return found ? &*found : nullptr;
}

int Drawing::layerNamed(std::string_view name) const {
  for (int index = 0; index < layerCount(); ++index) {
    const Layer* candidate = layer(index);
    if (candidate != nullptr && candidate->name == name) { return index; }
  }
  return -1;
}

int Drawing::addLayer(Layer layer) {
  const int existing = layerNamed(layer.name);
  if (existing >= 0) { return existing; }
  makeRoomToNote();
  const auto freePlace = std::find(layers_.begin(), layers_.end(), std::nullopt);
  const int index = static_cast<int>(freePlace - layers_.begin());
  if (freePlace == layers_.end()) {
    makeRoom(layerMembers_);
    layers_.emplace_back();
    layerMembers_.emplace_back();
  }
  layers_[static_cast<size_t>(index)] = std::move(layer);
  note(LayerChange{index, std::nullopt});
  return index;
}

void Drawing::changeLayer(int index, Layer layer) {
  makeRoomToNote();
  LayerChange change{index, std::move(layer)};
  swapLayer(change);
  note(std::move(change));
}

void Drawing::removeLayer(int index) {
  if (layer(index) == nullptr) { return; }
  beginStep("Delete layer");
  for (const PrimitiveId id : onLayer(index)) { remove(id); }
  if (currentLayer_ == index) { setCurrentLayer(0); }
  if (index != 0) {
    makeRoomToNote();
    LayerChange change{index, std::nullopt};
    swapLayer(change);
    note(std::move(change));
  }
  endStep();
}

std::vector<PrimitiveId> Drawing::onLayer(int index) const {
  std::vector<PrimitiveId> ids = layerMembers_.at(static_cast<size_t>(index));
  std::sort(ids.begin(), ids.end());
  return ids;
}

void Drawing::setCurrentLayer(int index) {
  if (layer(index) == nullptr || index == currentLayer_) { return; }
  changePlain({parameters_, sheet_, index});
}

// ---- Groups ------------------------------------------------------------------------------------------------

std::string_view Drawing::keptParent(std::string_view parent) {
  const auto kept = parents_.find(parent);
  return kept != parents_.end() ? *kept : *parents_.emplace(parent).first;
}

GroupId Drawing::addGroup(std::string_view parent, std::string_view name) {
  makeRoomToNote();
  makeRoom(groups_);
  const GroupId id = lastGroup() + 1;
  Group group{id, keptParent(parent), std::string(name), {}};
  groupsByName_[groupKey(parent, name)].push_back(id);
  groups_.push_back(std::move(group));
  note(GroupChange{id, false, {}, {}});
  return id;
}

void Drawing::renameGroup(GroupId group, std::string_view parent, std::string_view name) {
  makeRoomToNote();
  GroupChange change{group, true, keptParent(parent), std::string(name)};
  swapGroup(change);
  note(std::move(change));
}

void Drawing::nameGroup(GroupId id) { groupsByName_[groupKey(group(id).parent, group(id).name)].push_back(id); }

void Drawing::unnameGroup(GroupId id) {
  const auto entry = groupsByName_.find(groupKey(group(id).parent, group(id).name));
  std::erase(entry->second, id);
  if (entry->second.empty()) { groupsByName_.erase(entry); }
}

template <class Wanted>
GroupId Drawing::newestNamed(const std::string& key, const Wanted& wanted) const {
  const auto entry = groupsByName_.find(key);
  if (entry == groupsByName_.end()) { return 0; }
  GroupId newest = 0;
  for (const GroupId id : entry->second) {
    if (!group(id).members.empty() && wanted(group(id))) { newest = std::max(newest, id); }
  }
  return newest;
}

GroupId Drawing::newestGroup(std::string_view parent, std::string_view name) const {
  return newestNamed(groupKey(parent, name), [parent](const Group& group) { return group.parent == parent; });
}

GroupId Drawing::newestGroup(std::string_view parentAndName) const {
  return newestNamed(std::string(parentAndName), [](const Group&) { return true; });
}

std::vector<PrimitiveId> Drawing::membersOf(GroupId group) const {
  std::vector<PrimitiveId> ids = this->group(group).members;
  std::sort(ids.begin(), ids.end());
  return ids;
}

// ---- Selection -----------------------------------------------------------------------------------------------

void Drawing::select(PrimitiveId id) {
  if (find(id) == nullptr || slot(id).selected) { return; }
  selected_.push_back(id);
  slot(id).selected = true;
  slot(id).selectionPosition = static_cast<uint32_t>(selected_.size()) - 1;
}

void Drawing::deselect(PrimitiveId id) {
  if (find(id) == nullptr || !slot(id).selected) { return; }
  slot(id).selected = false;
  removeAt(selected_, slot(id).selectionPosition,
           [this](PrimitiveId moved) -> uint32_t& { return slot(moved).selectionPosition; });
}

void Drawing::clearSelection() {
  for (const PrimitiveId id : selected_) { slot(id).selected = false; }
  selected_.clear();
}

bool Drawing::isSelected(PrimitiveId id) const { return find(id) != nullptr && slot(id).selected; }

std::vector<PrimitiveId> Drawing::selection() const {
  std::vector<PrimitiveId> ids = selected_;
  std::sort(ids.begin(), ids.end());
  return ids;
}

// ---- Looking ---------------------------------------------------------------------------------------------------

void Drawing::unindex(PrimitiveId id, Slot& place) {
  if (!place.indexed) { return; }
  index_.remove(bounds(place.primitive), id);
  place.indexed = false;
}

// New and changed primitives enter the tree when something is looked for, so that drawing costs nothing
// here; many, at once or by and by, are packed anew. That walks the drawing, but seldom enough.
void Drawing::flushIndex() const {
  if (unindexed_.empty()) { return; }
  if (index_.insertedSincePacked() + unindexed_.size() > static_cast<size_t>(lastId_) / 2) {
    std::vector<SpatialIndex::Entry> entries;
    entries.reserve(count_);
    forEach([&](PrimitiveId id, const Primitive& primitive) {
      entries.emplace_back(bounds(primitive), id);
      slot(id).indexed = true;
      noteIndexed(primitive.geometry);
    });
    index_.rebuild(entries);
  } else {
    for (const PrimitiveId id : unindexed_) {
      Slot& place = slot(id);
      if (!place.there || place.indexed) { continue; }
      index_.insert(bounds(place.primitive), id);
      place.indexed = true;
      noteIndexed(place.primitive.geometry);
    }
  }
  unindexed_.clear();
}

// A symbol's bounds follow from its definition and from those of the symbols in it.
void Drawing::noteIndexed(const Geometry& geometry) const {
  const Symbol* placed = std::get_if<Symbol>(&geometry);
  if (placed == nullptr || !indexedSymbols_.insert(placed->name).second) { return; }
  const SymbolDefinition* definition = symbol(placed->name);
  if (definition == nullptr) { return; }
  for (const Primitive& part : definition->parts) { noteIndexed(part.geometry); }
}

std::vector<PrimitiveId> Drawing::inBox(const Box& box) const {
  flushIndex();
  std::vector<PrimitiveId> ids;
  index_.query(box, [&ids](PrimitiveId id) { ids.push_back(id); });
  std::sort(ids.begin(), ids.end());
  return ids;
}

// Boxes that double, from about as far as primitives lie apart: what is found in one is nearer than all beyond it.
PrimitiveId Drawing::nearest(Point p, double reach, const Filter& filter) const {
  flushIndex();
  for (double near = index_.spacing();; near *= 2.0) {
    const bool all = !(near < reach) || near <= 0.0;
    const PrimitiveId found = nearestWithin(p, all ? reach : near, filter);
    if (found != 0 || all) { return found; }
  }
}

PrimitiveId Drawing::nearestWithin(Point p, double reach, const Filter& filter) const {
  Box around;
  around.add(p);
  PrimitiveId best = 0;
  double bestDistance = reach;
  bool bestIsSymbol = false;
  // Of all that passes through the point the newest counts: points come printed with eight decimals.
  const double onPoint = 1e-8 + 1e-12 * std::max(std::fabs(p.x), std::fabs(p.y));
  index_.query(around.grownBy(reach), [&](PrimitiveId id) {
    const Primitive& primitive = *find(id);
    if (!filter(id, primitive)) { return; }
    const double distance = distanceTo(primitive, p);
    const double away = distance <= onPoint ? 0.0 : distance;
    const bool symbol = std::holds_alternative<Symbol>(primitive.geometry);
    // Written so that a distance that is no number, of a line too long to measure, never counts.
    const bool nearer = away < bestDistance || (away == bestDistance && (symbol == bestIsSymbol ? id > best : symbol));
    if (!nearer) { return; }
    best = id;
    bestDistance = away;
    bestIsSymbol = symbol;
  });
  return best;
}

Box Drawing::extents() const {
  Box box;
  forEach([&](PrimitiveId, const Primitive& primitive) { box.add(bounds(primitive)); });
  return box;
}

namespace {

Transform symbolPlacing(const Symbol& symbol, const SymbolDefinition& definition, const Parameters& parameters) {
  const double size = symbol.scale * (definition.paperSize ? parameters.paperMillimetre() : 1.0 / parameters.unit());
  return symbolPlacement(symbol, size);
}

// The two extension lines and the dimension line.
std::array<Segment, 3> dimensionLines(const Dimension& dimension) {
  const bool level = dimension.kind == DimensionKind::kHorizontal;
  const auto onLine = [&](Point p) { return level ? Point{p.x, dimension.at.y} : Point{dimension.at.x, p.y}; };
  const Point from = onLine(dimension.p1);
  const Point to = onLine(dimension.p2);
  return {{{dimension.p1, from}, {from, to}, {to, dimension.p2}}};
}

Box arrowBounds(const Arrow& arrow, const Parameters& parameters) {
  Box box;
  box.add(arrow.p1);
  box.add(arrow.p2);
  return box.grownBy(arrow.width / 20.0 * parameters.paperMillimetre());
}

}  // namespace

Box Drawing::bounds(const Primitive& primitive) const {
  struct Bounds {
    const Drawing& drawing;
    Box operator()(const Line& line) const {
      Box box;
      box.add(line.a);
      box.add(line.b);
      return box;
    }
    Box operator()(const Arc& arc) const {
      Box box = arcBounds(arc);
      box.add(arc.centre);  // a pick at the centre finds it
      return box;
    }
    Box operator()(const Text& text) const { return textBounds(text, drawing.parameters_); }
    Box operator()(const Arrow& arrow) const { return arrowBounds(arrow, drawing.parameters_); }
    Box operator()(const Symbol& symbol) const {
      Box box;
      box.add(symbol.at);
      const SymbolDefinition* definition = drawing.symbol(symbol.name);
      if (definition == nullptr) { return box; }
      const Transform placing = symbolPlacing(symbol, *definition, drawing.parameters_);
      for (const Primitive& part : definition->parts) {
        const Box inner = std::visit(*this, part.geometry);
        for (const Point corner :
             {inner.low, inner.high, Point{inner.low.x, inner.high.y}, Point{inner.high.x, inner.low.y}}) {
          box.add(placing(corner));
        }
      }
      return box;
    }
    Box operator()(const Dimension& dimension) const {
      Box box;
      box.add(dimension.at);
      for (const Segment& line : dimensionLines(dimension)) {
        box.add(line.a);
        box.add(line.b);
      }
      return box.grownBy(5.0 * drawing.parameters_.paperMillimetre());  // text and arrows
    }
  };
  return std::visit(Bounds{*this}, primitive.geometry);
}

double Drawing::distanceTo(const Primitive& primitive, Point p) const {
  struct Distance {
    const Drawing& drawing;
    const Primitive& primitive;
    Point p;
    [[nodiscard]] double toBox() const {
      const Box box = drawing.bounds(primitive);
      return distance(p, {std::clamp(p.x, box.low.x, box.high.x), std::clamp(p.y, box.low.y, box.high.y)});
    }
    double operator()(const Line& line) const { return distance(p, nearestOnSegment(line, p)); }
    double operator()(const Arc& arc) const {
      return std::min(distance(p, nearestOnArc(arc, p)), distance(p, arc.centre));
    }
    double operator()(const Text&) const { return toBox(); }
    double operator()(const Arrow& arrow) const { return distance(p, nearestOnSegment({arrow.p1, arrow.p2}, p)); }
    double operator()(const Symbol&) const { return toBox(); }
    double operator()(const Dimension& dimension) const {
      double least = distance(p, dimension.at);
      for (const Segment& line : dimensionLines(dimension)) {
        least = std::min(least, distance(p, nearestOnSegment(line, p)));
      }
      return least;
    }
  };
  return std::visit(Distance{*this, primitive, p}, primitive.geometry);
}

// ---- Parameters, sheet, symbols ------------------------------------------------------------------------------

namespace {

// Which rule the parameters break; empty where they break none.
std::string brokenRule(const Parameters& parameters) {
  const auto& all = parameters.all;
  const bool finite = std::all_of(all.begin(), all.end(), [](double p) { return std::isfinite(p); });
  const auto isFlag = [](double p) { return p == 0.0 || p == 1.0; };
  if (!finite || parameters.scale() <= 0.0 || parameters.unit() <= 0.0 ||
      !std::isnormal(parameters.paperMillimetre())) {
    return "A drawing's scale and unit must be finite numbers above 0.";
  }
  if (!isFlag(all[6]) || all[5] != all[6]) { return "A drawing's coordinate system is 0 or 1."; }
  if (!isFlag(all[9])) { return "A drawing's orientation is 0 or 1."; }
  constexpr double kMostAreaUnits = 255.0;
  if (all[10] < 0.0 || all[10] > kMostAreaUnits || all[10] != std::floor(all[10])) {
    return "A drawing's area unit is a whole number from 0 to 255.";
  }
  return "";
}

}  // namespace

void Drawing::setParameters(const Parameters& parameters) {
  if (parameters == parameters_) { return; }
  if (const std::string rule = brokenRule(parameters); !rule.empty()) { throw RefusedChange(rule); }
  changePlain({parameters, sheet_, currentLayer_});
}

void Drawing::setSheet(std::optional<Sheet> sheet) { changePlain({parameters_, std::move(sheet), currentLayer_}); }

void Drawing::changePlain(PlainState state) {
  makeRoomToNote();
  PlainChange change{std::make_unique<PlainState>(std::move(state))};
  swapPlain(change);
  note(std::move(change));
}

const SymbolDefinition* Drawing::symbol(std::string_view name) const {
  const auto entry = symbols_.find(name);
  return entry == symbols_.end() ? nullptr : &entry->second;
}

void Drawing::addSymbol(SymbolDefinition symbol) {
  makeRoomToNote();
  std::string name = symbol.name;
  SymbolChange change{std::move(name), std::make_unique<SymbolDefinition>(std::move(symbol))};
  swapSymbol(change);
  note(std::move(change));
}

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

void Drawing::loadGroupOf(PrimitiveId id, GroupId group) {
  Slot& place = slot(id);
  std::vector<PrimitiveId>& members = groups_.at(static_cast<size_t>(group) - 1).members;
  place.primitive.group = group;
  place.groupPosition = static_cast<uint32_t>(members.size());
  members.push_back(id);
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
  ++revision_;
}

// ---- Journal ---------------------------------------------------------------------------------------------------

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
  done_.push_back(std::move(open_));
  open_ = std::move(goingOn);
  undone_.clear();
}

void Drawing::endStep() {
  if (--stepDepth_ > 0 || open_.changes.empty()) { return; }
  done_.push_back(std::move(open_));
  undone_.clear();
}

void Drawing::swapState(Change& change) {
  struct Swapper {
    Drawing& drawing;
    void operator()(PrimitiveChange& change) const { drawing.swapPrimitive(change); }
    void operator()(LayerChange& change) const { drawing.swapLayer(change); }
    void operator()(GroupChange& change) const { drawing.swapGroup(change); }
    void operator()(PlainChange& change) const { drawing.swapPlain(change); }
    void operator()(SymbolChange& change) const { drawing.swapSymbol(change); }
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
  while (layers_.size() > 1 && !layers_.back()) {
    layers_.pop_back();
    layerMembers_.pop_back();
  }
}

void Drawing::swapGroup(GroupChange& change) {
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
