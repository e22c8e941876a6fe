#include "desktop/panels.h"

#include <QSignalSpy>

#include "tests/desktop/desktop_session.h"
#include "tests/host/drawing/random_drawing.h"

namespace {

using namespace brevan;

QStringList entries(const GroupsPanel& panel) {
  QStringList all;
  for (int row = 0; row < panel.topLevelItemCount(); ++row) {
    const QTreeWidgetItem& category = *panel.topLevelItem(row);
    all.append(category.text(0));
    for (int place = 0; place < category.childCount(); ++place) {
      const QTreeWidgetItem& group = *category.child(place);
      all.append(group.text(0) + " #" + group.data(0, Qt::UserRole).toString());
    }
  }
  return all;
}

QStringList entriesAnew(const Drawing& drawing) {
  GroupsPanel panel(nullptr);
  panel.show(drawing);
  return entries(panel);
}

void drawGroup(Drawing& drawing, const std::string& parent, const std::string& name) {
  drawing.add({.group = drawing.addGroup(parent, name), .geometry = Line{{0, 0}, {10, 0}}});
}

TEST(GroupsPanel, FollowsEveryChangeAsIfBuiltAnew) {
  RandomDrawing random(11);
  Drawing& drawing = random.drawing;
  GroupsPanel panel(nullptr);
  for (int change = 0; change < 1500; ++change) {
    switch (random.whole(0, 9)) {
      case 0: drawing.undo(); break;
      case 1: drawing.redo(); break;
      case 2:
        drawing.beginStep("Given up");
        for (int more = random.whole(1, 9); more > 0; --more) { random.change(); }
        drawing.rollBack();
        break;
      case 3:
        for (int more = random.whole(0, 3); more > 0; --more) {
          drawGroup(drawing, random.whole(0, 1) == 0 ? "NUTS" : "", "N" + std::to_string(random.whole(0, 9)));
        }
        break;
      default: random.change();
    }
    if (random.whole(0, 4) > 0) { continue; }
    panel.show(drawing);
    ASSERT_EQ(entries(panel), entriesAnew(drawing)) << "after change " << change;
  }
  EXPECT_GT(entries(panel).size(), 5);
  drawing = Drawing();  // as when a file is opened in its place
  panel.show(drawing);
  EXPECT_TRUE(entries(panel).isEmpty());
}

TEST(GroupsPanel, ACommandCostsItsOwnGroupsOnly) {
  Drawing drawing;
  for (int n = 0; n < 2000; ++n) { drawGroup(drawing, n % 2 == 0 ? "BOLTS" : "NUTS", "S" + std::to_string(n)); }
  GroupsPanel panel(nullptr);
  panel.show(drawing);
  const QSignalSpy reset(panel.model(), &QAbstractItemModel::modelReset);
  const QSignalSpy inserted(panel.model(), &QAbstractItemModel::rowsInserted);
  const QSignalSpy removed(panel.model(), &QAbstractItemModel::rowsRemoved);
  const QSignalSpy changed(panel.model(), &QAbstractItemModel::dataChanged);
  const auto costs = [&] {
    panel.show(drawing);
    return std::vector{reset.count(), inserted.count(), removed.count(), changed.count()};
  };
  drawing.add({.group = 7, .geometry = Line{{0, 0}, {5, 5}}});
  EXPECT_EQ(costs(), (std::vector<qsizetype>{0, 0, 0, 0})) << "no group came or went";
  drawGroup(drawing, "NUTS", "S77a");
  EXPECT_EQ(costs(), (std::vector<qsizetype>{0, 1, 0, 1})) << "the new one, and how many there are of its category";
  drawing.undo();
  drawing.undo();
  EXPECT_EQ(costs(), (std::vector<qsizetype>{0, 1, 1, 2}));
}

}  // namespace
