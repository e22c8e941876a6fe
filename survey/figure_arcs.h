#pragma once

#include "frame/host/cad_window.h"
#include "survey/figure.h"

namespace ardenix::survey {

// Gives the sides of a traced figure the arcs that the view shows between their corners, where no line joins these.
void takeArcs(CCadWindow& view, Figure& figure);

}  // namespace ardenix::survey
