#pragma once

#include <optional>
#include <string_view>

#include "arch/spec_store.h"
#include "arch/stair_drawing.h"
#include "arch/stair_records.h"
#include "arch/stair_settings.h"

namespace ardenix::arch {

// Draws flights of stairs or landings, on plan or on an elevation, one a round.
class StairDrawer {
 public:
  explicit StairDrawer(ArchSpecStore& store);

  // A record that is missing leaves what is there as it is.
  void loadTread(int number);
  void loadRailing(int number);

  // Asks where one flight or landing goes and draws it. False when the user ended at a prompt, or when it cannot be
  // drawn.
  bool drawRound();

  StairSettings settings;
  Stair stair;

 private:
  bool flightRound();
  bool landingRound();
  bool drawFlight(const Flight& flight, std::optional<Point> elevation);
  bool drawLanding(const Landing& landing, std::optional<Point> elevation);
  // Asks until the point differs from the one that the cursor holds; else tells why it is not taken.
  std::optional<Point> askApart(std::string_view prompt, Point held, std::string_view why);
  // Opens the part of a view, draws it and finishes it. False after telling that its layer takes nothing.
  template <class Draw>
  bool drawPart(const StairPlace& place, Draw&& draw);

  ArchSpecStore& store_;
};

}  // namespace ardenix::arch
