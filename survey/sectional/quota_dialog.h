#pragma once

#include <optional>

#include "frame/services.h"
#include "survey/sectional/quotas.h"

namespace ardenix::survey {

// Asks for a section's quota in percent, the present one offered; 0 lets it follow the floor area. Nothing where the
// user leaves it as it is.
std::optional<double> askQuota(const Services& services, CWnd* owner, Quota present);

}  // namespace ardenix::survey
