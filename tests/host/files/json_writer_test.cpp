#include "host/files/json_writer.h"

#include <gtest/gtest.h>

namespace brevan {
namespace {

TEST(Json, DrawingIsWrittenMemberByMember) {
  Drawing drawing;
  Parameters metres;
  metres.setUnit(1000.0);
  metres.setScale(500.0);
  drawing.setParameters(metres);
  const int walls = drawing.addLayer({"W\xE4nde", false, true, 3});
  const GroupId group = drawing.addGroup("BOLTS", "M10_S1");
  drawing.add({.layer = walls, .width = 2.5, .group = group, .geometry = Line{{-0.0, 0.1}, {1e21, -2.5}}});
  drawing.add({.geometry = Symbol{"FILLET", {1.0, 2.0}, 1.0, 90.0, true}});
  EXPECT_EQ(drawingJson(drawing),
            R"({"format":"brevan-drawing","version":1,
 "parameters":{"scale":500,"unit":1000,"coordinateSystem":1,"orientation":0,"all":[500,0,1e+08,0,0,1,1,0,0,0,6,0]},
 "layers":[{"index":0,"name":"0","visible":true,"locked":false,"current":true},
  {"index":1,"name":"Wände","visible":false,"locked":true,"current":false}],
 "symbols":[],
 "primitives":[
  {"id":1,"type":"line","layer":"Wände","pen":1,"linetype":1,"width":2.5,"parent":"BOLTS","group":"M10_S1","groupId":1,"p1":[0,0.1],"p2":[1e+21,-2.5]},
  {"id":2,"type":"symbol","layer":"0","pen":1,"linetype":1,"width":0,"parent":"","group":"","groupId":0,"name":"FILLET","at":[1,2],"scale":1,"rotation":90,"mirrored":true}]}
)");
}

TEST(Json, EveryKindOfPrimitiveHasItsMembersOnce) {
  Drawing drawing;
  drawing.add({.geometry = Arc{{1.0, 0.0}, {0.0, 0.0}, {0.0, 1.0}, true}});
  drawing.add({.geometry = Text{{1.0, 2.0}, "A\\nB", "Arial", 35.0, 900.0, 4, 4, 256, 1.0}});
  drawing.add({.geometry = Arrow{{0.0, 0.0}, {5.0, 0.0}, 20.0, 10.0, {0, 0, 256}}});
  drawing.add({.geometry = Dimension{DimensionKind::kVertical, {1.0, 2.0}, {3.0, 4.0}, {5.0, 6.0}, "2.000"}});
  const auto membersOf = [&drawing](PrimitiveId id) {
    std::string out;
    JsonObject object(out);
    addPrimitiveMembers(object, drawing, id);
    object.close();
    return out.substr(out.find("\"groupId\":0,") + 12);
  };
  EXPECT_EQ(membersOf(1), R"("start":[1,0],"centre":[0,0],"end":[0,1],"direction":1})");
  EXPECT_EQ(membersOf(2),
            R"("at":[1,2],"text":"A\\nB","font":"Arial","height":35,"angle":900,"justification":4,"style":4})");
  EXPECT_EQ(membersOf(3), R"("p1":[0,0],"p2":[5,0],"length":20,"width":10,"style":[0,0,256]})");
  EXPECT_EQ(membersOf(4), R"("kind":"vertical","at":[1,2],"p1":[3,4],"p2":[5,6],"text":"2.000"})");
  // A text's pen is its font's; an arrow's width its head's.
  const std::string json = drawingJson(drawing);
  EXPECT_NE(json.find(R"("type":"text","layer":"0","pen":256)"), std::string::npos);
  EXPECT_NE(json.find(R"("lineWidth":0)"), std::string::npos);
}

}  // namespace
}  // namespace brevan
