#pragma once

#include <string>
#include <string_view>

#include "frame/host/cad_window.h"

namespace ardenix {

// The layers of this kind. A user's part cannot lie on one of them: they come and go with every part drawn.
namespace scratchNames {
inline constexpr std::string_view kMechanical = "MECH_SCRATCH";
inline constexpr std::string_view kMechanicalLinked = "MECH_SCRATCH_LNK";
inline constexpr std::string_view kArchitectural = "ARCH_SCRATCH_LNK";
inline constexpr std::string_view kArchitecturalRepeated = "ARCH_SCRATCH_RPT";
inline constexpr std::string_view kSurveyDimensions = "Z___SURV_DIMS_SCRATCH";
}  // namespace scratchNames
bool isScratchName(std::string_view layer);

// Whether the other layers can be picked and cut while a part is drawn on its scratch layer.
enum class Surroundings {
  kShown,
  kCurrentHidden,  // the layer that was current is hidden until the part is finished
};

// Deletes what an interrupted command left on a scratch layer, and the layer.
void removeScratchLayer(CCadWindow& view, std::string_view name);

// The layer of its own on which a part is drawn, and from which it goes to its target. While the object lives the
// scratch layer is current, unlocked and shown. However the object goes, the scratch layer is deleted with what is left
// on it, and the layer that was current is current again.
class ScratchLayer {
 public:
  // What an interrupted command left on a layer of this name is deleted first.
  ScratchLayer(CCadWindow& view, std::string_view name, Surroundings surroundings = Surroundings::kShown);
  ScratchLayer(const ScratchLayer&) = delete;
  ScratchLayer& operator=(const ScratchLayer&) = delete;
  ~ScratchLayer();

  // Selects all that lies on the layer.
  void selectAll();
  // The same, and makes it part of the group.
  void link(std::string_view group);
  // The two ends: the selection goes to the target layer, or a copy of it does.
  void moveTo(std::string_view target);
  void copyTo(std::string_view target);

  // What was hidden can be picked and cut again.
  void showSurroundings();

  // Keeps nothing of what lies on the layer.
  void discard();

  // The layer that is current afterwards, instead of the one that was.
  void leaveCurrent(int layer) { current_ = layer; }

 private:
  CCadWindow& view_;
  std::string name_;
  int current_ = 0;
  int layer_ = kNone;   // until it is deleted
  int hidden_ = kNone;  // what is to be shown again
  static constexpr int kNone = -1;
};

}  // namespace ardenix
