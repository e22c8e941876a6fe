#include "host/drawing/dash_pattern.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>
#include <span>

#include "host/drawing/line_types.h"

namespace brevan {

namespace {

// A pattern's first dash is its longest, and what follows it runs up to the next of them.
struct PatternRun {
  std::span<const double> pattern;
  double length = 0.0;

  explicit PatternRun(int linetype)
      : pattern(lineType(linetype).pattern), length(std::accumulate(pattern.begin(), pattern.end(), 0.0)) {}

  [[nodiscard]] double dash() const { return pattern.front(); }
  [[nodiscard]] std::span<const double> between() const { return pattern.subspan(1); }
  [[nodiscard]] bool readsAlikeBothWays() const {
    return std::ranges::equal(between(), std::vector(between().rbegin(), between().rend()));
  }
  // Far beyond any sheet nobody sees a pattern.
  [[nodiscard]] bool fits(double stroke, double runs) const {
    constexpr double kMostRuns = 1e6;
    return !pattern.empty() && stroke >= runs * length && stroke <= kMostRuns * length;
  }
};

// How often the run is laid, an even number, and how far it is stretched.
struct Fit {
  double runs = 0.0;
  double scale = 1.0;

  [[nodiscard]] double stretch() const { return std::max(scale, 1.0 / scale); }
};

// At either end lies the first dash, whole or down to two thirds of it: readers of exchange files that centre a
// pattern themselves look for more than half of one.
constexpr double kShortestEnds = 1.0 / 3.0;  // both, less one whole dash

Fit fitOf(const PatternRun& run, double stroke, double runs) {
  const double shortest = runs * run.length + kShortestEnds * run.dash();
  const double longest = runs * run.length + run.dash();
  return {runs, std::clamp(1.0, stroke / longest, stroke / shortest)};
}

Fit bestFit(const PatternRun& run, double stroke) {
  const double pairs = std::floor((stroke - kShortestEnds * run.dash()) / (2.0 * run.length));
  const Fit more = fitOf(run, stroke, 2.0 * (pairs + 1.0));
  if (pairs < 1.0) { return more; }
  const Fit fewer = fitOf(run, stroke, 2.0 * pairs);
  return fewer.stretch() < more.stretch() ? fewer : more;
}

std::vector<double> stretched(std::span<const double> pattern, double scale) {
  std::vector<double> lengths(pattern.begin(), pattern.end());
  for (double& length : lengths) { length *= scale; }
  return lengths;
}

// A pattern that reads otherwise backwards is mirrored about the middle, one length after the other.
std::vector<double> mirrored(const PatternRun& run, double runs, double scale, double end) {
  std::vector<double> lengths = {end};
  const std::vector<double> onwards = stretched(run.between(), scale);
  const std::vector<double> back(onwards.rbegin(), onwards.rend());
  for (double laid = 0.0; laid < runs; ++laid) {
    const std::vector<double>& between = laid < runs / 2.0 ? back : onwards;
    lengths.insert(lengths.end(), between.begin(), between.end());
    lengths.push_back(run.dash() * scale);
  }
  lengths.back() = end;
  lengths.push_back(scale);  // a gap beyond the end
  return lengths;
}

}  // namespace

DashPattern dashesAlong(int linetype, double length) {
  const PatternRun run(linetype);
  if (!run.fits(length, 1.0)) { return {}; }
  const Fit fit = bestFit(run, length);
  const double whole = run.dash() * fit.scale;
  const double end = (length - fit.runs * run.length * fit.scale + whole) / 2.0;
  constexpr double kMostMirrored = 200.0;
  if (!run.readsAlikeBothWays() && fit.runs <= kMostMirrored) {
    return {mirrored(run, fit.runs, fit.scale, end), 0.0, fit.scale};
  }
  return {stretched(run.pattern, fit.scale), whole - end, fit.scale};
}

DashPattern dashesAround(int linetype, double circumference) {
  const PatternRun run(linetype);
  if (!run.fits(circumference, 2.0)) { return {}; }
  constexpr double kQuarters = 4.0;
  constexpr double kLittle = 1.25;
  double scale = 0.0;
  for (const double parts : {24.0, 12.0, kQuarters}) {
    const double runs = parts * std::max(1.0, std::round(circumference / (parts * run.length)));
    scale = circumference / (runs * run.length);
    if (Fit{runs, scale}.stretch() <= kLittle) { break; }
  }
  return {stretched(run.pattern, scale), run.dash() * scale / 2.0, scale};
}

DashPattern dashesOf(int linetype, const Curve& curve, double millimetres) {
  const double length = lengthOf(curve) * millimetres;
  return isClosed(curve) ? dashesAround(linetype, length) : dashesAlong(linetype, length);
}

double dashScale(int linetype, const Curve& curve, double millimetres) {
  const PatternRun run(linetype);
  if (run.pattern.empty()) { return 1.0; }
  const DashPattern dashes = dashesOf(linetype, curve, millimetres);
  const double length = lengthOf(curve) * millimetres;
  if (!dashes.lengths.empty() || length <= 0.0) { return dashes.scale; }
  constexpr double kAmply = 1.001;
  return kAmply * length / run.dash();
}

}  // namespace brevan
