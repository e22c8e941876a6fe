#pragma once

#include <array>
#include <optional>
#include <vector>

#include "host/files/dxf/read/pieces.h"
#include "host/files/dxf/read/record.h"

namespace brevan {

// Reads entities, a record each, into a sink; a POLYLINE takes its vertices from the records after it. What a
// drawing has no place for is noted in the report.
class DxfEntityReader {
 public:
  DxfEntityReader(DxfStyles& styles, DxfReport& report) : styles_(styles), report_(report) {}
  // Whether the file was written by this program, so that its arrows and dimensions are told from what looks alike.
  void setOwn(bool own) { own_ = own; }

  void read(const DxfRecord& record, DxfSink& sink);
  // After the last record of a block or section.
  void finish(DxfSink& sink);

 private:
  struct KindRow;
  static const std::vector<KindRow>& rows();
  struct Vertex {
    Point at;
    double bulge = 0.0;
  };

  void line(const DxfRecord& record);
  void circle(const DxfRecord& record);
  void arc(const DxfRecord& record);
  void point(const DxfRecord& record);
  void lightPolyline(const DxfRecord& record);
  void polyline(const DxfRecord& record);
  void vertex(const DxfRecord& record);
  void ellipse(const DxfRecord& record);
  void spline(const DxfRecord& record);
  void text(const DxfRecord& record);
  void attribute(const DxfRecord& record);
  void attributeDefinition(const DxfRecord& record);
  void severalLines(const DxfRecord& record);
  void solid(const DxfRecord& record);
  void face(const DxfRecord& record);
  void leader(const DxfRecord& record);
  void insert(const DxfRecord& record);
  void dimension(const DxfRecord& record);
  void hatch(const DxfRecord& record);
  void nothing(const DxfRecord&) {}

  void put(Geometry&& geometry);
  static Geometry sideBetween(const Vertex& from, const Vertex& to);
  void outline(const std::vector<Vertex>& vertices, bool closed);
  void chain(const std::vector<Point>& points);
  void singleLine(const DxfRecord& record, int verticalCode);
  bool becomesArrow(const std::array<Point, 4>& corners);
  bool liesInPlane(const DxfRecord& record);
  void noteReplaced(const DxfTextRead& read);

  DxfStyles& styles_;
  DxfReport& report_;
  bool own_ = false;
  DxfSink* sink_ = nullptr;
  DxfLook look_;
  bool flipped_ = false;       // the present entity is seen from below
  std::optional<Line> shaft_;  // the line read last, unless something was read after it
  DxfLook shaftLook_;
  std::vector<Vertex> vertices_;
  struct OpenPolyline {
    bool open = false;
    bool closed = false;
    DxfLook look;
    bool flipped = false;
  } polyline_;
};

}  // namespace brevan
