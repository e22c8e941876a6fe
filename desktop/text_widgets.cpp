#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QToolButton>

#include "desktop/control_widgets.h"
#include "desktop/texts.h"

// Labels and fields.
namespace brevan {

using namespace dialog;

namespace {

// A field for more than a line of text is one for a path, and long enough to read it.
constexpr int kLongestLine = 255;
constexpr int kPathWidth = 360;

class LabelWidget : public ControlWidget {
 public:
  LabelWidget(DialogOperator& owner, int control, QWidget* parent) : ControlWidget(owner, control) {
    label_ = new QLabel(parent);
    label_->setTextFormat(Qt::PlainText);
    widget_ = label_;
  }
  void show() override {
    const State& shownState = control().state;
    if (const auto* label = std::get_if<Label>(&shownState)) { label_->setText(brevan::shown(label->text)); }
    if (const auto* line = std::get_if<StatusLine>(&shownState)) { label_->setText(brevan::shown(line->text)); }
  }

 private:
  QLabel* label_;
};

class ReadOnlyWidget : public ControlWidget {
 public:
  ReadOnlyWidget(DialogOperator& owner, int control, QWidget* parent) : ControlWidget(owner, control) {
    edit_ = new QLineEdit(parent);
    edit_->setReadOnly(true);
    edit_->setFocusPolicy(Qt::ClickFocus);  // to copy from; the Tab key passes it by
    widget_ = edit_;
  }
  void show() override { edit_->setText(brevan::shown(state<ReadOnlyText>().text)); }

 private:
  QLineEdit* edit_;
};

// A key that the host's code page lacks is not taken.
std::optional<std::string> takenText(QLineEdit* edit, const QString& text) {
  auto taken = hostText(text);
  if (!taken) { edit->undo(); }
  return taken;
}

class LineWidget : public ControlWidget {
 public:
  LineWidget(DialogOperator& owner, int control, QWidget* parent) : ControlWidget(owner, control) {
    edit_ = new QLineEdit(parent);
    widget_ = target_ = edit_;
    if (const auto* number = std::get_if<NumberEdit>(&this->control().state)) {
      edit_->setMaximumWidth(110);
      edit_->setMinimumWidth(edit_->fontMetrics().horizontalAdvance("-00000.000") + 14);  // and the frame
      if (number->spin) { addArrows(parent); }
    } else {
      edit_->setMaxLength(state<TextEdit>().limit);
      if (state<TextEdit>().limit > kLongestLine) { edit_->setMinimumWidth(kPathWidth); }
    }
    QObject::connect(edit_, &QLineEdit::textEdited, edit_, [this](const QString& text) {
      if (const auto taken = takenText(edit_, text)) { operate(Verb::kKeyed, {*taken}); }
    });
  }
  void show() override {
    const auto* number = std::get_if<NumberEdit>(&control().state);
    const QString text = brevan::shown(number != nullptr ? number->text : state<TextEdit>().text);
    if (edit_->text() != text) { edit_->setText(text); }
  }
  void selectAll() override { edit_->selectAll(); }

 private:
  void addArrows(QWidget* parent) {
    widget_ = new QWidget(parent);
    auto* row = new QHBoxLayout(widget_);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(1);
    row->addWidget(edit_);
    for (const bool up : {true, false}) {
      auto* arrow = new QToolButton(widget_);
      arrow->setArrowType(up ? Qt::UpArrow : Qt::DownArrow);
      arrow->setFocusPolicy(Qt::NoFocus);
      arrow->setAutoRepeat(true);
      row->addWidget(arrow);
      QObject::connect(arrow, &QToolButton::clicked, arrow, [this, up] { operate(Verb::kSpin, {up ? "up" : "down"}); });
    }
    row->addStretch();
  }
  QLineEdit* edit_;
};

// Ctrl+Enter breaks the line; Enter alone is the dialog's.
class Lines : public QPlainTextEdit {
 public:
  using QPlainTextEdit::QPlainTextEdit;

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!enter) {
      QPlainTextEdit::keyPressEvent(event);
    } else if ((event->modifiers() & Qt::ControlModifier) != 0) {
      insertPlainText("\n");
    } else {
      event->ignore();
    }
  }
};

class LinesWidget : public ControlWidget {
 public:
  LinesWidget(DialogOperator& owner, int control, QWidget* parent) : ControlWidget(owner, control) {
    edit_ = new Lines(parent);
    edit_->setTabChangesFocus(true);
    edit_->setMinimumSize(220, 70);
    widget_ = target_ = edit_;
    QObject::connect(edit_, &QPlainTextEdit::textChanged, edit_, [this] {
      const auto taken = hostText(edit_->toPlainText());
      if (!taken || *taken == state<TextEdit>().text) { return; }
      std::vector<std::string> lines;
      for (const QString& line : edit_->toPlainText().split('\n')) { lines.push_back(hostText(line).value_or("")); }
      operate(Verb::kKeyedLines, std::move(lines));
    });
  }
  void show() override {
    const QString text = brevan::shown(state<TextEdit>().text);
    if (edit_->toPlainText() != text) { edit_->setPlainText(text); }
  }
  void selectAll() override { edit_->selectAll(); }

 private:
  QPlainTextEdit* edit_;
};

}  // namespace

MadeWidget makeWidget(const Label&, const WidgetPlace& place) {
  return std::make_unique<LabelWidget>(place.owner, place.control, place.parent);
}
MadeWidget makeWidget(const StatusLine&, const WidgetPlace& place) {
  return std::make_unique<LabelWidget>(place.owner, place.control, place.parent);
}
MadeWidget makeWidget(const ReadOnlyText&, const WidgetPlace& place) {
  return std::make_unique<ReadOnlyWidget>(place.owner, place.control, place.parent);
}
MadeWidget makeWidget(const NumberEdit&, const WidgetPlace& place) {
  return std::make_unique<LineWidget>(place.owner, place.control, place.parent);
}
MadeWidget makeWidget(const TextEdit& text, const WidgetPlace& place) {
  if (text.multiline) { return std::make_unique<LinesWidget>(place.owner, place.control, place.parent); }
  return std::make_unique<LineWidget>(place.owner, place.control, place.parent);
}

}  // namespace brevan
