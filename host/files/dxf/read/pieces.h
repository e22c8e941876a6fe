#pragma once

#include <map>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "host/drawing/primitive.h"
#include "host/files/dxf/read/styles.h"

namespace brevan {

// A block placed by its name, perhaps many times in rows and columns.
struct DxfInsert {
  std::string block;  // Windows-1252
  Point at;
  double scaleX = 1.0;
  double scaleY = 1.0;
  double rotation = 0.0;  // degrees
  bool flipped = false;   // seen from below: mirrored about the y axis after all else
  long long columns = 1;
  long long rows = 1;
  double columnSpacing = 0.0;
  double rowSpacing = 0.0;
  bool isPicture = false;  // of a dimension: never a symbol
};

// What an entity comes to. Heights of texts and heads of arrows are tenths of the space's own lengths.
struct DxfPiece {
  DxfLook look;
  std::variant<Geometry, DxfInsert> what;
};

// Takes what entities come to, in the drawing itself or in a block.
class DxfSink {
 public:
  DxfSink() = default;
  DxfSink(const DxfSink&) = delete;
  DxfSink& operator=(const DxfSink&) = delete;
  virtual ~DxfSink() = default;
  virtual void take(const DxfLook& look, Geometry&& geometry) = 0;
  virtual void insert(const DxfLook& look, DxfInsert insert) = 0;
  // In the place of the one primitive taken last.
  virtual void replaceLast(const DxfLook& look, Geometry geometry) = 0;
};

// Counts what of a file is not read, or not as it stands.
class DxfReport {
 public:
  void note(std::string_view what, size_t count = 1) {
    if (count == 0) { return; }
    constexpr size_t kMostKinds = 100;
    constexpr size_t kLongest = 64;
    const std::string_view shown = what.substr(0, kLongest);
    counts_[counts_.size() < kMostKinds || counts_.contains(shown) ? std::string(shown) : "others"] += count;
  }
  [[nodiscard]] std::string text() const {
    std::string all;
    for (const auto& [what, count] : counts_) {
      all += (all.empty() ? "" : ", ") + std::to_string(count) + " " + messageText(what);
    }
    return all;
  }

 private:
  std::map<std::string, size_t, std::less<>> counts_;
};

// A text where the transform puts it, its height and width as the transform stretches them. A mirror image moves the
// text but never its letters, so its justification changes sides. A transform that flattens it gives the height 0.
Text placedText(Text text, const Transform& transform);
Arrow placedArrow(Arrow arrow, const Transform& transform);
// Its bent sides straightened where the transform would bend them otherwise.
Hatch placedHatch(const Hatch& hatch, const Transform& transform);
// An arc that the transform makes part of an ellipse, as a chain of points.
std::vector<Point> arcChain(const Arc& arc, const Transform& transform);

// Calls `use` with the geometry under any affine transform: with one piece, or with a line for each side of the chain
// where an arc is none any more. Heads of arrows and patterns grow with the area.
template <class Use>
void forEachPlaced(const Geometry& geometry, const Transform& transform, const Use& use) {
  if (const Text* text = std::get_if<Text>(&geometry)) {
    use(Geometry(placedText(*text, transform)));
  } else if (const Arrow* arrow = std::get_if<Arrow>(&geometry)) {
    use(Geometry(placedArrow(*arrow, transform)));
  } else if (const Hatch* hatch = std::get_if<Hatch>(&geometry)) {
    use(Geometry(placedHatch(*hatch, transform)));
  } else if (canTransform(geometry, transform)) {
    use(transformed(geometry, transform));
  } else {
    const std::vector<Point> chain = arcChain(std::get<Arc>(geometry), transform);
    for (size_t n = 1; n < chain.size(); ++n) { use(Geometry(Line{chain[n - 1], chain[n]})); }
  }
}

}  // namespace brevan
