#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/files/json_writer.h"
#include "host/macros/lexer.h"
#include "host/scripts/script_cursor.h"
#include "host/scripts/script_user.h"
#include "host/window/host.h"
#include "tests/core_fixture.h"

// A host on which a test sends macro commands; its user gives a script's answers.
class MacroSession : public CoreFixture {
 protected:
  MacroSession() { answer(""); }

  // A new host with an empty drawing, whose user gives these answers in order.
  void answer(const std::string& answers, brevan::DrawingSource* files = nullptr) {
    host_.reset();
    script_ = brevan::readScript("answers.scr", answers);
    cursor_.emplace(script_);
    user_.emplace(*cursor_, nullptr);
    brevan::HostParts parts{*user_, this->files(), settings(), nullptr, ""};
    parts.drawings = files;
    host_ = std::make_unique<brevan::Host>(parts);
  }
  [[nodiscard]] bool answersLeft() const { return cursor_->peek() != nullptr; }

  brevan::Host& host() { return *host_; }
  brevan::DrawingWindow& window() { return host_->window(); }
  brevan::Drawing& drawing() { return window().drawing(); }
  std::string json() { return drawingJson(drawing()); }

  void macro(const std::string& text) { host_->runMacro(text); }
  // The failing macro's column and message, "" where it did not fail.
  std::string macroError(const std::string& text) {
    try {
      macro(text);
    } catch (const brevan::MacroError& error) { return std::to_string(error.column()) + ": " + error.what(); }
    return "";
  }
  double number(const std::string& name) { return host_->variables().number(name).value_or(-1e300); }
  std::string text(const std::string& name) {
    const std::string* value = host_->variables().text(name);
    return value == nullptr ? "(unset)" : *value;
  }

  brevan::PrimitiveId add(brevan::Geometry geometry, const std::string& layer = "0") {
    brevan::Primitive primitive;
    primitive.layer = drawing().addLayer(brevan::Layer{layer});
    primitive.geometry = std::move(geometry);
    return drawing().add(std::move(primitive));
  }
  brevan::PrimitiveId line(double x1, double y1, double x2, double y2, const std::string& layer = "0") {
    return add(brevan::Line{{x1, y1}, {x2, y2}}, layer);
  }
  brevan::PrimitiveId circle(double x, double y, double radius, const std::string& layer = "0") {
    return add(brevan::Arc{{x + radius, y}, {x, y}, {x + radius, y}}, layer);
  }
  void setLayer(const std::string& name, bool visible, bool locked) {
    const int index = drawing().addLayer(brevan::Layer{name});
    brevan::Layer changed = *drawing().layer(index);
    changed.visible = visible;
    changed.locked = locked;
    drawing().changeLayer(index, changed);
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

 private:
  brevan::Script script_;
  std::optional<brevan::ScriptCursor> cursor_;
  std::optional<brevan::ScriptUser> user_;
  std::unique_ptr<brevan::Host> host_;
};
