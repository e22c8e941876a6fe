#include <QLineEdit>
#include <QTreeWidget>

#include "tests/desktop/desktop_session.h"

namespace {

using namespace brevan;

class SymbolDock : public DesktopSession {};

TEST_F(SymbolDock, ASymbolIsPickedInTheDockHangsAtTheCursorAndIsTurnedOverByAKey) {
  whenDialog([](DialogWindow& dialog) { press(dialog, "OK"); });
  whenPrompted("Indicate starting position", [this] { type("0,0"); });
  whenPrompted("Indicate the next point", [this] { type("0,3000"); });
  whenPrompted("Indicate the next point", [this] { key(Qt::Key_Space); });
  whenPrompted("Indicate starting position", [this] { key(Qt::Key_Space); });
  act([this] { type("ArchDrawWalls"); });
  act([this] { type("ArchPlaceSym"); });
  auto* tree = window_->findChild<QWidget*>("symbolTree")->findChild<QTreeWidget*>();
  ASSERT_TRUE(tree->isVisible());
  window_->findChild<QLineEdit*>("symbolSearch")->setText("w900-270");
  ASSERT_EQ(tree->topLevelItemCount(), 1);
  const auto hanging = [this] {
    const auto& rubber = window_->host().window().cursor().rubber();
    return rubber ? std::get<Symbol>(rubber({3, 1500}).front()) : Symbol{};
  };
  const QString prompt = "Indicate the position of the symbol";
  whenPrompted(prompt, [&, this] {
    EXPECT_EQ(hanging(), (Symbol{"W900-270P", {0, 1500}, 1.0, 90.0, false}));
    QTest::keyClick(&window_->view(), Qt::Key_Tab);
  });
  whenPrompted(prompt, [&, this] {
    EXPECT_EQ(hanging().rotation, 270.0) << "on the other face";
    QTest::keyClick(&window_->view(), Qt::Key_Tab);
  });
  whenPrompted(prompt, [this] { key(Qt::Key_F); });
  whenPrompted(prompt, [&, this] {
    EXPECT_EQ(hanging(), (Symbol{"W900-270P", {0, 2400}, 1.0, 90.0, true}));
    type("3,1500");
  });
  whenPrompted(prompt, [this] { key(Qt::Key_Space); });
  const auto item = tree->visualItemRect(tree->topLevelItem(0)).center();
  act([&] { QTest::mouseClick(tree->viewport(), Qt::LeftButton, Qt::NoModifier, item); });
  EXPECT_EQ(hanging(), Symbol{});
  EXPECT_EQ(replayed(), json());
  EXPECT_NE(json().find("W900-270P"), std::string::npos);
}

}  // namespace
