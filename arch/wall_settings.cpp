#include "arch/wall_settings.h"

namespace ardenix {

namespace {

constexpr std::string_view kSection = "WALLS";

}  // namespace

WallSettings readWallSettings(const ArchSpecStore& store) {
  WallSettings settings;
  const auto flag = [&store](std::string_view key) { return store.readInt(kSection, key, 1) != 0; };
  settings.parentName = store.readString(kSection, "ParentName", "");
  settings.current = store.readInt(kSection, "Current");
  settings.tracks = !flag("Method");
  settings.clockwise = settings.tracks || flag("Direction");
  settings.outside = flag("Face");
  return settings;
}

void saveWall(ArchSpecStore& store, const WallSettings& settings, const WallType& wall) {
  store.writeString(kSection, "ParentName", settings.parentName);
  store.writeInt(kSection, "Current", settings.current);
  store.writeInt(kSection, "Method", settings.tracks ? 0 : 1);
  store.writeInt(kSection, "Direction", settings.clockwise ? 1 : 0);
  store.writeInt(kSection, "Face", settings.outside ? 1 : 0);
  store.writeInt(kSection, wall.internal ? "InternalWall" : "ExternalWall", settings.current);
  store.writeRecord(settings.current, wallRecord(wall), kWallTypes);
  store.flush();
}

}  // namespace ardenix
