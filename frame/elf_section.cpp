#include "frame/elf_section.h"

#include <elf.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstring>
#include <optional>

namespace ardenix {

namespace {

class ElfFile {
 public:
  explicit ElfFile(const std::string& path) : descriptor_(open(path.c_str(), O_RDONLY | O_CLOEXEC)) {
    struct stat status {};
    if (descriptor_ >= 0 && fstat(descriptor_, &status) == 0) { size_ = static_cast<uint64_t>(status.st_size); }
  }
  ElfFile(const ElfFile&) = delete;
  ElfFile& operator=(const ElfFile&) = delete;
  ~ElfFile() {
    if (descriptor_ >= 0) { close(descriptor_); }
  }

  std::optional<std::string> bytes(uint64_t offset, uint64_t length) const {
    if (offset > size_ || length > size_ - offset) { return std::nullopt; }
    std::string content(length, '\0');
    const ssize_t count = pread(descriptor_, content.data(), length, static_cast<off_t>(offset));
    if (count != static_cast<ssize_t>(length)) { return std::nullopt; }
    return content;
  }

  template <class Record>
  std::optional<Record> record(uint64_t offset) const {
    const std::optional<std::string> content = bytes(offset, sizeof(Record));
    if (!content) { return std::nullopt; }
    Record value;
    std::memcpy(&value, content->data(), sizeof(Record));
    return value;
  }

  std::optional<Elf64_Shdr> sectionHeader(const Elf64_Ehdr& header, unsigned index) const {
    const uint64_t distance = uint64_t{index} * header.e_shentsize;
    if (header.e_shoff > size_) { return std::nullopt; }
    return record<Elf64_Shdr>(header.e_shoff + distance);
  }

 private:
  int descriptor_;
  uint64_t size_ = 0;
};

bool isOurs(const Elf64_Ehdr& header) {
  return std::memcmp(header.e_ident, ELFMAG, SELFMAG) == 0 && header.e_ident[EI_CLASS] == ELFCLASS64;
}

}  // namespace

std::string elfSection(const std::string& path, std::string_view section) {
  const ElfFile file(path);
  const auto header = file.record<Elf64_Ehdr>(0);
  if (!header || !isOurs(*header)) { return {}; }
  const auto nameTable = file.sectionHeader(*header, header->e_shstrndx);
  if (!nameTable) { return {}; }
  const std::string names = file.bytes(nameTable->sh_offset, nameTable->sh_size).value_or("");
  for (unsigned index = 0; index < header->e_shnum; ++index) {
    const auto entry = file.sectionHeader(*header, index);
    if (!entry || entry->sh_name >= names.size() || entry->sh_type == SHT_NOBITS) { continue; }
    if (section != names.c_str() + entry->sh_name) { continue; }
    return file.bytes(entry->sh_offset, entry->sh_size).value_or("");
  }
  return {};
}

}  // namespace ardenix
