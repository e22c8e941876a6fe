#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace brevan {

// No line of a text that is read line by line may be longer.
constexpr size_t kMaxLineBytes = size_t{1} << 20;
// No such file may be larger.
constexpr size_t kMaxTextBytes = size_t{256} << 20;

inline bool endsLine(char c) { return c == '\n' || c == '\r'; }

// One line of a text: from begin to textEnd without, to end with its line end (CRLF, LF or CR).
struct LineSpan {
  size_t begin = 0;
  size_t textEnd = 0;
  size_t end = 0;
};

// The text of a file, in Windows-1252.
struct PlainText {
  std::string text;
  bool utf8 = false;    // the file is UTF-8; a byte-order mark is not part of text
  bool loneCr = false;  // a CR without LF occurs, so it ends lines, too

  // The line that starts at a position below text.size().
  [[nodiscard]] LineSpan lineAt(size_t begin) const;
  // The line end of the first line; CRLF where there is none.
  [[nodiscard]] std::string_view lineEnd() const;
};

// How bytes without a byte-order mark are read: spreadsheets leave it out of the UTF-8 that they write.
enum class Unmarked { kWindows1252, kAsTheyLook };

// Takes a file's bytes: Windows-1252, or UTF-8 with a byte-order mark. Throws HostFailure with the name
// and line for UTF-16, NUL bytes, lines beyond the limit and UTF-8 that Windows-1252 cannot hold.
PlainText decodeText(std::string bytes, std::string_view name, Unmarked unmarked = Unmarked::kWindows1252);
// The bytes of a text that goes back into such a file.
std::string encodeText(std::string text, bool utf8);

}  // namespace brevan
