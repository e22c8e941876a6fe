#pragma once

#include <string>

#include "host/window/events.h"

namespace brevan {

// Writes down what happens, one JSON object a line, in UTF-8. Kept in memory; the caller saves it.
class Transcript : public EventSink {
 public:
  [[nodiscard]] const std::string& lines() const { return lines_; }
  // `read NAME` of a script; null where the variable is not set.
  void variableRead(std::string_view name, const double* number, const std::string* text);

  void macroSent(std::string_view text) override;
  void primitiveAdded(const Drawing& drawing, PrimitiveId id) override;
  void keyPressed(std::string_view key) override;
  void pointPrompted(std::string_view prompt, PromptEnd end, Point at) override;
  void textPrompted(std::string_view prompt, const TextAnswer& answer) override;
  void messageShown(const MessageBox& box, BoxAnswer answer) override;
  void dialogClosed(std::string_view title, bool accepted) override;
  void menuChosen(const std::vector<std::string>& items, std::string_view choice) override;
  void chooserAnswered(std::string_view kind, std::string_view answer, std::string_view filter) override;
  void focusMoved(std::string_view control) override;
  void called(std::string_view name, std::initializer_list<CallArgument> arguments) override;
  void statusShown(std::string_view text) override;
  void windowOpened(std::string_view name) override;

 private:
  std::string lines_;
};

}  // namespace brevan
