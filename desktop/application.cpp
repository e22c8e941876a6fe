#include "desktop/application.h"

#include <QEvent>
#include <cstdio>
#include <cstdlib>
#include <new>

namespace brevan {

bool Application::notify(QObject* receiver, QEvent* event) {
  if (event->type() != QEvent::Paint) { return QApplication::notify(receiver, event); }
  try {
    return QApplication::notify(receiver, event);
  } catch (const std::bad_alloc&) {
    std::fputs("brevan: there is not enough memory to paint; what was drawn is offered at the next start\n", stderr);
    std::abort();
  }
}

}  // namespace brevan
