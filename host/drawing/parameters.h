#pragma once

#include <array>

namespace brevan {

// The parameters of a drawing, P1 to P12 as the module reads them.
struct Parameters {
  static constexpr int kCount = 12;
  std::array<double, kCount> all = {1.0, 0.0, 100000.0, 0.0, 0.0, 1.0, 1.0, 0.0, 0.0, 0.0, 6.0, 0.0};

  [[nodiscard]] double scale() const { return all[0]; }                            // denominator: 1:500 is 500
  [[nodiscard]] double unit() const { return all[2] / 100000.0; }                  // millimetres per drawing unit
  [[nodiscard]] int coordinateSystem() const { return static_cast<int>(all[6]); }  // 0 survey, 1 Cartesian
  [[nodiscard]] int orientation() const { return static_cast<int>(all[9]); }       // 0, 1
  [[nodiscard]] int areaUnit() const { return static_cast<int>(all[10]); }         // 6 mm2, 8 m2

  void setScale(double denominator) { all[0] = denominator; }
  void setUnit(double millimetres) { all[2] = millimetres * 100000.0; }
  void setCoordinateSystem(int system) { all[5] = all[6] = system; }
  void setOrientation(int orientation) { all[9] = orientation; }
  void setAreaUnit(int code) { all[10] = code; }

  // Drawing units of one millimetre on paper.
  [[nodiscard]] double paperMillimetre() const { return scale() / unit(); }
  // A south-oriented survey sheet: the first axis points left on paper, the second down.
  [[nodiscard]] bool turnedOnPaper() const { return orientation() == 1 && coordinateSystem() == 0; }

  friend bool operator==(const Parameters&, const Parameters&) = default;
};

}  // namespace brevan
