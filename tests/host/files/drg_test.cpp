#include <gtest/gtest.h>
#include <sqlite3.h>

#include "frame/host/core_services.h"
#include "host/core/safe_file.h"
#include "host/files/drg_reader.h"
#include "host/files/drg_writer.h"
#include "host/files/json_writer.h"
#include "tests/failure.h"
#include "tests/host/core/temporary_folder.h"
#include "tests/host/drawing/random_drawing.h"

namespace brevan {
namespace {

std::string drgReason(const std::string& bytes) {
  return failureOf([&] { drawingFromDrg(bytes, "part.drg"); });
}

// The file after another program ran SQL on it.
std::string editedBy(const std::string& bytes, const std::string& sql) {
  const TemporaryFolder folder;
  const std::string path = folder.write("edited.drg", bytes);
  sqlite3* database = nullptr;
  sqlite3_open(path.c_str(), &database);
  char* message = nullptr;
  EXPECT_EQ(sqlite3_exec(database, sql.c_str(), nullptr, nullptr, &message), SQLITE_OK) << sql << ": " << message;
  sqlite3_close(database);
  return folder.read("edited.drg");
}

std::string smallFile() {
  Drawing drawing;
  drawing.addLayer({"Walls", true, false, 3, 2, 5.0});
  Primitive line{.group = drawing.addGroup("BOLTS", "M10"), .geometry = Line{{1, 2}, {3, 4}}};
  drawing.add(line);
  drawing.add({.geometry = Text{{1, 2}, "L\xE4nge"}});
  drawing.addSymbol({"BOX", {line}, false, true});
  drawing.addSymbol({"CRATE", {{.geometry = Symbol{"BOX", {}}}, {.geometry = Symbol{"BOX", {}}}}});
  return drawingDrg(drawing);
}

TEST(DrawingFile, RandomDrawingsComeBackWhole) {
  for (unsigned seed = 1; seed <= 40; ++seed) {
    RandomDrawing random(seed);
    for (int change = 0; change < 200; ++change) { random.change(); }
    const Drawing read = drawingFromDrg(drawingDrg(random.drawing), "random.drg");
    ASSERT_EQ(drawingJson(read), drawingJson(random.drawing)) << "seed " << seed;
    ASSERT_EQ(read.symbols(), random.drawing.symbols());
    ASSERT_EQ(read.sheet(), random.drawing.sheet());
    EXPECT_EQ(read.undoName(), nullptr) << "reading is no step of undo";
  }
}

TEST(DrawingFile, EveryCharacterAndNumberComesBack) {
  Drawing drawing;
  std::string every;
  for (int code = 1; code < 256; ++code) { every += static_cast<char>(code); }
  drawing.add({.geometry = Text{{5e-324, 1.7e308}, every + std::string(1, '\0') + "after"}});
  drawing.add({.geometry = Text{{0.1, -1e15}, std::string(64 << 10, '\'')}});
  drawing.add({.pen = 300, .linetype = 40, .width = 2.5, .geometry = Arrow{{1, 2}, {3, 4}, 5, 6, {7, 8, 9}}});
  const Drawing read = drawingFromDrg(drawingDrg(drawing), "all.drg");
  EXPECT_EQ(drawingJson(read), drawingJson(drawing));
}

TEST(DrawingFile, NumbersOfADrawingMostlyErasedAreGivenAnew) {
  Drawing drawing;
  drawing.beginLoading();
  drawing.load(5, {.geometry = Line{{1, 2}, {3, 4}}});
  drawing.load(2'000'000, {.geometry = Line{{5, 6}, {7, 8}}});
  drawing.endLoading();
  const Drawing read = drawingFromDrg(drawingDrg(drawing), "strewn.drg");
  ASSERT_EQ(read.lastId(), 2);
  EXPECT_EQ(*read.find(2), *drawing.find(2'000'000));
}

TEST(DrawingFile, CutAnywhereItIsRefused) {
  const std::string whole = smallFile();
  for (size_t length = 0; length < whole.size(); length += 64) {
    ASSERT_NE(drgReason(whole.substr(0, length)), "") << length;
  }
}

TEST(DrawingFile, ValuesOutOfPlaceAreNamedWithTableAndRow) {
  const std::pair<const char*, const char*> rows[] = {
      {"UPDATE lines SET layer=9 WHERE symbol=0", "table lines, row 1: There is no layer with the number 9."},
      {"UPDATE lines SET part_group=2 WHERE symbol=0", "table lines, row 1: There is no group with the number 2."},
      {"UPDATE lines SET x1=9e999 WHERE symbol=0", "table lines, row 1: \"x1\" is a finite number"},
      {"UPDATE lines SET symbol=7 WHERE symbol=0", "there is no such symbol"},
      {"UPDATE texts SET id=2147483647", "table texts, row 1: numbers run to"},
      {"UPDATE texts SET id=0", "is below 1"},
      {"UPDATE texts SET id=1", "number 1 already"},
      {"UPDATE texts SET pen=4294967296", "\"pen\" is a number of at most nine digits"},
      {"UPDATE texts SET text='\u4E2D'", "\"text\" is UTF-8 text of characters that Windows-1252 has"},
      {"UPDATE texts SET text=CAST(X'41FF' AS TEXT)", "\"text\" is UTF-8 text"},
      {"UPDATE layers SET visible=2", "table layers, row 1: \"visible\" is 0 or 1"},
      {"UPDATE layers SET name='0'", "table layers, row 2: the layer's name occurs twice"},
      {"UPDATE layers SET layer=2000000000 WHERE layer=1", "table layers, row 2: layers are numbered"},
      {"UPDATE layer_looks SET layer=9", "table layer_looks: there is no layer 9"},
      {"UPDATE layer_looks SET line_type=0", "table layer_looks, row 1: a line type is above 0"},
      {"ALTER TABLE layer_looks ADD COLUMN more INTEGER", "\"layer_looks\" in its database is not as a drawing has it"},
      {"DELETE FROM layers WHERE layer=0", "one layer is the current one"},
      {"UPDATE parameters SET value=0 WHERE number=1", "scale (1) and unit (3) are above 0"},
      {"DELETE FROM parameters WHERE number=7", "table parameters, row 7: parameters are numbered 1 to 12"},
      {"UPDATE part_groups SET id=1000000000", "groups are numbered from 1"},
      {"INSERT INTO sheet VALUES('A4',0,1,0,0)", "a width and a height above 0"},
      {"CREATE VIEW spy AS SELECT * FROM lines", "\"spy\" in its database is not as a drawing has it"},
      {"CREATE TABLE more(a)", "\"more\" in its database"},
      {"DROP TABLE arcs; CREATE VIEW arcs AS SELECT 1", "\"arcs\" in its database"},
      {"DROP TABLE arcs", "its table \"arcs\" is missing"},
      {"UPDATE placed_symbols SET name='CRATE'", "Symbol \"CRATE\" contains itself."},
      {"PRAGMA user_version=2", "version 2 of the drawing format"},
      {"PRAGMA application_id=5", "it is a database, but not a drawing"},
      {"PRAGMA journal_mode=WAL", "write-ahead mode"},
  };
  const std::string whole = smallFile();
  for (const auto& [sql, told] : rows) {
    const std::string reason = drgReason(editedBy(whole, sql));
    EXPECT_NE(reason.find(told), std::string::npos) << sql << "\n got: " << reason;
    EXPECT_TRUE(reason.starts_with("\"part.drg\": ")) << reason;
  }
  EXPECT_EQ(drgReason(editedBy(whole, "ANALYZE; VACUUM")), "") << "a tool's housekeeping does no harm";
}

}  // namespace
}  // namespace brevan
