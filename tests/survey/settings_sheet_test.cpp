#include "survey/settings_sheet.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "tests/core_fixture.h"

namespace ardenix::survey {

namespace {

struct Shipped {
  SurveyMode mode;
  const char* file;
};

constexpr Shipped kShippedFiles[] = {{SurveyMode::kDiagram, "SG Diagram.ini"},
                                     {SurveyMode::kGeneralPlan, "General Plan.ini"},
                                     {SurveyMode::kGeneralPlan, "General Plan A0.ini"},
                                     {SurveyMode::kGeneralPlan, "General Plan A2.ini"},
                                     {SurveyMode::kSectionalPlan, "Sectional Plan.ini"}};

// What a sheet loads, saves and loads again, over files and edits drawn by lot.
class SheetLaws : public CoreFixture {
 protected:
  std::mt19937 lot_{20261123};

  int upTo(int most) { return std::uniform_int_distribution<int>(0, most)(lot_); }

  static std::string shipped(const Shipped& row) { return read(std::string(BREVAN_DATA) + '/' + row.file); }

  // One of the ways in which a file comes to harm; its bytes stay text.
  void damage(std::string& text) {
    const auto at = static_cast<size_t>(upTo(static_cast<int>(text.size()) - 1));
    switch (upTo(3)) {
      case 0: text.erase(at, static_cast<size_t>(upTo(40))); break;
      case 1: text.insert(at, text.substr(static_cast<size_t>(upTo(static_cast<int>(at))), 30)); break;
      case 2: text[at] = ",=[];\n9\xE9 "[upTo(8)]; break;
      default: text.resize(at + 1); break;
    }
  }

  // Saves the sheets twice; the second time nothing may be left to change.
  void saveTwice(const std::string& path, const std::vector<SettingsSheet>& sheets) {
    TINIFile file(path);
    for (const SettingsSheet& sheet : sheets) { sheet.save(file); }
    file.UpdateFile();
    const std::string once = read(path);
    for (const SettingsSheet& sheet : sheets) { sheet.save(file); }
    file.UpdateFile();
    EXPECT_EQ(read(path), once);
  }

  static std::vector<SettingsSheet> loaded(SurveyMode mode, const std::string& path) {
    const TINIFile file(path);
    std::vector<SettingsSheet> sheets;
    for (SheetForm& form : sheetForms(mode)) { sheets.emplace_back(std::move(form)).load(file); }
    return sheets;
  }

  static void expectSame(const std::vector<SettingsSheet>& before, const std::vector<SettingsSheet>& after) {
    for (size_t i = 0; i < before.size(); ++i) {
      EXPECT_EQ(before[i].rows(), after[i].rows()) << before[i].form().caption;
    }
  }
};

TEST_F(SheetLaws, WhateverAFileHoldsSavingItShowsTheSameAgain) {
  constexpr int kFiles = 60;
  for (const Shipped& row : kShippedFiles) {
    for (int file = 0; file < kFiles; ++file) {
      std::string text = shipped(row);
      for (int harm = upTo(4); harm >= 0 && !text.empty(); --harm) { damage(text); }
      const std::string path = write("job.ini", text);
      const auto sheets = loaded(row.mode, path);
      saveTwice(path, sheets);
      expectSame(sheets, loaded(row.mode, path));
      if (HasFailure()) { FAIL() << text; }
    }
  }
}

TEST_F(SheetLaws, WhateverIsTypedIsShownAgainAfterLoading) {
  const std::string texts[] = {"",      "LF",      "lf",  "9999", "Erf 5, of 6", "_COMMA_", "  blank ", "12",
                               "-1,75", "1e3",     "+4",  "0",    "[TEXT]",      "a=b",     ";x",       "\"q\"",
                               "\xE9",  "Default", "1;2", "%s%n", "99999",       "\\",      ",,,",      "Arial"};
  constexpr int kEdits = 40;
  constexpr int kFiles = 30;
  for (const Shipped& row : kShippedFiles) {
    for (int number = 0; number < kFiles; ++number) {
      const std::string path = write("job.ini", shipped(row));
      auto sheets = loaded(row.mode, path);
      for (int edit = 0; edit < kEdits; ++edit) {
        SettingsSheet& sheet = sheets[static_cast<size_t>(upTo(static_cast<int>(sheets.size()) - 1))];
        const int at = upTo(std::min(static_cast<int>(sheet.rows().size()) - 1, 24));
        const int column = upTo(static_cast<int>(sheet.form().columns.size()) - 1);
        const Entry entry = sheet.form().columns[static_cast<size_t>(column)].entry;
        std::string text = entry == Entry::kFlag ? std::to_string(upTo(1)) : texts[upTo(std::size(texts) - 1)];
        const bool listed = sheet.removable(at) || sheet.form().record == RecordForm::kWhole;
        const bool begun = !sheet.rows()[static_cast<size_t>(at)].front().empty();
        if (listed && (column == 0 ? text.empty() : !begun)) { continue; }  // an empty row ends the list
        if (listed && at > 0 && sheet.rows()[static_cast<size_t>(at) - 1].front().empty()) { continue; }
        if (!sheet.refusal(column, text)) { sheet.set(at, column, std::move(text)); }
      }
      saveTwice(path, sheets);
      expectSame(sheets, loaded(row.mode, path));
      if (HasFailure()) { FAIL() << read(path); }
    }
  }
}

// Whatever rows of a list are empty, those that are not keep their texts and their order.
TEST_F(SheetLaws, EmptyRowsAreClosedUpAndNothingIsLost) {
  for (const Shipped& row : kShippedFiles) {
    const std::string path = write("job.ini", shipped(row));
    auto sheets = loaded(row.mode, path);
    std::vector<std::vector<std::string>> wanted;
    for (SettingsSheet& sheet : sheets) {
      auto& texts = wanted.emplace_back();
      for (int at = 0; at < static_cast<int>(sheet.rows().size()); ++at) {
        const bool listed = sheet.removable(at) || sheet.form().record == RecordForm::kWhole;
        const int columns = static_cast<int>(sheet.form().columns.size());
        if (listed && upTo(2) > 0) {
          for (int column = 0; column < columns; ++column) { sheet.set(at, column, ""); }
        } else if (listed) {
          sheet.set(at, 0, std::to_string(at));
          texts.push_back(std::to_string(at));
        }
      }
    }
    saveTwice(path, sheets);
    const auto again = loaded(row.mode, path);
    for (size_t i = 0; i < again.size(); ++i) {
      std::vector<std::string> texts;
      for (int at = 0; at < static_cast<int>(again[i].rows().size()); ++at) {
        const bool listed = again[i].removable(at) || again[i].form().record == RecordForm::kWhole;
        const std::string& text = again[i].rows()[static_cast<size_t>(at)].front();
        if (listed && !text.empty()) { texts.push_back(text); }
      }
      EXPECT_EQ(texts, wanted[i]) << again[i].form().caption;
    }
  }
}

TEST_F(SheetLaws, EachColumnTakesItsNumbersAndNoMore) {
  const struct {
    std::string title;
    std::vector<std::string> taken, refused;
  } columns[] = {
      {"Hor Coord (mm)", {"-10000", "0", "10000", "2.5", "LF", ""}, {"-10000.1", "10001", "x"}},
      {"Pen", {"1", "256", ""}, {"0", "257", "1.5"}},
      {"Size", {"0", "1", "10000", ""}, {"-1", "10001", "2.5"}},
      {"Lorg", {"1", "9", "11", "19", ""}, {"0", "10", "20", "5.5"}},
      {"LT", {"1", "33", "999", ""}, {"0", "1000", "2.5"}},
  };
  for (const auto& [title, taken, refused] : columns) {
    int met = 0;
    for (const SheetForm& form : sheetForms(SurveyMode::kDiagram)) {
      const auto column = std::ranges::find(form.columns, title, &SheetColumn::title);
      if (column == form.columns.end()) { continue; }
      ++met;
      const SettingsSheet sheet(form);
      const int index = static_cast<int>(column - form.columns.begin());
      for (std::string text : taken) { EXPECT_FALSE(sheet.refusal(index, text)) << title << ' ' << text; }
      for (std::string text : refused) { EXPECT_TRUE(sheet.refusal(index, text)) << title << ' ' << text; }
    }
    EXPECT_GT(met, 0) << title;
  }
}

}  // namespace

}  // namespace ardenix::survey
