#pragma once

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "frame/host/number_text.h"

namespace brevan {

// A DXF file read back as its groups and, between "0" groups, its records: what any reader sees first.
struct DxfGroupPair {
  int code = 0;
  std::string value;
};

struct WrittenRecord {
  std::string kind;
  std::vector<DxfGroupPair> groups;

  [[nodiscard]] std::string text(int code) const {
    for (const DxfGroupPair& group : groups) {
      if (group.code == code) { return group.value; }
    }
    return "";
  }
  [[nodiscard]] double real(int code) const { return numberText::parseDouble(text(code)).value_or(-1e300); }
};

inline std::vector<std::string> linesOf(std::string_view file) {
  std::vector<std::string> lines;
  for (size_t at = 0; at < file.size();) {
    const size_t end = file.find('\n', at);
    lines.emplace_back(file.substr(at, end - at));
    at = end + 1;
  }
  return lines;
}

inline std::vector<WrittenRecord> recordsOf(std::string_view file) {
  const std::vector<std::string> lines = linesOf(file);
  EXPECT_EQ(lines.size() % 2, 0U);
  std::vector<WrittenRecord> records;
  for (size_t at = 0; at + 1 < lines.size(); at += 2) {
    const auto code = numberText::parseInteger(lines[at]);
    EXPECT_TRUE(code) << "line " << at + 1 << " is no group code: " << lines[at];
    if (!code) { break; }
    if (*code == 0) {
      records.push_back({lines[at + 1], {}});
    } else if (!records.empty()) {
      records.back().groups.push_back({static_cast<int>(*code), lines[at + 1]});
    }
  }
  return records;
}

inline std::vector<WrittenRecord> ofKind(const std::vector<WrittenRecord>& records, std::string_view kind) {
  std::vector<WrittenRecord> found;
  for (const WrittenRecord& record : records) {
    if (record.kind == kind) { found.push_back(record); }
  }
  return found;
}

}  // namespace brevan
