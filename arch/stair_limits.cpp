#include "arch/stair_limits.h"

#include "frame/host/core_services.h"
#include "frame/host/number_text.h"

namespace ardenix::arch {

namespace {

struct Against {
  std::string_view what;
  double value;
  double limit;
};

std::string plain(double value) { return numberText::shortest(coreDoubleRound(value, 2)); }

std::string atMost(const Against& against, std::string_view otherwise) {
  const std::string text =
      numberText::format("%s %s of at most %s", against.what, plain(against.value), plain(against.limit));
  return against.value <= against.limit ? text : text + ": " + std::string(otherwise);
}

std::string atLeast(const Against& against, std::string_view otherwise) {
  const std::string text =
      numberText::format("%s %s of at least %s", against.what, plain(against.value), plain(against.limit));
  return against.value >= against.limit ? text : text + ": " + std::string(otherwise);
}

}  // namespace

std::string treadsAgainst(const StairLimits& limits, const TreadRecord& treads) {
  return atMost({"rise", treads.rise, limits.maximumRise}, "too high") + ", " +
         atLeast({"going", treads.going, limits.minimumGoing}, "too short") + ", " +
         atLeast({"width", treads.width, limits.minimumTreadWidth}, "too narrow") + ", " +
         atLeast({"nosing", treads.nosing, limits.minimumNosing}, "too small");
}

std::string gapAgainst(const StairLimits& limits, const Stair& stair) {
  if (!stair.railing.hasBalusters()) { return ""; }
  const double gap = stair.balusterSpacing() - stair.railing.balusterWidth / 2.0;
  return atMost({"gap", gap, limits.minimumBalustradeSpacing}, "too wide");
}

}  // namespace ardenix::arch
