#include "host/scripts/plain_primitives.h"

#include <array>

#include "frame/host/limits.h"
#include "frame/host/number_text.h"
#include "host/core/text_encoding.h"
#include "host/macros/macro_drawing.h"

namespace brevan {

namespace {

int penOf(const ScriptCursor& cursor, const Statement& statement, size_t word) {
  const int pen = cursor.integer(statement, word);
  if (!limits::kPens.contains(pen)) {
    cursor.fail(statement, "a pen is " + limits::kPens.text() + ", got " + std::to_string(pen));
  }
  return pen;
}

double positive(const ScriptCursor& cursor, const Statement& statement, size_t word, const std::string& what) {
  const double value = cursor.number(statement, word);
  if (value <= 0.0) { cursor.fail(statement, what + " is above 0, got " + numberText::shortest(value)); }
  return value;
}

Geometry lineOf(const ScriptCursor& cursor, const Statement& statement, DrawingWindow&) {
  return Line{cursor.point(statement, 2), cursor.point(statement, 4)};
}

Geometry circleOf(const ScriptCursor& cursor, const Statement& statement, DrawingWindow&) {
  const Point centre = cursor.point(statement, 2);
  const Point start = centre + Point{positive(cursor, statement, 4, "a radius"), 0.0};
  return Arc{start, centre, start, false};
}

Geometry arcOf(const ScriptCursor& cursor, const Statement& statement, DrawingWindow&) {
  const int direction = cursor.integer(statement, 8);
  if (direction != 0 && direction != 1) { cursor.fail(statement, "an arc's direction is 0 or 1"); }
  return Arc{cursor.point(statement, 2), cursor.point(statement, 4), cursor.point(statement, 6), direction == 1};
}

Geometry textOf(const ScriptCursor& cursor, const Statement& statement, DrawingWindow& window) {
  const TextDefaults& defaults = window.textDefaults();
  Text text;
  text.at = cursor.point(statement, 2);
  text.height = positive(cursor, statement, 4, "a text's height");
  text.text = cursor.string(statement, 5);
  text.font = defaults.font;
  text.angle = defaults.angle;
  text.justification = defaults.justification;
  text.style = defaults.style;
  text.pen = defaults.pen;
  text.widthFactor = defaults.width == 0.0 ? 1.0 : defaults.width;
  return text;
}

Geometry symbolOf(const ScriptCursor& cursor, const Statement& statement, DrawingWindow& window) {
  Symbol symbol;
  symbol.name = cursor.string(statement, 2);
  if (!hasSymbol(window, symbol.name)) { cursor.fail(statement, "there is no symbol \"" + toUtf8(symbol.name) + '"'); }
  symbol.at = cursor.point(statement, 3);
  symbol.scale = positive(cursor, statement, 5, "a symbol's scale");
  symbol.rotation = cursor.number(statement, 6);
  return symbol;
}

struct KindRow {
  std::string_view name;
  size_t words;  // "draw" and the name included
  Geometry (*read)(const ScriptCursor&, const Statement&, DrawingWindow&);
};
constexpr auto kKinds = std::to_array<KindRow>(
    {{"line", 6, lineOf}, {"circle", 5, circleOf}, {"arc", 9, arcOf}, {"text", 6, textOf}, {"symbol", 7, symbolOf}});

}  // namespace

Geometry plainGeometry(const ScriptCursor& cursor, const Statement& statement, DrawingWindow& window) {
  for (const KindRow& row : kKinds) {
    if (row.name != cursor.string(statement, 1)) { continue; }
    cursor.expectWords(statement, row.words, row.words);
    return row.read(cursor, statement, window);
  }
  cursor.fail(statement,
              "draw expects line, circle, arc, text or symbol, got \"" + toUtf8(statement.words[1].text) + '"');
}

DrawingStyle styleOf(const ScriptCursor& cursor, const Statement& statement) {
  DrawingStyle style;
  style.pen = penOf(cursor, statement, 1);
  style.linetype = cursor.integer(statement, 2);
  if (style.linetype < 1) { cursor.fail(statement, "a line type is 1 or more"); }
  style.width = cursor.number(statement, 3);
  if (style.width < 0.0) { cursor.fail(statement, "a line width is 0 or more"); }
  return style;
}

Text textOfStyle(const ScriptCursor& cursor, const Statement& statement) {
  Text text;
  text.font = cursor.string(statement, 1);
  text.height = positive(cursor, statement, 2, "a text's height");
  text.widthFactor = cursor.number(statement, 3);
  if (text.widthFactor < 0.0) { cursor.fail(statement, "a text's width factor is 0 (for 1) or more"); }
  text.justification = cursor.integer(statement, 4);
  const int column = text.justification % 10;
  if (column < 1 || text.justification > 19 || text.justification < 1) {
    cursor.fail(statement, "a justification is 1 to 9 or 11 to 19");
  }
  text.pen = penOf(cursor, statement, 5);
  return text;
}

}  // namespace brevan
