# Warnings, hardening and sanitizers for every target of the project.
add_compile_options(-Wall -Wextra -Wconversion -Wformat=2 -Werror -Werror=switch -ffp-contract=off -fstack-protector-strong)
add_compile_definitions(_GLIBCXX_ASSERTIONS)
add_link_options(-Wl,-z,relro,-z,now)

# Assertions are for our own mistakes and stay on in every build.
string(REPLACE "-DNDEBUG" "" CMAKE_CXX_FLAGS_RELEASE "${CMAKE_CXX_FLAGS_RELEASE}")
string(REPLACE "-O3" "-O2" CMAKE_CXX_FLAGS_RELEASE "${CMAKE_CXX_FLAGS_RELEASE}")

if(ARDENIX_SANITIZE)
  add_compile_options(-fsanitize=address,undefined,float-cast-overflow -fno-sanitize-recover=all -fno-omit-frame-pointer -O0 -g1)  # compiling takes longer than running
  add_link_options(-fsanitize=address,undefined,float-cast-overflow)
elseif(ARDENIX_COVERAGE)
  add_compile_options(--coverage -fprofile-update=atomic -fprofile-abs-path -O0 -g1)
  add_link_options(--coverage)
elseif(ARDENIX_FUZZ)
  set(sanitizers address,undefined)
  if(ARDENIX_FUZZ STREQUAL PLAIN)  # else the fuzzer stops at an integer's wrap and misses the memory fault behind it
    set(sanitizers address)
  endif()
  add_compile_options(-fsanitize=${sanitizers},fuzzer-no-link -fno-sanitize-recover=all -O1 -g1)
  add_link_options(-fsanitize=${sanitizers})
else()
  add_compile_definitions($<$<CONFIG:Release>:_FORTIFY_SOURCE=2>)
endif()
