#pragma once

#include <string>
#include <string_view>

#include "frame/drafting/point.h"
#include "frame/host/cad_window.h"
#include "survey/job_settings.h"

namespace ardenix::survey {

// Writes texts on a sheet by the rows of the settings file. Positions of rows are millimetres on paper from the
// sheet's origin, its top right corner, to the right and up; lengths here are drawing units.
class SheetWriter {
 public:
  SheetWriter(CCadWindow& view, JobSettings& job, Point origin);

  [[nodiscard]] CCadWindow& view() const { return view_; }
  [[nodiscard]] JobSettings& job() const { return job_; }
  [[nodiscard]] double axisSign() const { return sign_; }  // as paperSign of the drawing
  [[nodiscard]] Point origin() const { return origin_; }
  [[nodiscard]] Point at(double horizontal, double vertical) const;
  // To the right, or up, on paper by millimetres.
  [[nodiscard]] double across(double millimetres) const { return sign_ * millimetres * job_.paperFactor(); }
  // From a line of a row's texts to the next, down the paper.
  [[nodiscard]] double nextLine(const TextRow& row) const;

  // Where the last text stands, and what a row on the next line goes below.
  [[nodiscard]] double line() const { return line_; }
  void setLine(double y) { line_ = y; }

  // A row's place; on the next line, below the last text or below another line.
  [[nodiscard]] Point placeOf(const TextRow& row) const { return placeBelow(line_, row); }
  [[nodiscard]] Point placeBelow(double line, const TextRow& row) const;

  // Draws a text in a row's style, on the job's layer. An empty one draws nothing and leaves the line as it is.
  void write(const TextRow& row, Point at, std::string_view text);
  // The same, with a justification in place of the row's.
  void write(const TextRow& row, Point at, std::string_view text, int justification);

 private:
  CCadWindow& view_;
  JobSettings& job_;
  Point origin_;
  double sign_;  // of what runs to the right and up on paper, in the drawing
  double line_;
};

}  // namespace ardenix::survey
