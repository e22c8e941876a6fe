#include "mech/placed_parts.h"

#include <algorithm>
#include <limits>
#include <map>
#include <optional>
#include <string_view>

#include "frame/drafting/group_counter.h"
#include "frame/host/core_services.h"
#include "frame/host/number_text.h"
#include "frame/names.h"
#include "frame/records.h"
#include "mech/definition_kinds.h"
#include "mech/drawing_scan.h"
#include "mech/labelled_holes.h"
#include "mech/part_drawer.h"
#include "mech/part_shape.h"

namespace ardenix::mech {

namespace {

// How a kind's groups are called: what stands between the definition's name, or nothing, and the number.
struct PartGroups {
  std::string_view category;
  std::string_view section;
  std::string_view noun;
  std::string_view side;
  std::string_view plan{};  // of views from above; where there are such, parts can also be repeated
  [[nodiscard]] bool bearDefinition() const { return side.starts_with('_'); }
  [[nodiscard]] bool haveCopies() const { return !plan.empty(); }
};

constexpr PartGroups kPartGroups[] = {
    {"BOLTS", "BOLTS", "Bolt", "_S", "_P"}, {"SCREWS", "CAPSCREWS", "Socket screw", "SS", "SP"},
    {"NUTS", "NUTS", "Nut", "_S", "_P"},    {"RIVETS", "RIVETS", "Rivet", "RS", "RP"},
    {"SHAFTS", "SHAFTS", "Shaft", "_"},     {"GEARS", "GEARS", "Spur gear", "GR"},
    {"LINKS", "LINKS", "Link", "LK"},       {"FLANGES", "FLANGES", "Flange", "FL"}};

const PartGroups* groupsOf(std::string_view category) {
  const auto* found = std::ranges::find(kPartGroups, category, &PartGroups::category);
  return found == std::end(kPartGroups) ? nullptr : found;
}

struct DrawnGroup {
  const PartGroups* kind = nullptr;
  std::string name;
  PartShape shape;
  std::vector<Point> outline;
  [[nodiscard]] bool fromAbove() const;
};

// A point of the current line or arc, for a leader to end on.
Point pointOnCurrent(CCadWindow& view) {
  Point a;
  Point b;
  Point c;
  int sense = 0;
  if (view.gsGetLine(a.x, a.y, b.x, b.y) != 0) { return middle(a, b); }
  view.gsGetArc(a.x, a.y, b.x, b.y, c.x, c.y, sense);
  return a;
}

// How axes are drawn; a style of nothing where a library draws all lines alike.
LineStyle axisStyle(const DefinitionStore& store) {
  const LineStyles styles = lineStyles(store);
  const bool apart = styles.centre.pen != styles.solid.pen || styles.centre.linetype != styles.solid.linetype;
  return apart ? styles.centre : LineStyle{.pen = -1};
}

// In the order in which they were drawn.
std::vector<DrawnGroup> drawnGroups(CCadWindow& view, const LineStyle& axis) {
  std::map<int, DrawnGroup> groups;
  forEachVisible(view, kAnyPrimitive, [&] {
    const int number = view.gsGetGroup();
    const auto [place, added] = groups.try_emplace(number);
    DrawnGroup& group = place->second;
    if (added && number != 0) {
      std::string_view parent;
      std::string_view name;
      view.gsGetObject(parent, name);
      group = {groupsOf(parent), std::string(name), {}, {}};
    }
    if (group.kind != nullptr && group.shape.add(view, axis)) { group.outline.push_back(pointOnCurrent(view)); }
  });
  std::vector<DrawnGroup> parts;
  parts.reserve(groups.size());
  for (auto& [number, group] : groups) {
    if (group.kind != nullptr) { parts.push_back(std::move(group)); }
  }
  return parts;
}

// ---- Which definition it is -----------------------------------------------------------------------------------

std::string_view withoutNumber(std::string_view name) {
  return name.substr(0, name.find_last_not_of("0123456789") + 1);
}

bool DrawnGroup::fromAbove() const { return kind->haveCopies() && withoutNumber(name).ends_with(kind->plan); }

// Whether two names differ in their number only, which nothing cut.
bool sameSeries(std::string_view name, std::string_view other) {
  return name.size() < kGroupNameLimit && other.size() < kGroupNameLimit && withoutNumber(name) == withoutNumber(other);
}

// Whether groups of a prefix are called so: a number follows, and what is too long is cut.
bool numbersUnder(std::string_view name, std::string_view prefix) {
  std::string cleaned(prefix);
  cleanName(cleaned, true);
  return name.starts_with(std::string_view(cleaned).substr(0, kGroupNameLimit)) &&
         (cleaned.size() >= name.size() || withoutNumber(name) == cleaned);
}

// Another name behind names, without the words that they begin with: DN80 PN10/PN16.
std::string both(const std::string& names, std::string_view other) {
  const auto differ = std::ranges::mismatch(names, other).in2;
  const size_t alike = static_cast<size_t>(differ - other.begin());
  const size_t word = other.substr(0, alike).rfind(' ');
  return names + '/' + std::string(other.substr(word == std::string_view::npos ? 0 : word + 1));
}

// The libraries of the kinds met, each definition drawn once where nobody sees it.
class DrawnLibrary {
 public:
  DrawnLibrary(CCadWindow& view, const DefinitionStore& store, CMDIFrameWnd& mainFrame)
      : view_(view), store_(store), mainFrame_(mainFrame), axis_(axisStyle(store)) {}

  // The definitions of which a group can show a view: several where they differ in what is not seen from above, and
  // none where none fits.
  std::vector<std::string> definitionsOf(const DrawnGroup& group) {
    return group.kind->bearDefinition() ? byName(group) : byShape(group);
  }

 private:
  struct Drawn {
    std::string name;
    PartShape shape;
  };
  std::vector<std::string> byName(const DrawnGroup& group) {
    const auto [names, added] = names_.try_emplace(group.kind->section);
    if (added) { names->second = store_.names(group.kind->section); }
    for (const std::string& name : names->second) {
      const auto fits = [&](std::string_view ending) {
        return !ending.empty() && numbersUnder(group.name, name + std::string(ending));
      };
      if (fits(group.kind->side) || fits(group.kind->plan)) { return {name}; }
    }
    return {};
  }
  // Those that have the strokes; of a view that shows all of a part those that have the fewest others. What is of one
  // shape has its names together.
  std::vector<std::string> byShape(const DrawnGroup& group) {
    std::vector<Drawn> fitting;
    int fewest = std::numeric_limits<int>::max();
    for (const Drawn& definition : library(*group.kind)) {
      if (!group.shape.isPartOf(definition.shape)) { continue; }
      fewest = std::min(fewest, definition.shape.strokes());
      const auto same = std::ranges::find(fitting, definition.shape, &Drawn::shape);
      if (same == fitting.end()) {
        fitting.push_back(definition);
      } else {
        same->name = both(same->name, definition.name);
      }
    }
    std::vector<std::string> names;
    for (Drawn& one : fitting) {
      const bool likely = group.fromAbove() || (one.shape.strokes() == fewest && names.empty());
      if (likely) { names.push_back(std::move(one.name)); }
    }
    return names;
  }
  const std::vector<Drawn>& library(const PartGroups& kind) {
    const auto [place, added] = libraries_.try_emplace(kind.section);
    for (int n = 1; added; ++n) {
      const auto record = store_.record(kind.section, n);
      if (!record) { break; }
      place->second.push_back({recordName(*record), sketched(kind, *record)});
    }
    return place->second;
  }
  [[nodiscard]] PartShape sketched(const PartGroups& kind, const std::string& record) const {
    PartShape shape;
    const auto unseen = mainFrame_.makeUnseenView();
    DrawingParms parms;
    view_.gsGetDrawingParms(parms);
    unseen->gsSetDrawingParms(parms);
    const auto drawer = definitionKind(kind.section).drawer(*unseen, store_);
    drawer->takeRecord(record);
    try {
      drawer->sketch();
    } catch (const HostFailure&) { return {}; }  // values that make no part
    forEachVisible(*unseen, kAnyPrimitive, [&] { shape.add(*unseen, axis_); });
    return shape;
  }

  CCadWindow& view_;
  const DefinitionStore& store_;
  CMDIFrameWnd& mainFrame_;
  LineStyle axis_;
  std::map<std::string_view, std::vector<std::string>> names_;
  std::map<std::string_view, std::vector<Drawn>> libraries_;
};

// ---- What a list says of it -----------------------------------------------------------------------------------

// A pattern is a text in which a star stands for any characters, and so for none.
bool matches(std::string_view text, std::string_view pattern) {
  const size_t star = pattern.find('*');
  if (star == std::string_view::npos) { return text == pattern; }
  if (!text.starts_with(pattern.substr(0, star))) { return false; }
  for (size_t from = star; from <= text.size(); ++from) {
    if (matches(text.substr(from), pattern.substr(star + 1))) { return true; }
  }
  return false;
}

// Rows List1, List2, ... of the kind's section: a pattern of names, what such parts are called, and their standard. The
// first that fits counts.
std::string describe(const DefinitionStore& store, const PartGroups& kind, std::string_view name) {
  for (int n = 1;; ++n) {
    const std::string row = store.file().ReadString(kind.section, numberText::format("List%d", n), "");
    if (row.empty()) { return std::string(kind.noun); }
    if (!matches(name, textField(row, 1))) { continue; }
    const std::string standard = textField(row, 3);
    return textField(row, 2) + (standard.empty() ? "" : ' ' + standard);
  }
}

// ---- Counting -------------------------------------------------------------------------------------------------

// Parts of a definition, or of a shape that no definition has.
struct Counted {
  const PartGroups* kind;
  std::string name;
  std::string description;
  std::optional<PartShape> shape;
  std::vector<Point> outline;
  int fromSide = 0;
  int fromAbove = 0;
};

// What names begin with: M24x... for all lengths of M24.
std::string commonBeginning(const std::vector<std::string>& names) {
  std::string_view common = names.front();
  for (const std::string& name : names) {
    const auto alike = std::ranges::mismatch(common, name).in1 - common.begin();
    common = common.substr(0, static_cast<size_t>(alike));
  }
  return std::string(common) + "...";
}

class PartCount {
 public:
  PartCount(CCadWindow& view, const DefinitionStore& store, CMDIFrameWnd& mainFrame)
      : store_(store), library_(view, store, mainFrame) {}

  void add(DrawnGroup group) {
    const int copies = group.kind->haveCopies() ? group.shape.copies() : 1;
    group.shape = group.shape.oneOf(copies);
    std::vector<std::string> names = definitionsOf(group);
    if (names.size() > 1) {
      unsure_.push_back({std::move(group), std::move(names), copies});
    } else {
      count(group, names.empty() ? ofShape(group) : ofDefinition(group, names.front()), copies);
    }
  }
  // Views from above that fit several definitions show the one that is drawn from the side, too.
  [[nodiscard]] std::vector<Counted> sorted() {
    for (const Unsure& one : unsure_) { count(one.group, ofOneAmong(one), one.copies); }
    std::ranges::stable_sort(counted_, [](const Counted& a, const Counted& b) {
      return a.kind != b.kind ? a.kind < b.kind : comesBefore(a.name, b.name);
    });
    return std::move(counted_);
  }

 private:
  struct Unsure {
    DrawnGroup group;
    std::vector<std::string> names;
    int copies;
  };

  static void count(const DrawnGroup& group, Counted& counted, int copies) {
    (group.fromAbove() ? counted.fromAbove : counted.fromSide) += copies;
  }
  Counted& ofDefinition(const DrawnGroup& group, const std::string& name) {
    return ofDefinition(group, name, describe(store_, *group.kind, name));
  }
  Counted& ofDefinition(const DrawnGroup& group, const std::string& name, std::string description) {
    const auto found = std::ranges::find_if(
        counted_, [&](const Counted& other) { return other.kind == group.kind && other.name == name; });
    if (found != counted_.end()) { return *found; }
    return counted_.emplace_back(Counted{group.kind, name, std::move(description), std::nullopt, group.outline});
  }
  Counted& ofShape(const DrawnGroup& group) {
    const auto found = std::ranges::find_if(
        counted_, [&](const Counted& other) { return other.kind == group.kind && other.shape == group.shape; });
    if (found != counted_.end()) { return *found; }
    return counted_.emplace_back(
        Counted{group.kind, group.name, std::string(group.kind->noun), group.shape, group.outline});
  }
  Counted& ofOneAmong(const Unsure& one) {
    const auto drawn = std::ranges::find_if(counted_, [&](const Counted& other) {
      return other.kind == one.group.kind && std::ranges::find(one.names, other.name) != one.names.end();
    });
    if (drawn != counted_.end()) { return *drawn; }
    const auto description = [&](const std::string& name) { return describe(store_, *one.group.kind, name); };
    const std::string first = description(one.names.front());
    const bool all =
        std::ranges::all_of(one.names, [&](const std::string& name) { return description(name) == first; });
    return ofDefinition(one.group, commonBeginning(one.names), all ? first : std::string(one.group.kind->noun));
  }
  // Groups of one name, but for their number, or of one shape are asked for once.
  std::vector<std::string> definitionsOf(const DrawnGroup& group) {
    const auto alike = [&](const DrawnGroup& other) {
      if (other.kind != group.kind) { return false; }
      return group.kind->bearDefinition() ? other.name == group.name || sameSeries(other.name, group.name)
                                          : other.shape == group.shape && other.fromAbove() == group.fromAbove();
    };
    const auto known = std::ranges::find_if(known_, [&](const auto& one) { return alike(one.first); });
    if (known != known_.end()) { return known->second; }
    return known_.emplace_back(group, library_.definitionsOf(group)).second;
  }

  const DefinitionStore& store_;
  DrawnLibrary library_;
  std::vector<std::pair<DrawnGroup, std::vector<std::string>>> known_;
  std::vector<Counted> counted_;
  std::vector<Unsure> unsure_;
};

}  // namespace

std::vector<PlacedPart> placedParts(CCadWindow& view, const DefinitionStore& store, CMDIFrameWnd& mainFrame) {
  PartCount count(view, store, mainFrame);
  for (DrawnGroup& group : drawnGroups(view, axisStyle(store))) { count.add(std::move(group)); }
  std::vector<PlacedPart> parts;
  for (const Counted& counted : count.sorted()) {
    parts.push_back(
        {counted.name, counted.description, std::max(counted.fromSide, counted.fromAbove), counted.outline});
  }
  return parts;
}

}  // namespace ardenix::mech
