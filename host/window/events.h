#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "host/drawing/primitive.h"
#include "host/window/user.h"

namespace brevan {

class Drawing;

using CallArgument = std::variant<double, int, std::string_view>;

// What happens while a command runs, in the order it happens. The transcript writes it down, the recorder
// turns it into a script. Texts are Windows-1252.
class EventSink {
 public:
  EventSink() = default;
  EventSink(const EventSink&) = delete;
  EventSink& operator=(const EventSink&) = delete;
  virtual ~EventSink() = default;

  virtual void macroSent(std::string_view text) = 0;
  virtual void primitiveAdded(const Drawing& drawing, PrimitiveId id) = 0;
  virtual void pointPrompted(std::string_view prompt, PromptEnd end, Point at) = 0;
  // Instead of a point.
  virtual void keyPressed(std::string_view) {}
  virtual void textPrompted(std::string_view prompt, const TextAnswer& answer) = 0;
  virtual void messageShown(const MessageBox& box, BoxAnswer answer) = 0;
  virtual void dialogClosed(std::string_view title, bool accepted) = 0;
  virtual void menuChosen(const std::vector<std::string>& items, std::string_view choice) = 0;
  // With the filter's description where a file's ending does not tell it.
  virtual void chooserAnswered(std::string_view kind, std::string_view answer, std::string_view filter) = 0;
  virtual void focusMoved(std::string_view control) = 0;
  virtual void called(std::string_view name, std::initializer_list<CallArgument> arguments) = 0;
  virtual void statusShown(std::string_view text) = 0;
  virtual void windowOpened(std::string_view name) = 0;
};

}  // namespace brevan
