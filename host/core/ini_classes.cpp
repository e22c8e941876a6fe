#include <cmath>
#include <limits>
#include <unordered_map>
#include <vector>

#include "frame/host/core_services.h"
#include "frame/host/ini.h"
#include "frame/host/number_text.h"
#include "host/core/fields.h"
#include "host/core/ini_storage.h"

struct TINIFile::Content {
  brevan::IniStorage storage;
};

TINIFile::TINIFile(std::string_view fileName)
    : content_(std::make_unique<Content>(Content{brevan::IniStorage(fileName)})) {}
TINIFile::~TINIFile() = default;

std::string TINIFile::ReadString(std::string_view section, std::string_view key, std::string_view fallback) const {
  return std::string(content_->storage.document().lookup(section, key).value_or(fallback));
}

int TINIFile::ReadInt(std::string_view section, std::string_view key, int fallback) const {
  const auto value = content_->storage.document().lookup(section, key);
  return value ? brevan::leadingInteger(*value).value_or(fallback) : fallback;
}

double TINIFile::ReadDouble(std::string_view section, std::string_view key, double fallback) const {
  const auto value = content_->storage.document().lookup(section, key);
  return value ? numberText::leadingDouble(*value).value_or(fallback) : fallback;
}

bool TINIFile::ReadBool(std::string_view section, std::string_view key, bool fallback) const {
  return ReadDouble(section, key, fallback ? 1.0 : 0.0) != 0.0;
}

void TINIFile::WriteString(std::string_view section, std::string_view key, std::string_view value) {
  content_->storage.document().set(section, key, value);
}

void TINIFile::WriteInt(std::string_view section, std::string_view key, int value) {
  WriteString(section, key, std::to_string(value));
}

void TINIFile::WriteDouble(std::string_view section, std::string_view key, double value, int decimals) {
  if (!std::isfinite(value)) {
    throw HostFailure("INI key \"" + std::string(key) + "\": the number to store is not finite");
  }
  std::string text = numberText::fixed(value, decimals);
  const bool zero = text.find_first_not_of("-0.") == std::string::npos;
  if (zero && text.front() == '-') { text.erase(0, 1); }
  WriteString(section, key, text);
}

void TINIFile::WriteBool(std::string_view section, std::string_view key, bool value) {
  WriteString(section, key, value ? "1" : "0");
}

void TINIFile::DeleteKey(std::string_view section, std::string_view key) {
  content_->storage.document().deleteKey(section, key);
}

void TINIFile::EraseSection(std::string_view section) { content_->storage.document().eraseSection(section); }
void TINIFile::UpdateFile() { content_->storage.save(); }
const std::string& TINIFile::FileName() const { return content_->storage.name(); }

// The lines are made from the document when they are asked for after a change.
struct INI_LIST::Content {
  // The lines of a section's body, blank ones at its end aside.
  struct Limits {
    size_t first = 0;
    size_t count = 0;
  };

  brevan::IniStorage storage;
  bool linesValid = false;
  std::vector<INI_LINE> lines;
  std::unordered_map<std::string, Limits, brevan::HashWithoutCase, brevan::EqualWithoutCase> limits;

  void makeLines();
};

void INI_LIST::Content::makeLines() {
  if (linesValid) { return; }
  lines.clear();
  limits.clear();
  const brevan::PlainText plain = brevan::decodeText(storage.document().text(), storage.name());
  Limits ignored;
  Limits* section = &ignored;
  for (size_t at = 0; at < plain.text.size();) {
    const brevan::LineSpan span = plain.lineAt(at);
    at = span.end;
    INI_LINE& line = lines.emplace_back();
    line.text_.assign(plain.text, span.begin, span.textEnd - span.begin);
    if (const auto name = brevan::headingName(line.text_)) {
      const auto [found, isNew] = limits.emplace(*name, Limits{lines.size(), 0});
      section = isNew ? &found->second : &ignored;
    } else if (!brevan::trimmed(line.text_).empty()) {
      section->count = lines.size() - section->first;
    }
  }
  for (size_t i = 0; i + 1 < lines.size(); ++i) { lines[i].next_ = &lines[i + 1]; }
  linesValid = true;
}

INI_LIST::INI_LIST(std::string_view fileName)
    : content_(std::make_unique<Content>(Content{brevan::IniStorage(fileName), false, {}, {}})) {}
INI_LIST::~INI_LIST() = default;

int INI_LIST::GetString(std::string_view section, std::string_view key, std::string_view fallback, char* buffer,
                        int size) const {
  return brevan::copyCut(content_->storage.document().lookup(section, key).value_or(fallback), buffer, size);
}

void INI_LIST::SetString(std::string_view section, std::string_view key, std::string_view value) {
  content_->storage.document().set(section, key, value);
  content_->linesValid = false;
}

void INI_LIST::EraseSection(std::string_view section) {
  content_->storage.document().eraseSection(section);
  content_->linesValid = false;
}

void INI_LIST::Save() {
  if (content_->storage.save()) { content_->linesValid = false; }
}

void INI_LIST::GetSectionLimits(std::string_view section, INI_LINE*& first, INI_LINE*& last) const {
  first = last = nullptr;
  content_->makeLines();
  const auto found = content_->limits.find(std::string(brevan::trimmed(section)));
  if (found == content_->limits.end() || found->second.count == 0) { return; }
  first = &content_->lines[found->second.first];
  last = first + found->second.count - 1;
}

INI_LINE* INI_LIST::First() const {
  content_->makeLines();
  return content_->lines.empty() ? nullptr : content_->lines.data();
}
