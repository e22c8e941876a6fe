#include "frame/version.h"

#include <elf.h>
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstring>
#include <vector>

#include "frame/elf_section.h"
#include "frame/version_resource.h"

namespace ardenix {
namespace {

class ResourcePlatform : public SystemPlatform {
 public:
  explicit ResourcePlatform(std::string resource) : resource_(std::move(resource)) {}
  size_t versionResourceSize(std::string_view) override { return resource_.size(); }
  bool readVersionResource(std::string_view, std::span<char> buffer) override {
    std::memcpy(buffer.data(), resource_.data(), resource_.size());
    return true;
  }

 private:
  std::string resource_;
};

std::string bytesOf(const std::vector<VersionEntry>& entries) {
  return {reinterpret_cast<const char*>(entries.data()), entries.size() * sizeof(VersionEntry)};
}

constexpr VersionEntry kGerman = {"\\VarFileInfo\\Translation", 8, "\x07\x04\xe4\x04\x09\x04\xb0\x04"};

TEST(Version, IsReadFromTheModulesOwnFile) {
  SystemPlatform platform;
  const std::string version = moduleVersion(platform);
  EXPECT_TRUE(version.starts_with("6.") && version.find(" (Build ") != std::string::npos) << version;
  EXPECT_EQ(platform.versionResourceSize("Other.dll"), 0U);
}

TEST(Version, FollowsTheFirstTranslation) {
  const VersionEntry english = {"\\StringFileInfo\\040904b0\\FileVersion", 3, "two"};
  const VersionEntry german = {"\\StringFileInfo\\040704e4\\FileVersion", 3, "one"};
  const auto version = [](const std::vector<VersionEntry>& entries) {
    ResourcePlatform platform(bytesOf(entries));
    return moduleVersion(platform);
  };
  EXPECT_EQ(version({english, german, kGerman}), "one");
  EXPECT_EQ(version({kGerman, english}), "Unknown");
  EXPECT_EQ(version({english, german}), "Unknown");
  EXPECT_EQ(version({}), "Unknown");
}

TEST(Version, ACutOrLyingResourceIsUnknown) {
  const std::string whole = bytesOf({kGerman, {"\\StringFileInfo\\040704e4\\FileVersion", 4, "1.23"}});
  for (size_t length = 0; length < whole.size(); ++length) {
    ResourcePlatform platform(whole.substr(0, length));
    // The last bytes of an entry are padding, which the spare bytes of the buffer replace.
    const std::string version = moduleVersion(platform);
    EXPECT_TRUE(version == "Unknown" || length >= whole.size() - 10) << length;
  }
  ResourcePlatform lying(bytesOf({kGerman, {"\\StringFileInfo\\040704e4\\FileVersion", 0xFFFFFFFF, "1.23"}}));
  EXPECT_EQ(moduleVersion(lying), "Unknown");
}

// An ELF file of two sections: the names, and ".note" holding a text.
std::string smallElf() {
  const std::string names("\0.names\0.note\0", 14);
  const std::string text = "the content";
  Elf64_Ehdr header{};
  std::memcpy(header.e_ident, ELFMAG, SELFMAG);
  header.e_ident[EI_CLASS] = ELFCLASS64;
  header.e_shentsize = sizeof(Elf64_Shdr);
  header.e_shnum = 2;
  header.e_shoff = sizeof(header);
  const uint64_t data = sizeof(header) + 2 * sizeof(Elf64_Shdr);
  Elf64_Shdr sections[2] = {};
  sections[0] = {.sh_name = 1,
                 .sh_type = SHT_STRTAB,
                 .sh_flags = 0,
                 .sh_addr = 0,
                 .sh_offset = data,
                 .sh_size = names.size(),
                 .sh_link = 0,
                 .sh_info = 0,
                 .sh_addralign = 0,
                 .sh_entsize = 0};
  sections[1] = {.sh_name = 8,
                 .sh_type = SHT_PROGBITS,
                 .sh_flags = 0,
                 .sh_addr = 0,
                 .sh_offset = data + names.size(),
                 .sh_size = text.size(),
                 .sh_link = 0,
                 .sh_info = 0,
                 .sh_addralign = 0,
                 .sh_entsize = 0};
  std::string file(reinterpret_cast<const char*>(&header), sizeof(header));
  file.append(reinterpret_cast<const char*>(sections), sizeof(sections));
  return file + names + text;
}

// A file in memory, read through its path.
class MemoryFile {
 public:
  MemoryFile() : descriptor_(memfd_create("elf", 0)) {}
  MemoryFile(const MemoryFile&) = delete;
  MemoryFile& operator=(const MemoryFile&) = delete;
  ~MemoryFile() { close(descriptor_); }
  std::string section(const std::string& content, std::string_view name) const {
    EXPECT_EQ(ftruncate(descriptor_, 0), 0);
    EXPECT_EQ(pwrite(descriptor_, content.data(), content.size(), 0), static_cast<ssize_t>(content.size()));
    return elfSection("/proc/self/fd/" + std::to_string(descriptor_), name);
  }

 private:
  int descriptor_;
};

TEST(ElfSection, SurvivesEveryDamagedByteAndEveryCut) {
  const std::string whole = smallElf();
  const MemoryFile file;
  ASSERT_EQ(file.section(whole, ".note"), "the content");
  EXPECT_EQ(file.section(whole, ".other"), "");
  for (size_t at = 0; at < whole.size(); ++at) {
    EXPECT_EQ(file.section(whole.substr(0, at), ".note"), "");
    for (const char damage : {'\xFF', '\x80', '\0'}) {
      std::string damaged = whole;
      damaged[at] = damage;
      EXPECT_LE(file.section(damaged, ".note").size(), whole.size());
    }
  }
  EXPECT_EQ(elfSection("/nowhere/at/all", ".note"), "");
  EXPECT_EQ(elfSection("/", ".note"), "");
}

}  // namespace
}  // namespace ardenix
