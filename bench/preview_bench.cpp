// What a person waits for who types into the dialog of gears, its preview beside: from a key in the field of the
// module, which moves every tooth, until the preview shows the gear and the teeth that the field moves.
#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTimer>
#include <exception>
#include <filesystem>
#include <stdexcept>

#include "bench/report.h"
#include "desktop/dialog_window.h"
#include "desktop/recorder.h"
#include "host/window/dialog_fields.h"
#include "host/window/host.h"
#include "host/window/silent_user.h"

namespace {

using namespace brevan;

constexpr int kPatience = 10'000;  // milliseconds

class PaintCounter : public QObject {
 public:
  bool eventFilter(QObject*, QEvent* event) override {
    paints += event->type() == QEvent::Paint ? 1 : 0;
    return false;
  }
  int paints = 0;
};

void sendKey(QWidget& field, int key, const QString& text) {
  QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
  QApplication::sendEvent(&field, &press);
}

// Sits before the dialog of gears: sets the teeth, types digits of the module, leaves.
class Typist : public SilentUser {
 public:
  explicit Typist(int teeth) : teeth_(teeth) {}
  [[nodiscard]] double seconds() const { return best_.seconds(); }

  bool runDialog(dialog::Dialog& description) override {
    DialogWindow window(description, *this, recorder_, BREVAN_DATA "/pictures", nullptr);
    std::exception_ptr error;
    QTimer::singleShot(0, &window, [&] {
      try {
        type(window, description);
      } catch (...) { error = std::current_exception(); }
      window.close();
    });
    window.run();
    if (error) { std::rethrow_exception(error); }
    return false;
  }

 private:
  static QLineEdit& fieldOf(DialogWindow& window, dialog::Dialog& description, const std::string& address) {
    for (QLineEdit* field : window.findChildren<QLineEdit*>()) {
      const QVariant control = field->property("control");
      if (control.isValid() && addressOf(description, control.toInt()) == address) { return *field; }
    }
    throw std::logic_error("the dialog has no field " + address);
  }
  static QWidget& previewOf(DialogWindow& window, dialog::Dialog& description) {
    int index = 0;
    for (const dialog::Control& control : description.controls()) {
      if (std::holds_alternative<dialog::Preview>(control.state)) {
        return *window.findChild<QWidget*>(QString::number(index));
      }
      ++index;
    }
    throw std::logic_error("the dialog has no preview");
  }

  void type(DialogWindow& window, dialog::Dialog& description) {
    PaintCounter counter;
    previewOf(window, description).installEventFilter(&counter);
    const auto wait = [&counter](int before) {
      QElapsedTimer waited;
      waited.start();
      while (counter.paints == before) {
        QApplication::processEvents();
        if (waited.elapsed() > kPatience) { throw std::logic_error("the preview is not painted"); }
      }
      return counter.paints;
    };
    QLineEdit& teeth = fieldOf(window, description, "Number of teeth");
    teeth.setFocus();
    teeth.selectAll();
    for (const char digit : std::to_string(teeth_)) { sendKey(teeth, Qt::Key_0 + digit - '0', QString(QChar(digit))); }
    QLineEdit& module = fieldOf(window, description, "Module (PCD / no. teeth)");
    module.setFocus();
    wait(counter.paints);
    constexpr int kKeys = 8;
    for (int key = 0; key < kKeys; ++key) {
      module.selectAll();
      const int digit = 2 + key % 2;
      best_.measure([&] {
        const int before = counter.paints;
        sendKey(module, Qt::Key_0 + digit, QString::number(digit));
        return wait(before);
      });
    }
  }

  int teeth_;
  Recorder recorder_;
  bench::BestTime best_;
};

void gearPreview(benchmark::State& state) {
  const std::string folder = (std::filesystem::temp_directory_path() / "brevan_preview_bench").string();
  FileServices files(BREVAN_DATA, BREVAN_DATA, FileServices::Confinement{folder, [](const std::string&) {}});
  INI_LIST settings("");
  settings.SetString("MechanicalTools", "SpecFile", BREVAN_DATA "/ISO Mechspecs.ini");
  Typist typist(static_cast<int>(state.range(0)));
  Host host(HostParts{typist, files, settings, nullptr, ""});
  host.loadModule(ARDENIX_MODULE);
  for ([[maybe_unused]] auto step : state) { host.runCommand("MechDrawGears"); }
  bench::report(state, static_cast<double>(state.range(0)), typist.seconds(), {});
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  for (const int teeth : {100, 300, 1000}) {
    benchmark::RegisterBenchmark("gearPreview", gearPreview)->Arg(teeth)->Iterations(3);
  }
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
