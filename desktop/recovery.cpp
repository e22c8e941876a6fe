#include "desktop/recovery.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "frame/host/number_text.h"
#include "host/core/safe_file.h"
#include "host/core/text_encoding.h"
#include "host/files/drawing_files.h"

namespace brevan {

namespace fs = std::filesystem;

namespace {

// "5f0c33a19be21d04-2-Drawing1.drg"
std::string sessionOf(const fs::path& file) {
  const std::string name = file.filename().string();
  return name.substr(0, name.find('-'));
}

std::vector<fs::path> drawingsIn(const fs::path& folder) {
  std::vector<fs::path> files;
  std::error_code ignored;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder, ignored)) {
    if (entry.path().extension() == ".drg") { files.push_back(entry.path()); }
  }
  std::ranges::sort(files);
  return files;
}

std::string nameOf(const fs::path& file) {
  const std::string stem = file.stem().string();
  const size_t number = stem.find('-');
  const size_t name = number == std::string::npos ? number : stem.find('-', number + 1);
  return toWindows1252(name == std::string::npos ? stem : stem.substr(name + 1)).value_or("Drawing");
}

// ---- Points given ------------------------------------------------------------------------------------------------

std::string pointsOf(const std::string& drawing) { return drawing + ".points"; }

void removeDrawing(const std::string& file) {
  std::error_code ignored;
  fs::remove(pointsOf(file), ignored);
  DrgUpkeep::remove(file);
}

std::vector<Point> pointsIn(const std::string& file) {
  std::vector<Point> points;
  std::ifstream in(file);
  for (std::string x, y; in >> x >> y;) {
    const auto across = numberText::parseDouble(x);
    const auto up = numberText::parseDouble(y);
    if (across && up) { points.push_back({*across, *up}); }
  }
  return points;
}

// A cross at each, two millimetres wide on paper, and the way from one to the next.
void drawGiven(Drawing& drawing, std::span<const Point> given) {
  Primitive line;
  line.layer = drawing.addLayer(Layer{"Points given"});
  const auto draw = [&](Point from, Point to) {
    line.geometry = Line{from, to};
    drawing.add(line);
  };
  const double arm = drawing.parameters().paperMillimetre();
  for (size_t at = 0; at < given.size(); ++at) {
    const Point here = given[at];
    draw({here.x - arm, here.y}, {here.x + arm, here.y});
    draw({here.x, here.y - arm}, {here.x, here.y + arm});
    if (at > 0 && !(given[at - 1] == here)) { draw(given[at - 1], here); }
  }
}

}  // namespace

Recovery::Recovery(std::string folder) : folder_(std::move(folder)) {}

std::string Recovery::newPath(const std::string& name) {
  std::string plain = toUtf8(name);
  for (char& c : plain) {
    if (c == '/' || c == '\\') { c = '_'; }
  }
  if (lock_ == nullptr) { lock_ = std::make_unique<SessionLock>(folder_); }
  return folder_ + '/' + lock_->session() + '-' + std::to_string(++files_) + '-' + plain + ".drg";
}

DrgUpkeep& Recovery::started(const std::string& name, Drawing& drawing, const std::string& base) {
  return kept_
      .try_emplace(
          name, [this, name] { return newPath(name); }, drawing, base)
      .first->second;
}

void Recovery::begin(const std::string& name, Drawing& drawing, const std::string& file) {
  drop(name);
  static_cast<void>(started(name, drawing, file));
}

std::string Recovery::keep(const std::string& name, Drawing& drawing, std::span<const Point> given) {
  try {
    fs::create_directories(folder_);
    started(name, drawing, "").keep(drawing);
    keepPoints(name, given);
    return "";
  } catch (const std::exception& failure) { return failure.what(); }
}

// Beside the drawing, which they are no part of.
void Recovery::keepPoints(const std::string& name, std::span<const Point> given) {
  const auto last = points_.find(name);
  if (last != points_.end()) {
    fs::remove(last->second);
    points_.erase(last);
  }
  if (given.empty()) { return; }
  const std::string path = pointsOf(kept_.at(name).path());
  points_.emplace(name, path);
  std::string text;
  for (const Point at : given) { text += numberText::shortest(at.x) + ' ' + numberText::shortest(at.y) + '\n'; }
  saveWhole(path, text);
}

void Recovery::drop(const std::string& name) {
  const auto entry = kept_.find(name);
  if (entry == kept_.end()) { return; }
  const std::string path = entry->second.path();
  kept_.erase(entry);  // closes the file
  if (!path.empty()) { removeDrawing(path); }
  points_.erase(name);
  if (!keepsAny()) { lock_.reset(); }
}

bool Recovery::keeps(const std::string& name) const {
  const auto entry = kept_.find(name);
  return entry != kept_.end() && !entry->second.path().empty();
}

bool Recovery::keepsAny() const {
  return std::ranges::any_of(kept_, [](const auto& kept) { return !kept.second.path().empty(); });
}

std::vector<Recovery::Kept> Recovery::left() const {
  std::vector<Kept> kept;
  for (const fs::path& file : drawingsIn(folder_)) {
    if (!SessionLock::isHeld(folder_, sessionOf(file))) { kept.push_back({file.string(), nameOf(file)}); }
  }
  return kept;
}

void Recovery::remove(const std::string& file) {
  removeDrawing(file);
  const fs::path folder = fs::path(file).parent_path();
  const std::string session = sessionOf(file);
  const std::vector<fs::path> others = drawingsIn(folder);
  if (std::ranges::any_of(others, [&](const fs::path& other) { return sessionOf(other) == session; })) { return; }
  SessionLock::removeLeft(folder.string(), session);
}

Drawing Recovery::read(const std::string& file) {
  DrgUpkeep::settle(file);
  Drawing drawing = readDrawing(file).drawing;
  const std::vector<Point> given = pointsIn(pointsOf(file));
  if (!given.empty()) { drawGiven(drawing, given); }
  return drawing;
}

}  // namespace brevan
