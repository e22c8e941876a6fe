#include "host/files/dxf/write/writer.h"

#include <gtest/gtest.h>

#include <set>

#include "frame/host/core_services.h"
#include "host/drawing/font_metrics.h"
#include "host/drawing/text_layout.h"
#include "host/files/dxf/write/names.h"
#include "tests/host/files/dxf/groups.h"

namespace brevan {
namespace {

Primitive primitiveOf(Geometry geometry, GroupId group = 0) {
  return {.group = group, .geometry = std::move(geometry)};
}

// One of everything, in groups and out of them.
void fill(Drawing& drawing) {
  const GroupId group = drawing.addGroup("BOLTS", "M10");
  const GroupId unnamed = drawing.addGroup("BOLTS", "_");
  drawing.addSymbol({"MARK", {primitiveOf(Line{{0, 0}, {1, 1}}), primitiveOf(Text{{0, 0}, "m"})}, true, false});
  drawing.addSymbol({"PAIR", {primitiveOf(Symbol{"MARK", {0, 0}, 2.0, 0.0})}, false, true});
  drawing.add(primitiveOf(Line{{0, 0}, {10, 5}}, group));
  drawing.add(primitiveOf(Arc{{1, 0}, {0, 0}, {0, 1}, true}, group));
  drawing.add(primitiveOf(Arc{{1, 0}, {0, 0}, {1, 0}, false}, unnamed));
  drawing.add(primitiveOf(Arc{{1, 0}, {1, 0}, {1, 0}, false}));
  drawing.add(primitiveOf(Text{{0, 0}, "one"}));
  drawing.add(primitiveOf(Text{{0, 0}, "one\\Ntwo"}, group));
  drawing.add(primitiveOf(Arrow{{0, 0}, {10, 0}}, group));
  drawing.add(primitiveOf(Symbol{"PAIR", {5, 5}, 1.0, 30.0}));
  drawing.add(primitiveOf(Symbol{"MISSING", {5, 5}, 1.0, 30.0}));
  drawing.add(primitiveOf(Dimension{DimensionKind::kHorizontal, {0, 20}, {0, 0}, {40, 0}, "40.000"}, group));
}

const std::set<int> kOwnHandleCodes = {5, 105};

TEST(Dxf, HandlesAreUniqueAndEveryReferenceHasItsObject) {
  for (const DxfVersion version : {DxfVersion::kR2000, DxfVersion::kR2010}) {
    Drawing drawing;
    fill(drawing);
    std::set<std::string> handles = {"0"};
    const std::vector<WrittenRecord> records = recordsOf(drawingDxf(drawing, version));
    for (const WrittenRecord& record : records) {
      for (const DxfGroupPair& group : record.groups) {
        const bool own = kOwnHandleCodes.contains(group.code) && record.kind != "SECTION";
        if (own) { EXPECT_TRUE(handles.insert(group.value).second) << record.kind << ' ' << group.value; }
      }
    }
    for (const WrittenRecord& record : records) {
      for (const DxfGroupPair& group : record.groups) {
        const bool reference = group.code == 330 || group.code == 340 || group.code == 350 || group.code == 390;
        if (reference) { EXPECT_TRUE(handles.contains(group.value)) << record.kind << ' ' << group.value; }
      }
    }
    // The seed lies above every handle.
    const std::string seed = records.front().text(5);
    const auto padded = [](const std::string& text) { return std::string(8 - text.size(), '0') + text; };
    for (const std::string& handle : handles) { EXPECT_LT(padded(handle), padded(seed)); }
  }
}

TEST(Dxf, GroupsNameTheirMembersAndMembersTheirGroup) {
  Drawing drawing;
  fill(drawing);
  const std::vector<WrittenRecord> records = recordsOf(drawingDxf(drawing));
  const std::vector<WrittenRecord> groups = ofKind(records, "GROUP");
  ASSERT_EQ(groups.size(), 2U);
  EXPECT_EQ(groups[0].text(300), "BOLTS M10");
  EXPECT_EQ(groups[1].text(70), "1");
  size_t listed = 0;
  std::map<std::string, std::string> reactorOf;
  for (const WrittenRecord& record : records) { reactorOf[record.text(5)] = record.text(330); }
  for (const WrittenRecord& group : groups) {
    for (const DxfGroupPair& pair : group.groups) {
      if (pair.code != 340) { continue; }
      ++listed;
      EXPECT_EQ(reactorOf[pair.value], group.text(5));
    }
  }
  EXPECT_EQ(ofKind(records, "POINT").size(), 1U) << "a circle without radius";
  EXPECT_EQ(listed, 7U);  // line, arc, text, the arrow's two, dimension; circle
}

TEST(Dxf, TextsStayOneTextWhateverTheyHold) {
  Drawing drawing;
  drawing.add(primitiveOf(Text{{0, 0}, "A\n0\nINSERT\r\n"}));
  drawing.add(primitiveOf(Text{{0, 0}, "50%%d {x} ^J \\U+0041"}));
  drawing.add(primitiveOf(Text{{0, 0}, "a{b}\\Nc\\d" + std::string(600, 'x')}));
  const int layer = drawing.addLayer({"a\n0\nEOF", true, false, 1});
  drawing.setCurrentLayer(layer);
  const std::vector<WrittenRecord> records = recordsOf(drawingDxf(drawing));
  EXPECT_TRUE(ofKind(records, "INSERT").empty());
  EXPECT_EQ(ofKind(records, "EOF").size(), 1U);
  const std::vector<WrittenRecord> texts = ofKind(records, "TEXT");
  ASSERT_EQ(texts.size(), 2U);
  EXPECT_EQ(texts[0].text(1), "A^J0^JINSERT^M^J");
  EXPECT_EQ(texts[1].text(1), "50%%%%%%d {x} ^ J \\U+005CU+0041");
  const WrittenRecord mtext = ofKind(records, "MTEXT").at(0);
  std::string value;
  for (const DxfGroupPair& group : mtext.groups) {
    EXPECT_LE(group.value.size(), 250U);
    if (group.code == 3 || group.code == 1) { value += group.value; }
  }
  EXPECT_EQ(value, "a\\{b\\}\\Pc\\\\d" + std::string(600, 'x'));
}

TEST(Dxf, EncodingFollowsTheVersion) {
  Drawing drawing;
  drawing.add(primitiveOf(Text{{0, 0}, "\xD8 \x80"}));
  const auto textOf = [&drawing](DxfVersion version) {
    return ofKind(recordsOf(drawingDxf(drawing, version)), "TEXT").at(0).text(1);
  };
  EXPECT_EQ(textOf(DxfVersion::kR2000), "\xD8 \x80");
  EXPECT_EQ(textOf(DxfVersion::kR2010), "\xC3\x98 \xE2\x82\xAC");
}

// The baseline's left end, worked out from the alignment point as a reader with the font would.
Point baselineAsRead(const WrittenRecord& text, double width) {
  const bool plain = text.text(72) == "0" && text.text(73).empty();
  if (plain) { return {text.real(10), text.real(20)}; }
  const double across = text.text(72) == "0" ? 0.0 : text.text(72) == "1" ? 0.5 : 1.0;
  const double up = text.text(73).empty() ? 0.0 : text.text(73) == "2" ? 0.5 : 1.0;
  return Point{text.real(11), text.real(21)} - Point{across * width, up * text.real(40)};
}

TEST(Dxf, AlignedTextsStandWhereTheLayoutPutsThem) {
  for (int justification = 1; justification <= 19; justification += justification == 9 ? 2 : 1) {
    Drawing drawing;
    Text text = {{7.0, 3.0}, "Mwy", "Times New Roman", 50.0, 0.0, justification, 0, 1, 0.8};
    drawing.add(primitiveOf(text));
    const WrittenRecord written = ofKind(recordsOf(drawingDxf(drawing)), "TEXT").at(0);
    const PlacedLine line = layOut(text).lines[0];
    const Point shown = text.at + line.baseline;
    EXPECT_LT(distance(baselineAsRead(written, line.width), shown), 1e-9) << justification;
    EXPECT_LT(distance({written.real(10), written.real(20)}, shown), 1e-9) << justification;
    EXPECT_NEAR(written.real(40), 5.0 * capHeight(FontFace::kSerif), 1e-12);
    EXPECT_DOUBLE_EQ(written.real(41), 0.8);
  }
}

TEST(Dxf, NamesAreValidAndUniqueWithoutRegardToCase) {
  DxfNames names;
  const std::pair<const char*, const char*> rows[] = {{"Bolt", "Bolt"},   {"BOLT", "BOLT_2"}, {"bolt_2", "bolt_2_2"},
                                                      {"bolt", "bolt_3"}, {"a/b*c", "a_b_c"}, {"", "_"}};
  for (const auto& [wanted, given] : rows) { EXPECT_EQ(names.unique(wanted), given); }
  EXPECT_LE(names.unique(std::string(1000, 'x')).size(), 255U);
  EXPECT_LE(names.unique(std::string(1000, 'x')).size(), 255U);
}

}  // namespace
}  // namespace brevan
