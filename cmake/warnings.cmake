add_library(gexlo_warnings INTERFACE)
target_compile_options(gexlo_warnings INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion
                                                -Wno-sign-conversion -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # GCC 12 reports reads of moved-from optionals and strings that its own inlining made up.
  target_compile_options(gexlo_warnings INTERFACE -Wno-maybe-uninitialized -Wno-restrict)
  # And, fully optimised, copies of texts out of bounds; the sanitized build looks for true ones.
  target_compile_options(
    gexlo_warnings
    INTERFACE $<$<CONFIG:RelWithDebInfo>:-Wno-array-bounds;-Wno-stringop-overflow>)
endif()
