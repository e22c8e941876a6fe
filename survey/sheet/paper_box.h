#pragma once

#include "frame/drafting/point.h"

// Room for texts on a sheet: boxes that stand upright on paper, and strokes that may pass through them.
namespace ardenix::survey {

// To the right and up on paper, in drawing units.
struct PaperBox {
  Point low;
  Point high;
};

struct PaperStroke {
  Point a;
  Point b;
};

bool overlap(const PaperBox& one, const PaperBox& other);
bool crosses(const PaperStroke& stroke, const PaperBox& box);
// 0 for a point inside.
double distanceTo(const PaperBox& box, Point p);

// Where a text stands, and which of its corners, sides or its centre stands there.
struct LetterPlace {
  Point at;
  int justification = 1;
};

// A text of this size at a point that lies so far off in a direction (radians on paper): it leads away from where the
// distance is taken from, as a label does from its mark.
struct LeadingText {
  LetterPlace place;
  PaperBox box;
};
LeadingText leadingText(double distance, double angle, Point size);

}  // namespace ardenix::survey
