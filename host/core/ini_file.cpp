#include "host/core/ini_file.h"

#include <cstring>
#include <utility>

namespace brevan {
namespace {

// A section is searched line by line this often before its keys are indexed.
constexpr int kSearchesBeforeIndex = 2;

bool isBlank(char c) { return c == ' ' || c == '\t'; }

}  // namespace

std::optional<std::string_view> headingName(std::string_view line) {
  line = trimmed(line);
  const size_t close = line.find(']');
  if (line.empty() || line.front() != '[' || close == std::string_view::npos) { return std::nullopt; }
  return trimmed(line.substr(1, close - 1));
}

IniFile::IniFile() : source_(std::make_unique<const PlainText>()), lineEnd_("\r\n") {}
IniFile::IniFile(IniFile&&) noexcept = default;
IniFile& IniFile::operator=(IniFile&&) noexcept = default;
IniFile::~IniFile() = default;

IniFile IniFile::parse(std::string bytes, std::string_view name) {
  IniFile file;
  file.source_ = std::make_unique<const PlainText>(decodeText(std::move(bytes), name));
  file.lineEnd_ = file.source_->lineEnd();
  file.findSections();
  return file;
}

// Looks at the brackets only: a heading is the first thing on its line.
void IniFile::findSections() {
  const std::string_view text = source_->text;
  for (size_t at = text.find('['); at != std::string_view::npos; at = text.find('[', at + 1)) {
    size_t begin = at;
    while (begin > 0 && isBlank(text[begin - 1])) { --begin; }
    if (begin > 0 && !endsLine(text[begin - 1])) { continue; }
    const LineSpan line = source_->lineAt(begin);
    const std::optional<std::string_view> name = headingName(text.substr(begin, line.textEnd - begin));
    if (!name) { continue; }
    if (!sections_.empty()) { sections_.back().end = begin; }
    Section& section = sections_.emplace_back();
    section.name = *name;
    section.begin = begin;
    section.body = line.end;
    section.end = text.size();
    indexLastSection();
    at = line.textEnd - 1;
  }
}

std::optional<IniFile::Entry> IniFile::entryAt(const LineSpan& line) const {
  const std::string_view text = source_->text;
  const void* const found = std::memchr(text.data() + line.begin, '=', line.textEnd - line.begin);
  if (found == nullptr) { return std::nullopt; }
  const auto equals = static_cast<size_t>(static_cast<const char*>(found) - text.data());
  Entry entry{line, line.begin, equals, equals + 1, line.textEnd, nullptr};
  while (entry.keyBegin < equals && isBlank(text[entry.keyBegin])) { ++entry.keyBegin; }
  while (entry.keyEnd > entry.keyBegin && isBlank(text[entry.keyEnd - 1])) { --entry.keyEnd; }
  while (entry.valueBegin < line.textEnd && isBlank(text[entry.valueBegin])) { ++entry.valueBegin; }
  while (entry.valueEnd > entry.valueBegin && isBlank(text[entry.valueEnd - 1])) { --entry.valueEnd; }
  const bool named = entry.keyEnd > entry.keyBegin;
  if (!named || text[entry.keyBegin] == ';' || text[entry.keyBegin] == '[') { return std::nullopt; }
  return entry;
}

void IniFile::indexLastSection() {
  const std::string_view name = sections_.back().name;
  const auto sameName = [this, name](uint32_t place) { return equalWithoutCase(sections_[place].name, name); };
  firstOfName_.insert(keyHash(name), static_cast<uint32_t>(sections_.size() - 1), sameName);
}

uint32_t IniFile::placeOf(std::string_view section) const {
  const std::string_view name = trimmed(section);
  return firstOfName_.find(keyHash(name),
                           [this, name](uint32_t place) { return equalWithoutCase(sections_[place].name, name); });
}

IniFile::Section* IniFile::findSection(std::string_view name) const {
  const uint32_t place = placeOf(name);
  return place == LineIndex::kNowhere ? nullptr : &sections_[place];
}

std::string_view IniFile::keyOf(const Entry& entry) const {
  return std::string_view(source_->text).substr(entry.keyBegin, entry.keyEnd - entry.keyBegin);
}

bool IniFile::hasKey(uint32_t line, std::string_view key) const {
  return equalWithoutCase(keyOf(*entryAt(source_->lineAt(line))), key);
}

std::optional<IniFile::Entry> IniFile::findEntry(Section& section, std::string_view key) const {
  key = trimmed(key);
  if (!section.index && section.searches++ < kSearchesBeforeIndex) { return searchEntry(section, key); }
  const Index& index = indexOf(section);
  const uint32_t place = index.lines.find(keyHash(key), [&](uint32_t line) { return hasKey(line, key); });
  if (place != LineIndex::kNowhere) { return entryAt(source_->lineAt(place)); }
  const auto added = index.addedKeys.find(key);
  if (added == index.addedKeys.end()) { return std::nullopt; }
  Entry entry;
  entry.added = added->second;
  return entry;
}

// Most lines are passed over by one look at where the key's last letter would be.
std::optional<IniFile::Entry> IniFile::searchEntry(const Section& section, std::string_view key) const {
  const std::string_view text = source_->text;
  if (key.empty()) { return std::nullopt; }
  for (size_t at = section.body; at < section.end;) {
    const LineSpan line = source_->lineAt(at);
    at = line.end;
    if (line.textEnd - line.begin <= key.size()) { continue; }
    const bool indented = isBlank(text[line.begin]);
    if (!indented && lowered(text[line.begin + key.size() - 1]) != lowered(key.back())) { continue; }
    const std::optional<Entry> entry = entryAt(line);
    if (entry && equalWithoutCase(keyOf(*entry), key)) { return entry; }
  }
  return std::nullopt;
}

IniFile::Index& IniFile::indexOf(Section& section) const {
  constexpr size_t kUsualLine = 48;
  if (section.index) { return *section.index; }
  section.index = std::make_unique<Index>((section.end - section.body) / kUsualLine);
  Index& index = *section.index;
  index.insertAt = section.body;
  for (size_t at = section.body; at < section.end;) {
    const LineSpan line = source_->lineAt(at);
    at = line.end;
    const std::optional<Entry> entry = entryAt(line);
    if (!entry) { continue; }
    index.insertAt = line.end;
    const std::string_view key = keyOf(*entry);
    const auto place = static_cast<uint32_t>(line.begin);
    const uint32_t first = index.lines.insert(keyHash(key), place, [&](uint32_t other) { return hasKey(other, key); });
    if (first != place) { index.doubles.emplace(first, place); }
  }
  return index;
}

std::string_view IniFile::valueOf(const Entry& entry) const {
  if (entry.added != nullptr) { return entry.added->value; }
  if (!changes_.empty()) {
    const auto change = changes_.find(entry.valueBegin);
    if (change != changes_.end()) { return change->second.value; }
  }
  return std::string_view(source_->text).substr(entry.valueBegin, entry.valueEnd - entry.valueBegin);
}

std::optional<std::string_view> IniFile::lookup(std::string_view section, std::string_view key) const {
  Section* const found = findSection(section);
  if (found == nullptr) { return std::nullopt; }
  const std::optional<Entry> entry = findEntry(*found, key);
  if (!entry) { return std::nullopt; }
  return valueOf(*entry);
}

}  // namespace brevan
