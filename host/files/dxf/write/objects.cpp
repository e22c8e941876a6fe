#include "host/files/dxf/write/objects.h"

namespace brevan {

namespace {

void writeReactor(DxfTags& tags, DxfHandle owner) {
  tags.text(102, "{ACAD_REACTORS");
  tags.handle(330, owner);
  tags.text(102, "}");
}

void beginDictionary(DxfTags& tags, std::string_view kind, DxfHandle handle, DxfHandle owner) {
  tags.text(0, kind);
  tags.handle(5, handle);
  if (owner != 0) { writeReactor(tags, owner); }
  tags.handle(330, owner);
  tags.text(100, "AcDbDictionary");
  tags.integer(281, 1);
}

void writeEntry(DxfTags& tags, std::string_view name, DxfHandle object) {
  tags.text(3, name);
  tags.handle(350, object);
}

void writeDictionaries(DxfTags& tags, const DxfModel& model) {
  beginDictionary(tags, "DICTIONARY", kRootDictionary, 0);
  writeEntry(tags, "ACAD_GROUP", kGroupDictionary);
  writeEntry(tags, "ACAD_LAYOUT", kLayoutDictionary);
  writeEntry(tags, "ACAD_PLOTSTYLENAME", kPlotStyleDictionary);
  beginDictionary(tags, "DICTIONARY", kGroupDictionary, kRootDictionary);
  for (const DxfGroup& group : model.groups()) {
    if (group.handle != 0) { writeEntry(tags, group.name, group.handle); }
  }
  beginDictionary(tags, "DICTIONARY", kLayoutDictionary, kRootDictionary);
  writeEntry(tags, "Model", kModelLayout);
  writeEntry(tags, "Layout1", kPaperLayout);
  beginDictionary(tags, "ACDBDICTIONARYWDFLT", kPlotStyleDictionary, kRootDictionary);
  writeEntry(tags, "Normal", kPlotStylePlaceholder);
  tags.text(100, "AcDbDictionaryWithDefault");
  tags.handle(340, kPlotStylePlaceholder);
  tags.text(0, "ACDBPLACEHOLDER");
  tags.handle(5, kPlotStylePlaceholder);
  writeReactor(tags, kPlotStyleDictionary);
  tags.handle(330, kPlotStyleDictionary);
}

// The sheet, and how many drawing units a millimetre of it stands for.
void writePlotSettings(DxfTags& tags, const DxfModel& model, bool modelSpace) {
  const Sheet& sheet = model.sheet();
  const Point corner = model.shown(sheet.corner);
  const double unit = model.drawing().parameters().paperMillimetre();
  constexpr int kModelFlag = 1024;
  constexpr int kPlotFlags = 688;
  tags.text(100, "AcDbPlotSettings");
  tags.text(1, "");
  tags.text(2, "none_device");
  tags.text(4, dxfPlain(sheet.name, model.version()));
  tags.text(6, "");
  for (int margin = 40; margin <= 43; ++margin) { tags.real(margin, 0.0); }
  tags.real(44, sheet.width);
  tags.real(45, sheet.height);
  tags.real(46, 0.0);
  tags.real(47, 0.0);
  tags.real(48, corner.x);
  tags.real(49, corner.y);
  tags.real(140, corner.x + sheet.width * unit);
  tags.real(141, corner.y + sheet.height * unit);
  tags.real(142, 1.0);
  tags.real(143, modelSpace ? unit : 1.0);
  tags.integer(70, kPlotFlags + (modelSpace ? kModelFlag : 0));
  tags.integer(72, 1);  // millimetres
  tags.integer(73, 0);
  tags.integer(74, modelSpace ? 4 : 5);  // the window of 48 to 141, or the layout
  tags.text(7, "");
  tags.integer(75, 0);
  tags.real(147, 1.0);
  tags.real(148, 0.0);
  tags.real(149, 0.0);
}

void writeLayout(DxfTags& tags, const DxfModel& model, bool modelSpace) {
  tags.text(0, "LAYOUT");
  tags.handle(5, modelSpace ? kModelLayout : kPaperLayout);
  writeReactor(tags, kLayoutDictionary);
  tags.handle(330, kLayoutDictionary);
  writePlotSettings(tags, model, modelSpace);
  const Sheet& sheet = model.sheet();
  tags.text(100, "AcDbLayout");
  tags.text(1, modelSpace ? "Model" : "Layout1");
  tags.integer(70, 1);
  tags.integer(71, modelSpace ? 0 : 1);
  const auto flat = [&tags](int code, Point p) {
    tags.real(code, p.x);
    tags.real(code + 10, p.y);
  };
  flat(10, {});
  flat(11, {sheet.width, sheet.height});
  tags.point(12, {});
  tags.point(14, {});
  tags.point(15, {sheet.width, sheet.height});
  tags.real(146, 0.0);
  tags.point(13, {});
  tags.point(16, {1.0, 0.0});
  tags.point(17, {0.0, 1.0});
  tags.integer(76, 0);
  tags.handle(330, modelSpace ? kModelRecord : kPaperRecord);
}

void writeGroup(DxfTags& tags, const DxfModel& model, const Group& group, const std::vector<DxfEntities>& entities) {
  const DxfGroup& names = model.groups()[static_cast<size_t>(group.id) - 1];
  tags.text(0, "GROUP");
  tags.handle(5, names.handle);
  writeReactor(tags, kGroupDictionary);
  tags.handle(330, kGroupDictionary);
  tags.text(100, "AcDbGroup");
  tags.text(300, names.description);
  tags.integer(70, names.unnamed ? 1 : 0);
  tags.integer(71, 1);
  for (const PrimitiveId id : model.drawing().membersOf(group.id)) {
    const DxfEntities& member = entities[static_cast<size_t>(id)];
    for (DxfHandle n = 0; n < member.count; ++n) { tags.handle(340, member.first + n); }
  }
}

}  // namespace

void writeDxfObjects(DxfTags& tags, const DxfModel& model, const std::vector<DxfEntities>& entities) {
  tags.text(0, "SECTION");
  tags.text(2, "OBJECTS");
  writeDictionaries(tags, model);
  writeLayout(tags, model, true);
  writeLayout(tags, model, false);
  model.drawing().forEachGroup([&](const Group& group) { writeGroup(tags, model, group, entities); });
  tags.text(0, "ENDSEC");
}

}  // namespace brevan
