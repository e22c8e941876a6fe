#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/drawing/primitive.h"
#include "host/scripts/script_cursor.h"
#include "host/scripts/script_user.h"
#include "host/window/events.h"
#include "host/window/host.h"
#include "tests/core_fixture.h"

// What a session showed and sent, a line each, in the order it happened.
class SessionLog : public brevan::EventSink {
 public:
  std::vector<std::string> lines;

  void macroSent(std::string_view text) override { add("macro", text); }
  void primitiveAdded(const brevan::Drawing&, brevan::PrimitiveId) override {}
  void pointPrompted(std::string_view prompt, brevan::PromptEnd, brevan::Point) override { add("prompt", prompt); }
  void textPrompted(std::string_view prompt, const brevan::TextAnswer&) override { add("prompt", prompt); }
  void messageShown(const brevan::MessageBox& box, BoxAnswer) override {
    add("message", box.caption.empty() ? box.text : box.caption + "|" + box.text);
  }
  void dialogClosed(std::string_view title, bool) override { add("dialog", title); }
  void menuChosen(const std::vector<std::string>&, std::string_view) override {}
  void chooserAnswered(std::string_view, std::string_view, std::string_view) override {}
  void focusMoved(std::string_view control) override { add("focus", control); }
  void called(std::string_view name, std::initializer_list<brevan::CallArgument> arguments) override {
    std::string text(name);
    for (const auto& argument : arguments) {
      if (const int* number = std::get_if<int>(&argument)) { text += ' ' + std::to_string(*number); }
      if (const auto* words = std::get_if<std::string_view>(&argument)) { text += ' ' + std::string(*words); }
    }
    add("call", text);
  }
  void statusShown(std::string_view) override {}
  void windowOpened(std::string_view) override {}

  // The texts of one kind of event.
  [[nodiscard]] std::vector<std::string> of(const std::string& kind) const {
    std::vector<std::string> texts;
    for (const std::string& line : lines) {
      if (line.starts_with(kind + ' ')) { texts.push_back(line.substr(kind.size() + 1)); }
    }
    return texts;
  }

 private:
  void add(const char* kind, std::string_view text) { lines.push_back(std::string(kind) + ' ' + std::string(text)); }
};

// A host with the real module, worked by one script: `run`, `macro`, `new` and `window` statements, `line X1 Y1 X2 Y2`
// for a line of the drawing, `test NAME` for a step of the test's own, and the answers to the commands.
class CommandSession : public CoreFixture {
 protected:
  SessionLog log_;

  // Plays a script from the start on a host of its own; anything the script leaves over fails it.
  void play(const std::string& text) {
    script_ = brevan::readScript("session.scr", text);
    cursor_.emplace(script_);
    user_.emplace(*cursor_, &log_);
    host_.reset();
    host_ = std::make_unique<brevan::Host>(brevan::HostParts{*user_, files(), settings(), &log_, ""});
    host_->loadModule(modulePath());
    while (cursor_->peek() != nullptr) { step(cursor_->take()); }
  }

  void closeHost() { host_.reset(); }
  static std::string modulePath() { return ARDENIX_MODULE; }

  // What the statement `test NAME` does.
  virtual void testStep(const std::string& name) { FAIL() << "no step " << name; }

  brevan::Host& host() { return *host_; }
  brevan::Drawing& drawing() { return host_->window().drawing(); }

  // Writes a configuration file and makes it the host's.
  std::string useLibrary(const std::string& content) {
    std::string path = write("library.ini", content);
    settings().SetString("MechanicalTools", "SpecFile", path);
    return path;
  }

  // A setting of the host, "nothing" where it is missing.
  std::string remembered(const char* section, const std::string& key) {
    std::string buffer(300, '\0');
    buffer.resize(static_cast<size_t>(settings().GetString(section, key, "nothing", buffer.data(), 300)));
    return buffer;
  }

  // "PARENT NAME" of every group, with the number of its members.
  std::vector<std::string> groups() {
    std::vector<std::string> names;
    drawing().forEachGroup([&](const brevan::Group& group) {
      names.push_back(std::string(group.parent) + ' ' + group.name + ' ' + std::to_string(group.members.size()));
    });
    return names;
  }

  template <class Shape>
  std::vector<Shape> shapes() {
    std::vector<Shape> found;
    drawing().forEach([&](brevan::PrimitiveId, const brevan::Primitive& primitive) {
      if (const Shape* shape = std::get_if<Shape>(&primitive.geometry)) { found.push_back(*shape); }
    });
    return found;
  }

 private:
  void step(const brevan::Statement& statement) {
    if (statement.name() == "run") {
      host_->runCommand(statement.words.at(1).text);
    } else if (statement.name() == "test") {
      testStep(statement.words.at(1).text);
    } else if (statement.name() == "macro") {
      host_->runMacro(statement.rest);
    } else if (statement.name() == "line") {
      const brevan::Line line{cursor_->point(statement, 1), cursor_->point(statement, 3)};
      drawing().add({.geometry = line});
    } else if (statement.name() == "new") {
      host_->openWindow(statement.words.at(1).text);
    } else if (statement.name() == "window") {
      ASSERT_NE(host_->goToWindow(statement.words.at(1).text), nullptr);
    } else {
      cursor_->fail(statement, "the command left this answer over");
    }
  }

  brevan::Script script_;
  std::optional<brevan::ScriptCursor> cursor_;
  std::optional<brevan::ScriptUser> user_;
  std::unique_ptr<brevan::Host> host_;
};
