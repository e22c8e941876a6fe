#include "host/files/dxf/read/styles.h"

#include <algorithm>

#include "host/drawing/line_types.h"
#include "host/drawing/pens.h"

namespace brevan {

namespace {

constexpr size_t kMostLayersNamed = 1 << 18;

int squaredDistance(Colour a, Colour b) {
  int sum = 0;
  for (const unsigned shift : {0U, 8U, 16U}) {
    const int away = static_cast<int>(a >> shift & 0xFFU) - static_cast<int>(b >> shift & 0xFFU);
    sum += away * away;
  }
  return sum;
}

int nearestPen(Colour colour) {
  int nearest = 1;
  for (int pen = 2; pen <= kPens; ++pen) {
    const int away = squaredDistance(penColour(pen, Ground::kPaper), colour);
    if (away < squaredDistance(penColour(nearest, Ground::kPaper), colour)) { nearest = pen; }
  }
  return nearest;
}

// By layer, by block, or tenths of a millimetre.
double widthOf(int lineweight) {
  constexpr int kByLayerWeight = -1;
  constexpr int kByBlockWeight = -2;
  if (lineweight == kByLayerWeight) { return DxfLook::kByLayer; }
  if (lineweight == kByBlockWeight) { return -1.0; }
  return lineweight <= 0 ? 0.0 : std::min(lineweight, 211) / 10.0;
}

struct NameRow {
  std::string_view name;
  int number;
};
// Names of other programs for patterns that drawings have.
constexpr std::array<NameRow, 6> kOtherNames = {
    {{"HIDDEN", 21}, {"HIDDEN2", 21}, {"HIDDENX2", 2}, {"CENTERX2", 4}, {"PHANTOMX2", 5}, {"DASHDOTX2", 10}}};

int numberedLineType(std::string_view name) {
  constexpr std::string_view kPrefix = "LINETYPE_";
  for (int number = 1; number <= kPatternedLineTypes; ++number) {
    if (equalWithoutCase(lineType(number).name, name)) { return number; }
  }
  for (const NameRow& row : kOtherNames) {
    if (equalWithoutCase(row.name, name)) { return row.number; }
  }
  if (name.size() <= kPrefix.size() || !equalWithoutCase(name.substr(0, kPrefix.size()), kPrefix)) { return 0; }
  const auto number = numberText::parseInteger(name.substr(kPrefix.size()));
  return number && *number > 0 && *number < 1'000'000 ? static_cast<int>(*number) : 0;
}

// A pattern of another program's making counts by its dashes and dots.
int patternedLineType(const DxfRecord& record) {
  int dashes = 0;
  int dots = 0;
  double longest = 0.0;
  for (const DxfTag& tag : record.tags()) {
    if (tag.code == 49) { longest = std::max(longest, std::abs(record.realOf(tag))); }
  }
  for (const DxfTag& tag : record.tags()) {
    if (tag.code != 49) { continue; }
    const double length = record.realOf(tag);
    if (length > 0.1 * longest) { ++dashes; }
    if (length >= 0.0 && length <= 0.1 * longest) { ++dots; }
  }
  if (dashes + dots == 0) { return 1; }
  if (dashes == 0) { return 7; }
  constexpr std::array<int, 4> kLongDashAndDots = {2, 4, 5, 6};
  return kLongDashAndDots[static_cast<size_t>(std::min(dots, 3))];
}

struct UnitRow {
  int code;
  double millimetres;
};
constexpr std::array<UnitRow, 14> kUnits = {{{1, 25.4},
                                             {2, 304.8},
                                             {3, 1609344.0},
                                             {4, 1.0},
                                             {5, 10.0},
                                             {6, 1000.0},
                                             {7, 1e6},
                                             {8, 0.0000254},
                                             {9, 0.0254},
                                             {10, 914.4},
                                             {13, 0.001},
                                             {14, 100.0},
                                             {15, 10000.0},
                                             {16, 100000.0}}};

std::string fontOfFile(std::string_view file) {
  constexpr std::array<std::string_view, 3> kNames = {"Arial", "Times New Roman", "Courier New"};
  constexpr std::array<std::string_view, 3> kStarts = {"arial", "times", "cour"};
  for (size_t row = 0; row < kStarts.size(); ++row) {
    if (equalWithoutCase(file.substr(0, kStarts[row].size()), kStarts[row])) { return std::string(kNames[row]); }
  }
  return "Arial";
}

}  // namespace

int penOfColour(int index, long trueColour) {
  const int pen = penOfIndex(index);
  if (trueColour < 0) { return pen; }
  const auto colour = static_cast<Colour>(trueColour & 0xFFFFFF);
  return penColour(pen, Ground::kPaper) == colour || indexedColour(index) == colour ? pen : nearestPen(colour);
}

double millimetresOfUnit(int code) {
  const auto* const row =
      std::find_if(kUnits.begin(), kUnits.end(), [code](const UnitRow& unit) { return unit.code == code; });
  return row == kUnits.end() ? 0.0 : row->millimetres;
}

DxfStyles::DxfStyles() { layerOf("0"); }

int DxfStyles::lineTypeOf(std::string_view name) {
  if (name == lastLineTypeName_) { return lastLineType_; }
  const std::string read = nameRead(name);
  int number = DxfLook::kByLayer;
  if (equalWithoutCase(read, "BYBLOCK")) {
    number = DxfLook::kByBlock;
  } else if (!equalWithoutCase(read, "BYLAYER") && !read.empty()) {
    const auto known = lineTypes_.find(read);
    number = known != lineTypes_.end() ? known->second : std::max(numberedLineType(read), 1);
  }
  lastLineTypeName_ = name;
  lastLineType_ = number;
  return number;
}

void DxfStyles::addLineType(const DxfRecord& record) {
  const std::string name = nameRead(record.name(2));
  const int number = numberedLineType(name);
  lineTypes_.emplace(name, number > 0 ? number : patternedLineType(record));
  lookHead_ = 0;
  lastLineTypeName_.clear();
}

void DxfStyles::addLayer(const DxfRecord& record) {
  constexpr int kFrozen = 1;
  constexpr int kLocked = 4;
  Layer& read = layers_[static_cast<size_t>(layerOf(record.name(2)))];
  const int flags = record.integer(70);
  const int colour = record.integer(62, 7);
  read.visible = colour >= 0 && (flags & kFrozen) == 0;
  read.locked = (flags & kLocked) != 0;
  read.pen = penOfColour(std::abs(colour), record.has(420) ? record.integer(420) : -1);
  read.linetype = record.has(6) ? lineTypeOf(record.name(6)) : 1;
  if (read.linetype == DxfLook::kByLayer || read.linetype == DxfLook::kByBlock) { read.linetype = 1; }
  read.width = widthOf(record.integer(370, -3));
  if (read.width < 0.0 || read.width == DxfLook::kByLayer) { read.width = 0.0; }
}

void DxfStyles::addFont(const DxfRecord& record) {
  DxfFont font;
  font.font = fontOfFile(record.name(3));
  bool named = false;
  for (const DxfTag& tag : record.tags()) {
    if (tag.code == 1001) { named = trimmed(tag.value) == "ACAD"; }
    if (tag.code == 1000 && named) { font.font = nameRead(tag.value); }
  }
  font.height = record.real(40);
  font.widthFactor = record.real(41, 1.0);
  fonts_.insert_or_assign(nameRead(record.name(2)), std::move(font));
}

namespace {
// The variables of a dimension style that measure heads.
constexpr int kDimensionScale = 40;
constexpr int kArrowSize = 41;
}  // namespace

void DxfStyles::addHeadSize(const DxfRecord& record) {
  const DxfHeadSize heads = {record.real(kDimensionScale, heads_.scale), record.real(kArrowSize, heads_.size)};
  headSizes_.insert_or_assign(nameRead(record.name(2)), heads);
}

// A leader that differs from its style lists variable (1070) and value (1040) after "DSTYLE".
DxfHeadSize DxfStyles::headSizeOf(const DxfRecord& leader) const {
  const auto style = headSizes_.find(nameRead(leader.name(3)));
  DxfHeadSize heads = style == headSizes_.end() ? heads_ : style->second;
  bool differs = false;
  int variable = 0;
  for (const DxfTag& tag : leader.tags()) {
    if (tag.code == 1000) { differs = trimmed(tag.value) == "DSTYLE"; }
    if (tag.code == 1070) { variable = leader.integerOf(tag); }
    if (tag.code != 1040 || !differs) { continue; }
    if (variable == kDimensionScale) { heads.scale = leader.realOf(tag); }
    if (variable == kArrowSize) { heads.size = leader.realOf(tag); }
  }
  return heads;
}

int DxfStyles::layerOf(std::string_view name) {
  if (lastLayer_ >= 0 && name == lastLayerName_) { return lastLayer_; }
  std::string read = nameRead(trimmed(name));
  if (read.empty()) { read = "0"; }
  const auto [entry, isNew] = layerIndex_.emplace(read, static_cast<int>(layers_.size()));
  if (isNew) {
    if (layers_.size() >= kMostLayersNamed) {
      throw DxfRefusal("the file names more than " + std::to_string(kMostLayersNamed) + " layers");
    }
    layers_.push_back(Layer{std::move(read)});
  }
  lastLayerName_ = name;
  lastLayer_ = entry->second;
  return lastLayer_;
}

const DxfFont& DxfStyles::fontOf(std::string_view name) const {
  const auto found = fonts_.find(nameRead(name.empty() ? "Standard" : name));
  return found == fonts_.end() ? plainFont_ : found->second;
}

namespace {

// Whether all that says how an entity looks stands in the record's head.
bool looksByHead(const DxfRecord& record) {
  constexpr std::array<int, 5> kLookCodes = {6, 8, 62, 370, 420};
  return std::none_of(kLookCodes.begin(), kLookCodes.end(), [&](int code) { return record.hasOutsideHead(code); });
}

}  // namespace

const DxfLook& DxfStyles::lookOf(const DxfRecord& record) {
  const bool byHead = looksByHead(record);
  if (!byHead || record.headNumber() != lookHead_) { look_ = lookRead(record); }
  lookHead_ = byHead ? record.headNumber() : 0;
  return look_;
}

DxfLook DxfStyles::lookRead(const DxfRecord& record) {
  DxfLook look;
  look.layer = layerOf(record.text(8));
  if (record.has(62)) {
    const int index = record.integer(62);
    look.pen = index == DxfLook::kByBlock || index == DxfLook::kByLayer ? index : penOfColour(index, -1);
  }
  if (record.has(420)) { look.pen = penOfColour(record.integer(62, 7), record.integer(420)); }
  if (record.has(6)) { look.linetype = lineTypeOf(record.name(6)); }
  if (record.has(370)) { look.width = widthOf(record.integer(370)); }
  return look;
}

Primitive DxfStyles::styled(const DxfLook& look) const {
  const Layer& layer = layers_[static_cast<size_t>(look.layer)];
  Primitive primitive;
  primitive.layer = look.layer;
  primitive.pen = look.pen == DxfLook::kByBlock ? penOfColour(7, -1) : look.pen;
  primitive.linetype = look.linetype == DxfLook::kByLayer ? layer.linetype : std::max(look.linetype, 1);
  primitive.width = look.width == DxfLook::kByLayer ? layer.width : std::max(look.width, 0.0);
  return primitive;
}

bool DxfStyles::looksAlikeAsSymbol(const DxfOpenLook& open, const DxfLook& placement) const {
  const Layer& own = layers_.front();
  const Layer& layer = layers_[static_cast<size_t>(placement.layer)];
  const Primitive placed = styled(placement);
  const bool penDiffers = open.penToLayer && placement.pen != DxfLook::kByLayer;
  const bool lineTypeDiffers =
      (open.lineTypeToLayer && layer.linetype != own.linetype) || (open.lineTypeToBlock && placed.linetype != 1);
  const bool widthDiffers =
      (open.widthToLayer && layer.width != own.width) || (open.widthToBlock && placed.width != 0.0);
  return !penDiffers && !lineTypeDiffers && !widthDiffers;
}

}  // namespace brevan
