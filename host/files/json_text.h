#pragma once

#include <span>
#include <string>
#include <string_view>

#include "host/geometry/point.h"

namespace brevan {

// The pieces of JSON text. Texts come in Windows-1252 and go out in UTF-8; numbers are the shortest that
// read back alike.

// Between double quotes, escaped.
void appendJsonText(std::string& out, std::string_view windows1252);
void appendJsonNumber(std::string& out, double value);
void appendJsonInteger(std::string& out, long long value);
void appendJsonBool(std::string& out, bool value);
// [x,y]
void appendJsonPoint(std::string& out, Point p);

// One object, its members in the order of the calls: {"a":1,"b":"x"}. Closed by close().
class JsonObject {
 public:
  explicit JsonObject(std::string& out) : out_(out) { out_ += '{'; }

  JsonObject& text(std::string_view key, std::string_view windows1252);
  JsonObject& number(std::string_view key, double value);
  JsonObject& integer(std::string_view key, long long value);
  JsonObject& boolean(std::string_view key, bool value);
  JsonObject& point(std::string_view key, Point p);
  JsonObject& numbers(std::string_view key, std::span<const double> values);
  JsonObject& integers(std::string_view key, std::span<const int> values);
  // The key alone; the caller appends the value to the same text.
  JsonObject& key(std::string_view key);
  void close() { out_ += '}'; }

 private:
  std::string& out_;
  bool first_ = true;
};

}  // namespace brevan
