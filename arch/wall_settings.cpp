#include "arch/wall_settings.h"

namespace ardenix::arch {

namespace {

constexpr std::string_view kWallSection = "WALLS";
constexpr std::string_view kJoinKey = "JoinWalls";

}  // namespace

WallSettings readWallSettings(const ArchSpecStore& store) {
  WallSettings settings;
  const auto flag = [&store](std::string_view key) { return store.readInt(kWallSection, key, 1) != 0; };
  settings.parentName = store.readString(kWallSection, "ParentName", "");
  settings.current = store.readInt(kWallSection, "Current");
  settings.tracks = !flag("Method");
  settings.clockwise = settings.tracks || flag("Direction");
  settings.outside = flag("Face");
  settings.joins = store.readInt(kWallSection, kJoinKey) != 0;
  return settings;
}

void saveWall(ArchSpecStore& store, const WallSettings& settings, const WallType& wall) {
  store.writeString(kWallSection, "ParentName", settings.parentName);
  store.writeInt(kWallSection, "Current", settings.current);
  store.writeInt(kWallSection, "Method", settings.tracks ? 0 : 1);
  store.writeInt(kWallSection, "Direction", settings.clockwise ? 1 : 0);
  store.writeInt(kWallSection, "Face", settings.outside ? 1 : 0);
  store.writeOption(kWallSection, kJoinKey, settings.joins);
  store.writeInt(kWallSection, wall.internal ? "InternalWall" : "ExternalWall", settings.current);
  store.writeRecord(settings.current, wallRecord(wall), kWallTypes);
  store.flush();
}

}  // namespace ardenix::arch
