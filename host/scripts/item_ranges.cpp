#include "host/scripts/item_ranges.h"

#include "frame/host/number_text.h"
#include "host/core/text_encoding.h"

namespace brevan {

namespace {

struct ItemRange {
  PrimitiveId first;
  PrimitiveId last;
};

std::optional<ItemRange> rangeOf(const std::string& word, PrimitiveId greatest) {
  const size_t dash = word.find('-');
  const auto first = numberText::parseInteger(word.substr(0, dash));
  const auto last = dash == std::string::npos ? first : numberText::parseInteger(word.substr(dash + 1));
  if (!first || !last || *first < 1 || *last < *first || *last > greatest) { return std::nullopt; }
  return ItemRange{static_cast<PrimitiveId>(*first), static_cast<PrimitiveId>(*last)};
}

}  // namespace

std::vector<PrimitiveId> itemsOf(const ScriptCursor& cursor, const Statement& statement, const Drawing& drawing) {
  std::vector<PrimitiveId> items;
  for (size_t word = 1; word < statement.words.size(); ++word) {
    const std::string& text = statement.words[word].text;
    const auto range = rangeOf(text, drawing.lastId());
    if (!range) { cursor.fail(statement, "the drawing has no items \"" + toUtf8(text) + '"'); }
    for (PrimitiveId id = range->first; id <= range->last; ++id) {
      if (drawing.find(id) == nullptr) { cursor.fail(statement, "the drawing has no item " + std::to_string(id)); }
      items.push_back(id);
    }
  }
  return items;
}

std::string itemRanges(const std::vector<PrimitiveId>& items) {
  std::string words;
  for (size_t first = 0; first < items.size();) {
    size_t last = first;
    while (last + 1 < items.size() && items[last + 1] == items[last] + 1) { ++last; }
    words += ' ' + std::to_string(items[first]);
    if (last > first) { words += '-' + std::to_string(items[last]); }
    first = last + 1;
  }
  return words;
}

}  // namespace brevan
