#pragma once

#include <QApplication>

namespace brevan {

// The toolkit's application, which ends the program, with a message, where memory runs out while a widget is painted:
// the toolkit leaves the locks of its painting held then, and the next window would wait for them for ever. What was
// drawn up to then is kept for recovery.
class Application : public QApplication {
  Q_OBJECT
 public:
  using QApplication::QApplication;
  bool notify(QObject* receiver, QEvent* event) override;
};

}  // namespace brevan
