#include <array>
#include <cmath>
#include <cstring>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "frame/drafting/group_counter.h"
#include "frame/host/core_services.h"
#include "frame/host/macro_quote.h"
#include "frame/host/number_text.h"
#include "frame/names.h"
#include "fuzz/byte_choices.h"
#include "fuzz/json_check.h"
#include "fuzz/laws.h"
#include "host/core/fields.h"
#include "host/core/ini_file.h"
#include "host/core/text_encoding.h"
#include "host/files/dxf/read/number.h"
#include "host/files/dxf/read/text.h"
#include "host/files/dxf/write/names.h"
#include "host/files/dxf/write/text.h"
#include "host/files/json_text.h"
#include "host/macros/lexer.h"
#include "host/scripts/script_syntax.h"
#include "survey/label_sequences.h"
#include "survey/number_formats.h"
#include "survey/text_row.h"

// The first byte chooses a pair of a writer and a reader, the rest is what goes through it: a text must come back
// as it was, or be refused on the way in.
namespace {

using namespace fuzzing;
using Text = std::string_view;

constexpr Text kLineEnds = "\r\n";

void macroArguments(Text text) {
  const brevan::MacroLine one = brevan::readMacroLine("SELECTNAME " + quotedForMacro(text));
  require(one.word == "SELECTNAME" && one.arguments.size() == 1 && one.arguments[0].text == text);
  const Text half = text.substr(text.size() / 2);
  const brevan::MacroLine two = brevan::readMacroLine("#SELECT " + quotedForMacro(half) + ' ' + quotedForMacro(text));
  require(two.arguments.size() == 2 && two.arguments[0].text == half && two.arguments[1].text == text);
}

void scriptWords(Text text) {
  const std::string utf8 = brevan::toUtf8(text);
  std::string quoted;
  for (const char c : utf8) { quoted += c == '"' || c == '\\' ? std::string{'\\', c} : std::string{c}; }
  const bool oneLine = text.find_first_of(Text("\r\n\0", 3)) == Text::npos;
  try {
    const brevan::Script script = brevan::readScript("fuzz.scr", "set \"" + quoted + "\" \"" + quoted + "\" # note");
    const auto& words = script.statements.at(0).words;
    require(oneLine && script.statements.size() == 1 && words.size() == 3);
    require(words[1].text == text && words[2].text == text && words[1].quoted);
  } catch (const brevan::ScriptFailure&) { require(!oneLine); }
}

void encodings(Text text) {
  require(brevan::toWindows1252(brevan::toUtf8(text)) == text);
  if (const auto narrow = brevan::toWindows1252(text)) {
    require(brevan::toUtf8(*narrow) == text && brevan::messageText(text) == *narrow);
  }
  brevan::messageText(text);
}

void numbers(Text text) {
  const auto value = numberText::parseDouble(text);
  if (value) {
    require(std::isfinite(*value) && numberText::parseDouble(numberText::shortest(*value)) == *value);
    require(numberText::leadingDouble(text) == value && coreIsNumeric(text) != 0);
    require(numberText::parseDouble(numberText::fixed(*value, 3)).has_value());
  }
  if (const auto plain = brevan::plainDecimal(text)) { require(plain == value); }
  if (const auto handle = brevan::plainHandle(text)) {
    require(*handle == std::stoull(std::string(text), nullptr, 16));
  }
  const auto typed = numberText::parseTyped(text);
  require(!value || typed == value);
  if (typed) { require(std::isfinite(*typed) && numberText::parseTyped(numberText::shortest(*typed)) == *typed); }
  const auto whole = brevan::leadingInteger(text);
  require(!whole || numberText::leadingDouble(text).has_value());
}

void dxfTexts(Text text) {
  for (const auto version : {brevan::DxfVersion::kR2000, brevan::DxfVersion::kR2010}) {
    const bool old = version == brevan::DxfVersion::kR2000;
    const auto encoding = old ? brevan::DxfEncoding::kWindows1252 : brevan::DxfEncoding::kUtf8;
    const std::string value = brevan::dxfTextValue(text, version);
    require(value.find_first_of(kLineEnds) == std::string::npos);
    const brevan::DxfTextRead read = brevan::dxfTextRead(value, encoding);
    require(read.text == text && read.replaced == 0 && !read.underlined);
    const std::string lines[] = {std::string(text), "second"};
    const std::string several = brevan::dxfMTextValue(lines, version);
    require(several.find_first_of(kLineEnds) == std::string::npos);
    if (text.find_first_of("\t\n") == Text::npos) {  // an MTEXT's own words for these stand for blank and line break
      require(brevan::dxfMTextRead(several, encoding).text == lines[0] + "\\Nsecond");
    }
    brevan::DxfNames names;
    const std::string name = names.unique(text);
    require(name != names.unique(text) && !name.empty());
    const std::string plain = brevan::dxfPlain(name, version);
    require(plain.find_first_of(kLineEnds) == std::string::npos);
    require(brevan::dxfNameRead(plain, encoding).text == name);
  }
}

// What any DXF file may hold in place of a text.
void foreignDxfTexts(Text text) {
  using brevan::DxfEncoding;
  for (const auto encoding : {DxfEncoding::kWindows1252, DxfEncoding::kUtf8, DxfEncoding::kOther}) {
    for (const auto read : {brevan::dxfNameRead, brevan::dxfTextRead, brevan::dxfMTextRead}) {
      require(std::isfinite(read(text, encoding).widthFactor));
    }
  }
}

void jsonTexts(Text text) {
  std::string json;
  brevan::appendJsonText(json, text);
  require(JsonCheck::valid(json) && json.find_first_of(kLineEnds) == std::string::npos);
}

void names(Text text) {
  for (const bool upper : {false, true}) {
    std::string name(text);
    ardenix::cleanName(name, upper);
    std::string again = name;
    require(ardenix::cleanName(again, upper) == 0 || name == "_");
    require(again == name && !name.empty() && name.size() <= static_cast<size_t>(ardenix::kNameLimit));
    require(brevan::readMacroLine("LINKSEL " + quotedForMacro(name)).arguments.at(0).text == name);
  }
}

// The first line is the prefix, each other line a group's name.
void groupNumbers(Text text) {
  ByteChoices lines(reinterpret_cast<const uint8_t*>(text.data()), text.size());
  std::string prefix(lines.line());
  ardenix::GroupCounter counter("PARTS", prefix);
  ardenix::cleanName(prefix, true);
  long long largest = 0;
  while (!lines.done()) {
    const std::string name(lines.line());
    counter.see("PARTS", name);
    counter.see("OTHERS", name + "9");
    if (!name.starts_with(prefix) || prefix.find_last_of("0123456789") == prefix.size() - 1) { continue; }
    const std::string digits = name.substr(prefix.size());
    if (digits.size() > ardenix::kGroupNameLimit || digits.find_first_not_of("0123456789") != std::string::npos) {
      continue;
    }
    largest = std::max(largest, numberText::parseInteger(digits).value_or(0));
  }
  require(counter.nextName() == (prefix + std::to_string(largest + 1)).substr(0, ardenix::kGroupNameLimit));
}

// Section, key and value in a line each.
void iniEntries(Text text) {
  ByteChoices lines(reinterpret_cast<const uint8_t*>(text.data()), text.size());
  const std::string section(lines.line());
  const std::string key(lines.line());
  const std::string value(lines.rest());
  for (const char* const first : {"", "; a note\r\n[Other]\r\na=1\r\n", "\xEF\xBB\xBF[x]\n"}) {
    brevan::IniFile file = brevan::IniFile::parse(first);
    const std::string before = file.bytes();
    try {
      file.set(section, key, value);
    } catch (const HostFailure&) {
      require(file.bytes() == before && !file.changed());
      continue;
    }
    const auto kept = file.lookup(section, key);
    const brevan::IniFile again = brevan::IniFile::parse(file.bytes());
    require(kept && again.lookup(section, key) == kept && brevan::trimmed(value) == brevan::trimmed(*kept));
    require(again.entries() == file.entries());
  }
}

void fields(Text text) {
  std::array<std::string, 64> parts;
  ardenix::survey::splitFields(text, parts);
  const auto count = static_cast<size_t>(std::count(text.begin(), text.end(), ',')) + 1;
  if (count <= parts.size()) { require(ardenix::survey::joinedFields({parts.data(), count}) == text); }
  for (int index = -1; index < 5; ++index) {
    std::array<char, 16> buffer{};
    const int length =
        coreGetField(text, "?", buffer.data(), static_cast<int>(buffer.size()), index, index == 3 ? ' ' : ',');
    require(length >= 0 && length < static_cast<int>(buffer.size()) && buffer[static_cast<size_t>(length)] == '\0');
    require(std::isfinite(coreGetFieldDouble(text, 1.0, index, ',')));
    coreGetFieldInt(text, 1, index, ' ');
  }
}

void paths(Text text) {
  if (text.empty()) { return; }
  const int room = static_cast<uint8_t>(text.front());
  text.remove_prefix(1);
  require(coreAbbreviateFileName(text, room).size() <= static_cast<size_t>(room));
  if (!text.empty() && Text("/\\:").find(text.back()) == Text::npos) {  // it names a file
    require(coreChangeFileExt(coreChangeFileExt(text, ".aa"), ".b") == coreChangeFileExt(text, ".b"));
  }
  coreChangeFileName(text, "name", ".ini");
}

void labels(Text text) {
  std::string label(text);
  for (const auto next : {ardenix::survey::nextDigitsThenLetters, ardenix::survey::nextLettersThenDigits,
                          ardenix::survey::nextPrefixAndNumber}) {
    const std::string one = next(text);
    require(!one.empty() && one.size() <= text.size() + 2);
  }
}

// The number is what it is without its separators; a bearing lies below a full circle.
void surveyNumbers(Text text) {
  double value = 0.0;
  if (text.size() < sizeof value + 2) { return; }
  std::memcpy(&value, text.data(), sizeof value);
  if (!std::isfinite(value) || std::fabs(value) > 1e12) { return; }
  ardenix::survey::NumberStyle style;
  style.decimal = ",";
  style.thousands = ardenix::survey::separatorOf(text.substr(sizeof value, 1));
  style.bearing = ardenix::survey::separatorOf(text.substr(sizeof value + 1, 1));
  style.roundBearing = text.back() % 2 == 0;
  if (style.thousands != "," && style.thousands != "-") {
    std::string plain;
    for (const char c : ardenix::survey::formattedNumber(value, style)) {
      if (style.thousands.find(c) == std::string::npos) { plain += c == ',' ? '.' : c; }
    }
    require(plain == numberText::fixed(value, 2));
  }
  constexpr double kFullCircle = 6.283185307179586;
  const double direction = std::fabs(std::fmod(value, kFullCircle));
  if (style.bearing.empty()) { return; }
  const std::string bearing = ardenix::survey::formattedBearing(direction, style).text;
  const int degrees = brevan::leadingInteger(bearing).value_or(-1);
  require(degrees >= 0 && degrees < 360);
  const std::string after = bearing.substr(std::to_string(degrees).size());
  const size_t minutes = after.find_first_of("0123456789");
  const size_t seconds = after.find_first_of("0123456789", minutes + 2);
  require(after[minutes] < '6' && after[seconds] < '6');
  const double whole = std::fmod(value, 1e6);
  const double again = coreRadDms(coreDmsRad(coreRadDms(coreDmsRad(whole))));
  require(std::fabs(again - coreRadDms(coreDmsRad(whole))) < 1e-3);
}

constexpr void (*kPairs[])(Text) = {macroArguments,  scriptWords, encodings, numbers,      dxfTexts,
                                    foreignDxfTexts, jsonTexts,   names,     groupNumbers, iniEntries,
                                    fields,          paths,       labels,    surveyNumbers};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  ByteChoices input(data, size);
  const auto pair = input.of(kPairs);
  pair(input.rest());
  return 0;
}
