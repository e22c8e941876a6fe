#include <cmath>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "arch/wall_type.h"
#include "frame/host/core_services.h"
#include "fuzz/byte_choices.h"
#include "fuzz/laws.h"
#include "host/core/file_services.h"
#include "host/window/host.h"
#include "host/window/silent_user.h"
#include "mech/definition_kinds.h"
#include "mech/definition_store.h"
#include "mech/part_drawer.h"

// The first byte chooses a kind of part, the rest is its record as a library may hold it: its values are finite, which
// reading them makes sure of, a record that was written is written again alike, and the part is drawn in finite strokes
// or refused by the host.
namespace {

using namespace fuzzing;
using namespace ardenix;
using namespace ardenix::arch;

// The kinds that a command draws.
std::vector<const mech::DefinitionKind*> drawnKinds() {
  std::vector<const mech::DefinitionKind*> kinds;
  for (const mech::DefinitionKind& kind : mech::definitionKinds()) {
    if (kind.drawer != nullptr) { kinds.push_back(&kind); }
  }
  return kinds;
}

void part(const mech::DefinitionKind& kind, std::string_view record) {
  brevan::SilentUser user;
  brevan::FileServices files("/nonexistent", "/nonexistent");
  INI_LIST settings("");
  brevan::Host host({user, files, settings, nullptr, ""});
  const mech::DefinitionStore store("library.ini");
  const auto drawer = kind.drawer(host.window(), store);
  drawer->takeRecord(record);
  const std::string once = drawer->recordText("part");
  drawer->takeRecord(once);
  require(drawer->recordText("part") == once);
  drawer->takeRecord(record);
  try {
    drawer->sketch();
  } catch (const HostFailure&) {}
  requireSound(host.window().drawing());
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
  static const std::vector<const mech::DefinitionKind*> kinds = drawnKinds();
  const size_t kind = input.below(kinds.size() + 1);
  const std::string_view record = input.line();
  kind < kinds.size() ? part(*kinds[kind], record) : wall(record);
  return 0;
}
