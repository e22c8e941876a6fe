#include "host/files/dxf/write/writer.h"

#include <gtest/gtest.h>

#include "frame/host/core_services.h"
#include "host/drawing/font_metrics.h"
#include "host/drawing/text_layout.h"
#include "host/files/dxf/write/names.h"
#include "tests/host/files/dxf/groups.h"

namespace brevan {
namespace {

Primitive primitiveOf(Geometry geometry) { return {.geometry = std::move(geometry)}; }

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
