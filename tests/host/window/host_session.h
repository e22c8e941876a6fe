#pragma once

#include <memory>
#include <optional>
#include <string>

#include "host/files/json_writer.h"
#include "host/macros/lexer.h"
#include "host/scripts/script_cursor.h"
#include "host/scripts/script_user.h"
#include "host/window/host.h"
#include "tests/core_fixture.h"

// A host without a module, and a user who gives a script's answers. The test itself is the command.
class HostSession : public CoreFixture {
 protected:
  HostSession() { start(""); }

  // A new host; its user gives these answers in order.
  void start(const std::string& answers, brevan::EventSink* events = nullptr,
             brevan::DrawingSource* drawings = nullptr) {
    host_.reset();
    script_ = brevan::readScript("answers.scr", answers);
    cursor_.emplace(script_);
    user_.emplace(*cursor_, events);
    host_ = std::make_unique<brevan::Host>(brevan::HostParts{*user_, files(), settings(), events, "", drawings});
  }
  [[nodiscard]] bool answersLeft() const { return cursor_->peek() != nullptr; }

  brevan::Host& host() { return *host_; }
  brevan::ScriptUser& user() { return *user_; }
  brevan::DrawingWindow& window() { return host_->window(); }
  brevan::Drawing& drawing() { return window().drawing(); }
  std::string json() { return drawingJson(drawing()); }

  void macro(const std::string& text) { host_->runMacro(text); }
  void macros(std::initializer_list<const char*> texts) {
    for (const char* text : texts) { macro(text); }
  }
  // The failing macro's column and message, "" where it did not fail.
  std::string macroError(const std::string& text) {
    try {
      macro(text);
    } catch (const brevan::MacroError& error) { return std::to_string(error.column()) + ": " + error.what(); }
    return "";
  }

  brevan::PrimitiveId line(double x1, double y1, double x2, double y2) {
    window().gsSetPrimHeader(kLinePrimitive, 0, 0, drawing().currentLayer(), 1, 1, 0.0, 0, 0);
    window().gsSetLine(x1, y1, x2, y2);
    return window().gsAddPrim();
  }
  const brevan::Line& lineOf(brevan::PrimitiveId id) { return std::get<brevan::Line>(drawing().find(id)->geometry); }
  void lockLayer(const std::string& name, bool visible, bool locked) {
    const int index = drawing().layerNamed(name);
    window().gsSetLayerDefIndex(index, LayerDef{name, visible, locked});
  }

 private:
  brevan::Script script_;
  std::optional<brevan::ScriptCursor> cursor_;
  std::optional<brevan::ScriptUser> user_;
  std::unique_ptr<brevan::Host> host_;
};
