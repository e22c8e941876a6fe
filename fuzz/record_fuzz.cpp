#include <cmath>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "arch/wall_type.h"
#include "frame/host/core_services.h"
#include "fuzz/byte_choices.h"
#include "fuzz/laws.h"
#include "host/core/file_services.h"
#include "host/window/host.h"
#include "host/window/silent_user.h"
#include "mech/definition_store.h"
#include "mech/drilled_hole.h"
#include "mech/hex_bolt.h"
#include "mech/nut.h"
#include "mech/record_format.h"
#include "mech/rivet.h"
#include "mech/socket_screw.h"

// The first byte chooses a kind of part, the rest is its record as a library may hold it: its values are finite, a
// record that was written is written again alike, and the part is drawn in finite strokes or refused by the host.
namespace {

using namespace fuzzing;
using namespace ardenix;

template <class Drawer>
std::unique_ptr<FastenerDrawer> make(CCadWindow& view, const DefinitionStore& store) {
  return std::make_unique<Drawer>(view, store);
}

std::vector<double> numbersOf(std::string_view record, std::span<const RecordField> fields) {
  return fields.data() == holeFields().data() ? readHoleRecord(record) : readRecord(record, fields);
}

struct Kind {
  std::span<const RecordField> (*fields)();
  std::unique_ptr<FastenerDrawer> (*make)(CCadWindow& view, const DefinitionStore& store);
};
constexpr Kind kKinds[] = {{boltFields, make<HexBolt>},
                           {screwFields, make<SocketScrew>},
                           {nutFields, make<Nut>},
                           {holeFields, make<DrilledHole>},
                           {rivetFields, make<Rivet>}};

void sketch(const Kind& kind, std::span<const double> values) {
  brevan::SilentUser user;
  brevan::FileServices files("/nonexistent", "/nonexistent");
  INI_LIST settings("");
  brevan::Host host({user, files, settings, nullptr, ""});
  const DefinitionStore store("library.ini");
  const auto drawer = kind.make(host.window(), store);
  try {
    drawer->take(values);
    drawer->sketch();
  } catch (const HostFailure&) {}
  requireSound(host.window().drawing());
}

void fastener(const Kind& kind, std::string_view record) {
  const std::span<const RecordField> fields = kind.fields();
  const std::vector<double> values = numbersOf(record, fields);
  for (const double value : values) { require(std::isfinite(value)); }
  const std::string once = writeRecord(recordName(record), values, fields);
  const std::string twice = writeRecord(recordName(once), numbersOf(once, fields), fields);
  require(once == twice);
  sketch(kind, values);
}

void wall(std::string_view record) {
  const WallType wall = readWallType(record);
  for (const double width : wall.widths) { require(std::isfinite(width)); }
  const std::string once = wallRecord(wall);
  require(wallRecord(readWallType(once)) == once);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  ByteChoices input(data, size);
  const size_t kind = input.below(std::size(kKinds) + 1);
  const std::string_view record = input.line();
  kind < std::size(kKinds) ? fastener(kKinds[kind], record) : wall(record);
  return 0;
}
