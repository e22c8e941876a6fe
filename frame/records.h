#pragma once

#include <string>
#include <string_view>

namespace ardenix {

// A record is one INI value of fields with this between them; field 1 is its name.
inline constexpr char kFieldSeparator = ',';

// Field n of a record, counted from 1; at most 255 characters. A missing field gives the fallback.
std::string textField(std::string_view record, int n, std::string_view fallback = "", char separator = kFieldSeparator);
bool flagField(std::string_view record, int n, bool fallback, char separator = kFieldSeparator);

// The same however long it is; "" where it is missing.
std::string wholeField(std::string_view record, int n, char separator = kFieldSeparator);

// A text in a record hides its commas as "_COMMA_", since they separate fields.
std::string commasHidden(std::string_view text);
std::string commasRestored(std::string_view text);

// Field 1 of a record.
std::string recordName(std::string_view record);
// What was typed as a name, as a record can hold it: with blanks for commas, and without blanks around it.
std::string asRecordName(std::string_view typed);

}  // namespace ardenix
