#include "desktop/control_widgets.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QVBoxLayout>

#include "desktop/pen_widgets.h"
#include "desktop/texts.h"
#include "host/window/control_kinds.h"

// Buttons, ticks and tabs; fields, lists, grids and pictures have files of their own.
namespace brevan {

using namespace dialog;

namespace {

class CheckWidget : public ControlWidget {
 public:
  CheckWidget(DialogOperator& owner, int control, QWidget* parent) : ControlWidget(owner, control) {
    box_ = new QCheckBox(brevan::shown(this->control().caption), parent);
    widget_ = target_ = box_;
    QObject::connect(box_, &QCheckBox::clicked, box_,
                     [this](bool checked) { operate(checked ? Verb::kCheck : Verb::kUncheck); });
  }
  void show() override { box_->setChecked(state<CheckBox>().checked); }

 private:
  QCheckBox* box_;
};

class RadioWidget : public ControlWidget {
 public:
  RadioWidget(DialogOperator& owner, int control, QWidget* parent) : ControlWidget(owner, control) {
    const QString caption = brevan::shown(this->control().caption);
    widget_ = caption.isEmpty() ? new QWidget(parent) : new QGroupBox(caption, parent);
    auto* column = new QVBoxLayout(widget_);
    if (caption.isEmpty()) { column->setContentsMargins(0, 0, 0, 0); }
    const RadioGroup& group = state<RadioGroup>();
    for (size_t item = 0; item < group.items.size(); ++item) {
      auto* button = new QRadioButton(brevan::shown(group.items[item].caption), widget_);
      if (owner.description().toolTipsShown()) { button->setToolTip(brevan::shown(group.items[item].toolTip)); }
      column->addWidget(button);
      buttons_.push_back(button);
      QObject::connect(button, &QRadioButton::clicked, button,
                       [this, item] { operate(Verb::kPick, {itemTexts(this->control().state).at(item)}); });
    }
    target_ = buttons_.empty() ? nullptr : buttons_.front();
  }
  void show() override {
    const RadioGroup& group = state<RadioGroup>();
    for (size_t item = 0; item < buttons_.size() && item < group.items.size(); ++item) {
      buttons_[item]->setEnabled(group.items[item].enabled && control().enabled);
      buttons_[item]->setAutoExclusive(false);
      buttons_[item]->setChecked(group.chosen == static_cast<int>(item));
      buttons_[item]->setAutoExclusive(true);
    }
  }

 private:
  std::vector<QRadioButton*> buttons_;
};

class ButtonWidget : public ControlWidget {
 public:
  ButtonWidget(DialogOperator& owner, int control, QWidget* parent) : ControlWidget(owner, control) {
    button_ = new QPushButton(brevan::shown(this->control().caption), parent);
    button_->setAutoDefault(false);
    button_->setDefault(state<Button>().role == ButtonRole::kOk);
    button_->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    widget_ = target_ = button_;
    QObject::connect(button_, &QPushButton::clicked, button_, [this] { operate(Verb::kPress); });
  }
  void show() override {}

 private:
  QPushButton* button_;
};

class PenWidget : public ControlWidget {
 public:
  PenWidget(DialogOperator& owner, int control, QWidget* parent) : ControlWidget(owner, control) {
    button_ = new QPushButton(parent);
    button_->setAutoDefault(false);
    widget_ = target_ = button_;
    QObject::connect(button_, &QPushButton::clicked, button_, [this] { operate(Verb::kPress); });
  }
  void show() override {
    button_->setIcon(penIcon(state<PenButton>().pen, *button_));
    button_->setText(QString::number(state<PenButton>().pen));
  }

 private:
  QPushButton* button_;
};

class TabsWidget : public ControlWidget {
 public:
  TabsWidget(DialogOperator& owner, int control, QWidget* parent) : ControlWidget(owner, control) {
    bar_ = new QTabBar(parent);
    widget_ = target_ = bar_;
    for (const std::string& page : state<Tabs>().pages) { bar_->addTab(brevan::shown(page)); }
    QObject::connect(bar_, &QTabBar::currentChanged, bar_, [this](int page) {  // by mouse or arrow key
      if (page < 0 || page == state<Tabs>().current) { return; }
      owner_.operate({Verb::kTab, -1, {}, {state<Tabs>().pages.at(static_cast<size_t>(page))}});
    });
  }
  void show() override { bar_->setCurrentIndex(state<Tabs>().current); }

 private:
  QTabBar* bar_;
};

}  // namespace

MadeWidget makeWidget(const CheckBox&, const WidgetPlace& place) {
  return std::make_unique<CheckWidget>(place.owner, place.control, place.parent);
}
MadeWidget makeWidget(const RadioGroup&, const WidgetPlace& place) {
  return std::make_unique<RadioWidget>(place.owner, place.control, place.parent);
}
MadeWidget makeWidget(const Button&, const WidgetPlace& place) {
  return std::make_unique<ButtonWidget>(place.owner, place.control, place.parent);
}
MadeWidget makeWidget(const PenButton&, const WidgetPlace& place) {
  return std::make_unique<PenWidget>(place.owner, place.control, place.parent);
}
MadeWidget makeWidget(const Tabs&, const WidgetPlace& place) {
  return std::make_unique<TabsWidget>(place.owner, place.control, place.parent);
}

MadeWidget makeControlWidget(DialogOperator& owner, int control, QWidget* parent) {
  const WidgetPlace place{owner, control, parent};
  return std::visit([&place](const auto& kind) { return makeWidget(kind, place); },
                    owner.description().control(control).state);
}

}  // namespace brevan
