#pragma once

#include <span>
#include <string>
#include <string_view>

namespace ardenix {

// What the module asks of the platform: registered servers, libraries loaded at run time, version
// resources.
class Platform {
 public:
  Platform() = default;
  Platform(const Platform&) = delete;
  Platform& operator=(const Platform&) = delete;
  virtual ~Platform() = default;

  // The default value of a key in the registry of servers, "" where there is none.
  virtual std::string registeredServer(std::string_view key) = 0;
  // Null when it cannot be loaded. A library stays loaded for the life of the process.
  virtual void* loadLibrary(const std::string& name) = 0;
  // The entry point that a library exports under a number; null where there is none.
  virtual void* exportNumber(void* library, int number) = 0;

  // The size in bytes of a file's version resource, 0 where it has none.
  virtual size_t versionResourceSize(std::string_view file) = 0;
  // Copies it into a buffer of at least that size.
  virtual bool readVersionResource(std::string_view file, std::span<char> buffer) = 0;
};

// The machine the module runs on: shared libraries and ELF sections. The module's own file answers to
// the name "Ardenix.dll", whatever it is called on disk; no other file's version is known.
class SystemPlatform : public Platform {
 public:
  std::string registeredServer(std::string_view key) override;
  void* loadLibrary(const std::string& name) override;
  void* exportNumber(void* library, int number) override;
  size_t versionResourceSize(std::string_view file) override;
  bool readVersionResource(std::string_view file, std::span<char> buffer) override;
};

}  // namespace ardenix
