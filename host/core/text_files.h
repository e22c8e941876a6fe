#pragma once

#include <map>
#include <string>
#include <string_view>

#include "host/core/text_lines.h"

namespace brevan {

// Text files that are read or written line by line, by handle. Lines are Windows-1252; a file with the mark
// of UTF-8 is converted. Paths are native and resolved. What is written reaches the disk at the close, with
// CRLF line ends, as the programs expect that exchange such files.
class TextFiles {
 public:
  // Throws HostFailure for a file that is no text.
  int openForReading(const std::string& path);
  // Throws HostFailure where the path is something other than a file.
  int openForWriting(const std::string& path);
  // False at the end of the file. Throws HostFailure for a handle that is not open for reading.
  bool readLine(int handle, std::string& line);
  // False for a line that a line of text cannot hold. Throws HostFailure for a handle not open for writing.
  bool writeLine(int handle, std::string_view line);
  // Throws HostFailure when what was written cannot be saved; the handle is closed all the same.
  void close(int handle);

 private:
  struct File {
    std::string path;
    bool writing = false;
    PlainText content;
    size_t position = 0;
  };
  File& fileOf(int handle, bool writing);

  std::map<int, File> files_;
  int lastHandle_ = 0;
};

}  // namespace brevan
