#include "host/files/dxf/own_notes.h"

#include <array>
#include <vector>

#include "frame/host/number_text.h"
#include "host/core/text_encoding.h"

namespace brevan {

namespace {

constexpr std::string_view kParameters = "BREVAN parameters";
constexpr std::string_view kSheet = "BREVAN sheet";
constexpr std::string_view kSymbol = "BREVAN symbol";

void appendNumbers(std::string& note, std::initializer_list<double> numbers) {
  for (const double number : numbers) {
    note += ' ';
    numberText::appendShortest(note, number);
  }
}

// The numbers of a note; nothing where one of them is none.
std::optional<std::vector<double>> numbersOf(std::string_view text) {
  std::vector<double> numbers;
  for (text = trimmed(text); !text.empty(); text = trimmed(text)) {
    const size_t end = std::min(text.find(' '), text.size());
    const auto number = numberText::parseDouble(text.substr(0, end));
    if (!number) { return std::nullopt; }
    numbers.push_back(*number);
    text.remove_prefix(end);
  }
  return numbers;
}

}  // namespace

std::string parametersNote(const Parameters& parameters) {
  std::string note(kParameters);
  for (const double value : parameters.all) { appendNumbers(note, {value}); }
  return note;
}

std::string sheetNote(const Sheet& sheet) {
  std::string note(kSheet);
  appendNumbers(note, {sheet.width, sheet.height, sheet.corner.x, sheet.corner.y});
  return note + ' ' + sheet.name;
}

std::string symbolNote(const SymbolDefinition* symbol) {
  std::string note(kSymbol);
  if (symbol == nullptr) { return note += " missing"; }
  note += symbol->paperSize ? " paper" : " real";
  note += symbol->upright ? " upright" : " turning";
  return note;
}

bool DxfOwnNotes::take(std::string_view comment) {
  if (comment.starts_with(kParameters)) {
    const auto numbers = numbersOf(comment.substr(kParameters.size()));
    if (!numbers || numbers->size() != Parameters::kCount) { return false; }
    Parameters read;
    std::copy(numbers->begin(), numbers->end(), read.all.begin());
    if (read.scale() <= 0.0 || read.unit() <= 0.0 || !std::isnormal(read.paperMillimetre())) { return false; }
    parameters = read;
  }
  if (comment.starts_with(kSheet)) {
    comment = trimmed(comment.substr(kSheet.size()));
    const size_t name = comment.rfind(' ');
    if (name == std::string_view::npos) { return false; }
    const auto numbers = numbersOf(comment.substr(0, name));
    if (!numbers || numbers->size() != 4) { return false; }
    const std::vector<double>& n = *numbers;
    if (n[0] <= 0.0 || n[1] <= 0.0) { return false; }
    sheet = Sheet{std::string(comment.substr(name + 1)), n[0], n[1], {n[2], n[3]}};
  }
  return true;
}

std::optional<DxfBlockOrigin> readSymbolNote(std::string_view comment) {
  if (!comment.starts_with(kSymbol)) { return std::nullopt; }
  using Kind = DxfBlockOrigin::Kind;
  const Kind kind = comment.find(" missing") != std::string_view::npos ? Kind::kMissingSymbol
                    : comment.find(" real") != std::string_view::npos  ? Kind::kRealSymbol
                                                                       : Kind::kPaperSymbol;
  return DxfBlockOrigin{kind, comment.find(" upright") != std::string_view::npos};
}

GroupName ownGroupName(std::string_view description, std::string_view dictionaryName) {
  const auto endsIn = [description](std::string_view name) {
    return description.size() > name.size() && description.ends_with(name) &&
           description[description.size() - name.size() - 1] == ' ';
  };
  std::string_view name = dictionaryName;
  const size_t number = name.rfind('_');
  if (!endsIn(name) && number != std::string_view::npos && numberText::parseInteger(name.substr(number + 1))) {
    name = name.substr(0, number);
  }
  if (!endsIn(name)) {  // its name holds what a dictionary does not take
    const size_t blank = description.rfind(' ');
    if (blank == std::string_view::npos) { return {"", std::string(dictionaryName)}; }
    name = description.substr(blank + 1);
  }
  return {std::string(description.substr(0, description.size() - name.size() - 1)), std::string(name)};
}

}  // namespace brevan
