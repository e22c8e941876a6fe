#pragma once

#include <string>
#include <string_view>

namespace ardenix {

// The path of a file that another file names. One without a root is looked for beside the file that names it,
// then where the host looks for names without a root; where it is found nowhere it stays as it is. An empty
// name stays empty.
std::string pathNamedIn(std::string_view namingFile, std::string_view path);

}  // namespace ardenix
