#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

namespace {

using Bytes = std::vector<uint8_t>;

constexpr double kPatience = 5.0;  // seconds that any input may take, sanitizers included

size_t replayed = 0;

void replay(const Bytes& input) {
  const auto begun = std::chrono::steady_clock::now();
  LLVMFuzzerTestOneInput(input.data(), input.size());
  ++replayed;
  const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - begun;
  if (taken.count() < kPatience) { return; }
  std::printf("an input of %zu bytes took %.1f s\n", input.size(), taken.count());
  std::exit(1);
}

// Cut, and with a byte flipped, zeroed, doubled and removed, at each step-th place.
void replayDamaged(const Bytes& whole, size_t step) {
  for (size_t at = 0; at < whole.size(); at += step) {
    const auto place = static_cast<std::ptrdiff_t>(at);
    replay({whole.begin(), whole.begin() + place});
    Bytes changed = whole;
    for (const int flip : {0xFF, 0x80, 0x01}) {
      changed[at] = static_cast<uint8_t>(whole[at] ^ flip);
      replay(changed);
    }
    changed[at] = 0;
    replay(changed);
    changed[at] = whole[at];
    changed.insert(changed.begin() + place, whole[at]);
    replay(changed);
    changed.erase(changed.begin() + place, changed.begin() + place + 2);
    replay(changed);
  }
}

// Says beforehand which file it is, so that the last one named is the one that failed.
void replayFile(const std::filesystem::path& path, size_t step) {
  std::ifstream file(path, std::ios::binary);
  const std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
  std::printf("%s\n", path.c_str());
  std::fflush(stdout);
  const Bytes whole(bytes.begin(), bytes.end());
  replay(whole);
  if (step > 0) { replayDamaged(whole, step); }
}

std::vector<std::filesystem::path> filesAt(const std::filesystem::path& place) {
  if (!std::filesystem::is_directory(place)) { return {place}; }
  std::vector<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(place)) {
    if (entry.is_regular_file()) { files.push_back(entry.path()); }
  }
  return files;
}

}  // namespace

// Replays files and folders through a fuzz target without a fuzzer, after "--damaged N" damaged at every N-th byte;
// fails where there is nothing to replay.
int main(int argc, char** argv) {
  size_t step = 0;
  for (int argument = 1; argument < argc; ++argument) {
    if (std::strcmp(argv[argument], "--damaged") == 0 && argument + 1 < argc) {
      step = std::strtoul(argv[++argument], nullptr, 10);
      continue;
    }
    for (const auto& path : filesAt(argv[argument])) { replayFile(path, step); }
  }
  std::printf("%zu inputs replayed\n", replayed);
  return replayed == 0 ? 1 : 0;
}
