#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "frame/host/core_services.h"
#include "fuzz/byte_choices.h"
#include "fuzz/laws.h"
#include "host/macros/variables.h"
#include "host/window/control_kinds.h"
#include "host/window/dialog_session.h"
#include "host/window/drawing_window.h"
#include "host/window/file_filters.h"
#include "host/window/silent_user.h"
#include "host/window/user.h"

namespace fuzzing {

// What is painted for nobody.
class NoCanvas : public dialog::Canvas {
 public:
  [[nodiscard]] int width() const override { return 200; }
  [[nodiscard]] int height() const override { return 100; }
  void fill(uint32_t) override {}
  void line(int, int, int, int, uint32_t, Stroke) override {}
  void circle(int, int, int, uint32_t) override {}
  void pie(int, int, int, double, double, uint32_t) override {}
  void text(int, int, std::string_view, int, uint32_t, uint32_t) override {}
};

// Answers every question by the bytes of an input, walks about in dialogs likewise, and leaves by Escape and Cancel
// when they have run out.
class ByteUser : public brevan::User {
 public:
  ByteUser(ByteChoices& choices, std::vector<std::string> files) : choices_(choices), files_(std::move(files)) {}

  brevan::PointAnswer askPoint(const std::string&) override {
    count();
    const uint8_t answer = choices_.byte();
    if (answer % 8 == 0) { return {answer < 128 ? brevan::PromptEnd::kEscape : brevan::PromptEnd::kSpace, {}}; }
    const double x = choices_.of(kCoordinates);
    return {brevan::PromptEnd::kGiven, {x, choices_.of(kCoordinates)}};
  }
  brevan::TextAnswer askText(const std::string&, const std::string& fallback) override {
    count();
    switch (choices_.below(4)) {
      case 0: return {brevan::PromptEnd::kEscape, "", false};
      case 1: return {brevan::PromptEnd::kSpace, "", false};
      case 2: return {brevan::PromptEnd::kGiven, fallback, true};
      default: return {brevan::PromptEnd::kGiven, text(), false};
    }
  }
  BoxAnswer showMessage(const brevan::MessageBox& box) override {
    count();
    if (box.buttons == BoxButtons::kOk) { return BoxAnswer::kOk; }
    const size_t answer = choices_.below(box.buttons == BoxButtons::kYesNo ? 2 : 3);
    return answer == 0 ? BoxAnswer::kNo : answer == 1 ? BoxAnswer::kYes : BoxAnswer::kCancel;
  }
  std::optional<size_t> chooseFromMenu(const std::vector<std::string>& items) override {
    count();
    const size_t item = choices_.below(items.size() + 1);
    return item == 0 ? std::nullopt : std::optional(item - 1);
  }
  std::optional<brevan::ChosenFile> chooseFile(const brevan::FileRequest& request) override {
    count();
    const size_t file = choices_.below(files_.size() + 2);
    if (file == 0) { return std::nullopt; }
    brevan::ChosenFile chosen{file <= files_.size() ? files_[file - 1] : text()};
    chosen.filter = brevan::filterListing(brevan::fileFilters(request.filter), chosen.path);
    return chosen;
  }
  std::optional<int> choosePen(const std::string&, int) override {
    count();
    const int pen = choices_.byte();
    return pen == 0 ? std::nullopt : std::optional(pen);
  }
  bool runDialog(dialog::Dialog& dialog) override {
    count();
    constexpr int kDeepest = 6;
    if (depth_ == kDeepest) { throw HostFailure("enough dialogs"); }
    ++depth_;
    brevan::DialogSession session(dialog, *this, nullptr);
    session.open();
    for (int step = 0; step < kMostSteps && !session.closed() && !choices_.done(); ++step) {
      walk(session, dialog);
      paint(dialog);
    }
    if (!session.closed()) { session.cancel(); }
    --depth_;
    return session.accepted();
  }
  void showStatus(const std::string&) override {}
  void showPrompt(const std::string&) override {}
  void showProgress(int, int, const std::string&) override {}

 private:
  static constexpr int kMostSteps = 60;
  static constexpr int kMostQuestions = 400;
  static constexpr double kCoordinates[] = {0.0,   1.0,    10.0, 20.0,  30.0, 50.0, 100.0, -7.25,
                                            500.0, 1000.0, 1e-9, 0.005, -1e6, 1e15, -1e15, 12345.678};
  static constexpr std::string_view kTexts[] = {
      "0",       "1",           "2",   "10",   "-1",       "0.001",   "50",    "1,5",   "1e3",  "1e308",      "-1e15",
      "1e9",     "99999999999", "nan", "",     " ",        "x",       "A,B",   "M10",   "\"",   "#DELSELECT", "]",
      "[BOLTS]", "=",           ";",   "%n%s", "\x80\xFF", "_COMMA_", "..\\x", "a\\Nb", "a\nb", "12A"};

  // A user does not answer for ever.
  void count() {
    if (++questions_ > kMostQuestions) { throw HostFailure("enough questions"); }
  }
  std::string text() {
    const size_t chosen = choices_.byte();
    if (chosen < 200) { return std::string(kTexts[chosen % std::size(kTexts)]); }
    std::string typed;
    for (size_t length = chosen - 200; length > 0 && !choices_.done(); --length) {
      typed += static_cast<char>(choices_.byte());
    }
    return typed;
  }

  // As the desktop does after each change.
  static void paint(dialog::Dialog& dialog) {
    for (const dialog::Control& control : dialog.controls()) {
      NoCanvas canvas;
      if (const auto* pixels = std::get_if<dialog::PixelCanvas>(&control.state)) { pixels->paint(canvas); }
      const auto* preview = std::get_if<dialog::Preview>(&control.state);
      if (preview == nullptr || !preview->draw) { continue; }
      brevan::SilentUser nobody;
      brevan::MacroVariables variables;
      brevan::DrawingWindow view{"Preview", brevan::WindowServices{nobody, variables, nullptr}};
      try {
        preview->draw(view);
      } catch (const HostFailure&) {}  // it shows what was drawn till then
      requireSound(view.drawing());
    }
  }

  // Every operation is tried, on whatever control.
  void walk(brevan::DialogSession& session, dialog::Dialog& dialog) {
    if (dialog.controls().empty()) { return session.cancel(); }
    const int control = static_cast<int>(choices_.below(dialog.controls().size()));
    const dialog::State& state = dialog.control(control).state;
    const uint8_t way = choices_.byte();
    if (const auto* grid = std::get_if<dialog::Grid>(&state)) { return walkGrid(session, control, *grid, way); }
    if (const auto* bar = std::get_if<dialog::MenuBar>(&state)) { return walkMenu(session, *bar); }
    if (std::holds_alternative<dialog::Button>(state)) { return press(session, control, way); }
    const std::vector<std::string> items = brevan::itemTexts(state);
    const bool typed =
        std::holds_alternative<dialog::NumberEdit>(state) || std::holds_alternative<dialog::TextEdit>(state);
    if (!items.empty() && way % 8 < 6) {
      session.choose(control, items[way % items.size()]);
    } else if (std::holds_alternative<dialog::CheckBox>(state)) {
      session.check(control, way % 2 == 1);
    } else if (typed || way % 8 == 6) {
      type(session, control, way);
    } else if (const dialog::Tree* tree = std::get_if<dialog::Tree>(&state); tree != nullptr && !tree->roots.empty()) {
      session.choose(control, tree->roots[way % tree->roots.size()].caption);
    } else {
      press(session, control, way);
    }
  }
  void type(brevan::DialogSession& session, int control, uint8_t way) {
    switch (way % 8) {
      case 0: session.typeText(control, text()); break;
      case 1: session.focus(control), session.replaceText(control, text()); break;
      case 2: session.spin(control, way < 128); break;
      case 3: session.leave(); break;
      default: session.setText(control, text()); break;
    }
  }
  static void press(brevan::DialogSession& session, int control, uint8_t way) {
    if (way % 16 == 1) { return session.help(control); }
    if (way % 16 == 2) { return session.cancel(); }
    session.press(control);
  }
  void walkGrid(brevan::DialogSession& session, int control, const dialog::Grid& grid, uint8_t way) {
    if (grid.columns.empty() || grid.rows.empty()) { return; }
    const std::string column = way < 240 ? grid.columns[way % grid.columns.size()].title : std::string();
    const int row = static_cast<int>(choices_.below(grid.rows.size() + 1));
    const size_t action = choices_.below(8);
    if (action == 0 && way % 2 == 0) {
      session.ensureRowCount(control, row);
    } else if (action == 1) {
      session.ensureRow(control, row, {column, text()});
    } else if (action < 4) {
      session.editCell(control, row, column, text());
    } else {
      session.clickCell(control, row, column, static_cast<brevan::DialogSession::Click>(action - 4));
    }
  }
  void walkMenu(brevan::DialogSession& session, const dialog::MenuBar& bar) {
    std::string path;
    for (const std::vector<dialog::MenuItem>* level = &bar.menus; !level->empty();) {
      const dialog::MenuItem& item = (*level)[choices_.below(level->size())];
      path += (path.empty() ? "" : "/") + dialog::plainCaption(item.caption);
      level = &item.items;
    }
    session.chooseMenu(path);
  }

  ByteChoices& choices_;
  std::vector<std::string> files_;
  int questions_ = 0;
  int depth_ = 0;
};

}  // namespace fuzzing
