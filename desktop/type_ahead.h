#pragma once

#include <QKeyEvent>
#include <QObject>
#include <QPointer>
#include <deque>
#include <functional>
#include <memory>

namespace brevan {

// Keys that are pressed while a command computes, or between two of its questions, wait here for the next
// question: who types faster than the program asks loses nothing. Keys on their way to a list or a menu that has closed
// go to the window behind it; not the key that closed it.
class TypeAhead : public QObject {
  Q_OBJECT
 public:
  // Looks at every key of the program; asked whether nothing would take it now.
  TypeAhead(std::function<bool(const QKeyEvent&)> nobodyTakes, QObject* parent);
  // Somebody takes keys again.
  void release();

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  void sendHeld();
  void send(QObject& window, QKeyEvent& key);

  std::function<bool(const QKeyEvent&)> nobodyTakes_;
  struct Held {
    QPointer<QObject> window;
    std::unique_ptr<QKeyEvent> key;
  };
  std::deque<Held> held_;
  const QEvent* sent_ = nullptr;    // by this, so not to be held again
  const QObject* begun_ = nullptr;  // the window that was shown as the last key went down; only compared
  bool releasing_ = false;          // what is pressed now comes after what is held
};

}  // namespace brevan
