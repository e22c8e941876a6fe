#include "host/files/dxf/write/writer.h"

#include "host/files/dxf/own_notes.h"
#include "host/files/dxf/write/entities.h"
#include "host/files/dxf/write/model.h"
#include "host/files/dxf/write/objects.h"
#include "host/files/dxf/write/tables.h"

namespace brevan {

namespace {

struct BlockFrame {
  DxfHandle record = 0;
  DxfHandle begin = 0;
  DxfHandle end = 0;
  std::string name;
  std::string note{};  // a comment
};

template <class Content>
void writeBlock(DxfTags& tags, const BlockFrame& frame, const Content& content) {
  constexpr int kAnonymous = 1;
  const bool anonymous = frame.name.starts_with("*D");
  tags.text(0, "BLOCK");
  tags.handle(5, frame.begin);
  tags.handle(330, frame.record);
  tags.text(100, "AcDbEntity");
  tags.text(8, "0");
  tags.text(100, "AcDbBlockBegin");
  tags.text(2, frame.name);
  if (!frame.note.empty()) { tags.text(999, frame.note); }
  tags.integer(70, anonymous ? kAnonymous : 0);
  tags.point(10, {});
  tags.text(3, frame.name);
  tags.text(1, "");
  content();
  tags.text(0, "ENDBLK");
  tags.handle(5, frame.end);
  tags.handle(330, frame.record);
  tags.text(100, "AcDbEntity");
  tags.text(8, "0");
  tags.text(100, "AcDbBlockEnd");
}

void writeSymbolBlock(DxfTags& tags, DxfModel& model, const DxfBlock& block) {
  DxfSpace space;
  space.owner = block.record;
  space.paperMillimetre = block.key.realSize ? model.drawing().parameters().scale() : 1.0;
  space.symbol = &block;
  const BlockFrame frame = {block.record, model.nextHandle(), model.nextHandle(), block.name,
                            symbolNote(block.definition)};
  writeBlock(tags, frame, [&] { DxfEntityWriter(model, tags, space).writeSymbolParts(block); });
}

DxfSpace drawingSpace(const DxfModel& model, DxfHandle owner) {
  return {owner, model.drawing().parameters().paperMillimetre(), nullptr, model.turned()};
}

void writeDimensionBlock(DxfTags& tags, DxfModel& model, size_t number) {
  const DxfSpace space = drawingSpace(model, model.dimensionRecord(number));
  const Primitive& dimension = *model.drawing().find(model.dimensions()[number]);
  const BlockFrame frame = {space.owner, model.nextHandle(), model.nextHandle(), "*D" + std::to_string(number + 1)};
  writeBlock(tags, frame, [&] { DxfEntityWriter(model, tags, space).writeDimensionPicture(dimension); });
}

void writeBlocks(DxfTags& tags, DxfModel& model) {
  const auto nothing = [] {};
  tags.text(0, "SECTION");
  tags.text(2, "BLOCKS");
  writeBlock(tags, {kModelRecord, kModelBlock, kModelBlockEnd, "*Model_Space"}, nothing);
  writeBlock(tags, {kPaperRecord, kPaperBlock, kPaperBlockEnd, "*Paper_Space"}, nothing);
  for (const DxfBlock& block : model.blocks()) { writeSymbolBlock(tags, model, block); }
  for (size_t number = 0; number < model.dimensions().size(); ++number) { writeDimensionBlock(tags, model, number); }
  tags.text(0, "ENDSEC");
}

std::vector<DxfEntities> writeEntities(DxfTags& tags, DxfModel& model) {
  std::vector<DxfEntities> entities(static_cast<size_t>(model.drawing().lastId()) + 1);
  DxfEntityWriter writer(model, tags, drawingSpace(model, kModelRecord));
  size_t dimensions = 0;
  tags.text(0, "SECTION");
  tags.text(2, "ENTITIES");
  model.drawing().forEach([&](PrimitiveId id, const Primitive& primitive) {
    const bool isDimension = std::holds_alternative<Dimension>(primitive.geometry);
    entities[static_cast<size_t>(id)] =
        isDimension ? writer.writeDimension(primitive, dimensions++) : writer.write(primitive);
  });
  tags.text(0, "ENDSEC");
  return entities;
}

void putHandleSeed(std::string& file, size_t at, DxfHandle seed) {
  DxfTags digits;
  digits.hex(seed);
  file.replace(at + kHandleSeedDigits - digits.size(), digits.size(), digits.view());
}

}  // namespace

namespace {

// The entities' section comes from the caller.
template <class WriteEntities>
std::string wholeDxf(const Drawing& drawing, DxfVersion version, const WriteEntities& writeContent) {
  constexpr size_t kBytesAPrimitive = 240;
  constexpr size_t kBytesAround = 20'000;
  DxfModel model(drawing, version);
  DxfTags tags(kBytesAround + kBytesAPrimitive * drawing.count());
  const size_t seedAt = writeDxfHeader(tags, model);
  writeDxfClasses(tags);
  writeDxfTables(tags, model);
  writeBlocks(tags, model);
  const std::vector<DxfEntities> entities = writeContent(tags, model);
  writeDxfObjects(tags, model, entities);
  tags.text(0, "EOF");
  std::string file = tags.take();
  putHandleSeed(file, seedAt, model.handleSeed());
  return file;
}

}  // namespace

std::string drawingDxf(const Drawing& drawing, DxfVersion version) {
  return wholeDxf(drawing, version, [](DxfTags& tags, DxfModel& model) { return writeEntities(tags, model); });
}

std::string loopsDxf(std::span<const Loop> loops, const Parameters& parameters) {
  Drawing drawing;
  drawing.setParameters(parameters);
  return wholeDxf(drawing, DxfVersion::kR2010, [loops](DxfTags& tags, DxfModel& model) {
    DxfEntityWriter writer(model, tags, drawingSpace(model, kModelRecord));
    tags.text(0, "SECTION");
    tags.text(2, "ENTITIES");
    for (const Loop& loop : loops) { writer.writeLoop(loop); }
    tags.text(0, "ENDSEC");
    return std::vector<DxfEntities>(1);
  });
}

}  // namespace brevan
