#include "desktop/command_runner.h"

#include <QTimer>

#include "desktop/texts.h"
#include "host/macros/lexer.h"
#include "host/window/host.h"

namespace brevan {

void CommandRunner::run(const QString& name, Work work) {
  if (!busy_) {
    runNow(name, work);
    return;
  }
  nextName_ = name;
  next_ = std::move(work);
  cancel();
}

void CommandRunner::cancel() {
  if (busy_) { emit cancelAsked(); }
}

void CommandRunner::runNow(const QString& name, const Work& work) {
  busy_ = true;
  emit started(name);
  try {
    work();
  } catch (const CommandCancelled&) {
    // The drawing is as it was before.
  } catch (const MacroError& error) {
    emit failed(tr("Column %1: %2").arg(error.column()).arg(shown(error.what())));
  } catch (const std::bad_alloc&) {
    emit failed(tr("There is not enough memory."));
  } catch (const std::exception& failure) { emit failed(shown(failure.what())); }
  busy_ = false;
  emit finished();
  if (!next_) { return; }
  const Work next = std::exchange(next_, nullptr);
  QTimer::singleShot(0, this, [this, name = nextName_, next] { run(name, next); });
}

}  // namespace brevan
