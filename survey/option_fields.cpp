#include "survey/option_fields.h"

#include <algorithm>

namespace ardenix::survey {

namespace {

// What a separator box shows while the file holds no letter for it or for one before it.
struct SeparatorRow {
  std::string_view key;
  std::string_view caption;
  std::string_view toolTip;
  size_t choices;
  int offered;
};

enum Choice : int { kFullStop, kComma, kSpace };

constexpr SeparatorRow kSeparators[] = {
    {option::kDecimal, "Decimal", "Separator between the whole number and its decimals", 4, kComma},
    {option::kThousand, "Thousand", "Separator between groups of three digits", 4, kSpace},
    {option::kBearing, "Bearing", "Separator between degrees, minutes and seconds", 6, kSpace},
};

std::vector<std::string> separatorItems(size_t count) {
  std::vector<std::string> items = {".", ",", "Space", "None", std::string{kDegreeSign} + " '  \"", "-"};
  items.resize(count);
  return items;
}

}  // namespace

double offered(const TINIFile& file, const NumberOption& row) {
  return file.ReadDouble(kOptionSection, row.key, row.offered);
}

std::string offered(const TINIFile& file, const LayerOption& row) {
  return file.ReadString(kOptionSection, row.key, row.offered).substr(0, kLayerNameLimit);
}

void writeMeasure(TINIFile& file, const NumberOption& row, double value) {
  file.WriteDouble(kOptionSection, row.key, value, 3);
}

void writeInteger(TINIFile& file, const NumberOption& row, int value) { file.WriteInt(kOptionSection, row.key, value); }

NumberFields::NumberFields(dialog::Dialog& dialog, dialog::Place place) {
  const int group = dialog.addGroup({.caption = "Separators", .place = place});
  for (size_t i = 0; i < separators_.size(); ++i) {
    const SeparatorRow& row = kSeparators[i];
    separators_[i] = addDropDown(dialog,
                                 {.caption = std::string(row.caption),
                                  .toolTip = std::string(row.toolTip),
                                  .group = group,
                                  .place = {.row = static_cast<int>(i)}},
                                 separatorItems(row.choices));
  }
  roundBearing_ = FlagField(dialog, option::kRoundBearing,
                            {.caption = "Round bearing to nearest 10\"",
                             .toolTip = "Bearings are written to the nearest 10 seconds",
                             .group = group,
                             .place = {.row = 3, .columnSpan = 2}});
}

// A letter that is not known sets all three boxes at that point; boxes read later still take their own letters.
void NumberFields::load(const TINIFile& file) const {
  for (size_t i = 0; i < separators_.size(); ++i) {
    const std::string letter = file.ReadString(kOptionSection, kSeparators[i].key, "");
    const size_t choice = letter.empty() ? std::string_view::npos : kSeparatorLetters.find(letter.front());
    if (choice < kSeparators[i].choices) {
      separators_[i].select(static_cast<int>(choice));
      continue;
    }
    for (size_t box = 0; box < separators_.size(); ++box) { separators_[box].select(kSeparators[box].offered); }
  }
  roundBearing_.load(file);
}

void NumberFields::save(TINIFile& file) const {
  for (size_t i = 0; i < separators_.size(); ++i) {
    const int chosen = std::max(separators_[i].selected(), 0);
    file.WriteString(kOptionSection, kSeparators[i].key, kSeparatorLetters.substr(static_cast<size_t>(chosen), 1));
  }
  roundBearing_.save(file);
}

}  // namespace ardenix::survey
