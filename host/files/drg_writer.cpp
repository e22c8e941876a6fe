#include "host/files/drg_writer.h"

#include "frame/host/core_services.h"
#include "host/files/drg_filler.h"
#include "host/files/drg_reader.h"

namespace brevan {

namespace {

void fillGroups(DrgDatabase& database, const Drawing& drawing) {
  TableFiller<DrgGroup> groups(database);
  for (const Group& group : drawing.groups()) { fillGroup(groups, group); }
}

void fillPrimitives(DrgDatabase& database, const Drawing& drawing) {
  PrimitiveFiller primitives(database);
  const bool numberAnew = isStrewn(drawing);
  int number = 0;
  drawing.forEach([&](PrimitiveId id, const Primitive& primitive) {
    ++number;
    primitives.add(0, numberAnew ? number : id, primitive);
  });
}

bool sameLayers(const Drawing& first, const Drawing& second) {
  if (first.layerCount() != second.layerCount() || first.currentLayer() != second.currentLayer()) { return false; }
  for (int index = 0; index < first.layerCount(); ++index) {
    const Layer* one = first.layer(index);
    const Layer* other = second.layer(index);
    if ((one == nullptr) != (other == nullptr) || (one != nullptr && !(*one == *other))) { return false; }
  }
  return true;
}

bool sameGroups(const Drawing& first, const Drawing& second) {
  if (first.lastGroup() != second.lastGroup()) { return false; }
  for (GroupId id = 1; id <= first.lastGroup(); ++id) {
    const Group& one = first.group(id);
    const Group& other = second.group(id);
    if (one.parent != other.parent || one.name != other.name) { return false; }
  }
  return true;
}

bool samePrimitives(const Drawing& drawing, const Drawing& read) {
  const bool numberedAnew = isStrewn(drawing);
  int number = 0;
  bool same = drawing.count() == read.count();
  drawing.forEach([&](PrimitiveId id, const Primitive& primitive) {
    const Primitive* other = read.find(numberedAnew ? ++number : id);
    same = same && other != nullptr && primitive == *other;
  });
  return same;
}

bool sameContents(const Drawing& drawing, const Drawing& read) {
  return drawing.parameters() == read.parameters() && drawing.sheet() == read.sheet() && sameLayers(drawing, read) &&
         sameGroups(drawing, read) && drawing.symbols() == read.symbols() && samePrimitives(drawing, read);
}

}  // namespace

std::string drawingDrg(const Drawing& drawing) {
  DrgDatabase database("the new drawing file");
  database.execute("PRAGMA application_id=" + std::to_string(kDrgApplication));
  database.execute("PRAGMA user_version=" + std::to_string(kDrgVersion));
  database.execute("BEGIN");
  forEachDrgTable([&]<class Record>() { database.execute(drgDefinition<Record>()); });
  fillHead(database, drawing);
  fillGroups(database, drawing);
  fillPrimitives(database, drawing);
  fillSymbols(database, drawing);
  database.execute("COMMIT");
  std::string bytes = database.bytes();
  if (!sameContents(drawing, drawingFromDrg(bytes, "the new drawing file"))) {
    throw HostFailure("the new drawing file does not read back as the drawing; nothing was written");
  }
  return bytes;
}

}  // namespace brevan
