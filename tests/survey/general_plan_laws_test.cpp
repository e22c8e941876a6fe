#include <algorithm>
#include <cmath>
#include <map>
#include <numbers>
#include <random>
#include <set>

#include "frame/host/number_text.h"
#include "host/drawing/text_layout.h"
#include "host/window/dialog_session.h"
#include "host/window/host.h"
#include "host/window/silent_user.h"
#include "tests/host/drawing/survey_parameters.h"
#include "tests/mech/command_session.h"

// What holds for the plan of every township; tests/cases/general_plans has what a plan holds.
namespace {

class GeneralPlanLaws : public CommandSession {
 protected:
  using Point = brevan::Point;
  using Text = brevan::Text;
  struct Side {
    Point from;
    Point to;
  };

  // Rows of erven of different widths, so that corners of a row lie within sides of the next; turned, far from the
  // origin.
  void layOut(std::mt19937& random, int orientation) {
    const auto between = [&](double least, double most) {
      return std::uniform_real_distribution<double>(least, most)(random);
    };
    orientation_ = orientation;
    angle_ = between(-std::numbers::pi, std::numbers::pi);
    sides_.clear();
    lines_.clear();
    erven_.clear();
    width_ = between(80, 120);
    double v = 0.0;
    for (int row = 0; row < 3; ++row) {
      const double depth = between(25, 45);
      layOutRow(v, v + depth, [&] { return between(18, 35); });
      v += depth;
    }
    depth_ = v;
    lines_.push_back({at(0, v), at(width_, v)});
  }
  void layOutRow(double top, double bottom, const std::function<double()>& frontage) {
    lines_.push_back({at(0, top), at(width_, top)});
    for (double u = 0.0; u < width_;) {
      const double next = width_ - u < 50.0 ? width_ : u + frontage();
      lines_.push_back({at(u, top), at(u, bottom)});
      addErf({at(u, top), at(next, top), at(next, bottom), at(u, bottom)});
      u = next;
    }
    lines_.push_back({at(width_, top), at(width_, bottom)});
  }
  void addErf(const std::vector<Point>& corners) {
    erven_.push_back(corners);
    for (size_t n = 0; n < corners.size(); ++n) { sides_.push_back({corners[n], corners[(n + 1) % corners.size()]}); }
  }
  [[nodiscard]] Point at(double u, double v) const {
    return Point{-48700, 2914200} +
           Point{u * std::cos(angle_) - v * std::sin(angle_), u * std::sin(angle_) + v * std::cos(angle_)};
  }
  void testStep(const std::string&) override {
    brevan::Parameters parameters = brevan::surveyParameters(500.0, 1000.0, orientation_);
    parameters.setAreaUnit(8);
    drawing().setParameters(parameters);
    for (const auto& [from, to] : lines_) { drawing().add({.geometry = brevan::Line{from, to}}); }
  }
  void numberAndDimension(bool parallel, const std::string& more = "") {
    settings().SetString(
        "SG_DEFAULTS", "SG_GenPlanFile",
        write("plan.ini", "[DEFAULTS]\nBearing=D\nLettersClear=1\n[StandSetup]\nDrawAreaTable=0\nWriteArea=1\n"));
    std::string steps = "test township\nrun SG_AreaTable\ndialog \"*\"\npress \"OK\"\n";
    steps += parallel ? "reply Parallel\n" : "reply Horizontal\n";
    for (const auto& erf : erven_) {
      // Within 5 mm on paper of the first side.
      const Point inside = middle(erf[0], erf[1]) + (erf[3] - erf[0]) * 0.04;
      steps += numberText::format("point %.6f %.6f\n", inside.x, inside.y) +
               (&erf == erven_.data() ? "text \"1\"\n" : "accept\n");
    }
    play(steps + "space\nrun SG_MultiSurveyDims\ndialog \"*\"\npress \"OK\"\n" + more);
  }
  // Sides of two erven are one.
  [[nodiscard]] std::vector<Side> boundaries() const {
    std::vector<Side> distinct;
    for (const Side& side : sides_) {
      const bool met = std::ranges::any_of(distinct, [&](const Side& other) {
        return distance(side.from, other.to) < 0.001 && distance(side.to, other.from) < 0.001;
      });
      if (!met) { distinct.push_back(side); }
    }
    return distinct;
  }
  std::vector<Text> textsOn(const std::string& layer) {
    std::vector<Text> texts;
    const int index = drawing().layerNamed(layer);
    drawing().forEach([&](brevan::PrimitiveId, const brevan::Primitive& primitive) {
      const auto* text = std::get_if<Text>(&primitive.geometry);
      if (text != nullptr && primitive.layer == index) { texts.push_back(*text); }
    });
    return texts;
  }
  // As the text's own frame has it: millimetres on paper from its point, along and up.
  [[nodiscard]] Point seenFrom(const Text& text, Point p) {
    const double sign = orientation_ == 1 ? -1.0 : 1.0;
    const Point way = (p - text.at) * (sign / 0.5);
    const double angle = text.angle / 10.0 * std::numbers::pi / 180.0;
    return {way.x * std::cos(angle) + way.y * std::sin(angle), way.y * std::cos(angle) - way.x * std::sin(angle)};
  }

  int orientation_ = 1;
  double angle_ = 0.0;
  double width_ = 0.0;
  double depth_ = 0.0;
  std::vector<Side> lines_;
  std::vector<Side> sides_;
  std::vector<std::vector<Point>> erven_;
};

TEST_F(GeneralPlanLaws, EveryBoundaryIsDimensionedOnceUprightAndBesideItsLine) {
  std::mt19937 random(23);
  for (int n = 0; n < 12; ++n) {
    SCOPED_TRACE(n);
    layOut(random, n % 2);
    numberAndDimension(n % 4 < 2);
    const std::vector<Text> texts = textsOn("SURV_DIMS");
    const std::vector<Side> boundaries = this->boundaries();
    EXPECT_EQ(texts.size(), boundaries.size());
    for (const auto& [from, to] : boundaries) {
      const Point anchor = middle(from, to);
      const auto text = std::ranges::min_element(texts, {}, [&](const Text& t) { return distance(t.at, anchor); });
      const double upright = std::fmod(text->angle, 3600.0);
      EXPECT_TRUE(upright <= 900.0 || upright >= 2700.0) << text->text;
      EXPECT_NE(text->text.find(numberText::format("%.2f", distance(from, to))), std::string::npos) << text->text;
      const brevan::Box box = brevan::layOut(*text).box;
      for (const Point end : {seenFrom(*text, from), seenFrom(*text, to)}) {
        const double away = text->justification == 4 ? box.low.y - end.y : end.y - box.high.y;
        EXPECT_NEAR(away, 35.0 / 35.2777778, 1e-3) << text->text;
      }
    }
  }
}

TEST_F(GeneralPlanLaws, NumbersStandInTheirErvenAndAreasSumToTheFigure) {
  std::mt19937 random(24);
  for (int n = 0; n < 8; ++n) {
    SCOPED_TRACE(n);
    layOut(random, n % 2);
    numberAndDimension(n % 4 < 2);
    const std::vector<Text> texts = textsOn("STAND_NO");
    ASSERT_EQ(texts.size(), erven_.size());
    double sum = 0.0;
    for (size_t erf = 0; erf < erven_.size(); ++erf) {
      const std::vector<Point>& corners = erven_[erf];
      EXPECT_LT(distance(texts[erf].at, middle(corners[0], corners[2])), 0.01);
      EXPECT_TRUE(texts[erf].text.starts_with(std::to_string(erf + 1) + "\\n"));
      sum += std::stod(texts[erf].text.substr(texts[erf].text.find("\\n") + 2));
    }
    EXPECT_NEAR(sum, width_ * depth_, 0.5 * static_cast<double>(erven_.size()));
  }
}

TEST_F(GeneralPlanLaws, LabelsOfCornersStandBesideThemClearOfLinesAndDimensions) {
  std::mt19937 random(25);
  for (int n = 0; n < 6; ++n) {
    SCOPED_TRACE(n);
    layOut(random, n % 2);
    std::string steps = "run SG_BlockTable\npoint 0 0\n";
    for (const auto& [u, v] : {std::pair{0.0, 0.0}, {width_, 0.0}, {width_, depth_}, {0.0, depth_}}) {
      steps += numberText::format("point %.6f %.6f\naccept\n", at(u, v).x, at(u, v).y);
    }
    numberAndDimension(false, steps + "space\n");
    std::vector<Text> labels = textsOn("0");
    std::erase_if(labels, [](const Text& text) { return text.height != 35.0; });  // those of the table
    ASSERT_EQ(labels.size(), 4U);
    std::vector<Side> inTheWay = boundaries();
    for (const Text& text : textsOn("SURV_DIMS")) { inTheWay.push_back({text.at, text.at}); }
    for (const Text& label : labels) {
      const brevan::Box box = brevan::layOut(label).box;
      for (const auto& [from, to] : inTheWay) {
        for (double along = 0.0; along <= 1.0; along += 0.001) {
          const Point p = seenFrom(label, from + (to - from) * along);
          EXPECT_FALSE(p.x > box.low.x && p.x < box.high.x && p.y > box.low.y && p.y < box.high.y) << label.text;
        }
      }
    }
  }
}

// Confirms the dialog and presses Escape when it is shown the third time how far the work went.
class Impatient : public brevan::SilentUser {
 public:
  bool runDialog(dialog::Dialog& dialog) override {
    brevan::DialogSession session(dialog, *this, nullptr);
    session.open();
    for (int control = 0; !session.closed(); ++control) {
      const auto* button = std::get_if<dialog::Button>(&dialog.control(control).state);
      if (button != nullptr && button->role == dialog::ButtonRole::kOk) { session.press(control); }
    }
    return session.accepted();
  }
  bool stopsAtProgress(int, int, const std::string&) override { return ++shown_ == 3; }

 private:
  int shown_ = 0;
};

using StoppedPlan = CoreFixture;

TEST_F(StoppedPlan, KeepsTheDimensionsThatAreDrawnInOneStepOfUndo) {
  settings().SetString("SG_DEFAULTS", "SG_GenPlanFile", write("plan.ini", "[DEFAULTS]\nBearing=D\n"));
  Impatient user;
  brevan::Host host(brevan::HostParts{user, files(), settings(), nullptr, ""});
  host.loadModule(ARDENIX_MODULE);
  brevan::Drawing& drawing = host.window().drawing();
  drawing.setParameters(brevan::surveyParameters(1.0, 1.0, 0));
  const int numbers = drawing.addLayer({"STAND_NO"});
  constexpr int kAlong = 15;
  for (int n = 0; n <= kAlong; ++n) {
    drawing.add({.geometry = brevan::Line{{n * 20.0, 0}, {n * 20.0, kAlong * 30.0}}});
    drawing.add({.geometry = brevan::Line{{0, n * 30.0}, {kAlong * 20.0, n * 30.0}}});
  }
  for (int erf = 0; erf < kAlong * kAlong; ++erf) {
    const int row = erf / kAlong;
    const brevan::Point inside{erf % kAlong * 20.0 + 10.0, row * 30.0 + 15.0};
    drawing.add({.layer = numbers, .geometry = brevan::Text{.at = inside, .text = std::to_string(erf + 1)}});
  }
  const size_t before = drawing.count();
  host.runCommand("SG_MultiSurveyDims");
  EXPECT_EQ(drawing.count(), before + 100) << "two steps of tracing, one of drawing";
  EXPECT_LT(drawing.layerNamed("Z___SURV_DIMS_SCRATCH"), 0);
  ASSERT_TRUE(drawing.undo());
  EXPECT_EQ(drawing.count(), before);
}

}  // namespace
