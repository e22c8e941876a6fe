#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <limits>

#include "frame/host/core_services.h"
#include "tests/failure.h"
#include "tests/host/window/host_session.h"

namespace {

using namespace brevan;

class Window : public HostSession {
 protected:
  std::vector<int> scanned(int handle) {
    std::vector<int> types;
    for (int type = window().gsGetNextPrim(handle); type != 0; type = window().gsGetNextPrim(handle)) {
      types.push_back(type);
    }
    return types;
  }
  int everything(int type) { return window().gsGetListHandle(type, -1, 0, 0, 0, 0, 0, 0, 0); }
  PrimHeader current() {
    PrimHeader header;
    EXPECT_EQ(window().gsGetPrimHeader(header), 1);
    return header;
  }
  void header(int type, int layer = 0) { window().gsSetPrimHeader(type, 0, 0, layer, 3, 2, 2.5, 0, 0); }
};

TEST_F(Window, APrimitiveTakesHeaderGeometryAndAdd) {
  header(kArcPrimitive);
  window().gsSetArc(10, 0, 0, 0, 0, 10, 1, 1, 0);
  window().gsAddPrim();
  header(kTextPrimitive);
  window().gsSetFont("Courier New", 7, 25, 450, 4, 5, 0.8, 0, 0);
  window().gsSetText(1, 2, "M10");
  window().gsAddPrim();
  header(kArrowPrimitive);
  window().gsSetArrow(0, 0, 5, 5, 20, 10, 0, 0, 256);
  window().gsAddPrim();
  EXPECT_EQ(*drawing().find(1), (Primitive{0, 3, 2, 2.5, 0, Arc{{10, 0}, {0, 0}, {0, 10}, true}}));
  EXPECT_EQ(drawing().find(2)->geometry, Geometry(Text{{1, 2}, "M10", "Courier New", 25, 450, 5, 4, 7, 0.8}));
  EXPECT_EQ(drawing().find(3)->geometry, Geometry(Arrow{{0, 0}, {5, 5}, 20, 10, {0, 0, 256}}));
}

TEST_F(Window, WrongOrMissingGeometryAddsNothing) {
  const std::vector<std::function<void()>> mistakes = {
      [&] { header(kArcPrimitive), window().gsSetLine(0, 0, 1, 1); },
      [&] { header(kLinePrimitive), window().gsSetText(0, 0, "x"); },
      [&] { header(kLinePrimitive); },
      [&] { header(99), window().gsSetLine(0, 0, 1, 1); },
      [&] { header(kLinePrimitive, 4), window().gsSetLine(0, 0, 1, 1); },
      [&] { header(kLinePrimitive), window().gsSetLine(0, 0, std::numeric_limits<double>::infinity(), 1); },
  };
  for (size_t i = 0; i < mistakes.size(); ++i) {
    mistakes[i]();
    EXPECT_THROW(window().gsAddPrim(), HostFailure) << i;
  }
  EXPECT_EQ(drawing().count(), 0U);
}

TEST_F(Window, ALockedLayerTakesNothingNewAndStays) {
  window().gsAddLayer("SAFE");
  line(0, 0, 1, 1);
  window().gsSetLayerLockedState(1);
  EXPECT_EQ(window().gsGetLayerLockedState(), 1);
  EXPECT_THROW(line(0, 0, 1, 1), HostFailure);
  EXPECT_THROW(window().addPlain(Line{{0, 0}, {1, 1}}), RefusedChange);
  window().gsDeleteLayer("SAFE");
  window().gsSetCurrentLayer(0);
  EXPECT_EQ(window().gsGetLayerLockedState(), 0);
  line(0, 0, 1, 1);
  EXPECT_EQ(drawing().count(), 2U);
}

TEST_F(Window, LayersByNameAndNumber) {
  EXPECT_EQ(window().gsAddLayer("A"), 1);
  EXPECT_EQ(window().gsAddLayer("B"), 2);
  EXPECT_EQ(window().gsAddLayer("A"), 1) << "an existing one becomes current";
  EXPECT_EQ(window().gsGetCurrentLayerName(), "A");
  line(0, 0, 1, 0);
  EXPECT_EQ(window().gsGetLayerIndexFromName("a"), -1) << "names match exactly";
  window().gsDeleteLayer("A");
  EXPECT_EQ(drawing().count(), 0U) << "what lies on a layer goes with it";
  EXPECT_EQ(window().gsGetCurrentLayer(), 0);
  EXPECT_EQ(window().gsGetLayerIndexFromName("B"), 2) << "the numbers of the others stay";
  LayerDef layer;
  EXPECT_EQ(window().gsGetLayerDefIndex(1, layer), 0);
  window().gsDeleteLayer("NONE");
  line(0, 0, 1, 0);
  window().gsDeleteLayer(0);
  EXPECT_EQ(drawing().count(), 0U);
  EXPECT_EQ(window().gsGetLayerIndexFromName("0"), 0) << "layer 0 stays, emptied";
  EXPECT_THROW(window().gsSetCurrentLayer(9), HostFailure);
}

TEST_F(Window, ScansSeeTypesLayersAndWindows) {
  line(0, 0, 1, 0);
  window().gsAddLayer("B");
  line(100, 100, 101, 100);
  header(kArcPrimitive);
  window().gsSetArc(10, 0, 0, 0, 10, 0, 0, 1, 0);
  window().gsAddPrim();
  const struct {
    int type, layer;
    Point a, b;
    std::vector<int> found;
  } rows[] = {{0, -1, {}, {}, {3, 3, 4}},
              {kArcPrimitive, -1, {}, {}, {4}},
              {0, 1, {}, {}, {3}},
              {0, 0, {120, 120}, {-1, -1}, {3, 4}},  // corners in any order, one layer
              {3, -1, {99, 99}, {120, 120}, {3}},
              {0, 7, {}, {}, {}}};  // no such layer
  for (const auto& [type, layer, a, b, found] : rows) {
    EXPECT_EQ(scanned(window().gsGetListHandle(type, layer, 0, a.x, a.y, b.x, b.y, 0, 0)), found) << type << layer;
  }
  // Over the selection where there is one.
  const auto selectedLines = [this] { return window().gsGetListHandle(kLinePrimitive, -1, 1, 0, 0, 0, 0, 0, 1); };
  EXPECT_EQ(scanned(selectedLines()).size(), 2U) << "nothing is selected";
  drawing().select(1);
  EXPECT_EQ(scanned(selectedLines()), std::vector<int>{kLinePrimitive});
  EXPECT_EQ(scanned(everything(kLinePrimitive)).size(), 2U);
}

TEST_F(Window, ScansSurviveWhatHappensMeanwhile) {
  for (int i = 0; i < 5; ++i) { line(i, 0, i, 1); }
  const int all = everything(kLinePrimitive);
  const int boxed = window().gsGetListHandle(0, -1, 0, -1, -1, 10, 10, 0, 0);
  EXPECT_EQ(window().gsGetNextPrim(all), 3);
  EXPECT_EQ(window().gsGetNextPrim(boxed), 3);
  drawing().remove(2);
  line(8, 0, 8, 1);
  EXPECT_EQ(scanned(all).size(), 3U) << "what was drawn meanwhile is not met, what was deleted neither";
  EXPECT_EQ(scanned(boxed).size(), 3U);
  EXPECT_EQ(window().gsGetNextPrim(all), 0);
  window().gsFreeListHandle(all);
  EXPECT_EQ(window().gsGetNextPrim(all), 0);
  EXPECT_EQ(everything(kLinePrimitive), all) << "a freed handle is used again";
  EXPECT_EQ(scanned(all).size(), 5U);
  for (const int handle : {0, -1, 99}) {
    EXPECT_EQ(window().gsGetNextPrim(handle), 0);
    window().gsFreeListHandle(handle);
  }
}

TEST_F(Window, GroupScansMeetGroupsWithMembers) {
  for (const char* name : {"S1", "S2", "S3"}) {
    macro("PARENT \"BOLTS\"");
    macro(std::string("BEGINGROUP \"") + name + '"');
    line(0, 0, 1, 0);
  }
  macros({"SELECTNAME \"BOLTS S2\"", "DELSELECT"});
  std::string seen;
  const int handle = everything(kGroupPrimitive);
  while (window().gsGetNextPrim(handle) == kGroupPrimitive) {
    std::string_view parent;
    std::string_view name;
    ASSERT_EQ(window().gsGetObject(parent, name), 1);
    seen += std::string(parent) + ' ' + std::string(name) + ';';
  }
  EXPECT_EQ(seen, "BOLTS S3;BOLTS S1;") << "newest first";
  std::string_view parent;
  std::string_view name;
  EXPECT_EQ(window().gsGetObject(parent, name), 0) << "after the end no group is current";
}

TEST_F(Window, PicksSeeFiveMillimetresOnPaper) {
  line(0, 0, 100, 0);
  for (const auto& [scale, unit] : {std::pair{1.0, 1.0}, {50.0, 1.0}, {500.0, 1000.0}, {1.0, 1000.0}}) {
    Parameters parameters;
    parameters.setScale(scale);
    parameters.setUnit(unit);
    drawing().setParameters(parameters);
    const double millimetre = scale / unit;
    EXPECT_EQ(window().gsNearestPrim(0, 50, 4.99 * millimetre), kLinePrimitive) << scale;
    EXPECT_EQ(window().gsNearestPrim(0, 50, -5.01 * millimetre), 0) << scale;
    PrimHeader none;
    EXPECT_EQ(window().gsGetPrimHeader(none), 0);
  }
  EXPECT_EQ(window().gsNearestPrim(kArcPrimitive, 50, 0), 0);
  EXPECT_EQ(window().gsNearestPrim(0, std::numeric_limits<double>::quiet_NaN(), 0), 0);
  window().gsNearestPrim(0, 50, 0);
  EXPECT_EQ(current().type, kLinePrimitive);
  window().gsSetLayerVisibility(0, 0, 0);
  EXPECT_EQ(window().gsNearestPrim(0, 50, 0), 0) << "hidden layers are never picked";
}

TEST_F(Window, WhatIsPickedIsReadBack) {
  double values[6] = {};
  auto& [startX, startY, centreX, centreY, endX, endY] = values;
  int direction = 7;
  char text[5] = "none";
  for (const int turned : {0, 1}) {
    header(kArcPrimitive);
    window().gsSetArc(10, turned, 1, turned, 1, 9 + turned, turned, 1, 0);
    window().gsAddPrim();
    EXPECT_EQ(window().gsNearestPrim(kArcPrimitive, 10, turned), kArcPrimitive);
    EXPECT_EQ(window().gsGetArc(startX, startY, centreX, centreY, endX, endY, direction), 1);
    EXPECT_EQ(std::to_array(values), (std::array{10.0, 0.0 + turned, 1.0, 0.0 + turned, 1.0, 9.0 + turned}));
    EXPECT_EQ(direction, turned);
  }
  EXPECT_EQ(window().gsGetText(startX, startY, text, sizeof text), 0) << "an arc is no text";
  header(kTextPrimitive);
  window().gsSetFont("Arial", 1, 25, 0, 0, 1, 100, 0, 0);
  window().gsSetText(100, 100, "Longer than that");
  window().gsAddPrim();
  EXPECT_EQ(window().gsNearestPrim(0, 100, 100), kTextPrimitive);
  EXPECT_EQ(window().gsGetArc(startX, startY, centreX, centreY, endX, endY, direction), 0);
  EXPECT_EQ(window().gsGetText(startX, startY, text, sizeof text), 1);
  EXPECT_STREQ(text, "Long");
  EXPECT_EQ(startX, 100.0);
}

TEST_F(Window, PicksLookAtTheOpenGroupFirst) {
  const PrimitiveId nearer = line(0, 0, 100, 0);
  macros({"PARENT \"P\"", "BEGINGROUP \"G\""});
  EXPECT_EQ(window().pick({50, 1}, kAnyPrimitive), nearer);
  const PrimitiveId own = line(0, 4, 100, 4);
  EXPECT_EQ(window().pick({50, 1}, kAnyPrimitive), own);
  EXPECT_EQ(window().pick({50, -3}, kAnyPrimitive), nearer) << "the open group holds nothing within the aperture";
}

TEST_F(Window, EscapeStaysRaisedUntilTheCommandEnds) {
  start("point 1 2\nspace\nescape\npoint 3 4\nescape\n");
  double x = 7.0;
  double y = 7.0;
  window().beginCommand("first");
  EXPECT_EQ(window().gsGetPointFromUser("P", x, y), 0);
  EXPECT_NE(window().gsGetPointFromUser("P", x, y), 0);
  EXPECT_EQ(window().gsEscapePressed(), 0) << "the space bar is no Escape";
  EXPECT_EQ((Point{x, y}), (Point{1, 2})) << "a prompt that was ended leaves the coordinates";
  EXPECT_NE(window().gsGetPointFromUser("P", x, y), 0);
  EXPECT_NE(window().gsEscapePressed(), 0);
  EXPECT_EQ(window().gsGetPointFromUser("P", x, y), 0);
  EXPECT_NE(window().gsEscapePressed(), 0);
  window().endCommand(true);
  window().beginCommand("second");
  EXPECT_EQ(window().gsEscapePressed(), 0);
  std::string text = "default";
  window().gsGetTextFromPromptBar("T", text, 0);
  EXPECT_EQ(text, "");
  EXPECT_NE(window().gsEscapePressed(), 0);
  window().endCommand(true);
}

TEST_F(Window, TypedAnswersAreTakenWholeOrRefused) {
  const std::string longest(1023, 'x');
  start("text \"" + longest + "\"\ntext \"" + longest + "y\"\n");
  std::string text = "d";
  window().gsGetTextFromPromptBar("T", text, 0);
  EXPECT_EQ(text, longest);
  const std::string told = failureOf([&] { window().gsGetTextFromPromptBar("T", text, 0); });
  EXPECT_NE(told.find(":2: An answer takes 1023 characters at most, this one has 1024."), std::string::npos) << told;
}

TEST_F(Window, DefaultsAreTakenAndMenusCounted) {
  start("accept\nspace\n");
  std::string text;
  text = "offered";
  window().gsGetTextFromPromptBar("T", text, 0);
  EXPECT_EQ(text, "offered");
  window().gsGetTextFromPromptBar("T", text, 0);
  EXPECT_EQ(text, "");
  // Menus are counted from one, without their marks.
  start("menu \"Rotate 90\"\ncancel\nmenu \"No Rotation\"\n");
  EXPECT_EQ(window().gsSubMenu("&No Rotation, Rotate &90,Other"), 2);
  EXPECT_EQ(window().gsSubMenu("&No Rotation, Rotate &90,Other"), 0);
  EXPECT_EQ(window().gsSubMenu("&No Rotation"), 1);
}

TEST_F(Window, ACommandStartsAndEndsClean) {
  drawing().select(line(0, 0, 1, 0));
  window().beginCommand("first");
  EXPECT_FALSE(drawing().hasSelection());
  const int handle = everything(0);
  macro("SELECTNEW 1");
  line(0, 0, 1, 1);
  window().gsSetCursorHold(1);
  macro("LOCKANG K 30");
  window().gsSetRubberBand(1);
  window().endCommand(true);
  EXPECT_FALSE(drawing().hasSelection() || window().selectsNew());
  const Cursor& cursor = window().cursor();
  EXPECT_FALSE(cursor.held() || cursor.lockedAngle() || cursor.rubberBand());
  EXPECT_EQ(window().gsGetNextPrim(handle), 0) << "a scan ends with its command";
}

TEST_F(Window, ACommandIsOneUndoStepAndABracketAnother) {
  const std::string empty = json();
  window().beginCommand("command");
  line(0, 0, 1, 0);
  line(0, 1, 1, 1);
  const std::string beforeBracket = json();
  macro("SETMACUNDO 1");
  line(0, 2, 1, 2);
  macro("SETMACUNDO 0");
  const std::string afterBracket = json();
  line(0, 3, 1, 3);
  window().endCommand(true);
  const std::string whole = json();
  for (const std::string& state : {afterBracket, beforeBracket, empty}) {
    ASSERT_TRUE(drawing().undo());
    EXPECT_EQ(json(), state);
  }
  EXPECT_FALSE(drawing().undo());
  while (drawing().redo()) {}
  EXPECT_EQ(json(), whole);
}

TEST_F(Window, AFailedCommandTakesAllBackBracketsIncluded) {
  line(9, 9, 8, 8);
  const std::string before = json();
  window().beginCommand("failing");
  line(0, 0, 1, 0);
  macros({"SETMACUNDO 1", "NEWLAYER \"L\""});
  line(0, 2, 1, 2);
  window().endCommand(false);
  EXPECT_EQ(json(), before);
  ASSERT_TRUE(drawing().undo());
  EXPECT_FALSE(drawing().undo());
  window().beginCommand("empty");
  window().endCommand(true);
  EXPECT_FALSE(drawing().undo()) << "a command that changed nothing is no step";
}

TEST_F(Window, ABracketLeftOpenByTheUserEndsWithTheNextCommand) {
  macro("SETMACUNDO 1");
  line(0, 0, 1, 0);
  line(0, 1, 1, 1);
  window().beginCommand("next");
  line(0, 2, 1, 2);
  window().endCommand(true);
  ASSERT_TRUE(drawing().undo());
  EXPECT_EQ(drawing().count(), 2U);
  ASSERT_TRUE(drawing().undo());
  EXPECT_EQ(drawing().count(), 0U);
}

TEST_F(Window, DrawingParametersAreTakenWholeOrRefused) {
  DrawingParms parms;
  window().gsGetDrawingParms(parms);
  EXPECT_EQ(parms.p[1], 1.0);
  EXPECT_EQ(parms.p[3], 100000.0);
  EXPECT_EQ(parms.p[6], parms.p[7]);
  parms.p[1] = 500.0;
  parms.p[7] = 0.0;
  window().gsSetDrawingParms(parms);
  window().gsGetDrawingParms(parms);
  EXPECT_EQ(parms.p[1], 500.0);
  EXPECT_EQ(parms.p[6], 0.0) << "P6 is P7 always";
  const std::string before = json();
  constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
  const std::pair<int, double> bad[] = {{1, 0.0},   {1, kNan}, {1, -500.0},  {3, 0.0},    {3, 1e308 * 10}, {7, 3.0},
                                        {7, 1e300}, {10, 2.0}, {10, -1e300}, {11, 1e300}, {2, kNan},       {12, kNan}};
  for (const auto& [index, value] : bad) {
    DrawingParms spoiled = parms;
    spoiled.p[index] = value;
    EXPECT_THROW(window().gsSetDrawingParms(spoiled), HostFailure) << 'P' << index << ' ' << value;
  }
  EXPECT_EQ(json(), before);
}

TEST_F(Window, PrimitivesAreCopiedToAnotherWindow) {
  macros({"PARENT \"P\"", "BEGINGROUP \"G\""});
  line(1, 2, 3, 4);
  window().gsNearestPrim(0, 1, 2);
  DrawingWindow& source = window();
  DrawingWindow& target = host().openWindow("Copy");
  EXPECT_EQ(source.gsCopyPrimHeader(target), 1);
  EXPECT_THROW(target.gsAddPrim(), HostFailure) << "a header alone is no primitive";
  EXPECT_EQ(source.gsCopyPrimHeader(target) + source.gsCopyPrim(target), 2);
  EXPECT_EQ(target.drawing().count(), 0U) << "set up, not added yet";
  target.gsAddPrim();
  ASSERT_EQ(target.drawing().count(), 1U);
  EXPECT_EQ(target.drawing().find(1)->group, 0);
  EXPECT_EQ(std::get<Line>(target.drawing().find(1)->geometry).b, (Point{3, 4}));
}

// Layers go by name where their numbers differ, with the pen of what is by layer; symbols bring their definitions.
TEST_F(Window, CopiesComeWithLayerAndSymbol) {
  DrawingWindow& source = window();
  drawing().addLayer({"GONE"});
  const int layer = drawing().addLayer({"BEACONS"});
  LayerDef definition{"BEACONS", true, false, 7};
  source.gsSetLayerDefIndex(layer, definition);
  drawing().removeLayer(drawing().layerNamed("GONE"));
  drawing().addSymbol({"DOT", {Primitive{}}});
  drawing().add({.layer = layer, .pen = kPenByLayer, .geometry = Symbol{"DOT", {5, 5}}});
  source.gsGetLayerDefIndex(layer, definition);
  EXPECT_EQ(definition.pen, 7);
  source.gsNearestPrim(0, 5, 5);
  DrawingWindow& target = host().openWindow("Copy");
  source.gsCopyPrimHeader(target);
  source.gsCopyPrim(target);
  target.gsAddPrim();
  const Layer& copied = *target.drawing().layer(target.drawing().find(1)->layer);
  EXPECT_EQ(copied.name, "BEACONS");
  EXPECT_EQ(copied.pen, 7);
  EXPECT_NE(target.drawing().symbol("DOT"), nullptr);
}

TEST_F(Window, WindowsOpenedByCommandsBearNamesOfTheirOwn) {
  host().openWindow("Drawing3");
  ASSERT_NE(host().mainFrame().SendUserMessage(CMDIFrameWnd::kNewDrawingView), nullptr);
  std::vector<std::string> names = host().windowNames();
  std::sort(names.begin(), names.end());
  EXPECT_EQ(std::unique(names.begin(), names.end()), names.end()) << "two windows of one name";
}

}  // namespace
