#include "frame/version.h"

#include <elf.h>
#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "frame/elf_section.h"
#include "frame/version_resource.h"
#include "tests/host/core/temporary_folder.h"

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
  // Name, type, flags, address, offset and size; then what nobody asks for.
  const Elf64_Shdr sections[2] = {{1, SHT_STRTAB, 0, 0, data, names.size(), 0, 0, 0, 0},
                                  {8, SHT_PROGBITS, 0, 0, data + names.size(), text.size(), 0, 0, 0, 0}};
  std::string file(reinterpret_cast<const char*>(&header), sizeof(header));
  file.append(reinterpret_cast<const char*>(sections), sizeof(sections));
  return file + names + text;
}

TEST(ElfSection, SurvivesEveryDamagedByteAndEveryCut) {
  const std::string whole = smallElf();
  const TemporaryFolder folder;
  const auto section = [&](const std::string& content, const char* name) {
    return elfSection(folder.write("elf", content), name);
  };
  ASSERT_EQ(section(whole, ".note"), "the content");
  EXPECT_EQ(section(whole, ".other"), "");
  for (size_t at = 0; at < whole.size(); ++at) {
    EXPECT_EQ(section(whole.substr(0, at), ".note"), "");
    for (const char damage : {'\xFF', '\x80', '\0'}) {
      std::string damaged = whole;
      damaged[at] = damage;
      EXPECT_LE(section(damaged, ".note").size(), whole.size());
    }
  }
  EXPECT_EQ(elfSection("/nowhere/at/all", ".note") + elfSection("/", ".note"), "");
}

}  // namespace
}  // namespace ardenix
