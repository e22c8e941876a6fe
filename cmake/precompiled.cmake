# Headers that nearly every source of a target reads are compiled once: reading them takes most of a build's time.
# They are for the compiler's speed alone. Every file includes what it uses; clang-tidy reads without them.
# A target whose sources are compiled jointly reads them so seldom that precompiling costs more than it saves.
set(precompiled_standard <algorithm> <array> <cmath> <cstdint> <functional> <limits> <map> <memory> <optional> <set>
  <span> <stdexcept> <string> <string_view> <unordered_map> <utility> <variant> <vector>)

function(precompiled target)
  get_target_property(joint ${target} UNITY_BUILD)
  if(joint)
    return()
  endif()
  target_precompile_headers(${target} PRIVATE ${precompiled_standard} ${ARGN})
endfunction()
