#include "frame/version_resource.h"

// The texts come from the build, which knows version and build number.
#define ENTRY(name, text) \
  { "\\StringFileInfo\\040904b0\\" name, sizeof(text) - 1, text }

namespace ardenix {

[[gnu::section(ARDENIX_VERSION_SECTION), gnu::used]] const VersionEntry kVersionResource[] = {
    {"\\VarFileInfo\\Translation", sizeof(Translation), "\x09\x04\xb0\x04"},
    ENTRY("FileVersion", ARDENIX_FILE_VERSION),
    ENTRY("ProductName", "Ardenix"),
    ENTRY("ProductVersion", ARDENIX_PRODUCT_VERSION),
};

}  // namespace ardenix
