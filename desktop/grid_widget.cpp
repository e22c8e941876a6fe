#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QStyledItemDelegate>
#include <QTableWidget>
#include <QToolButton>

#include <algorithm>

#include "desktop/control_widgets.h"
#include "desktop/pen_widgets.h"
#include "desktop/texts.h"
#include "frame/host/limits.h"

namespace brevan {

using namespace dialog;

namespace {

// The fonts that drawings name, whatever they are painted with, and those installed: each once, sorted.
QStringList fontNames() {
  QStringList names = QFontDatabase::families();
  names.append({"Arial", "Times New Roman", "Courier New"});
  names.removeDuplicates();
  names.sort(Qt::CaseInsensitive);
  return names;
}

// The entries that a cell's editor offers; empty for a plain field.
QStringList offered(const Cell& cell) {
  QStringList entries;
  if (cell.kind == CellKind::kLineType) {
    for (int number = 1; number <= limits::kListedLineTypes.most; ++number) { entries.append(QString::number(number)); }
  }
  if (cell.kind == CellKind::kFont) { entries = fontNames(); }
  for (const std::string& item : cell.items) { entries.append(shown(item)); }
  return entries;
}

class CellEditors : public QStyledItemDelegate {
 public:
  CellEditors(std::function<const Cell*(const QModelIndex&)> cellAt,
              std::function<void(const QModelIndex&, const QString&)> edited, QObject* parent)
      : QStyledItemDelegate(parent), cellAt_(std::move(cellAt)), edited_(std::move(edited)) {}

  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex& index) const override {
    const Cell* cell = cellAt_(index);
    if (cell == nullptr || cell->readOnly || cell->kind == CellKind::kBrowse) { return nullptr; }
    const QStringList entries = offered(*cell);
    if (entries.isEmpty()) { return new QLineEdit(parent); }
    auto* list = new QComboBox(parent);
    list->addItems(entries);
    if (cell->kind == CellKind::kLineType) {
      list->setIconSize(lineTypeIconSize());
      for (int entry = 0; entry < list->count(); ++entry) {
        list->setItemIcon(entry, lineTypeIcon(entry + 1, *parent));
      }
    }
    list->setEditable(cell->kind == CellKind::kEditableList || cell->kind == CellKind::kFont ||
                      cell->kind == CellKind::kLineType);
    return list;
  }
  void setEditorData(QWidget* editor, const QModelIndex& index) const override {
    const QString text = shown(cellAt_(index)->text);
    if (auto* list = qobject_cast<QComboBox*>(editor)) {
      list->setCurrentIndex(list->findText(text));
      if (list->isEditable()) { list->setEditText(text); }
    } else {
      static_cast<QLineEdit*>(editor)->setText(text);
    }
  }
  void setModelData(QWidget* editor, QAbstractItemModel*, const QModelIndex& index) const override {
    const auto* list = qobject_cast<QComboBox*>(editor);
    edited_(index, list != nullptr ? list->currentText() : static_cast<QLineEdit*>(editor)->text());
  }

 private:
  std::function<const Cell*(const QModelIndex&)> cellAt_;
  std::function<void(const QModelIndex&, const QString&)> edited_;
};

// Sees the keys of a widget first.
class KeyFilter : public QObject {
 public:
  KeyFilter(std::function<bool(const QKeyEvent&)> taken, QObject* parent) : QObject(parent), taken_(std::move(taken)) {}
  bool eventFilter(QObject*, QEvent* event) override {
    return event->type() == QEvent::KeyPress && taken_(static_cast<QKeyEvent&>(*event));
  }

 private:
  std::function<bool(const QKeyEvent&)> taken_;
};

class GridWidget : public ControlWidget {
 public:
  GridWidget(DialogOperator& owner, int control, QWidget* parent) : ControlWidget(owner, control) {
    table_ = new QTableWidget(parent);
    widget_ = target_ = table_;
    table_->setMinimumSize(roomFor(state<Grid>()));
    table_->setTabKeyNavigation(false);
    table_->setIconSize(kLineIcon);
    table_->setContextMenuPolicy(Qt::CustomContextMenu);
    table_->setSelectionMode(QAbstractItemView::SingleSelection);
    table_->setIconSize(lineTypeIconSize());
    table_->setItemDelegate(new CellEditors(
        [this](const QModelIndex& index) { return cellAt(index.row(), index.column()); },
        [this](const QModelIndex& index, const QString& text) { edit(index.row(), index.column(), text); }, table_));
    QObject::connect(table_, &QTableWidget::currentCellChanged, table_, [this](int row, int column, int, int) {
      click(row, column, Verb::kSelectCell, !state<Grid>().onCellClick);
    });
    QObject::connect(table_, &QTableWidget::cellClicked, table_, [this](int row, int column) {
      if (state<Grid>().onCellClick) { click(row, column, Verb::kClick); }
    });
    QObject::connect(table_, &QTableWidget::cellDoubleClicked, table_,
                     [this](int row, int column) { press(row, column); });
    QObject::connect(table_, &QTableWidget::itemChanged, table_, [this](QTableWidgetItem* item) {
      const Cell* cell = cellAt(item->row(), item->column());
      if (cell == nullptr || cell->kind != CellKind::kCheck) { return; }
      edit(item->row(), item->column(), item->checkState() == Qt::Checked ? "1" : "0");
    });
    QObject::connect(table_, &QTableWidget::customContextMenuRequested, table_, [this](const QPoint& at) {
      click(table_->rowAt(at.y()), table_->columnAt(at.x()), Verb::kRightClick);
    });
    QObject::connect(table_->horizontalHeader(), &QHeaderView::sectionResized, table_,
                     [this](int column, int, int size) { operate(Verb::kWidth, {columnAddress(column)}, size); });
    table_->installEventFilter(new KeyFilter([this](const QKeyEvent& key) { return takeKey(key); }, table_));
    table_->verticalHeader()->setContextMenuPolicy(Qt::CustomContextMenu);
    QObject::connect(table_->verticalHeader(), &QWidget::customContextMenuRequested, table_,
                     [this](const QPoint& at) { click(table_->rowAt(at.y()), -1, Verb::kRightClick); });
  }

  void show() override {
    const Grid& grid = state<Grid>();
    const QSignalBlocker silent(table_);
    const QSignalBlocker silentHeader(table_->horizontalHeader());
    if (shownIn_ != table_->palette().cacheKey()) { shownRows_.clear(); }
    shownIn_ = table_->palette().cacheKey();
    showColumns();
    table_->setRowCount(static_cast<int>(grid.rows.size()));
    showHeadings();
    shownRows_.resize(grid.rows.size());
    for (size_t row = 0; row < grid.rows.size(); ++row) { showRow(static_cast<int>(row)); }
    if (grid.currentRow >= 0) { table_->setCurrentCell(grid.currentRow, std::max(grid.currentColumn, 0)); }
  }

 private:
  void showColumns() {
    const Grid& grid = state<Grid>();
    table_->setColumnCount(static_cast<int>(grid.columns.size()));
    for (int column = 0; column < table_->columnCount(); ++column) {
      const GridColumn& described = grid.columns[static_cast<size_t>(column)];
      const QTableWidgetItem* old = table_->horizontalHeaderItem(column);
      if (old == nullptr || old->text() != brevan::shown(described.title)) {
        auto* title = new QTableWidgetItem(brevan::shown(described.title));
        title->setToolTip(brevan::shown(described.hint));
        table_->setHorizontalHeaderItem(column, title);
      }
      table_->setColumnWidth(column, widthOf(column));
    }
    table_->horizontalHeader()->setStretchLastSection(grid.columns.size() == 1 && !grid.columns.front().widthCounts);
    table_->verticalHeader()->setVisible(!grid.rowHeadings.empty());
  }
  void showHeadings() {
    const std::vector<std::string>& headings = state<Grid>().rowHeadings;
    shownHeadings_.resize(std::min(shownHeadings_.size(), static_cast<size_t>(table_->rowCount())));
    for (size_t row = 0; row < headings.size(); ++row) {
      if (row < shownHeadings_.size() && shownHeadings_[row] == headings[row]) { continue; }
      table_->setVerticalHeaderItem(static_cast<int>(row), new QTableWidgetItem(brevan::shown(headings[row])));
    }
    shownHeadings_ = headings;
  }
  // Makes anew what changed since it was shown: a large table is looked through faster than it is made.
  void showRow(int row) {
    const Grid& grid = state<Grid>();
    const std::vector<Cell>& cells = grid.rows[static_cast<size_t>(row)];
    std::vector<Cell>& before = shownRows_[static_cast<size_t>(row)];
    for (size_t column = 0; column < cells.size(); ++column) {
      const int place = static_cast<int>(column);
      if (column < before.size() && before[column] == cells[column] && table_->item(row, place) != nullptr) {
        continue;
      }
      table_->setItem(row, place, itemOf(cells[column], grid.columns[column]));
      showBrowseButton(row, place, cells[column]);
    }
    if (before != cells) { before = cells; }
  }
  [[nodiscard]] const Cell* cellAt(int row, int column) const {
    const Grid& grid = state<Grid>();
    if (row < 0 || column < 0 || static_cast<size_t>(row) >= grid.rows.size()) { return nullptr; }
    const auto& cells = grid.rows[static_cast<size_t>(row)];
    return static_cast<size_t>(column) < cells.size() ? &cells[static_cast<size_t>(column)] : nullptr;
  }
  // As described, but where the width itself does not count never less than its title and the pictures of its cells
  // need.
  [[nodiscard]] int widthOf(int column) const {
    constexpr int kNumber = 44;  // beside a picture
    const Grid& grid = state<Grid>();
    const GridColumn& described = grid.columns[static_cast<size_t>(column)];
    if (described.widthCounts) { return described.width; }
    int width = std::max(described.width, table_->horizontalHeader()->sectionSizeHint(column));
    for (const auto& row : grid.rows) {
      if (static_cast<size_t>(column) >= row.size()) { continue; }
      const Cell& cell = row[static_cast<size_t>(column)];
      if (cell.kind == CellKind::kLineType && !cell.text.empty()) {
        width = std::max(width, kLineIcon.width() + kNumber);
      }
    }
    return width;
  }
  // Room for the columns as described and for a dozen rows, within what a small screen holds.
  static QSize roomFor(const Grid& grid) {
    constexpr int kHeadings = 150;
    constexpr int kRowHeight = 30;
    int width = grid.rowHeadings.empty() ? 0 : kHeadings;
    for (const GridColumn& column : grid.columns) { width += column.width; }
    const int rows = static_cast<int>(grid.rows.size()) + 1;
    return {std::clamp(width + kRowHeight, 320, 900), std::clamp(rows * kRowHeight + 8, 100, 380)};
  }
  // At the right of the cell, over its text.
  void showBrowseButton(int row, int column, const Cell& cell) {
    const bool wanted = cell.kind == CellKind::kBrowse;
    if (wanted == (table_->cellWidget(row, column) != nullptr)) { return; }
    if (!wanted) { return table_->removeCellWidget(row, column); }
    auto* holder = new QWidget(table_);
    auto* line = new QHBoxLayout(holder);
    line->setContentsMargins(0, 0, 0, 0);
    line->addStretch();
    auto* button = new QToolButton(holder);
    button->setText("...");
    line->addWidget(button);
    QObject::connect(button, &QToolButton::clicked, table_, [this, row, column] { press(row, column); });
    table_->setCellWidget(row, column, holder);
  }
  QTableWidgetItem* itemOf(const Cell& cell, const GridColumn& column) {
    constexpr uint32_t kUsual = 0xFFFFFFFF;
    auto* item = new QTableWidgetItem(cell.kind == CellKind::kCheck ? QString() : brevan::shown(cell.text));
    item->setToolTip(brevan::shown(column.hint));
    Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
    if (cell.kind == CellKind::kCheck) {
      item->setCheckState(cell.text == "1" ? Qt::Checked : Qt::Unchecked);
      if (!cell.readOnly) { flags |= Qt::ItemIsUserCheckable; }
    } else if (cell.kind == CellKind::kBrowse) {  // its button is its editor
    } else if (!cell.readOnly) {
      flags |= Qt::ItemIsEditable;
    } else {
      item->setForeground(table_->palette().color(QPalette::Disabled, QPalette::Text));
    }
    if (cell.kind == CellKind::kPen && !cell.text.empty() && cell.ground == kUsual) {
      item->setIcon(penIcon(QString::fromStdString(cell.text).toInt(), *table_));
    }
    if (cell.kind == CellKind::kLineType && !cell.text.empty()) {
      item->setIcon(lineTypeIcon(QString::fromStdString(cell.text).toInt(), *table_, kLineIcon));
    }
    if (cell.kind == CellKind::kNumber || cell.kind == CellKind::kInteger) {
      item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    }
    if (cell.ground != kUsual) {
      const QColor ground(QRgb(cell.ground));
      item->setBackground(ground);
      item->setForeground(qGray(ground.rgb()) < 128 ? Qt::white : Qt::black);
    }
    item->setFlags(flags);
    return item;
  }
  [[nodiscard]] std::string columnAddress(int column) const {
    return column < 0 ? "" : addressOf(state<Grid>().columns.at(static_cast<size_t>(column)));
  }
  void click(int row, int column, Verb verb, bool recorded = true) {
    if (row < 0) { return; }
    DialogOperation operation{verb, control_, row + 1, {}, recorded};
    if (column >= 0) { operation.texts.push_back(columnAddress(column)); }
    owner_.operate(operation);
  }
  bool takeKey(const QKeyEvent& key) {
    const int row = table_->currentRow();
    if (row < 0) { return false; }
    if (key.matches(QKeySequence::Paste)) {
      paste(row, table_->currentColumn(), QApplication::clipboard()->text());
      return true;
    }
    if (key.key() != Qt::Key_Insert || key.modifiers() != Qt::NoModifier || !state<Grid>().onInsertRow) {
      return false;
    }
    operate(Verb::kInsertRow, {}, row + 1);
    return true;
  }
  void paste(int row, int column, const QString& text) {
    const auto taken = hostText(text);
    if (!taken) { return owner_.refuse(tr("The clipboard holds characters that drawings do not have.")); }
    std::vector<std::string> lines = {columnAddress(column), ""};
    for (const char c : *taken) {
      if (c == '\n') {
        lines.emplace_back();
      } else if (c != '\r') {
        lines.back() += c;
      }
    }
    if (lines.size() > 2 && lines.back().empty()) { lines.pop_back(); }
    operate(Verb::kPaste, std::move(lines), row + 1);
  }
  void press(int row, int column) {
    const Cell* cell = cellAt(row, column);
    if (cell != nullptr && cell->kind == CellKind::kPen && !cell->readOnly && !state<Grid>().onCellPress) {
      if (const auto pen =
              choosePenFrom(table_, brevan::shown(columnAddress(column)), QString::fromStdString(cell->text).toInt())) {
        edit(row, column, QString::number(*pen));
      }
      return;
    }
    click(row, column, Verb::kPress);
  }
  void edit(int row, int column, const QString& text) {
    const auto taken = hostText(text);
    const Cell* cell = cellAt(row, column);
    if (!taken || cell == nullptr || *taken == cell->text) { return; }
    operate(Verb::kCell, {columnAddress(column), *taken}, row + 1);
    // A tick that was refused stands in the widget already.
    const QSignalBlocker silent(table_);
    if (QTableWidgetItem* item = table_->item(row, column); item != nullptr && cell->kind == CellKind::kCheck) {
      item->setCheckState(cellAt(row, column)->text == "1" ? Qt::Checked : Qt::Unchecked);
    }
  }
  static constexpr QSize kLineIcon{56, 12};
  QTableWidget* table_;
  std::vector<std::vector<Cell>> shownRows_;
  std::vector<std::string> shownHeadings_;
  qint64 shownIn_ = 0;  // the palette
};

}  // namespace

MadeWidget makeWidget(const Grid&, const WidgetPlace& place) {
  return std::make_unique<GridWidget>(place.owner, place.control, place.parent);
}

}  // namespace brevan
