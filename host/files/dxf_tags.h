#pragma once

#include <array>
#include <charconv>
#include <cstdint>
#include <string>
#include <string_view>

#include "frame/host/number_text.h"
#include "host/geometry/point.h"

namespace brevan {

using DxfHandle = uint32_t;

// The groups of a DXF file, a code and a value on a line each, into one growing text. Texts come encoded
// and without line breaks (see dxf_text.h).
class DxfTags {
 public:
  void text(int code, std::string_view value) {
    this->code(code);
    out_ += value;
    out_ += '\n';
  }
  void integer(int code, long long value) {
    std::array<char, 24> digits{};
    text(code, {digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr});
  }
  void real(int code, double value) {
    this->code(code);
    number(value);
    out_ += '\n';
  }
  void point(int code, Point p) {
    real(code, p.x);
    real(code + 10, p.y);
    real(code + 20, 0.0);
  }
  void handle(int code, DxfHandle value) {
    this->code(code);
    hex(value);
    out_ += '\n';
  }

  // Pieces of groups, for what is written a hundred thousand times.
  void raw(std::string_view pieces) { out_ += pieces; }
  void number(double value) { numberText::appendShortest(out_, value); }
  void hex(DxfHandle value) {
    std::array<char, 8> digits{};
    size_t at = digits.size();
    do {
      digits[--at] = "0123456789ABCDEF"[value & 0xFU];
      value >>= 4;
    } while (value != 0);
    out_.append(digits.data() + at, digits.size() - at);
  }

  [[nodiscard]] std::string& out() { return out_; }

 private:
  void code(int value) {
    std::array<char, 8> digits{};
    out_.append(digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr);
    out_ += '\n';
  }

  std::string out_;
};

}  // namespace brevan
