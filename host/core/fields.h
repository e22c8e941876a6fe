#pragma once

#include <optional>
#include <string_view>

namespace brevan {

// The whole part of the number at the start of a text; nothing where there is none or an int cannot hold it.
std::optional<int> leadingInteger(std::string_view text);

// Copies at most size - 1 bytes and closes with NUL; returns the number copied. A buffer of no size is
// left alone.
int copyCut(std::string_view text, char* buffer, int size);

// The field of a record, numbered from 1. With the separator blank, runs of blanks separate once and
// those at the ends do not count.
std::optional<std::string_view> fieldOf(std::string_view record, int index, char separator);

}  // namespace brevan
