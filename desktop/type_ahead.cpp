#include "desktop/type_ahead.h"

#include <QApplication>
#include <QTimer>
#include <QWidget>
#include <QWindow>
#include <utility>

namespace brevan {

namespace {

constexpr size_t kMostHeld = 1000;  // a key that is held down during a long computation

// A list or a menu takes the keyboard while it is open; what was pressed by then still reaches its window when it has
// closed meanwhile, and was meant for the one behind.
QObject* receiverOf(QObject* window) {
  if (static_cast<const QWindow*>(window)->isVisible()) { return window; }
  for (const QWidget* front :
       {QApplication::activePopupWidget(), QApplication::activeModalWidget(), QApplication::focusWidget()}) {
    if (front != nullptr && front->isVisible()) { return front->window()->windowHandle(); }
  }
  return window;
}

}  // namespace

TypeAhead::TypeAhead(std::function<bool(const QKeyEvent&)> nobodyTakes, QObject* parent)
    : QObject(parent), nobodyTakes_(std::move(nobodyTakes)) {
  QApplication::instance()->installEventFilter(this);
}

// Windows get a key first and hand it to the widget in focus.
bool TypeAhead::eventFilter(QObject* object, QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride && object->isWindowType()) {
    // A list chooses already here, and is closed when the press itself arrives.
    begun_ = static_cast<const QWindow*>(object)->isVisible() ? object : nullptr;
  }
  const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease;
  if (!isKey || !object->isWindowType() || event == sent_) { return QObject::eventFilter(object, event); }
  auto* key = static_cast<QKeyEvent*>(event);
  if (releasing_ || nobodyTakes_(*key)) {
    if (held_.size() < kMostHeld) { held_.push_back({object, std::unique_ptr<QKeyEvent>(key->clone())}); }
    return true;
  }
  QObject* const receiver = object == begun_ || key->isAutoRepeat() ? object : receiverOf(object);
  if (receiver == object) { return QObject::eventFilter(object, event); }
  send(*receiver, *key);
  return true;
}

void TypeAhead::send(QObject& window, QKeyEvent& key) {
  sent_ = &key;
  QApplication::sendEvent(&window, &key);
  sent_ = nullptr;
}

// From the next event loop on, which is that of the question.
void TypeAhead::release() {
  if (held_.empty()) { return; }
  releasing_ = true;
  QTimer::singleShot(0, this, &TypeAhead::sendHeld);
}

// Until one of them answers the question: the others wait for the next.
void TypeAhead::sendHeld() {
  releasing_ = false;
  while (!held_.empty() && !nobodyTakes_(*held_.front().key)) {
    const Held first = std::move(held_.front());
    held_.pop_front();
    if (first.window) { send(*receiverOf(first.window), *first.key); }
  }
}

}  // namespace brevan
