#pragma once

#include <string>
#include <string_view>

#include "frame/drafting/pen.h"
#include "mech/definition_store.h"

namespace ardenix::mech {

// The section of the configuration file that holds these keys.
inline constexpr std::string_view kAnnotationSection = "Setup";

// What the section "Setup" holds of a kind of annotation, under keys that begin with its word: the symbol file, the
// layer, the font and the settings, a record that begins with the symbol scale.
struct AnnotationKind {
  std::string_view word;
  std::string_view symbolFile;  // in the default folder, where no key names one
  std::string_view parent;      // of its groups
  std::string_view layer;       // where none is named
  std::string_view settings;    // where there is no key
  int textSizeField;            // of the settings
  double leastTextSize;         // in points, where the field is missing
  bool wholeTextSize;
  std::string_view layerMissing;    // what is said then
  std::string_view symbolsMissing;  // where there is no such file
};

inline constexpr AnnotationKind kWeldAnnotation = {
    .word = "Weld",
    .symbolFile = "MechWelds.drg",
    .parent = "WELDS",
    .layer = "WELDS",
    .settings = "1.000,256,10.0,14,2.0,1.0",
    .textSizeField = 3,
    .leastTextSize = 1.0,
    .wholeTextSize = true,
    .layerMissing =
        "Warning: You have not set a name for the Welds annotation layer yet. Please use Annotation Setup to "
        "configure Weld annotation settings.",
    .symbolsMissing = "Welds symbol file does not exist. Please run Mechanical Ardenix Annotation Setup to specify."};

inline constexpr AnnotationKind kToleranceAnnotation = {
    .word = "Tolerance",
    .symbolFile = "MechTolerances.drg",
    .parent = "TOLERANCES",
    .layer = "TOLERANCES",
    .settings = "1.000,10.0",
    .textSizeField = 2,
    .leastTextSize = 10.0,
    .wholeTextSize = false,
    .layerMissing =
        "Warning: You have not set a name for the Tolerance annotation layer yet. Please use Annotation Setup "
        "to configure Toleranced annotation settings.",
    .symbolsMissing = "Tolerance symbol file does not exist. Please run Tolerance Setup to specify."};

inline constexpr AnnotationKind kSurfaceFinishAnnotation = {
    .word = "SurfaceFinish",
    .symbolFile = "MechSurfaceFinish.drg",
    .parent = "SURF",
    .layer = "SURFACE_FINISH",
    .settings = "1.000,10.0",
    .textSizeField = 2,
    .leastTextSize = 10.0,
    .wholeTextSize = false,
    .layerMissing =
        "Warning: You have not set a name for the Surface Finish annotation layer yet. Please use Annotation "
        "Setup to configure Surface Finish annotation settings.",
    .symbolsMissing = "Surface Finish symbol file does not exist. Please run Surface Finish Setup to specify."};

// The path of a symbol file that ships with the program. The default folder may be a user's own: then the file lies in
// the program's, beside the folder of all users.
std::string shippedSymbolFile(std::string_view name);

// The record of settings that the configuration holds for a kind of annotation.
std::string annotationSettings(const DefinitionStore& store, const AnnotationKind& kind);

// How annotations of a kind are drawn.
struct AnnotationStyle {
  std::string symbols;  // the path of the symbol file
  std::string layer;
  bool layerNamed = true;  // else it is the kind's own
  std::string font;
  double scale = 1.0;     // millimetres on paper for a millimetre of the symbols
  double textSize = 0.0;  // points

  [[nodiscard]] TextStyle text(int justification) const;
};

AnnotationStyle annotationStyle(const DefinitionStore& store, const AnnotationKind& kind);
// Where a symbol file lies that the configuration names.
std::string symbolPath(const DefinitionStore& store, std::string_view named);

// Says so where the configuration names no layer for a kind of annotation.
void warnOfMissingLayer(const DefinitionStore& store, const AnnotationKind& kind, CWnd* owner);

}  // namespace ardenix::mech
