#pragma once

#include <map>
#include <string>
#include <vector>

#include "host/drawing/sheet.h"
#include "host/drawing/text_layout.h"
#include "host/files/drg_writer.h"
#include "host/files/json_writer.h"
#include "tests/mech/command_session.h"

// Diagrams by a settings file of the test's own, beside which its drawings lie, traced round a rectangle of 20 x 30
// metres at 1:500: 1 mm on paper is half a metre. Rows that a test does not set have size 0, so that nothing is asked.
class DiagramSession : public CommandSession {
 protected:
  using Point = brevan::Point;
  static constexpr const char* kTrace =
      "run SG_TracePolyArea\npoint 1000 2000\naccept\npoint 1020 2000\naccept\npoint 1020 2030\naccept\npoint 1000 "
      "2030\naccept\npoint 1000 2000\n";
  static constexpr const char* kErf =
      "line 1000 2000 1020 2000\nline 1020 2000 1020 2030\nline 1020 2030 1000 2030\nline 1000 2030 1000 2000\n";

  DiagramSession() {
    settings().SetString("SG_DEFAULTS", "SG_DiaramFile", folder() + "/job/job.ini");
    for (const char* key :
         {"PropDescr", "Situation1", "Situation2", "District", "Province", "SurvDate", "PLS", "SGNr", "Transfer",
          "FileNr", "CompNr", "GenPlan", "ErfNr", "LOSys", "YConst", "XConst", "BDescr", "ServDet", "Note"}) {
      ini_["SG_QUESTIONS"][key] = "x,0,0,1,0,1,Arial,0";
    }
    for (const char* key : {"Beacon", "Serv", "Figure", "Area", "Notes", "Scale"}) {
      ini_["TEXT"][key] = "x,0,0,1,0,1,Arial,0";
    }
    ini_["TEXT"]["Data"] = "unused,-180,-20,2,25,1,Arial,0";
    ini_["DATA"] = {{"Figure1", ",0,30,60,80,110,140"}, {"Figure2", ",2,8,8,5,8,8"}};
    ini_["DEFAULTS"] = {{"Titleblock", "title.drg"},
                        {"Symbol", "symbols.drg"},
                        {"Decimal", "C"},
                        {"Thousand", "S"},
                        {"Bearing", "S"},
                        {"UseOffset", "1"},
                        {"Offset", "10"},
                        {"CornerDiam", "2.0"}};
    writeTemplates();
  }

  // A new host with a drawing window in metres at 1:500, in which the statements are played.
  void draw(const std::string& statements, int orientation = 1) {
    orientation_ = orientation;
    std::string text;
    for (const auto& [section, keys] : ini_) {
      text += "[" + section + "]\n";
      for (const auto& [key, value] : keys) { text.append(key).append("=").append(value).append("\n"); }
    }
    write("job/job.ini", text);
    log_.lines.clear();
    play("test survey\n" + statements);
  }
  void trace(const std::string& answers = "", int orientation = 1) { draw(kErf + (kTrace + answers), orientation); }

  void testStep(const std::string& name) override {
    if (name == "hide") { return addHidden(); }
    if (name == "arcs") { return addArcs(); }
    if (name == "note") { return static_cast<void>(before_ = brevan::drawingJson(drawing())); }
    brevan::Parameters parameters;
    parameters.setUnit(1000.0);
    parameters.setScale(500.0);
    parameters.setCoordinateSystem(name == "cartesian" ? 1 : 0);
    parameters.setOrientation(orientation_);
    drawing().setParameters(parameters);
  }

  // Millimetres from the sheet's lower left corner.
  Point onPaper(Point at) { return brevan::toSheet(*drawing().sheet(), drawing().parameters())(at); }
  // Millimetres from the title block's top right corner.
  Point fromOrigin(Point at) { return onPaper(at) - Point{200.0, 287.0}; }

  // The first text that reads so; the diagram's own are on its layer.
  const brevan::Text& textReading(const std::string& wanted, size_t which = 0) {
    const brevan::Text* found = nullptr;
    drawing().forEach([&](brevan::PrimitiveId, const brevan::Primitive& primitive) {
      const auto* text = std::get_if<brevan::Text>(&primitive.geometry);
      if (found == nullptr && text != nullptr && text->text == wanted && which-- == 0) { found = text; }
    });
    static const brevan::Text none;
    EXPECT_NE(found, nullptr) << "no text \"" << wanted << '"';
    return found == nullptr ? none : *found;
  }
  [[nodiscard]] bool sent(const std::string& word) const {
    return std::ranges::any_of(log_.of("macro"), [&](const std::string& macro) { return macro.starts_with(word); });
  }
  // How far lines of a layer reach.
  brevan::Box reach(const std::string& layer = "0") {
    brevan::Box box;
    drawing().forEach([&](brevan::PrimitiveId, const brevan::Primitive& primitive) {
      const auto* line = std::get_if<brevan::Line>(&primitive.geometry);
      if (line == nullptr || drawing().layer(primitive.layer)->name != layer) { return; }
      box.add(line->a);
      box.add(line->b);
    });
    return box;
  }
  std::map<std::string, std::map<std::string, std::string>> ini_;
  std::string before_;
  std::vector<brevan::Arc> arcs_;  // which `test arcs` draws

 private:
  void writeTemplates() {
    brevan::Drawing title;
    const int layer = title.addLayer({"TITLE"});
    const Point corners[] = {{-95, -138.5}, {95, -138.5}, {95, 138.5}, {-95, 138.5}};
    for (size_t n = 0; n < 4; ++n) {
      title.add({.layer = layer, .geometry = brevan::Line{corners[n], corners[(n + 1) % 4]}});
    }
    title.add({.layer = layer, .geometry = brevan::Text{{-90, 130}, "SIDES", "Arial", 25.0}});
    write("job/title.drg", brevan::drawingDrg(title));
    brevan::Drawing symbols;
    for (const char* name : {"TRIG", "WITNESS"}) {
      symbols.addSymbol({name, {{.geometry = brevan::Line{{-1, 0}, {1, 0}}}}});
    }
    write("job/symbols.drg", brevan::drawingDrg(symbols));
  }

  void addHidden() {
    const int hidden = drawing().addLayer({"HIDDEN", false, false});
    const int locked = drawing().addLayer({"LOCKED", true, true});
    drawing().addLayer({"SG_DIAGRAM", true, true});
    drawing().add({.layer = hidden, .geometry = brevan::Line{{990, 2010}, {1060, 2010}}});
    drawing().add({.layer = locked, .geometry = brevan::Line{{990, 2020}, {1060, 2020}}});
  }

  void addArcs() {
    for (const brevan::Arc& arc : arcs_) { drawing().add({.geometry = arc}); }
  }

  int orientation_ = 1;
};
