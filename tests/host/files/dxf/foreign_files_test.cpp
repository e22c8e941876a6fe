#include <gtest/gtest.h>

#include "host/core/text_encoding.h"
#include "host/files/drg_reader.h"
#include "host/files/drg_writer.h"
#include "host/files/dxf/read/styles.h"
#include "host/files/dxf/write/writer.h"
#include "tests/host/files/dxf/small_files.h"

namespace brevan {
namespace {

TEST(DxfReader, WhatIsEmbeddedInAnEntityIsNotItsOwn) {
  const std::string level = "0\nMTEXT\n8\n0\n10\n5\n20\n6\n40\n2.5\n1\n+3.20\n";
  const std::string embedded =
      "101\nEmbedded Object\n70\n1\n10\n1.0\n20\n0.0\n11\n5.0\n21\n14.0\n40\n0.0\n1\nother\n73\n1\n";
  const std::string twice =
      level + embedded + level + embedded + "0\nMTEXT\n8\n0\n10\n5\n20\n6\n40\n2.5\n50\n30\n1\nturned\n";
  const Drawing drawing = readText(entities(twice)).drawing;
  ASSERT_EQ(drawing.count(), 3U);
  for (const PrimitiveId id : {1, 2, 3}) {
    const Text& text = std::get<Text>(drawing.find(id)->geometry);
    EXPECT_EQ(text.angle, id == 3 ? 300.0 : 0.0);
    EXPECT_EQ(text.text, id == 3 ? "turned" : "+3.20");
    if (id != 3) { EXPECT_NEAR(text.at.x, 5.0, 1e-9); }
  }
}

TEST(DxfReader, TextsOfOthersReadAsTheyShow) {
  const std::pair<const char*, const char*> rows[] = {{"6'-10{\\S1/2;}\"", "6'-10 1/2\""},
                                                      {"50\\S0.01^ 0.02", "50 0.01/0.02"},
                                                      {"50 \\S+0.1^-0.2; H7", "50 +0.1/-0.2 H7"},
                                                      {"\\S1/2;", "1/2"},
                                                      {"1\\S1#2;m", "1 1/2 m"},
                                                      {"12 m\\S2^ ;", "12 m\xB2"},
                                                      {"50\\S^ -0.2;", "50 -0.2"},
                                                      {"50\\S+0.2^;", "50 +0.2"},
                                                      {"\\U+2205 20", "\xD8 20"},
                                                      {"%%c 20", "\xD8 20"},
                                                      {"\xE2\x8C\x80 20 \xE2\x89\xA4 21", "\xD8 20 <= 21"},
                                                      {"\xC5\x81\xC3\xB3"
                                                       "d\xC5\xBA",
                                                       "L\xF3"
                                                       "dz"},
                                                      {"\xE4\xB8\xAD 5", "? 5"},
                                                      {"\xFF 5", "? 5"}};
  for (const auto& [written, shown] : rows) {
    const std::string header = section("HEADER", "9\n$ACADVER\n1\nAC1032\n");
    const ReadDrawing read =
        readText(header + entities("0\nMTEXT\n10\n0\n20\n0\n40\n1\n1\n" + std::string(written) + "\n"));
    EXPECT_EQ(std::get<Text>(read.drawing.find(1)->geometry).text, shown);
    const bool lacked = !toWindows1252(written) || std::string_view(written).starts_with("\\U+2205");
    EXPECT_EQ(read.notRead.find("Windows-1252 lacks") != std::string::npos, lacked) << written;
  }
}

double headOf(const std::string& header, const std::string& style, const std::string& leader) {
  const std::string styles = section("TABLES", "0\nTABLE\n2\nDIMSTYLE\n0\nDIMSTYLE\n2\nISO\n" + style + "0\nENDTAB\n");
  const std::string points = "10\n0\n20\n0\n10\n50\n20\n0\n10\n60\n20\n0\n";
  const std::string drawn = "0\nLEADER\n8\n0\n3\nISO\n71\n1\n" + points + leader;
  const Drawing drawing = readText(section("HEADER", header) + styles + entities(drawn)).drawing;
  const Arrow* arrow = std::get_if<Arrow>(&drawing.find(1)->geometry);
  return arrow == nullptr ? 0.0 : arrow->length / 10.0;
}

TEST(DxfReader, HeadsOfLeadersHaveTheSizeOfTheirStyle) {
  const std::string differs = "1001\nACAD\n1000\nDSTYLE\n1002\n{\n1070\n41\n1040\n4.0\n1002\n}\n";
  EXPECT_DOUBLE_EQ(headOf("", "40\n2\n41\n3.5\n", ""), 7.0);
  EXPECT_DOUBLE_EQ(headOf("", "40\n0\n41\n3.5\n", ""), 3.5);
  EXPECT_DOUBLE_EQ(headOf("", "40\n2\n41\n3.5\n", differs), 8.0);
  EXPECT_DOUBLE_EQ(headOf("9\n$DIMASZ\n40\n5\n", "", ""), 5.0);
  EXPECT_DOUBLE_EQ(headOf("", "41\n0\n", ""), 0.0) << "no head";
}

TEST(DxfReader, PartsOfAPlacedBlockLookAsLayerAndPlacementSay) {
  const auto layer = [](const std::string& name, const std::string& look) {
    return "0\nLAYER\n2\n" + name + "\n70\n0\n" + look;
  };
  const std::string tables = section("TABLES", "0\nTABLE\n2\nLAYER\n" + layer("PLAIN", "62\n3\n") +
                                                   layer("DASHED", "62\n5\n6\nHIDDEN\n370\n50\n") + "0\nENDTAB\n");
  const auto part = [](const std::string& look) { return "0\nLINE\n8\n0\n" + look + "10\n0\n20\n0\n11\n1\n21\n1\n"; };
  struct Row {
    std::string part, placed;  // looks
    int pen, linetype;
    double width;
    bool symbol;
  };
  const int green = penOfColour(3, -1);
  const int blue = penOfColour(5, -1);
  const int red = penOfColour(1, -1);
  const std::vector<Row> rows = {
      {"", "8\nPLAIN\n", green, 1, 0.0, true},
      {"", "8\nPLAIN\n62\n1\n", green, 1, 0.0, false},  // by layer: not the colour of the placement
      {"62\n0\n", "8\nPLAIN\n62\n1\n", red, 1, 0.0, true},
      {"62\n1\n", "8\nDASHED\n", red, 21, 5.0, false},
      {"62\n1\n6\nCONTINUOUS\n370\n25\n", "8\nDASHED\n", red, 1, 2.5, true},
      {"6\nBYBLOCK\n370\n-2\n", "8\nDASHED\n", blue, 21, 5.0, false},
  };
  for (const Row& row : rows) {
    const std::string placed = "0\nINSERT\n2\nB\n10\n0\n20\n0\n" + row.placed;
    const Drawing drawing = readText(tables + section("BLOCKS", block("B", part(row.part))) + entities(placed)).drawing;
    ASSERT_EQ(drawing.count(), 1U);
    const Primitive& shown = *drawing.find(1);
    EXPECT_EQ(std::holds_alternative<Symbol>(shown.geometry), row.symbol) << row.part << row.placed;
    const Primitive& drawn = row.symbol ? drawing.symbol("B")->parts.front() : shown;
    const int open = drawn.pen == kPenByLayer ? shown.pen : drawn.pen;
    EXPECT_EQ(open == kPenByLayer ? drawing.layer(shown.layer)->pen : open, row.pen) << row.part << row.placed;
    EXPECT_EQ(drawn.linetype, row.linetype) << row.part << row.placed;
    EXPECT_EQ(drawn.width, row.width) << row.part << row.placed;
  }
}

TEST(DxfReader, LayersKeepLineTypeAndWeightOnTheWayThrough) {
  const std::string layers = section("TABLES",
                                     "0\nTABLE\n2\nLAYER\n0\nLAYER\n2\nPIPES\n70\n0\n62\n5\n6\nHIDDEN\n370\n50\n"
                                     "0\nLAYER\n2\nPLAIN\n70\n0\n62\n5\n0\nENDTAB\n");
  const Drawing read = readText(layers + entities(kLine)).drawing;
  const Drawing saved = drawingFromDrg(drawingDrg(read), "x.drg");
  const Drawing again = readText(drawingDxf(saved)).drawing;
  for (const Drawing* drawing : {&read, &saved, &again}) {
    const Layer& pipes = *drawing->layer(drawing->layerNamed("PIPES"));
    EXPECT_TRUE(pipes.linetype == 21 && pipes.width == 5.0);
    const Layer& plain = *drawing->layer(drawing->layerNamed("PLAIN"));
    EXPECT_TRUE(plain.linetype == 1 && plain.width == 0.0);
  }
}

TEST(DxfReader, HiddenEdgesOfFacesAreNotDrawn) {
  const auto face = [](const std::string& more) {
    return readText(entities("0\n3DFACE\n8\n0\n10\n0\n20\n0\n11\n4\n21\n0\n12\n4\n22\n3\n" + more)).drawing.count();
  };
  const std::string fourth = "13\n0\n23\n3\n";
  const std::string triangle = "13\n4\n23\n3\n";
  EXPECT_EQ(face(fourth), 4U);
  for (const int edge : {1, 2, 4, 8}) { EXPECT_EQ(face(fourth + "70\n" + std::to_string(edge) + "\n"), 3U); }
  EXPECT_EQ(face(fourth + "70\n15\n"), 0U);
  EXPECT_EQ(face(triangle), 3U);
  EXPECT_EQ(face(triangle + "70\n4\n"), 3U) << "the edge between its equal corners";
  EXPECT_EQ(face(triangle + "70\n8\n"), 2U);
}

TEST(DxfReader, OddEndsBlankLinesAndEmptyHandlesAreReadAndTold) {
  const std::string drawn = section("ENTITIES", kLine);
  const std::pair<std::string, std::string> rows[] = {
      {drawn + "0\nEOF\n", ""},
      {drawn + "0\nEOF\n\n \r\n\x1A", ""},
      {drawn, "1 end of the file (EOF) that is missing"},
      {drawn + "0\nEOF\nsent by mail\n", "1 passage after the end of the file (EOF)"},
      {section("ENTITIES", "\n" + kLine + "\n\n") + "\n0\nEOF\n", "4 blank line"},
      {section("ENTITIES", "0\nLINE\n5\n\n8\n0\n10\n1\n20\n2\n11\n3\n21\n4\n") + "0\nEOF\n", "1 empty handle"}};
  for (const auto& [text, told] : rows) {
    const ReadDrawing read = readText(text);
    EXPECT_EQ(read.drawing.count(), 1U);
    EXPECT_EQ(read.notRead, told);
  }
  // Entities that are alike but for the blank lines between them, read at once and after the sections they need.
  const std::string blanks = kLine + "\n" + kLine + "\n" + kLine + "\n" + kLine + kLine + " \n" + kLine;
  for (const std::string& before : {std::string(), section("TABLES", "") + section("BLOCKS", "")}) {
    const ReadDrawing read = readText(before + entities(blanks));
    EXPECT_EQ(read.drawing.count(), 6U);
    EXPECT_EQ(read.notRead, "4 blank line");
  }
}

}  // namespace
}  // namespace brevan
