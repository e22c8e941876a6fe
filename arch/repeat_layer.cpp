#include "arch/repeat_layer.h"

#include "frame/drafting/macro_texts.h"

namespace ardenix::arch {

void RepeatLayer::select() {
  view_.gsClearSelection();
  view_.gsExecuteMacro(macroText::selectLayer(scratchNames::kArchitecturalRepeated));
}

void RepeatLayer::repeat(int copies, Point from, Point to) {
  select();
  view_.gsExecuteMacro(macroText::repeatSteps(copies, from, to));
}

void RepeatLayer::multiply(int copies, Point from, Point to) {
  if (copies > 0) { repeat(copies, from, to); }
  settle();
}

void RepeatLayer::settle() {
  select();
  view_.gsExecuteMacro(macroText::moveToLayer(scratchNames::kArchitectural));
}

}  // namespace ardenix::arch
