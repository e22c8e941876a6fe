#include <gtest/gtest.h>

#include <functional>
#include <memory>

#include "mech/drilled_hole.h"
#include "mech/hex_bolt.h"
#include "mech/nut.h"
#include "mech/record_format.h"
#include "mech/rivet.h"
#include "mech/socket_screw.h"
#include "tests/mech/fastener_session.h"

namespace {

using Fields = std::span<const ardenix::RecordField>;

struct DrawnKind {
  const char* name;
  Fields (*fields)();
  std::unique_ptr<ardenix::FastenerDrawer> (*make)(CCadWindow& view, const ardenix::DefinitionStore& store);
  bool turned;
};

template <class Drawer>
std::unique_ptr<ardenix::FastenerDrawer> make(CCadWindow& view, const ardenix::DefinitionStore& store) {
  return std::make_unique<Drawer>(view, store);
}

const DrawnKind kDrawnKinds[] = {{"bolt", ardenix::boltFields, make<ardenix::HexBolt>, false},
                                 {"screw", ardenix::screwFields, make<ardenix::SocketScrew>, false},
                                 {"nut", ardenix::nutFields, make<ardenix::Nut>, true},
                                 {"hole", ardenix::holeFields, make<ardenix::DrilledHole>, false},
                                 {"rivet", ardenix::rivetFields, make<ardenix::Rivet>, false}};

// Draws parts past their dialogs, as a library may hold them: the same values every time, picked from the ends
// of the fields' ranges.
class FastenerExtremes : public FastenerSession, public ::testing::WithParamInterface<DrawnKind> {
 protected:
  void testStep(const std::string&) override {
    const ardenix::DefinitionStore store(path_);
    const auto drawer = GetParam().make(host().window(), store);
    drawer->take(nextRecord());
    EXPECT_TRUE(drawer->drawSideView());
    EXPECT_TRUE(drawer->drawPlanView());
  }

  std::string path_ = useLibrary(kSetup);

 private:
  unsigned next() { return state_ = state_ * 1103515245U + 12345U; }
  std::vector<double> nextRecord() {
    constexpr double kLengths[] = {0.0, 0.001, 1.0, 9999.999, 10000.0};
    std::vector<double> record;
    for (const ardenix::RecordField& field : GetParam().fields()) {
      const unsigned pick = next() >> 16U;
      record.push_back(field.format == "%d" ? pick % 2 : kLengths[pick % std::size(kLengths)]);
    }
    return record;
  }
  unsigned state_ = 1;
};

// The drawing refuses what is not finite.
TEST_P(FastenerExtremes, AnyRecordIsDrawnInFiniteStrokes) {
  std::string script;
  for (int i = 0; i < 200; ++i) {
    script += std::string("test draw\npoint 0 0\n") + (GetParam().turned ? "point 0 0\n" : "menu \"No Rotation\"\n") +
              "point 5 -20000\npoint 5 -20000\n";
  }
  play(script);
  EXPECT_GT(drawing().count(), 200U * 8U);
}

INSTANTIATE_TEST_SUITE_P(Kinds, FastenerExtremes, ::testing::ValuesIn(kDrawnKinds),
                         [](const auto& kind) { return std::string(kind.param.name); });

}  // namespace
