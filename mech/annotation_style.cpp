#include "mech/annotation_style.h"

#include "frame/file_paths.h"
#include "frame/host/core_services.h"
#include "frame/host/limits.h"
#include "frame/records.h"

namespace ardenix::mech {

namespace {

constexpr std::string_view kFont = "Courier New";
constexpr double kTenthsOfPoint = 3.52777778;  // tenths of a millimetre in a point

std::string setupText(const DefinitionStore& store, const AnnotationKind& kind, std::string_view key,
                      std::string_view fallback) {
  return store.file().ReadString(kAnnotationSection, std::string(kind.word).append(key), fallback);
}

double textSize(const std::string& settings, const AnnotationKind& kind) {
  const double size = coreGetFieldDouble(settings, kind.leastTextSize, kind.textSizeField, kFieldSeparator);
  if (!kind.wholeTextSize) { return size; }
  return coreGetFieldInt(settings, static_cast<int>(kind.leastTextSize), kind.textSizeField, kFieldSeparator);
}

}  // namespace

std::string shippedSymbolFile(std::string_view name) {
  constexpr std::string_view kFolderOfUsers = "USERS";
  std::string path = coreGetDefaultPath();
  path.resize(std::min(path.find(kFolderOfUsers), path.size()));
  return path.append("Symbols\\").append(name);
}

std::string annotationSettings(const DefinitionStore& store, const AnnotationKind& kind) {
  return setupText(store, kind, "Settings", kind.settings);
}

TextStyle AnnotationStyle::text(int justification) const {
  return {
      .height = textSize * kTenthsOfPoint, .justification = justification, .font = font, .pen = limits::kPenByLayer};
}

std::string symbolPath(const DefinitionStore& store, std::string_view named) {
  return pathNamedIn(store.file().FileName(), named);
}

AnnotationStyle annotationStyle(const DefinitionStore& store, const AnnotationKind& kind) {
  const std::string settings = annotationSettings(store, kind);
  const std::string layer = setupText(store, kind, "Layer", "");
  const std::string symbols = setupText(store, kind, "Symbols", shippedSymbolFile(kind.symbolFile));
  return {.symbols = symbolPath(store, symbols),
          .layer = layer.empty() ? std::string(kind.layer) : layer,
          .layerNamed = !layer.empty(),
          .font = setupText(store, kind, "Font", kFont),
          .scale = coreGetFieldDouble(settings, 1.0, 1, kFieldSeparator),
          .textSize = textSize(settings, kind)};
}

void warnOfMissingLayer(const DefinitionStore& store, const AnnotationKind& kind, CWnd* owner) {
  if (!annotationStyle(store, kind).layerNamed) { InfoMessage(kind.layerMissing, owner); }
}

}  // namespace ardenix::mech
