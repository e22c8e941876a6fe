#include "tests/cases/drawn_things.h"

#include <algorithm>
#include <cmath>

#include "frame/host/number_text.h"

namespace {

using Numbers = std::vector<double>;

// Expected files give numbers to four decimals.
constexpr double kSame = 1e-4;
constexpr const char* kThrough = "through";
constexpr std::string_view kKinds[] = {"thing", "line",  "circle", "arc",       "curve",
                                       "text",  "arrow", "symbol", "dimension", "hatch"};
constexpr std::string_view kNames[] = {"pen",      "linetype", "width",  "layer",         "group", "at",    "height",
                                       "angle",    "style",    "font",   "justification", "head",  "scale", "turn",
                                       "mirrored", "visible",  "locked", kThrough,        "from",  "to",    "outlines"};

bool isSame(double a, double b) { return std::fabs(a - b) <= kSame; }
bool areSame(const Numbers& a, const Numbers& b) { return std::equal(a.begin(), a.end(), b.begin(), b.end(), isSame); }

// Adds a kind's own members.
struct OwnMembers {
  DrawnThing& thing;

  template <class... Number>
  void numbers(const char* name, Number... values) const {
    thing.members.push_back({name, "", {static_cast<double>(values)...}});
  }
  void word(const char* name, const std::string& text) const { thing.members.push_back({name, text, {}}); }

  void operator()(const brevan::Line& line) const { numbers("", line.a.x, line.a.y, line.b.x, line.b.y); }
  void operator()(const brevan::Arc& arc) const {
    if (arc.start == arc.end) {
      thing.kind = "circle";
      return numbers("", arc.centre.x, arc.centre.y, brevan::arcRadius(arc));
    }
    const auto& [from, to] = arc.clockwise ? std::tie(arc.end, arc.start) : std::tie(arc.start, arc.end);
    numbers("", from.x, from.y, arc.centre.x, arc.centre.y, to.x, to.y);
  }
  void operator()(const brevan::Text& text) const {
    word("", text.text);
    numbers("at", text.at.x, text.at.y);
    numbers("height", text.height);
    numbers("angle", text.angle);
    numbers("justification", text.justification);
    numbers("style", text.style);
    word("font", text.font);
  }
  void operator()(const brevan::Arrow& arrow) const {
    numbers("", arrow.p1.x, arrow.p1.y, arrow.p2.x, arrow.p2.y);
    numbers("head", arrow.length, arrow.width);
  }
  void operator()(const brevan::Symbol& symbol) const {
    word("", symbol.name);
    numbers("at", symbol.at.x, symbol.at.y);
    numbers("scale", symbol.scale);
    numbers("turn", symbol.rotation);
    numbers("mirrored", symbol.mirrored ? 1.0 : 0.0);
  }
  void operator()(const brevan::Dimension& dimension) const {
    word("", dimension.text);
    numbers("at", dimension.at.x, dimension.at.y);
    numbers("from", dimension.p1.x, dimension.p1.y);
    numbers("to", dimension.p2.x, dimension.p2.y);
  }
  void operator()(const brevan::Hatch& hatch) const {
    word("", hatch.pattern);
    numbers("scale", hatch.scale);
    numbers("angle", hatch.angle);
    numbers("outlines", static_cast<double>(hatch.loops.size()));
    const brevan::Box box = brevan::hatchBounds(hatch);
    numbers("from", box.low.x, box.low.y);
    numbers("to", box.high.x, box.high.y);
  }
};

DrawnThing thingOf(const brevan::Drawing& drawing, const brevan::Primitive& primitive) {
  DrawnThing thing{std::string(brevan::kindName(primitive.geometry)), primitive.geometry, {}};
  const OwnMembers own{thing};
  std::visit(own, primitive.geometry);
  const auto* text = std::get_if<brevan::Text>(&primitive.geometry);
  own.numbers("pen", text == nullptr ? primitive.pen : text->pen);
  own.numbers("linetype", primitive.linetype);
  own.numbers("width", primitive.width);
  const brevan::Layer& layer = *drawing.layer(primitive.layer);
  own.word("layer", layer.name);
  own.numbers("visible", layer.visible ? 1.0 : 0.0);
  own.numbers("locked", layer.locked ? 1.0 : 0.0);
  own.word("group", primitive.group == 0 ? "" : drawing.group(primitive.group).name);
  return thing;
}

bool runsThrough(const DrawnThing& thing, const Numbers& point) {
  const auto* arc = std::get_if<brevan::Arc>(&thing.geometry);
  if (arc == nullptr) { return false; }
  const brevan::Point out = brevan::Point{point.at(0), point.at(1)} - arc->centre;
  return isSame(std::hypot(out.x, out.y), brevan::arcRadius(*arc)) && brevan::arcCovers(*arc, std::atan2(out.y, out.x));
}

bool hasMember(const DrawnThing& thing, const ThingMember& wanted) {
  if (wanted.name == kThrough) { return runsThrough(thing, wanted.numbers); }
  const auto found = std::ranges::find(thing.members, wanted.name, &ThingMember::name);
  if (found == thing.members.end() || found->text != wanted.text) { return false; }
  const Numbers& has = found->numbers;
  if (areSame(has, wanted.numbers)) { return true; }
  return wanted.name.empty() && thing.kind == "line" && areSame({has[2], has[3], has[0], has[1]}, wanted.numbers);
}

}  // namespace

std::string DrawnThing::shown() const {
  std::string line = kind;
  for (const ThingMember& member : members) {
    line += (member.name.empty() ? "" : ' ' + member.name) + (member.numbers.empty() ? " \"" + member.text + '"' : "");
    for (const double number : member.numbers) { line += ' ' + numberText::shortest(std::round(number * 1e4) / 1e4); }
  }
  return line;
}

std::vector<DrawnThing> drawnThings(const brevan::Drawing& drawing) {
  std::vector<DrawnThing> things;
  drawing.forEach(
      [&](brevan::PrimitiveId, const brevan::Primitive& primitive) { things.push_back(thingOf(drawing, primitive)); });
  return things;
}

WantedThing::WantedThing(const brevan::ScriptCursor& cursor, const brevan::Statement& statement) {
  size_t word = 0;
  const auto count = numberText::parseInteger(statement.name());
  if (statement.name() == "no" || count) { wanted_ = static_cast<long>(count.value_or(0)), word = 1; }
  kind_ = cursor.string(statement, word);
  if (std::ranges::find(kKinds, kind_) == std::end(kKinds)) { cursor.fail(statement, "nothing is a \"" + kind_ + '"'); }
  for (++word; word < statement.words.size(); ++word) {
    const bool quoted = statement.words[word].quoted;
    const std::string& text = statement.words[word].text;
    const auto number = quoted ? std::nullopt : numberText::parseDouble(text);
    const bool name = !quoted && !number;
    if (name && std::ranges::find(kNames, text) == std::end(kNames)) { cursor.fail(statement, "no member " + text); }
    if (name || members_.empty()) { members_.push_back({name ? text : "", "", {}}); }
    if (quoted) { members_.back().text = text; }
    if (number) { members_.back().numbers.push_back(*number); }
  }
}

bool WantedThing::matches(const DrawnThing& thing) const {
  const bool curve = kind_ == "curve" && (thing.kind == "arc" || thing.kind == "circle");
  return (kind_ == "thing" || kind_ == thing.kind || curve) &&
         std::ranges::all_of(members_, [&](const ThingMember& wanted) { return hasMember(thing, wanted); });
}

long WantedThing::count(const std::vector<DrawnThing>& things) const {
  return std::ranges::count_if(things, [this](const DrawnThing& thing) { return matches(thing); });
}
