#pragma once

#include <string>
#include <vector>

#include "host/drawing/drawing.h"
#include "host/scripts/script_cursor.h"

// One member of a primitive: its words or its numbers. The first members of a kind have no name.
struct ThingMember {
  std::string name;
  std::string text;
  std::vector<double> numbers;
};

// A primitive as a line of an expected file shows it.
struct DrawnThing {
  std::string kind;  // as in JSON drawings, but "circle" for a closed arc
  brevan::Geometry geometry;
  std::vector<ThingMember> members;

  [[nodiscard]] std::string shown() const;
};

// Every primitive, in the order in which they were drawn. Arcs run counter-clockwise.
std::vector<DrawnThing> drawnThings(const brevan::Drawing& drawing);

// What a line of an expected file looks for: [no | COUNT] KIND [VALUE...] [MEMBER VALUE...].
class WantedThing {
 public:
  // Fails for a line that no primitive could match.
  WantedThing(const brevan::ScriptCursor& cursor, const brevan::Statement& statement);

  [[nodiscard]] long count(const std::vector<DrawnThing>& things) const;
  [[nodiscard]] bool holds(long count) const { return wanted_ < 0 ? count > 0 : count == wanted_; }

 private:
  [[nodiscard]] bool matches(const DrawnThing& thing) const;

  std::string kind_;
  long wanted_ = -1;  // below 0: one or more
  std::vector<ThingMember> members_;
};
