#include "host/files/json_text.h"

#include <array>

#include "frame/host/number_text.h"
#include "host/core/text_encoding.h"

namespace brevan {

namespace {

void appendEscaped(std::string& out, char character) {
  constexpr std::string_view kHexDigits = "0123456789abcdef";
  switch (character) {
    case '"': out += "\\\""; return;
    case '\\': out += "\\\\"; return;
    case '\n': out += "\\n"; return;
    case '\r': out += "\\r"; return;
    case '\t': out += "\\t"; return;
    default: break;
  }
  const auto code = static_cast<unsigned char>(character);
  if (code >= 0x20) {
    out += character;
    return;
  }
  out += "\\u00";
  out += kHexDigits[code >> 4];
  out += kHexDigits[code & 0xF];
}

template <class Values, class Append>
void appendJsonArray(std::string& out, const Values& values, const Append& append) {
  out += '[';
  for (size_t at = 0; at < values.size(); ++at) {
    if (at > 0) { out += ','; }
    append(out, values[at]);
  }
  out += ']';
}

bool isPlain(char character) {
  const auto code = static_cast<unsigned char>(character);
  return code >= 0x20 && code < 0x80 && character != '"' && character != '\\';
}

}  // namespace

void appendJsonText(std::string& out, std::string_view windows1252) {
  out += '"';
  for (size_t at = 0; at < windows1252.size(); ++at) {
    const char character = windows1252[at];
    if (isPlain(character)) {
      out += character;
    } else if (static_cast<unsigned char>(character) < 0x80) {
      appendEscaped(out, character);
    } else {
      out += toUtf8(windows1252.substr(at, 1));
    }
  }
  out += '"';
}

void appendJsonNumber(std::string& out, double value) { numberText::appendShortest(out, value); }

void appendJsonInteger(std::string& out, long long value) { out += std::to_string(value); }

void appendJsonBool(std::string& out, bool value) { out += value ? "true" : "false"; }

void appendJsonPoint(std::string& out, Point p) {
  out += '[';
  appendJsonNumber(out, p.x);
  out += ',';
  appendJsonNumber(out, p.y);
  out += ']';
}

JsonObject& JsonObject::key(std::string_view key) {
  out_ += first_ ? "\"" : ",\"";
  first_ = false;
  out_ += key;
  out_ += "\":";
  return *this;
}

JsonObject& JsonObject::text(std::string_view key, std::string_view windows1252) {
  this->key(key);
  appendJsonText(out_, windows1252);
  return *this;
}

JsonObject& JsonObject::number(std::string_view key, double value) {
  this->key(key);
  appendJsonNumber(out_, value);
  return *this;
}

JsonObject& JsonObject::integer(std::string_view key, long long value) {
  this->key(key);
  appendJsonInteger(out_, value);
  return *this;
}

JsonObject& JsonObject::boolean(std::string_view key, bool value) {
  this->key(key);
  appendJsonBool(out_, value);
  return *this;
}

JsonObject& JsonObject::numbers(std::string_view key, std::span<const double> values) {
  this->key(key);
  appendJsonArray(out_, values, appendJsonNumber);
  return *this;
}

JsonObject& JsonObject::integers(std::string_view key, std::span<const int> values) {
  this->key(key);
  appendJsonArray(out_, values, appendJsonInteger);
  return *this;
}

JsonObject& JsonObject::point(std::string_view key, Point p) {
  this->key(key);
  appendJsonPoint(out_, p);
  return *this;
}

}  // namespace brevan
