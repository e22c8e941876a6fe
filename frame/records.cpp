#include "frame/records.h"

#include "frame/drafting/macro_values.h"

namespace ardenix {

std::string recordName(std::string_view record) { return textField(record, 1); }

}  // namespace ardenix
