#include "frame/drafting/group_counter.h"

#include "frame/names.h"

namespace ardenix {

namespace {

std::string cleaned(std::string_view name) {
  std::string text(name);
  cleanName(text, true);
  return text;
}

}  // namespace

// Digits that end a prefix belong to the number of another series: W21 is W's twenty-first, not W2's first.
GroupCounter::GroupCounter(std::string_view parent, std::string_view prefix)
    : parent_(cleaned(parent)), prefix_(cleaned(prefix)), countable_(digit(prefix_.back()) > 9) {
  const size_t first = std::min(prefix_.size(), sizeof firstEight_);
  std::memcpy(&firstEight_, prefix_.data(), first);
  std::memset(&firstMask_, 0xFF, first);
  restOfPrefix_ = std::string_view(prefix_).substr(first);
}

void GroupCounter::take(const char* number, size_t digits) {
  long long value = 0;
  for (const char* at = number; at != number + digits; ++at) {
    if (digit(*at) > 9) { return; }
    value = value * 10 + digit(*at);
  }
  if (!countable_ || value <= largest_) { return; }
  largest_ = value;
  largestDigits_ = std::to_string(value);
}

std::string GroupCounter::nextName() const {
  return (prefix_ + std::to_string(largest_ + 1)).substr(0, kGroupNameLimit);
}

}  // namespace ardenix
