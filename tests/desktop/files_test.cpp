#include <QPrintDialog>
#include <QPrinter>

#include "tests/desktop/desktop_session.h"

namespace {

using namespace brevan;

// Opening, saving, exporting and printing by hand, and what asks before work is lost.
class Files : public DesktopSession {
 protected:
  void trigger(const QString& caption) { action(caption).trigger(); }
  void drawLine(const QString& from, const QString& to) {
    whenPrompted("Indicate the start", [this, from] { type(from); });
    whenPrompted("Indicate the next", [this, to] { type(to); });
    whenPrompted("Indicate", [this] { key(Qt::Key_Escape); });
    act([this] { type("line"); });
  }
  QString path(const QString& name) { return folder_.filePath(name); }
  std::string content(const QString& name) {
    std::ifstream in(path(name).toStdString(), std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }
  QTabWidget& tabs() { return *window_->findChild<QTabWidget*>(); }
};

TEST_F(Files, SavedClosedAndOpenedAgainADrawingIsTheSame) {
  drawLine("10,10", "@50<90");
  const std::string drawn = json();
  chooses(path("one.drg"));
  act([this] { trigger("Save"); });
  EXPECT_FALSE(tabs().tabText(tabs().currentIndex()).contains('*'));
  drawLine("0,0", "5,5");
  const std::string more = json();
  act([this] { trigger("Save"); });  // asks nothing now
  window_->undo();
  const int before = tabs().count();
  whenAsked(QMessageBox::Discard);
  act([this] { emit tabs().tabCloseRequested(tabs().currentIndex()); });
  trigger("New");
  EXPECT_EQ(drawing().count(), 0U);
  chooses(path("one.drg"));
  act([this] { trigger("Open or Import..."); });
  EXPECT_EQ(json(), more) << "and not what was undone and discarded";
  EXPECT_GE(tabs().count(), before);
  window_->undo();
  EXPECT_EQ(json(), more) << "what is opened has no past";
}

TEST_F(Files, WhatIsOpenedTakesThePlaceOfTheUntouchedFirstDrawing) {
  const auto open = [this](const QString& name) {
    chooses(path(name));
    act([this] { trigger("Open or Import..."); });
  };
  const auto titles = [this] {
    QStringList all;
    for (int tab = 0; tab < tabs().count(); ++tab) { all.append(tabs().tabText(tab)); }
    return all;
  };
  drawLine("10,10", "@50<90");
  for (const char* name : {"one.drg", "Drawing1.drg"}) {
    chooses(path(name));
    act([this] { trigger("Save As..."); });
  }
  const std::string drawn = json();
  const std::string recovery = root_.toStdString() + "/recovery";
  const auto begin = [&] {
    std::filesystem::remove_all(recovery);
    start();
    EXPECT_EQ(tabs().count(), 1);
  };

  begin();
  open("Drawing1.drg");
  EXPECT_EQ(titles(), QStringList{"Drawing1.drg"});
  EXPECT_EQ(json(), drawn);
  open("one.drg");
  trigger("New");
  EXPECT_EQ(tabs().count(), 3) << "only the first drawing gives way";
  open("one.drg");
  EXPECT_EQ(tabs().count(), 4);
  tabs().setCurrentIndex(1);
  drawLine("1,1", "@5<0");
  const std::string more = json();
  EXPECT_EQ(replayed(), more);

  begin();
  std::ofstream(path("bad.dxf").toStdString()) << "0\nSECTION\nx";
  chooses(path("bad.dxf"));
  whenAsked(QMessageBox::Ok);
  act([this] { trigger("Open or Import..."); });
  EXPECT_EQ(titles(), QStringList{"Drawing1"});

  drawLine("1,1", "@5<0");
  window_->undo();
  open("one.drg");
  EXPECT_EQ(tabs().count(), 2) << "what was taken back can be done again";
  EXPECT_FALSE(std::filesystem::is_empty(recovery));
  whenAsked(QMessageBox::Discard);
  act([this] { emit tabs().tabCloseRequested(0); });
  EXPECT_TRUE(std::filesystem::is_empty(recovery));
}

TEST_F(Files, ClosingAsksAndCancelKeepsAll) {
  drawLine("10,10", "@50<90");
  const std::string drawn = json();
  whenAsked(QMessageBox::Cancel);
  act([this] { emit tabs().tabCloseRequested(tabs().currentIndex()); });
  EXPECT_EQ(json(), drawn);
  whenAsked(QMessageBox::Cancel);
  act([this] { window_->close(); });
  EXPECT_TRUE(window_->isVisible());
  whenAsked(QMessageBox::Save);
  chooses(path("kept.drg"));
  act([this] { window_->close(); });
  EXPECT_FALSE(window_->isVisible());
  EXPECT_TRUE(content("kept.drg").starts_with("SQLite format 3"));
}

TEST_F(Files, ExportsInEveryFormatAndRefusesOthers) {
  drawLine("10,10", "@50<90");
  const std::pair<const char*, const char*> formats[] = {
      {"x.pdf", "%PDF"}, {"x.svg", "<?xml"}, {"x.png", "\x89PNG"}, {"x.dxf", "SECTION"}, {"x.json", "{"}};
  for (const auto& [name, start] : formats) {
    chooses(path(name));
    act([this] { trigger("Export..."); });
    EXPECT_NE(content(name).substr(0, 20).find(start), std::string::npos) << name;
  }
  chooses(path("x.dwq"));
  whenAsked(QMessageBox::Ok);
  act([this] { trigger("Export..."); });
  EXPECT_FALSE(std::filesystem::exists(path("x.dwq").toStdString()));
  chooses(path("made.scr"));
  act([this] { trigger("Save Recorded Script..."); });
  EXPECT_EQ(content("made.scr"), window_->recorder().script().toStdString());
  EXPECT_NE(content("made.scr").find("tool line"), std::string::npos);
  window_->undo();  // an export changes nothing: this takes the line back
  EXPECT_EQ(drawing().count(), 0U);
}

TEST_F(Files, PrintsTheSheet) {
  drawLine("10,10", "@50<90");
  when([] { return qobject_cast<QPrintDialog*>(QApplication::activeModalWidget()) != nullptr; },
       [this] {
         auto* chooser = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
         auto* name = chooser->findChild<QLineEdit*>("filename");
         ASSERT_NE(name, nullptr);
         name->setText(path("paper.pdf"));
         press(*chooser, "Print");
       });
  act([this] { trigger("Print..."); });
  EXPECT_TRUE(content("paper.pdf").starts_with("%PDF"));
}

}  // namespace
