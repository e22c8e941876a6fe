#pragma once

#include "mech/annotation_style.h"

namespace ardenix::mech {

// How the three kinds of annotation would be drawn.
struct AnnotationSamples {
  AnnotationStyle weld;
  ArrowHead weldHead;
  AnnotationStyle finish;
  AnnotationStyle tolerance;
};

// One of each, beside each other: what the settings make of them. A kind without a size is left out.
void sketchAnnotations(CCadWindow& view, const AnnotationSamples& samples);

}  // namespace ardenix::mech
