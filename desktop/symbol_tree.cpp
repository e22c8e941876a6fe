#include "desktop/symbol_tree.h"

#include <QDateTime>
#include <QFileInfo>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QScrollBar>
#include <QShortcut>
#include <QTimer>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

#include "desktop/texts.h"
#include "host/files/drawing_files.h"
#include "render/drawing_painter.h"

namespace brevan {

namespace {

constexpr int kPathRole = Qt::UserRole;         // of a file or folder
constexpr int kFolderRole = Qt::UserRole + 1;   // whether it is a folder that has not been read yet
constexpr int kPictureRole = Qt::UserRole + 2;  // whether its picture has been looked for
constexpr int kPictureSize = 32;
constexpr qsizetype kMostPictures = 2000;

QString baseName(const QString& file) { return QFileInfo(file).completeBaseName(); }

// The plan of an opening stands for its file, else the first symbol.
const SymbolDefinition* pictured(const Drawing& drawing) {
  const SymbolDefinition* first = nullptr;
  for (const auto& [name, definition] : drawing.symbols()) {
    if (name.ends_with('P')) { return &definition; }
    if (first == nullptr) { first = &definition; }
  }
  return first;
}

QPixmap paintedSymbol(Drawing& shown, const std::string& name) {
  const std::array<PrimitiveId, 1> alone{shown.add({.geometry = Symbol{name, {}, 1.0, 0.0, false}})};
  const PrimitiveId id = alone.front();
  const Box box = shown.bounds(*shown.find(id));
  QPixmap picture(kPictureSize, kPictureSize);
  picture.fill(Qt::white);
  const double largest = std::max(box.width(), box.height());
  if (largest <= 0.0) { return picture; }
  const double scale = (kPictureSize - 4) / largest;
  const double half = kPictureSize / 2.0;
  const Transform toDevice = Transform::shift({half, half}) * Transform::scaling({}, scale, -scale) *
                             Transform::shift({-box.centre().x, -box.centre().y});
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  PaintOptions options;
  options.lineWidths = false;
  options.only = alone;
  paint(painter, shown, toDevice, options);
  return picture;
}

}  // namespace

SymbolTree::SymbolTree(FolderTree& tree, QWidget* parent)
    : QWidget(parent),
      tree_(tree),
      search_(new QLineEdit(this)),
      items_(new QTreeWidget(this)),
      pictures_(new QTimer(this)) {
  setObjectName("symbolTree");
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(search_);
  column->addWidget(items_, 1);
  search_->setPlaceholderText(tr("Search symbols"));
  search_->setClearButtonEnabled(true);
  search_->setObjectName("symbolSearch");
  items_->setHeaderHidden(true);
  items_->setFrameStyle(QFrame::Panel | QFrame::Sunken);
  items_->setIconSize({kPictureSize, kPictureSize});
  items_->setUniformRowHeights(true);
  items_->setContextMenuPolicy(Qt::CustomContextMenu);
  pictures_->setInterval(0);
  connect(pictures_, &QTimer::timeout, this, &SymbolTree::makeNextPicture);
  const auto look = [this] { pictures_->start(); };
  connect(items_->verticalScrollBar(), &QScrollBar::valueChanged, this, look);
  connect(items_, &QTreeWidget::itemExpanded, this, [this](QTreeWidgetItem* item) {
    if (item->data(0, kFolderRole).toBool()) { fillFolder(item, item->data(0, kPathRole).toString()); }
    pictures_->start();
  });
  connect(items_, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* item) { pickItem(item); });
  connect(items_, &QWidget::customContextMenuRequested, this, &SymbolTree::showMenu);
  auto* enter = new QShortcut(Qt::Key_Return, items_, nullptr, nullptr, Qt::WidgetShortcut);
  connect(enter, &QShortcut::activated, this, [this] { pickItem(items_->currentItem()); });
  connect(search_, &QLineEdit::textChanged, this, [this] { fill(); });
  tree_.onChanged = [this] { fill(); };
  fill();
}

// ---- What is shown ------------------------------------------------------------------------------------------

void SymbolTree::fill() {
  items_->clear();
  const QString words = search_->text().trimmed();
  if (!words.isEmpty()) {
    fillFound(words);
  } else {
    if (!favourites_.isEmpty()) {
      auto* top = new QTreeWidgetItem(items_, {tr("Favourites")});
      for (const QString& file : favourites_) { addFile(top, file, false); }
      top->setExpanded(true);
    }
    fillFolder(items_->invisibleRootItem(), "");
  }
  pictures_->start();
}

void SymbolTree::fillFolder(QTreeWidgetItem* item, const QString& folder) {
  item->setData(0, kFolderRole, false);
  const FolderTree::Listing& listing = tree_.list(folder.toStdString());
  const QString before = folder.isEmpty() ? QString() : folder + '/';
  for (const std::string& name : listing.folders) {
    auto* inner = new QTreeWidgetItem(item, {QString::fromStdString(name)});
    inner->setData(0, kPathRole, before + QString::fromStdString(name));
    inner->setData(0, kFolderRole, true);
    inner->setChildIndicatorPolicy(QTreeWidgetItem::ShowIndicator);
  }
  for (const std::string& name : listing.files) { addFile(item, before + QString::fromStdString(name), false); }
  if (listing.reason.empty()) { return; }
  auto* reason = new QTreeWidgetItem(item, {QString::fromStdString(listing.reason)});
  reason->setDisabled(true);
}

// Every word has to be in the path; more than can be looked through are not listed.
void SymbolTree::fillFound(const QString& words) {
  constexpr int kMostFound = 500;
  const QStringList wanted = words.split(' ', Qt::SkipEmptyParts);
  int found = 0;
  for (const std::string& path : tree_.allFiles()) {
    const QString file = QString::fromStdString(path);
    const auto isIn = [&file](const QString& word) { return file.contains(word, Qt::CaseInsensitive); };
    if (!std::ranges::all_of(wanted, isIn)) { continue; }
    if (++found > kMostFound) { return; }
    addFile(items_->invisibleRootItem(), file, true);
  }
}

void SymbolTree::addFile(QTreeWidgetItem* under, const QString& file, bool withFolder) {
  const QString folder = file.left(file.lastIndexOf('/'));
  const bool named = withFolder && file.contains('/');
  auto* item = new QTreeWidgetItem(under, {named ? baseName(file) + "   " + folder : baseName(file)});
  item->setData(0, kPathRole, file);
  item->setToolTip(0, file);
}

// ---- Picking ------------------------------------------------------------------------------------------------

void SymbolTree::pickItem(const QTreeWidgetItem* item) {
  if (item == nullptr || item->childIndicatorPolicy() == QTreeWidgetItem::ShowIndicator) { return; }
  const QString file = item->data(0, kPathRole).toString();
  if (!file.isEmpty()) { emit picked(file); }
}

void SymbolTree::setFavourites(const QStringList& favourites) {
  favourites_ = favourites;
  fill();
}

void SymbolTree::showMenu(const QPoint& at) {
  const QTreeWidgetItem* item = items_->itemAt(at);
  if (item == nullptr || item->childIndicatorPolicy() == QTreeWidgetItem::ShowIndicator) { return; }
  const QString file = item->data(0, kPathRole).toString();
  if (file.isEmpty()) { return; }
  const bool isOne = favourites_.contains(file);
  QMenu menu;
  menu.addAction(isOne ? tr("Remove from favourites") : tr("Add to favourites"));
  if (menu.exec(items_->mapToGlobal(at)) == nullptr) { return; }
  QStringList changed = favourites_;
  if (isOne) {
    changed.removeAll(file);
  } else {
    changed.append(file);
  }
  setFavourites(changed);
  emit favouritesChanged(changed);
}

// ---- Pictures -----------------------------------------------------------------------------------------------

QTreeWidgetItem* SymbolTree::nextWithoutPicture() const {
  const int bottom = items_->viewport()->height();
  for (QTreeWidgetItem* item = items_->itemAt(0, 0); item != nullptr; item = items_->itemBelow(item)) {
    if (items_->visualItemRect(item).top() > bottom) { return nullptr; }
    const bool isFile = item->childIndicatorPolicy() != QTreeWidgetItem::ShowIndicator &&
                        !item->data(0, kPathRole).toString().isEmpty();
    if (isFile && !item->data(0, kPictureRole).toBool()) { return item; }
  }
  return nullptr;
}

// One at a time, and only of what is in sight, so that the tree never waits for them.
void SymbolTree::makeNextPicture() {
  QTreeWidgetItem* const item = isVisible() ? nextWithoutPicture() : nullptr;
  if (item == nullptr) {
    pictures_->stop();
    return;
  }
  item->setData(0, kPictureRole, true);
  item->setIcon(0, pictureOf(item->data(0, kPathRole).toString()));
}

QIcon SymbolTree::pictureOf(const QString& file) {
  const QFileInfo info(QString::fromStdString(tree_.nativePath(file.toStdString())));
  const QString key =
      QString("%1|%2|%3").arg(info.filePath()).arg(info.lastModified().toMSecsSinceEpoch()).arg(info.size());
  const auto known = icons_.constFind(key);
  if (known != icons_.constEnd()) { return *known; }
  QIcon icon;
  try {
    ReadDrawing read = readDrawing(info.filePath().toStdString());
    const SymbolDefinition* const symbol = pictured(read.drawing);
    if (symbol != nullptr) { icon = QIcon(paintedSymbol(read.drawing, std::string(symbol->name))); }
  } catch (const std::exception&) { icon = QIcon(); }  // picking it says why
  if (icons_.size() >= kMostPictures) { icons_.clear(); }
  icons_.insert(key, icon);
  return icon;
}

}  // namespace brevan
