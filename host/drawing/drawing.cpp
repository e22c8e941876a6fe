#include "host/drawing/drawing.h"

#include <utility>

#include "host/drawing/drawing_store.h"

// Primitives, layers, groups, selection, parameters. Looking is in drawing_looks.cpp, the journal in
// drawing_journal.cpp.
namespace brevan {

namespace {

std::string groupKey(std::string_view parent, std::string_view name) {
  std::string key(parent);
  key += ' ';
  key += name;
  return key;
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
    if (members.size() == 1) { logGroup(place.primitive.group); }
  }
  unindexed_.push_back(id);
  taken_ += weight(place.primitive.geometry);
  ++count_;
  touch(id);
  if (listener_ != nullptr) { listener_->primitiveAdded(id, place.primitive); }
}

Primitive Drawing::take(PrimitiveId id) {
  Slot& place = slot(id);
  unindex(id, place);
  deselect(id);
  removeAt(layerMembers_[static_cast<size_t>(place.primitive.layer)], place.layerPosition,
           [this](PrimitiveId moved) -> uint32_t& { return slot(moved).layerPosition; });
  if (place.primitive.group != 0) {
    std::vector<PrimitiveId>& members = groups_[static_cast<size_t>(place.primitive.group) - 1].members;
    removeAt(members, place.groupPosition,
             [this](PrimitiveId moved) -> uint32_t& { return slot(moved).groupPosition; });
    if (members.empty()) { logGroup(place.primitive.group); }
  }
  place.there = false;
  --count_;
  touch(id);
  if (listener_ != nullptr) { listener_->primitiveRemoved(id); }
  return std::move(place.primitive);
}

// ---- Layers ----------------------------------------------------------------------------------------------

const Layer* Drawing::layer(int index) const {
  if (index < 0 || index >= layerCount()) { return nullptr; }
  const std::optional<Layer>& found = layers_[static_cast<size_t>(index)];
  return found ? &*found : nullptr;
}

int Drawing::layerNamed(std::string_view name) const { return layerNames_.named(layers_, name); }

int Drawing::addLayer(Layer layer) {
  const int existing = layerNamed(layer.name);
  if (existing >= 0) { return existing; }
  makeRoomToNote();
  const size_t freePlace = layerNames_.freePlace(layers_);
  layerNames_.forget();  // where anything below fails
  if (freePlace == layers_.size()) {
    makeRoom(layerMembers_);
    layers_.emplace_back();
    layerMembers_.emplace_back();
  }
  layers_[freePlace] = std::move(layer);
  const int index = static_cast<int>(freePlace);
  note(LayerChange{index, std::nullopt});
  layerNames_.added(layers_);
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
  touchGroup(id);
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
  if (!loading_) { symbolCounts_.countWith(symbols_, symbol); }
  std::string name = symbol.name;
  taken_ += symbol.parts.size();
  SymbolChange change{std::move(name), std::make_unique<SymbolDefinition>(std::move(symbol))};
  swapSymbol(change);
  note(std::move(change));
}

size_t Drawing::symbolParts(std::string_view name) const {
  if (symbolCounts_.empty()) { symbolCounts_.countAll(symbols_); }
  return symbolCounts_.parts(name);
}

void Drawing::endLoading() {
  loading_ = false;
  symbolCounts_.countAll(symbols_);
  size_t placed = 0;
  forEach([&](PrimitiveId, const Primitive& primitive) {
    const Symbol* symbol = std::get_if<Symbol>(&primitive.geometry);
    placed += symbol == nullptr ? 0 : symbolCounts_.parts(symbol->name);
    if (placed > SymbolCounts::kMostPlacedParts) {
      throw RefusedChange("The symbols placed up to \"" + symbol->name + "\" come to more than " +
                          std::to_string(SymbolCounts::kMostPlacedParts) + " parts.");
    }
  });
}

}  // namespace brevan
