#include "survey/plan/erf_texts.h"

#include <array>

#include "frame/host/limits.h"

namespace ardenix::survey {

namespace {

std::string firstLine(std::string_view text) {
  return std::string(text.substr(0, std::min(text.find("\\n"), text.find("\\N"))));
}

}  // namespace

std::vector<ErfText> erfTextsOn(CCadWindow& view, std::string_view layer) {
  std::vector<ErfText> texts;
  const int index = view.gsGetLayerIndexFromName(layer);
  if (index < 0) { return texts; }
  const int scan = view.gsGetListHandle(kTextPrimitive, index, 0, 0.0, 0.0, 0.0, 0.0, 0, 0);
  std::array<char, limits::kLongestAnswer + 1> text{};
  for (int type = view.gsGetNextPrim(scan); type != 0; type = view.gsGetNextPrim(scan)) {
    Point at;
    if (type < 0 || view.gsGetText(at.x, at.y, text.data(), static_cast<int>(text.size())) == 0) { continue; }
    texts.push_back({firstLine(text.data()), at});
  }
  view.gsFreeListHandle(scan);
  return texts;
}

std::set<std::string, std::less<>> numbersOnLayer(CCadWindow& view, std::string_view layer) {
  std::set<std::string, std::less<>> numbers;
  for (ErfText& text : erfTextsOn(view, layer)) { numbers.insert(std::move(text.number)); }
  return numbers;
}

}  // namespace ardenix::survey
