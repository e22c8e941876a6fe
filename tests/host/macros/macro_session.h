#pragma once

#include <string>
#include <vector>

#include "tests/host/window/host_session.h"

// A host on which a test sends macro commands, with what such tests draw and ask for.
class MacroSession : public HostSession {
 protected:
  void answer(const std::string& answers, brevan::DrawingSource* drawings = nullptr) {
    start(answers, nullptr, drawings);
  }
  double number(const std::string& name) { return host().variables().number(name).value_or(-1e300); }
  std::vector<double> numbers(const std::vector<std::string>& names) {
    std::vector<double> all;
    for (const std::string& name : names) { all.push_back(number(name)); }
    return all;
  }
  std::string text(const std::string& name) {
    const std::string* value = host().variables().text(name);
    return value == nullptr ? "(unset)" : *value;
  }

  brevan::PrimitiveId add(brevan::Geometry geometry, const std::string& layer = "0") {
    return drawing().add({.layer = drawing().addLayer({layer}), .geometry = std::move(geometry)});
  }
  brevan::PrimitiveId line(double x1, double y1, double x2, double y2, const std::string& layer = "0") {
    return add(brevan::Line{{x1, y1}, {x2, y2}}, layer);
  }
  brevan::PrimitiveId circle(double x, double y, double radius, const std::string& layer = "0") {
    return add(brevan::Arc{{x + radius, y}, {x, y}, {x + radius, y}}, layer);
  }
  void setLayer(const std::string& name, bool visible, bool locked) {
    drawing().addLayer({name});
    lockLayer(name, visible, locked);
  }
  template <class Kind>
  const Kind& shape(brevan::PrimitiveId id) {
    return std::get<Kind>(drawing().find(id)->geometry);
  }
  std::vector<brevan::PrimitiveId> all() {
    std::vector<brevan::PrimitiveId> ids;
    drawing().forEach([&ids](brevan::PrimitiveId id, const brevan::Primitive&) { ids.push_back(id); });
    return ids;
  }
};
