#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QStringList>
#include <QWidget>
#include <optional>

#include "host/geometry/point.h"

class QCompleter;

namespace brevan {

// The line under the drawing: shows what is asked and takes what is typed. Between commands it takes their
// names. Space on an empty line is the space bar of the prompt; between commands it repeats the last one.
class PromptBar : public QWidget {
  Q_OBJECT
 public:
  explicit PromptBar(QWidget* parent);

  // What may be typed between commands, beside macros.
  void setCommands(const QStringList& names);
  void askCommand();
  void askPoint(const QString& prompt);
  void askText(const QString& prompt, const QString& fallback);
  // Whether Backspace on an empty answer goes to the question before.
  void allowBack(bool allowed) { mayGoBack_ = allowed; }
  // What is pressed on an empty line instead of giving a point: a letter in capitals, or "Tab".
  void allowKeys(const QStringList& keys) { keys_ = keys; }
  void showPrompt(const QString& text) { prompt_->setText(text); }
  // Relative input, "@5,0" and "@5<30", counts from here.
  void setOrigin(Point origin) { origin_ = origin; }
  // A key pressed in the drawing goes on here.
  void takeKey(QKeyEvent* event);
  [[nodiscard]] const QStringList& history() const { return history_; }
  // Writes down what was answered otherwise, by a click for example.
  void note(const QString& line);
  [[nodiscard]] QLineEdit* edit() const { return edit_; }

 signals:
  void commandTyped(const QString& text);
  void repeatAsked();
  void pointTyped(brevan::Point at);
  void textTyped(const QString& text, bool acceptedDefault);
  void spacePressed();
  void escapePressed();
  void backPressed();
  void keyPressed(const QString& key);
  void mistyped(const QString& what);

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  enum class Asks { kCommand, kPoint, kText };
  void enter();
  bool pressed(QKeyEvent* event);
  [[nodiscard]] QString allowedKey(const QKeyEvent& event) const;
  void recall(int step);
  QLabel* prompt_;
  QLineEdit* edit_;
  QCompleter* completer_ = nullptr;
  Asks asks_ = Asks::kCommand;
  bool mayGoBack_ = false;
  QStringList keys_;
  QString fallback_;
  Point origin_;
  QStringList history_;
  qsizetype recalled_ = 0;
};

// "10,20", "@5,0" from an origin, "@5<30" and "5<30" polar with degrees counter-clockwise from the x axis.
// Nothing for what is none of these.
std::optional<Point> typedPoint(const QString& text, Point origin);

}  // namespace brevan
