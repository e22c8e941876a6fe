#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "frame/host/api.h"

// INI files as the module sees them. Sections and keys match without regard to case; the first of
// several equal sections or keys counts. What is not touched keeps every byte on disk: comments,
// order, blank lines, odd spacing, line ends, lines that are no entries.

// An INI file whose changes are collected and written by UpdateFile(). A file that is missing reads
// as empty. Destroying the object drops what UpdateFile() was not called for.
class BREVAN_API TINIFile {
 public:
  // Throws HostFailure (see core_services.h) for a file that is there but cannot be read.
  explicit TINIFile(std::string_view fileName);
  TINIFile(const TINIFile&) = delete;
  TINIFile& operator=(const TINIFile&) = delete;
  ~TINIFile();

  // The value without surrounding blanks, or the default where section or key is missing. An empty
  // value is a value.
  [[nodiscard]] std::string ReadString(std::string_view section, std::string_view key, std::string_view fallback) const;
  // Numbers are read leniently: the longest number at the start counts; none gives the default.
  [[nodiscard]] int ReadInt(std::string_view section, std::string_view key, int fallback) const;
  [[nodiscard]] double ReadDouble(std::string_view section, std::string_view key, double fallback) const;
  [[nodiscard]] bool ReadBool(std::string_view section, std::string_view key, bool fallback) const;

  // Throw HostFailure for a text that an INI line cannot hold (line breaks, NUL).
  void WriteString(std::string_view section, std::string_view key, std::string_view value);
  void WriteInt(std::string_view section, std::string_view key, int value);
  void WriteDouble(std::string_view section, std::string_view key, double value, int decimals);
  void WriteBool(std::string_view section, std::string_view key, bool value);
  void DeleteKey(std::string_view section, std::string_view key);
  void EraseSection(std::string_view section);

  // Writes the changes to disk, whole or not at all; without changes it does nothing. Throws
  // HostFailure with path and reason; the changes are then kept in memory.
  void UpdateFile();

  [[nodiscard]] const std::string& FileName() const;

 private:
  struct Content;
  std::unique_ptr<Content> content_;
};

// One line of an INI_LIST.
class BREVAN_API INI_LINE {
 public:
  // The line's text without its line end.
  [[nodiscard]] const std::string& Text() const { return text_; }
  // The following line, or null after the last.
  [[nodiscard]] INI_LINE* Next() const { return next_; }

 private:
  friend class INI_LIST;
  std::string text_;
  INI_LINE* next_ = nullptr;
};

// An INI file held in memory and walked line by line. The host's settings are one.
class BREVAN_API INI_LIST {
 public:
  // An empty file name gives a list that lives in memory only: Save() then does nothing.
  explicit INI_LIST(std::string_view fileName);
  INI_LIST(const INI_LIST&) = delete;
  INI_LIST& operator=(const INI_LIST&) = delete;
  ~INI_LIST();

  // Copies the value, or the default, cut to size - 1 bytes, with a closing NUL. Returns its length.
  int GetString(std::string_view section, std::string_view key, std::string_view fallback, char* buffer,
                int size) const;
  void SetString(std::string_view section, std::string_view key, std::string_view value);
  void EraseSection(std::string_view section);
  void Save();

  // The first and last line of a section's body (null, null where it is missing or empty).
  // Valid until the next SetString.
  void GetSectionLimits(std::string_view section, INI_LINE*& first, INI_LINE*& last) const;
  [[nodiscard]] INI_LINE* First() const;

 private:
  struct Content;
  std::unique_ptr<Content> content_;
};

// The host's path settings; the settings list inside is what the commands read and write.
struct AllPaths {
  INI_LIST* settings = nullptr;
};
