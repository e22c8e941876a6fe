#pragma once

#include "arch/spec_store.h"
#include "arch/wall_settings.h"
#include "arch/wall_type.h"
#include "frame/drafting/point.h"

namespace ardenix::arch {

// Draws walls of the current type: gives the host's parallel-line command the wall's lines and its first
// point, the user gives that command the others.
class WallDrawer {
 public:
  explicit WallDrawer(ArchSpecStore& store) : store_(store) { load(); }

  // Reads settings and the current type from the store; a type that is missing leaves the type as it is.
  void load();
  void loadType(int number);
  void save() { saveWall(store_, settings, type); }

  // Asks for a first point and draws one wall. False when the user gave none, or when the wall cannot be
  // drawn as it is set up. What the host does not draw for this point alone may do for another.
  bool drawRound();

  WallSettings settings;
  WallType type;

 private:
  bool define();
  bool send(const std::string& macro);
  void join(const std::string& group);

  ArchSpecStore& store_;
};

}  // namespace ardenix::arch
