#include "host/drawing/boundary_map.h"

#include <algorithm>

// What the map knows of the drawing; how boundaries are followed is in boundary_walk.cpp.
namespace brevan {

namespace {

std::optional<Curve> curveIn(const Primitive& primitive) {
  std::optional<Curve> curve;
  if (const auto* line = std::get_if<Line>(&primitive.geometry)) { curve = *line; }
  if (const auto* arc = std::get_if<Arc>(&primitive.geometry)) { curve = *arc; }
  return curve && lengthOf(*curve) > BoundaryMap::kJoin ? curve : std::nullopt;
}

}  // namespace

BoundaryMap::BoundaryMap(Drawing& drawing) : drawing_(drawing) { drawing_.setListener(this); }

BoundaryMap::~BoundaryMap() { drawing_.setListener(nullptr); }

void BoundaryMap::beginCopying() {
  copying_ = true;
  for (const int source : sources_) { entries_[static_cast<size_t>(source)].copies.push_back(copies_.size()); }
  copies_.emplace_back();
}

void BoundaryMap::primitiveAdded(PrimitiveId id, const Primitive& primitive) {
  if (stale_ || !curveIn(primitive)) { return; }
  if (copying_) {
    copies_.back().ids.push_back(id);
    copyOf_[id] = copies_.size() - 1;
    return;
  }
  added_.push_back(id);
}

void BoundaryMap::primitiveRemoved(PrimitiveId id) {
  if (stale_ || copyOf_.erase(id) > 0) { return; }
  const auto entry = entryOf_.find(id);
  if (entry == entryOf_.end()) { return; }
  removed_.push_back(entry->second);
  entryOf_.erase(entry);
}

// A layer that is gone hides nothing.
bool BoundaryMap::hiddenOtherwise() {
  std::vector<bool> seen(static_cast<size_t>(drawing_.layerCount()), true);
  for (size_t at = 0; at < seen.size(); ++at) {
    const Layer* layer = drawing_.layer(static_cast<int>(at));
    seen[at] = layer == nullptr || layer->visible;
  }
  const size_t before = std::min(seen.size(), layersSeen_.size());
  bool changed = false;
  for (size_t at = 0; at < std::max(seen.size(), layersSeen_.size()); ++at) {
    const bool now = at >= seen.size() || seen[at];
    const bool then = at >= before || layersSeen_[at];
    changed = changed || now != then;
  }
  layersSeen_ = std::move(seen);
  return changed;
}

// Many changes are worth a new start; few are worked in where they lie.
void BoundaryMap::update() {
  constexpr size_t kFew = 1000;
  const bool hidden = hiddenOtherwise();
  if (stale_ || hidden || added_.size() + removed_.size() > std::max(kFew, entries_.size() / 2)) {
    rebuild();
    return;
  }
  for (size_t at = 0; at < removed_.size(); ++at) { leave(removed_[at]); }
  removed_.clear();
  for (size_t at = 0; at < added_.size(); ++at) {
    const PrimitiveId id = added_[at];
    const Primitive* primitive = drawing_.find(id);
    if (primitive == nullptr || entryOf_.contains(id) || !drawing_.layer(primitive->layer)->visible) { continue; }
    enter(id);
    if (!entryOf_.contains(id)) { continue; }
    const int entry = entryOf_.at(id);
    forgetJunctions(entries_[static_cast<size_t>(entry)].box);
    index_.insert(entries_[static_cast<size_t>(entry)].box, entry);
  }
  added_.clear();
}

void BoundaryMap::rebuild() {
  entries_.clear();
  freeEntries_.clear();
  entryOf_.clear();
  copies_.clear();
  copyOf_.clear();
  sources_.clear();
  added_.clear();
  removed_.clear();
  extents_ = Box{};
  stale_ = false;
  drawing_.forEach([this](PrimitiveId id, const Primitive& primitive) {
    if (drawing_.layer(primitive.layer)->visible) { enter(id); }
  });
  std::vector<SpatialIndex::Entry> boxes;
  boxes.reserve(entries_.size());
  double total = 0.0;
  for (size_t at = 0; at < entries_.size(); ++at) {
    boxes.emplace_back(entries_[at].box, static_cast<int>(at));
    total += lengthOf(entries_[at].curve);
  }
  index_.rebuild(boxes);
  stride_ = entries_.empty() ? 1.0 : total / static_cast<double>(entries_.size());
}

void BoundaryMap::enter(PrimitiveId id) {
  auto curve = curveIn(*drawing_.find(id));
  if (!curve) { return; }
  Entry entry;
  entry.id = id;
  entry.box = boundsOf(*curve);
  entry.curve = std::move(*curve);
  extents_.add(entry.box);
  int place = static_cast<int>(entries_.size());
  if (freeEntries_.empty()) {
    entries_.push_back(std::move(entry));
  } else {
    place = freeEntries_.back();
    freeEntries_.pop_back();
    entries_[static_cast<size_t>(place)] = std::move(entry);
  }
  entryOf_[id] = place;
}

// What repeated a boundary of this curve bounds something of its own from now on.
void BoundaryMap::leave(int entry) {
  Entry& gone = entries_[static_cast<size_t>(entry)];
  index_.remove(gone.box, entry);
  forgetJunctions(gone.box);
  for (const size_t copies : gone.copies) {
    for (const PrimitiveId id : copies_[copies].ids) {
      if (copyOf_.erase(id) > 0) { added_.push_back(id); }
    }
    copies_[copies].ids.clear();
  }
  gone = Entry{};
  freeEntries_.push_back(entry);
}

void BoundaryMap::forgetJunctions(const Box& box) {
  index_.query(box.grownBy(kJoin), [this](int near) { entries_[static_cast<size_t>(near)].known = false; });
}

// ---- Junctions -----------------------------------------------------------------------------------------

namespace {

// A place where a curve meets another, or ends.
struct Meeting {
  double t = 0.0;
  Point at;
  bool ownEnd = false;
  bool isEnd = false;  // of either curve
  int other = -1;
  double otherT = 0.0;

  // Which of the places that are one junction gives its coordinates: ends first, the same for all curves.
  [[nodiscard]] bool before(const Meeting& than) const {
    if (isEnd != than.isEnd) { return isEnd; }
    return at.x != than.at.x ? at.x < than.at.x : at.y < than.at.y;
  }
};

bool isEndOf(const Curve& curve, Point p) { return !isClosed(curve) && (p == startOf(curve) || p == endOf(curve)); }

void addMeetings(const Curve& curve, const Curve& other, int otherIndex, std::vector<Meeting>& meetings) {
  for (const Crossing& crossing : crossings(curve, other, BoundaryMap::kJoin)) {
    const bool isEnd = isEndOf(curve, crossing.at) || isEndOf(other, crossing.at);
    meetings.push_back({crossing.first, crossing.at, false, isEnd, otherIndex, crossing.second});
  }
}

// Around a circle, just before the start is the start.
void closeRound(const Curve& curve, std::vector<Meeting>& meetings) {
  if (!isClosed(curve)) { return; }
  const double nearStart = 1.0 - 2.0 * BoundaryMap::kJoin / lengthOf(curve);
  for (Meeting& meeting : meetings) {
    if (meeting.t >= nearStart) { meeting.t -= 1.0; }
  }
}

}  // namespace

BoundaryMap::Entry& BoundaryMap::known(int curve) {
  Entry& entry = entries_[static_cast<size_t>(curve)];
  if (!entry.known) { workOut(curve); }
  return entry;
}

void BoundaryMap::workOut(int curve) {
  Entry& entry = entries_[static_cast<size_t>(curve)];
  constexpr double kSameMeeting = 1e-6;
  std::vector<Meeting> meetings;
  meetings.reserve(32);
  if (!isClosed(entry.curve)) {
    meetings.push_back({0.0, startOf(entry.curve), true, true});
    meetings.push_back({1.0, endOf(entry.curve), true, true});
  }
  index_.query(entry.box.grownBy(kJoin), [&](int near) {
    if (near != curve) { addMeetings(entry.curve, entries_[static_cast<size_t>(near)].curve, near, meetings); }
  });
  closeRound(entry.curve, meetings);
  std::sort(meetings.begin(), meetings.end(),
            [](const Meeting& a, const Meeting& b) { return a.t != b.t ? a.t < b.t : a.other < b.other; });
  entry.nodes.clear();
  entry.partners.clear();
  for (size_t first = 0; first < meetings.size();) {
    size_t last = first;
    size_t best = first;
    double t = meetings[first].t;
    while (last < meetings.size() && distance(meetings[last].at, meetings[first].at) <= 2.0 * kJoin) {
      if (meetings[last].before(meetings[best])) { best = last; }
      if (meetings[last].ownEnd) { t = meetings[last].t; }
      ++last;
    }
    Node node{t, meetings[best].at, static_cast<uint32_t>(entry.partners.size()), 0};
    for (size_t at = first; at < last; ++at) {
      const Meeting& meeting = meetings[at];
      // An end on the other curve and the crossing there are one meeting.
      const auto known =
          std::find_if(entry.partners.begin() + node.firstPartner, entry.partners.end(), [&](const Partner& partner) {
            return partner.curve == meeting.other && std::abs(partner.t - meeting.otherT) < kSameMeeting;
          });
      if (meeting.other >= 0 && known == entry.partners.end()) {
        entry.partners.push_back({meeting.other, meeting.otherT});
      }
    }
    node.partners = static_cast<uint32_t>(entry.partners.size()) - node.firstPartner;
    entry.nodes.push_back(node);
    first = last;
  }
  entry.known = true;
}

int BoundaryMap::nodeAt(int curve, double t) {
  const std::vector<Node>& nodes = known(curve).nodes;
  if (nodes.empty()) { return -1; }
  const auto after =
      std::lower_bound(nodes.begin(), nodes.end(), t, [](const Node& node, double at) { return node.t < at; });
  int best = static_cast<int>(std::min<std::ptrdiff_t>(after - nodes.begin(), std::ssize(nodes) - 1));
  const auto away = [&](int node) {
    const double apart = std::abs(nodes[static_cast<size_t>(node)].t - t);
    return isClosed(entries_[static_cast<size_t>(curve)].curve) ? std::min(apart, 1.0 - apart) : apart;
  };
  for (const int other : {best - 1, 0}) {
    if (other >= 0 && away(other) < away(best)) { best = other; }
  }
  return best;
}

// All curves that meet at a node, each with its own node there.
void BoundaryMap::gatherJunction(NodeRef node) {
  junction_.assign(1, node);
  for (size_t at = 0; at < junction_.size(); ++at) {
    const NodeRef from = junction_[at];
    const Entry& entry = known(from.curve);
    const Node& here = entry.nodes[static_cast<size_t>(from.node)];
    for (uint32_t partner = 0; partner < here.partners; ++partner) {
      const Partner& other = entry.partners[here.firstPartner + partner];
      const NodeRef ref{other.curve, nodeAt(other.curve, other.t)};
      if (ref.node >= 0 && std::find(junction_.begin(), junction_.end(), ref) == junction_.end()) {
        junction_.push_back(ref);
      }
    }
  }
}

}  // namespace brevan
