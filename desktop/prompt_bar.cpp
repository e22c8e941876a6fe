#include "desktop/prompt_bar.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <cmath>

#include "desktop/texts.h"
#include "frame/host/limits.h"
#include "frame/host/number_text.h"
#include "host/window/user.h"

namespace brevan {

std::optional<Point> typedPoint(const QString& text, Point origin) {
  QString rest = text.trimmed();
  const bool relative = rest.startsWith('@');
  if (relative) { rest.remove(0, 1); }
  const bool polar = rest.contains('<');
  const QStringList parts = rest.split(polar ? '<' : ',');
  if (parts.size() != 2) { return std::nullopt; }
  const auto first = numberText::parseDouble(parts[0].trimmed().toStdString());
  const auto second = numberText::parseDouble(parts[1].trimmed().toStdString());
  if (!first || !second) { return std::nullopt; }
  const Point given = polar ? Point{*first * std::cos(*second * kPi / 180.0), *first * std::sin(*second * kPi / 180.0)}
                            : Point{*first, *second};
  return relative ? origin + given : given;
}

PromptBar::PromptBar(QWidget* parent) : QWidget(parent), prompt_(new QLabel(this)), edit_(new QLineEdit(this)) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(6, 3, 6, 3);
  row->addWidget(prompt_);
  row->addWidget(edit_, 1);
  prompt_->setObjectName("promptText");
  edit_->setObjectName("promptEdit");
  edit_->setAccessibleName(tr("Prompt"));
  edit_->installEventFilter(this);
  // The list of completions passes Enter on past the filter.
  connect(edit_, &QLineEdit::returnPressed, this, &PromptBar::enter);
  askCommand();
}

void PromptBar::setCommands(const QStringList& names) {
  completer_ = new QCompleter(names, this);
  completer_->setCaseSensitivity(Qt::CaseInsensitive);
  completer_->setFilterMode(Qt::MatchContains);
  if (asks_ == Asks::kCommand) { edit_->setCompleter(completer_); }
}

void PromptBar::askCommand() {
  asks_ = Asks::kCommand;
  prompt_->setText(tr("Command:"));
  edit_->clear();
  edit_->setPlaceholderText(tr("a command's name or #MACRO; space repeats the last one"));
  edit_->setCompleter(completer_);
}

void PromptBar::askPoint(const QString& prompt) {
  asks_ = Asks::kPoint;
  prompt_->setText(prompt);
  edit_->setCompleter(nullptr);
  edit_->clear();
  edit_->setPlaceholderText(tr("x,y   @dx,dy   @length<angle"));
}

void PromptBar::askText(const QString& prompt, const QString& fallback) {
  asks_ = Asks::kText;
  fallback_ = fallback;
  prompt_->setText(prompt);
  edit_->setCompleter(nullptr);
  edit_->setPlaceholderText({});
  edit_->setText(fallback);
  edit_->selectAll();
  edit_->setFocus();
}

void PromptBar::note(const QString& line) {
  history_.append(line);
  recalled_ = history_.size();
}

void PromptBar::recall(int step) {
  recalled_ = std::clamp<qsizetype>(recalled_ + step, 0, history_.size());
  edit_->setText(recalled_ < history_.size() ? history_[recalled_] : QString());
}

void PromptBar::enter() {
  const QString typed = edit_->text();
  switch (asks_) {
    case Asks::kCommand:
      if (typed.trimmed().isEmpty()) {
        emit repeatAsked();
        return;
      }
      note(typed);
      edit_->clear();
      emit commandTyped(typed.trimmed());
      return;
    case Asks::kPoint: {
      if (typed.trimmed().isEmpty()) {
        emit spacePressed();
        return;
      }
      const auto at = typedPoint(typed, origin_);
      if (!at) {
        edit_->selectAll();
        emit mistyped(tr("\"%1\" is no point: type x,y or @dx,dy or @length<angle").arg(typed));
        return;
      }
      note(typed);
      edit_->clear();
      emit pointTyped(*at);
      return;
    }
    case Asks::kText:
      if (const auto length = static_cast<size_t>(typed.size()); length > limits::kLongestAnswer) {
        emit mistyped(shown(tooLongAnswer(length)));
        return;
      }
      note(typed);
      emit textTyped(typed, typed == fallback_);
      return;
  }
}

// "" for one that is none of them.
QString PromptBar::allowedKey(const QKeyEvent& event) const {
  if (asks_ != Asks::kPoint || !edit_->text().isEmpty() || event.modifiers() != Qt::NoModifier) { return {}; }
  const QString name = QKeySequence(event.key()).toString(QKeySequence::PortableText);
  return keys_.contains(name) ? name : QString();
}

bool PromptBar::pressed(QKeyEvent* event) {
  if (const QString key = allowedKey(*event); !key.isEmpty()) {
    emit keyPressed(key);
    return true;
  }
  const bool completing = completer_ != nullptr && edit_->completer() != nullptr && completer_->popup()->isVisible();
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter: enter(); return true;
    case Qt::Key_Escape:
      if (asks_ != Asks::kText && !edit_->text().isEmpty()) {
        edit_->clear();
      } else {
        emit escapePressed();
      }
      return true;
    case Qt::Key_Backspace:
      if (asks_ != Asks::kText || !mayGoBack_ || !edit_->text().isEmpty() || event->isAutoRepeat()) { return false; }
      emit backPressed();
      return true;
    case Qt::Key_Space:
      if (asks_ == Asks::kText || (asks_ == Asks::kCommand && !edit_->text().isEmpty())) { return false; }
      enter();
      return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
      if (completing || asks_ == Asks::kText) { return false; }
      recall(event->key() == Qt::Key_Up ? -1 : 1);
      return true;
    default: return false;
  }
}

bool PromptBar::eventFilter(QObject* object, QEvent* event) {
  if (object == edit_ && event->type() == QEvent::KeyPress && pressed(static_cast<QKeyEvent*>(event))) { return true; }
  // On an empty line undo, redo, select all, copy and delete mean the drawing.
  if (object == edit_ && event->type() == QEvent::ShortcutOverride && edit_->text().isEmpty()) {
    event->ignore();
    return true;
  }
  return QWidget::eventFilter(object, event);
}

void PromptBar::takeKey(QKeyEvent* event) {
  if (pressed(event)) { return; }
  if (event->text().isEmpty() || !event->text().at(0).isPrint()) { return; }
  edit_->setFocus();
  edit_->insert(event->text());
}

}  // namespace brevan
