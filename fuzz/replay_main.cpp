#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

// Replays files through a fuzz target without a fuzzer; fails where there is nothing to replay.
int main(int argc, char** argv) {
  size_t replayed = 0;
  for (int argument = 1; argument < argc; ++argument) {
    for (const auto& entry : std::filesystem::recursive_directory_iterator(argv[argument])) {
      if (!entry.is_regular_file()) { continue; }
      std::ifstream file(entry.path(), std::ios::binary);
      const std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
      const std::vector<uint8_t> input(bytes.begin(), bytes.end());
      LLVMFuzzerTestOneInput(input.data(), input.size());
      ++replayed;
    }
  }
  std::printf("%zu seeds replayed\n", replayed);
  return replayed == 0 ? 1 : 0;
}
