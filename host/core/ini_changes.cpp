#include <algorithm>
#include <tuple>

#include "frame/host/core_services.h"
#include "host/core/ini_file.h"

namespace brevan {
namespace {

void ensureLineEnd(std::string& out, std::string_view lineEnd) {
  if (!out.empty() && !endsLine(out.back())) { out += lineEnd; }
}

[[noreturn]] void refuse(std::string_view what, std::string_view text, std::string_view rule) {
  constexpr size_t kShown = 60;
  throw HostFailure("INI " + std::string(what) + " \"" + std::string(text.substr(0, kShown)) +
                    "\": " + std::string(rule));
}

void refuseBreaks(std::string_view what, std::string_view text) {
  if (text.find_first_of(std::string_view("\r\n\0", 3)) != std::string_view::npos) {
    refuse(what, text, "line breaks and NUL cannot be stored");
  }
}

void refuseSection(std::string_view section) {
  refuseBreaks("section", section);
  if (section.find(']') != std::string_view::npos) { refuse("section", section, "\"]\" would end the name"); }
}

void refuseKey(std::string_view key) {
  refuseBreaks("key", key);
  if (key.empty()) { refuse("key", key, "a key needs a name"); }
  if (key.find('=') != std::string_view::npos) { refuse("key", key, "\"=\" would end the name"); }
  if (key.front() == ';' || key.front() == '[') { refuse("key", key, "it would read as a comment or a section"); }
}

void refuseLength(std::string_view key, size_t length) {
  if (length > kMaxLineBytes) { refuse("key", key, "its line exceeds " + std::to_string(kMaxLineBytes) + " bytes"); }
}

}  // namespace

// A span of the source and what takes its place. Of operations at one place the value that ends there goes
// first, then what is inserted, then what is removed.
struct IniFile::Operation {
  enum class Kind { kValue, kInsertion, kRemoval };
  size_t begin = 0;
  Kind kind = Kind::kValue;
  size_t end = 0;
  std::string_view text;
  const Index* insertion = nullptr;
};

void IniFile::set(std::string_view section, std::string_view key, std::string_view value) {
  section = trimmed(section);
  key = trimmed(key);
  value = trimmed(value);
  refuseSection(section);
  refuseKey(key);
  refuseBreaks("value", value);
  Section* found = findSection(section);
  if (found == nullptr) {
    refuseLength(section, section.size() + 2);
    refuseLength(key, key.size() + 1 + value.size());
    found = &newSection(section);
  }
  if (const std::optional<Entry> entry = findEntry(*found, key)) {
    change(*entry, value);
  } else {
    add(*found, key, value);
  }
}

void IniFile::change(const Entry& entry, std::string_view value) {
  if (entry.added != nullptr) {
    refuseLength(entry.added->key, entry.added->key.size() + 1 + value.size());
    entry.added->value = value;
    return;
  }
  const std::string_view text = source_->text;
  const size_t around = entry.line.textEnd - entry.line.begin - (entry.valueEnd - entry.valueBegin);
  refuseLength(text.substr(entry.keyBegin, entry.keyEnd - entry.keyBegin), around + value.size());
  if (text.substr(entry.valueBegin, entry.valueEnd - entry.valueBegin) == value) {
    changes_.erase(entry.valueBegin);
  } else {
    changes_.insert_or_assign(entry.valueBegin, Change{entry.valueEnd, std::string(value)});
  }
}

void IniFile::add(Section& section, std::string_view key, std::string_view value) {
  refuseLength(key, key.size() + 1 + value.size());
  Index& index = indexOf(section);
  Added& added = *index.added.emplace_back(std::make_unique<Added>(Added{std::string(key), std::string(value)}));
  index.addedKeys.emplace(added.key, &added);
}

IniFile::Section& IniFile::newSection(std::string_view name) {
  Section& section = sections_.emplace_back();
  section.newName = std::make_unique<std::string>(name);
  section.name = *section.newName;
  section.begin = section.body = section.end = source_->text.size();
  section.index = std::make_unique<Index>(0);
  indexLastSection();
  return section;
}

void IniFile::deleteKey(std::string_view section, std::string_view key) {
  Section* const found = findSection(section);
  if (found == nullptr) { return; }
  key = trimmed(key);
  Index& index = indexOf(*found);
  if (const auto added = index.addedKeys.find(key); added != index.addedKeys.end()) {
    added->second->removed = true;
    index.addedKeys.erase(added);
  }
  const auto same = [&](uint32_t line) { return hasKey(line, key); };
  const uint32_t first = index.lines.find(keyHash(key), same);
  if (first == LineIndex::kNowhere) { return; }
  const auto [from, to] = index.doubles.equal_range(first);
  for (auto further = from; further != to; ++further) { removeLine(further->second); }
  index.doubles.erase(from, to);
  removeLine(first);
  index.lines.remove(keyHash(key), same);
}

void IniFile::removeLine(uint32_t place) {
  const LineSpan line = source_->lineAt(place);
  changes_.erase(entryAt(line)->valueBegin);
  removed_.emplace(line.begin, line.end);
}

void IniFile::eraseSection(std::string_view section) {
  const uint32_t place = placeOf(section);
  if (place == LineIndex::kNowhere) { return; }
  const std::string name(sections_[place].name);
  firstOfName_.remove(keyHash(name), [place](uint32_t other) { return other == place; });
  for (Section& candidate : sections_) {
    if (candidate.erased || !equalWithoutCase(candidate.name, name)) { continue; }
    candidate.erased = true;
    candidate.index.reset();
    if (candidate.newName) { continue; }
    removed_.insert_or_assign(candidate.begin, endBeforeComments(candidate));
    // The end counts too: an empty value at the end of the file lies there.
    std::erase_if(changes_, [&](const auto& row) { return row.first > candidate.begin && row.first <= candidate.end; });
  }
}

size_t IniFile::endBeforeComments(const Section& section) const {
  const std::string_view text = source_->text;
  size_t end = section.end;
  if (end == text.size()) { return end; }
  while (end > section.body) {
    const std::string_view above = text.substr(0, end - (text[end - 1] == '\n' && text[end - 2] == '\r' ? 2 : 1));
    const size_t lineBreak = above.find_last_of("\r\n");
    const size_t begin = lineBreak == std::string_view::npos ? 0 : lineBreak + 1;
    const std::string_view line = trimmed(above.substr(begin));
    if (line.empty() || line.front() != ';') { break; }
    end = begin;
  }
  return end;
}

bool IniFile::changed() const {
  if (!changes_.empty() || !removed_.empty()) { return true; }
  return std::any_of(sections_.begin(), sections_.end(), [](const Section& section) {
    if (section.erased) { return false; }
    if (section.newName) { return true; }
    return section.index && std::any_of(section.index->added.begin(), section.index->added.end(),
                                        [](const auto& added) { return !added->removed; });
  });
}

std::vector<IniFile::Operation> IniFile::operations() const {
  std::vector<Operation> all;
  for (const auto& [begin, change] : changes_) {
    all.push_back({begin, Operation::Kind::kValue, change.end, change.value, nullptr});
  }
  for (const auto& [begin, end] : removed_) { all.push_back({begin, Operation::Kind::kRemoval, end, {}, nullptr}); }
  for (const Section& section : sections_) {
    if (section.newName || section.erased || !section.index || section.index->added.empty()) { continue; }
    const size_t at = section.index->insertAt;
    all.push_back({at, Operation::Kind::kInsertion, at, {}, section.index.get()});
  }
  std::sort(all.begin(), all.end(), [](const Operation& a, const Operation& b) {
    return std::tie(a.begin, a.kind) < std::tie(b.begin, b.kind);
  });
  return all;
}

void IniFile::appendAdded(const Index& index, std::string& out) const {
  for (const auto& added : index.added) {
    if (added->removed) { continue; }
    ensureLineEnd(out, lineEnd_);
    out.append(added->key).append("=").append(added->value).append(lineEnd_);
  }
}

std::string IniFile::bytes() const { return encodeText(text(), source_->utf8); }

std::string IniFile::text() const {
  const std::string_view text = source_->text;
  std::string out;
  size_t grown = text.size();
  for (const auto& [begin, change] : changes_) { grown += change.value.size(); }
  out.reserve(grown);
  size_t done = 0;
  for (const Operation& operation : operations()) {
    if (operation.begin < done) { continue; }  // within something that was removed
    out.append(text.substr(done, operation.begin - done)).append(operation.text);
    if (operation.insertion != nullptr) { appendAdded(*operation.insertion, out); }
    done = operation.end;
  }
  out.append(text.substr(done));
  appendNewSections(out);
  return out;
}

void IniFile::appendNewSections(std::string& out) const {
  for (const Section& section : sections_) {
    if (section.erased || !section.newName) { continue; }
    ensureLineEnd(out, lineEnd_);
    const bool afterBlankLine = out.empty() || out.ends_with(lineEnd_ + lineEnd_);
    if (!afterBlankLine) { out += lineEnd_; }
    out.append("[").append(section.name).append("]").append(lineEnd_);
    appendAdded(*section.index, out);
  }
}

std::vector<IniEntry> IniFile::entries() const {
  std::vector<IniEntry> all;
  for (const Section& section : sections_) {
    if (!section.erased) { appendEntries(section, all); }
  }
  return all;
}

// In the order of the text, where added entries may stand before lines that are no entries only.
void IniFile::appendEntries(const Section& section, std::vector<IniEntry>& all) const {
  const std::string_view text = source_->text;
  for (size_t at = section.body; at < section.end;) {
    const LineSpan line = source_->lineAt(at);
    at = line.end;
    const std::optional<Entry> entry = entryAt(line);
    if (!entry || (!removed_.empty() && removed_.contains(line.begin))) { continue; }
    all.push_back({section.name, text.substr(entry->keyBegin, entry->keyEnd - entry->keyBegin), valueOf(*entry)});
  }
  if (!section.index) { return; }
  for (const auto& added : section.index->added) {
    if (!added->removed) { all.push_back({section.name, added->key, added->value}); }
  }
}

}  // namespace brevan
