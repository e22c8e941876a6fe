#pragma once

#include <QObject>
#include <functional>
#include <string>

namespace brevan {

// Thrown out of a question when the command shall end at once and leave the drawing as it was.
struct CommandCancelled {};

// Runs one piece of work on the drawing at a time: a command, a tool, a macro, an undo. A command waits for
// its user within `run`, in an event loop of its own, so whatever else a person starts meanwhile ends it first.
class CommandRunner : public QObject {
  Q_OBJECT
 public:
  using Work = std::function<void()>;
  explicit CommandRunner(QObject* parent) : QObject(parent) {}

  // Runs the work now, or once the one that runs has ended; of several waiting ones the newest.
  void run(const QString& name, Work work);
  [[nodiscard]] bool busy() const { return busy_; }
  // Asks the running work to end: its open question is answered with Escape.
  void cancel();

 signals:
  void started(const QString& name);
  void finished();
  void cancelAsked();
  void failed(const QString& what);

 private:
  void runNow(const QString& name, const Work& work);
  bool busy_ = false;
  QString nextName_;
  Work next_;
};

}  // namespace brevan
