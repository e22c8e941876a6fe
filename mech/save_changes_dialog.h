#pragma once

#include <string_view>

#include "frame/services.h"

namespace ardenix::mech {

// What to do with edits of a definition that were not saved.
enum class SaveChoice { kSave, kSaveAsNew, kDiscard };

// Asks; Cancel counts as discarding.
SaveChoice askSaveChanges(const Services& services, CWnd* owner, std::string_view title, std::string_view question);

}  // namespace ardenix::mech
