#include <cmath>
#include <memory>

#include "frame/host/core_services.h"
#include "host/drawing/drawing.h"
#include "host/macros/command.h"
#include "host/macros/handlers.h"
#include "host/macros/macro_drawing.h"
#include "host/window/drawing_window.h"

namespace brevan::macroHandlers {

namespace {

// What a source makes of the file that the first argument names.
template <class Made>
Made opened(MacroRun& run, Made (DrawingSource::*make)(const std::string& path)) {
  DrawingSource* source = run.window.services().drawings;
  if (source == nullptr) { throw MacroError(run.column(0), "no drawing files can be read here"); }
  try {
    return (source->*make)(run.text(0));
  } catch (const HostFailure& failure) { throw MacroError(run.column(0), failure.what()); }
}

// "W1200" of "\\Windows\\W1200.DRG".
std::string baseName(const std::string& path) {
  const size_t slash = path.find_last_of("\\/");
  const std::string file = slash == std::string::npos ? path : path.substr(slash + 1);
  return file.substr(0, file.find_last_of('.'));
}

// A symbol placed is a pattern of its own, named for the symbol.
PrimitiveId place(DrawingWindow& window, Symbol symbol) {
  Drawing& drawing = window.drawing();
  const std::string name = symbol.name;
  const GroupId group = drawing.addGroup(window.openGroup().parent(), name);
  const PrimitiveId id = drawInStyle(window, std::move(symbol));
  takeSymbol(window, name);  // last: a placing that is refused leaves none behind
  Primitive grouped = *drawing.find(id);
  grouped.group = group;
  drawing.replace(id, std::move(grouped));
  return id;
}

}  // namespace

void loadSymbolFile(MacroRun& run) {
  const std::shared_ptr<const Drawing> file = opened(run, &DrawingSource::symbolFile);
  const bool paperSize = run.text(1) == "Y";
  const bool everywhere = run.text(2) == "Y" && run.window.services().symbols != nullptr;
  if (file->symbols().empty()) { throw MacroError(run.column(0), "\"" + run.text(0) + "\" holds no symbols"); }
  MacroState& state = run.window.macroState();
  const LoadedSymbols loading{file, run.text(0), paperSize, everywhere};
  if (!everywhere && state.loaded == loading) { return; }  // its symbols are the window's already
  state.loaded = loading;
  SymbolTable& table = everywhere ? *run.window.services().symbols : state.symbols;
  state.panel.clear();
  for (const auto& [name, definition] : file->symbols()) {
    SymbolDefinition loaded = definition;
    loaded.paperSize = paperSize;
    loaded.upright = paperSize && run.text(2) == "Y";
    loaded.file = baseName(run.text(0));
    table.insert_or_assign(name, std::move(loaded));
    state.panel.push_back(name);
  }
}

void addSymbol(MacroRun& run) {
  const std::string& name = run.text(0);
  if (!hasSymbol(run.window, name)) { throw MacroError(run.column(0), "there is no symbol \"" + name + "\""); }
  if (run.number(2) <= 0.0) { throw MacroError(run.column(2), "a symbol's scale is above 0"); }
  place(run.window, Symbol{name, run.point(1), run.number(2), run.number(3)});
}

// Which symbol, when the file holds several, and then its positions until the user has enough.
void symbolPanel(MacroRun& run) {
  const std::vector<std::string>& panel = run.window.macroState().panel;
  if (panel.empty()) { throw MacroError(1, "SYMBOL expects a symbol file to be loaded first"); }
  run.window.requireDrawable();
  size_t chosen = 0;
  if (panel.size() > 1) {
    std::string items;
    for (const std::string& name : panel) { items += (items.empty() ? "" : ",") + name; }
    const int item = run.window.gsSubMenu(items);
    if (item == 0) { return; }
    chosen = static_cast<size_t>(item) - 1;
  }
  const std::string name = panel.at(chosen);
  Point at;
  while (run.window.gsGetPointFromUser("Indicate the position of the symbol (space bar to stop)", at.x, at.y) == 0) {
    place(run.window, Symbol{name, at, 1.0, run.window.cursor().lockedAngle().value_or(0.0)});
  }
}

namespace {

// Another drawing's contents on their way into this one.
class Insertion {
 public:
  Insertion(MacroRun& run, const Drawing& source)
      : run_(run),
        source_(source),
        drawing_(run.window.drawing()),
        groups_(static_cast<size_t>(source.lastGroup()) + 1, 0),
        layers_(static_cast<size_t>(source.layerCount()), -1) {
    const Parameters& from = source.parameters();
    const Parameters& onto = drawing_.parameters();
    const bool turned = from.orientation() != onto.orientation();
    turnedOnPaper_ = from.turnedOnPaper() != onto.turnedOnPaper();
    const Point unit = unitOfDegrees(run.number(3) + (turned ? 180.0 : 0.0));
    const double factor = run.number(2) * from.unit() / onto.unit();
    placing_ = Transform::shift(run.point(1)) * Transform::rotation({}, unit.x, unit.y) *
               Transform::scaling({}, factor, factor);
  }

  PrimitiveId insert(const Primitive& primitive) {
    Primitive copy = primitive;
    copy.layer = layer(primitive.layer);
    copy.group = primitive.group == 0 ? 0 : group(primitive.group);
    copy.geometry = transformed(primitive.geometry, placing_);
    if (const auto* symbol = std::get_if<Symbol>(&primitive.geometry)) {
      // Its size is millimetres, whatever the drawing's unit.
      std::get<Symbol>(copy.geometry).scale = symbol->scale * run_.number(2);
    }
    if (turnedOnPaper_) { standUp(copy.geometry); }
    return drawing_.add(std::move(copy));
  }

 private:
  // Angles of texts and upright symbols are measured on paper, which is turned by half a turn here.
  void standUp(Geometry& geometry) const {
    constexpr double kHalfTurn = 180.0;
    if (auto* text = std::get_if<Text>(&geometry)) {
      text->angle = std::fmod(text->angle + kHalfTurn * 10.0, 3600.0);
    } else if (auto* symbol = std::get_if<Symbol>(&geometry)) {
      const SymbolDefinition* definition = source_.symbol(symbol->name);
      if (definition != nullptr && definition->upright) {
        symbol->rotation = std::fmod(symbol->rotation + kHalfTurn, 360.0);
      }
    }
  }
  int layer(int index) {
    int& target = layers_.at(static_cast<size_t>(index));
    if (target < 0) { target = drawing_.addLayer(*source_.layer(index)); }
    if (drawing_.layer(target)->locked) {
      throw MacroError(run_.column(0), "the layer \"" + drawing_.layer(target)->name + "\" is locked");
    }
    return target;
  }
  GroupId group(GroupId id) {
    GroupId& target = groups_.at(static_cast<size_t>(id));
    const Group& group = source_.group(id);
    if (target == 0) { target = drawing_.addGroup(group.parent, group.name); }
    return target;
  }

  MacroRun& run_;
  const Drawing& source_;
  Drawing& drawing_;
  std::vector<GroupId> groups_;
  std::vector<int> layers_;
  bool turnedOnPaper_ = false;  // against the paper that it comes from
  Transform placing_;
};

}  // namespace

void insertDrawing(MacroRun& run) {
  if (run.number(2) <= 0.0) { throw MacroError(run.column(2), "a drawing is inserted at a scale above 0"); }
  const auto [source, notRead] = opened(run, &DrawingSource::open);
  Drawing& drawing = run.window.drawing();
  Insertion insertion(run, source);
  std::vector<PrimitiveId> inserted;
  source.forEach([&](PrimitiveId, const Primitive& primitive) { inserted.push_back(insertion.insert(primitive)); });
  for (const auto& [name, definition] : source.symbols()) {
    if (drawing.symbol(name) == nullptr) { drawing.addSymbol(definition); }
  }
  drawing.clearSelection();
  for (const PrimitiveId id : inserted) { drawing.select(id); }
  if (!notRead.empty()) { run.window.gsSetStatus("Not read from the file: " + notRead); }
}

}  // namespace brevan::macroHandlers
