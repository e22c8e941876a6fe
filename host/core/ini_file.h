#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "host/core/line_index.h"
#include "host/core/text_encoding.h"
#include "host/core/text_lines.h"

namespace brevan {

// An entry as a text shows it. The views last until the file is changed or gone.
struct IniEntry {
  std::string_view section;
  std::string_view key;
  std::string_view value;
  bool operator==(const IniEntry&) const = default;
};

// The name where a line is a section's heading.
std::optional<std::string_view> headingName(std::string_view line);

// The text of an INI file and the changes made to it; it knows no disk.
//
//   [section]          blanks around the name do not count
//   key = value        blanks around key and value do not count; quotes belong to the value
//   ; comment
//
// Anything else is kept and ignored, as is what stands before the first section. Sections and keys match
// without regard to case; of several equal ones the first counts. The original text stays as it was
// read and a change is a span of it that is replaced, so what is not touched keeps every byte. A new key goes
// behind the last entry of its section, a new section to the end.
//
// The sections are found when the text is taken in; the keys of a section are searched for the first
// few times and indexed from then on, so that one change in a long file costs one pass.
// Reading fills the index: one thread at a time.
class IniFile {
 public:
  // An empty file.
  IniFile();
  IniFile(IniFile&&) noexcept;
  IniFile& operator=(IniFile&&) noexcept;
  ~IniFile();

  // Throws HostFailure with the name and the line for what decodeText refuses.
  static IniFile parse(std::string bytes, std::string_view name = "INI file");

  // The value, valid until the entry is changed; nothing where section or key is missing.
  [[nodiscard]] std::optional<std::string_view> lookup(std::string_view section, std::string_view key) const;
  // Throws HostFailure for texts that would not be read back: line breaks, NUL, an empty key, "=" in a
  // key, a key that starts like a comment or a section, "]" in a section, a line beyond the limit.
  void set(std::string_view section, std::string_view key, std::string_view value);
  // Removes the lines of all equal keys, so that none of them comes to light.
  void deleteKey(std::string_view section, std::string_view key);
  // Removes every section of the name, heading included; comment lines right above the next heading
  // belong to that heading and stay.
  void eraseSection(std::string_view section);

  // What the file is to hold now, and its text in Windows-1252.
  [[nodiscard]] std::string bytes() const;
  [[nodiscard]] std::string text() const;
  [[nodiscard]] bool changed() const;
  // Every entry in the order of the text, unreachable doubles included.
  [[nodiscard]] std::vector<IniEntry> entries() const;

 private:
  struct Added {
    std::string key;
    std::string value;
    bool removed = false;
  };
  // Where an entry stands in the source, or the added entry that it is.
  struct Entry {
    LineSpan line;
    size_t keyBegin = 0;
    size_t keyEnd = 0;
    size_t valueBegin = 0;
    size_t valueEnd = 0;
    Added* added = nullptr;
  };
  struct Index {
    explicit Index(size_t expected) : lines(expected) {}
    LineIndex lines;
    std::unordered_multimap<uint32_t, uint32_t> doubles;  // further lines of a key, by its first one
    std::unordered_map<std::string_view, Added*, HashWithoutCase, EqualWithoutCase> addedKeys;
    std::vector<std::unique_ptr<Added>> added;
    size_t insertAt = 0;  // behind the last entry
  };
  struct Section {
    std::string_view name;
    size_t begin = 0;  // the heading
    size_t body = 0;
    size_t end = 0;
    int searches = 0;
    bool erased = false;
    std::unique_ptr<std::string> newName;  // of a section that the source does not have
    std::unique_ptr<Index> index;
  };
  struct Change {
    size_t end = 0;
    std::string value;
  };
  struct Operation;
  void findSections();
  // The first of its name is the one that is found from then on.
  void indexLastSection();
  [[nodiscard]] uint32_t placeOf(std::string_view section) const;  // in sections_
  [[nodiscard]] std::optional<Entry> entryAt(const LineSpan& line) const;
  [[nodiscard]] std::string_view keyOf(const Entry& entry) const;
  [[nodiscard]] bool hasKey(uint32_t line, std::string_view key) const;
  [[nodiscard]] Section* findSection(std::string_view name) const;
  [[nodiscard]] std::optional<Entry> findEntry(Section& section, std::string_view key) const;
  [[nodiscard]] std::optional<Entry> searchEntry(const Section& section, std::string_view key) const;
  [[nodiscard]] Index& indexOf(Section& section) const;
  [[nodiscard]] std::string_view valueOf(const Entry& entry) const;
  [[nodiscard]] size_t endBeforeComments(const Section& section) const;
  void change(const Entry& entry, std::string_view value);
  void add(Section& section, std::string_view key, std::string_view value);
  void removeLine(uint32_t place);
  [[nodiscard]] Section& newSection(std::string_view name);
  void appendEntries(const Section& section, std::vector<IniEntry>& all) const;
  [[nodiscard]] std::vector<Operation> operations() const;
  void appendAdded(const Index& index, std::string& out) const;
  void appendNewSections(std::string& out) const;

  // Behind a pointer, because the index holds views of it.
  std::unique_ptr<const PlainText> source_;
  std::string lineEnd_;
  mutable std::deque<Section> sections_;        // a deque keeps its elements where they are; reading indexes their keys
  LineIndex firstOfName_{0};                    // places in sections_
  std::unordered_map<size_t, Change> changes_;  // by the position of the value in the source
  std::unordered_map<size_t, size_t> removed_;  // begin and end of removed lines and sections
};

}  // namespace brevan
