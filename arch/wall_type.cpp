#include "arch/wall_type.h"

#include "frame/host/core_services.h"
#include "frame/host/number_text.h"
#include "frame/records.h"

namespace ardenix::arch {

namespace {

constexpr int kFirstRowField = 8;
constexpr int kFirstWidthField = kFirstRowField + kWallRows * kLayerStyleFields;

}  // namespace

WallType readWallType(std::string_view record) {
  WallType wall;
  wall.name = textField(record, 1);
  wall.layer = textField(record, 2);
  wall.internal = flagField(record, 3, wall.internal);
  wall.startAngle = coreGetFieldDouble(record, wall.startAngle, 4, kFieldSeparator);
  wall.endAngle = coreGetFieldDouble(record, wall.endAngle, 5, kFieldSeparator);
  wall.closesEnds = flagField(record, 6, wall.closesEnds);
  wall.filletsCorners = flagField(record, 7, wall.filletsCorners);
  int field = kFirstRowField;
  for (LayerStyle& row : wall.rows) {
    row = readLayerStyle(record, field);
    field += kLayerStyleFields;
  }
  field = kFirstWidthField;
  for (double& width : wall.widths) { width = coreGetFieldDouble(record, 0.0, field++, kFieldSeparator); }
  return wall;
}

std::string wallRecord(const WallType& wall) {
  std::string record =
      numberText::format("%s,%s,%d,%.2f,%.2f,%d,%d", wall.name, wall.layer, wall.internal ? 1 : 0, wall.startAngle,
                         wall.endAngle, wall.closesEnds ? 1 : 0, wall.filletsCorners ? 1 : 0);
  for (const LayerStyle& row : wall.rows) { record.append(",").append(layerStyleFields(row)); }
  for (const double width : wall.widths) { record += numberText::format(",%.2f", width); }
  return record;
}

}  // namespace ardenix::arch
