#include "host/core/text_files.h"

#include "frame/host/core_services.h"
#include "host/core/safe_file.h"
#include "host/core/stamps.h"
#include "host/core/text_encoding.h"

namespace brevan {

int TextFiles::openForReading(const std::string& path) {
  File file{path, false, decodeText(readWhole(path, kMaxTextBytes), messageText(path), Unmarked::kAsTheyLook), 0};
  files_.emplace(++lastHandle_, std::move(file));
  return lastHandle_;
}

int TextFiles::openForWriting(const std::string& path) {
  struct stat status {};
  if (::stat(path.c_str(), &status) == 0 && !S_ISREG(status.st_mode)) {
    throw HostFailure("cannot write \"" + messageText(path) + "\": " + std::string(irregularReason(status)));
  }
  files_.emplace(++lastHandle_, File{path, true, {}, 0});
  return lastHandle_;
}

TextFiles::File& TextFiles::fileOf(int handle, bool writing) {
  const auto found = files_.find(handle);
  if (found == files_.end() || found->second.writing != writing) {
    throw HostFailure("text file " + std::to_string(handle) + " is not open for " + (writing ? "writing" : "reading"));
  }
  return found->second;
}

bool TextFiles::readLine(int handle, std::string& line) {
  File& file = fileOf(handle, false);
  if (file.position >= file.content.text.size()) { return false; }
  const LineSpan span = file.content.lineAt(file.position);
  line.assign(file.content.text, span.begin, span.textEnd - span.begin);
  file.position = span.end;
  return true;
}

bool TextFiles::writeLine(int handle, std::string_view line) {
  File& file = fileOf(handle, true);
  const bool breaks = line.find_first_of(std::string_view("\r\n\0", 3)) != std::string_view::npos;
  if (breaks || line.size() > kMaxLineBytes) { return false; }
  file.content.text.append(line).append("\r\n");
  return true;
}

void TextFiles::close(int handle) {
  const auto node = files_.extract(handle);
  if (node.empty()) { throw HostFailure("text file " + std::to_string(handle) + " is not open"); }
  const File& file = node.mapped();
  if (file.writing) { saveWhole(file.path, file.content.text); }
}

}  // namespace brevan
