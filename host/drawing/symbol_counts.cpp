#include "host/drawing/symbol_counts.h"

#include <algorithm>
#include <vector>

#include "host/drawing/refused_change.h"

namespace brevan {

class SymbolCounts::Counting {
 public:
  // `added` may be null.
  Counting(Counts& counts, const Definitions& definitions, const SymbolDefinition* added)
      : counts_(counts), definitions_(definitions), added_(added) {}

  const Count& count(std::string_view name) {
    if (const auto known = counts_.find(name); known != counts_.end()) { return known->second; }
    const SymbolDefinition* symbol = find(name);
    return counts_.emplace(name, symbol == nullptr ? Count() : counted(*symbol)).first->second;
  }

 private:
  [[nodiscard]] const SymbolDefinition* find(std::string_view name) const {
    if (added_ != nullptr && added_->name == name) { return added_; }
    const auto definition = definitions_.find(name);
    return definition == definitions_.end() ? nullptr : &definition->second;
  }

  static constexpr std::string_view kTooDeep = "lies deeper than 64 symbols within symbols.";
  static_assert(kDeepest == 64 && kMostParts == 1'000'000, "the messages name the limits");

  [[noreturn]] static void refuse(const SymbolDefinition& symbol, std::string_view rule) {
    throw RefusedChange("Symbol \"" + symbol.name + "\" " + std::string(rule));
  }

  Count counted(const SymbolDefinition& symbol) {
    if (std::find(open_.begin(), open_.end(), &symbol) != open_.end()) { refuse(symbol, "contains itself."); }
    if (open_.size() >= kDeepest) { refuse(symbol, kTooDeep); }
    open_.push_back(&symbol);
    Count sum;
    for (const Primitive& part : symbol.parts) {
      const Symbol* inner = std::get_if<Symbol>(&part.geometry);
      const Count within = inner == nullptr ? Count() : count(inner->name);
      sum = {sum.parts + within.parts, std::max(sum.height, within.height)};
      if (sum.parts > kMostParts) { refuse(symbol, "expands to more than 1000000 parts."); }
    }
    open_.pop_back();
    if (++sum.height > kDeepest) { refuse(symbol, kTooDeep); }
    return sum;
  }

  Counts& counts_;
  const Definitions& definitions_;
  const SymbolDefinition* added_;
  std::vector<const SymbolDefinition*> open_;
};

void SymbolCounts::countAll(const Definitions& definitions) {
  Counts counts;
  Counting counting(counts, definitions, nullptr);
  for (const auto& [name, definition] : definitions) { counting.count(name); }
  counts_ = std::move(counts);
}

void SymbolCounts::countWith(const Definitions& definitions, const SymbolDefinition& added) {
  if (!counts_.empty() && !counts_.contains(added.name)) {  // nothing counted so far rests on it
    Counting(counts_, definitions, &added).count(added.name);
    return;
  }
  Counts counts;
  Counting counting(counts, definitions, &added);
  counting.count(added.name);
  for (const auto& [name, definition] : definitions) { counting.count(name); }
  counts_ = std::move(counts);
}

size_t SymbolCounts::parts(std::string_view name) const {
  const auto known = counts_.find(name);
  return known == counts_.end() ? 1 : known->second.parts;
}

}  // namespace brevan
