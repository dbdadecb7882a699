# Warnings are errors; a sanitizer is a preset.
add_library(tz_options INTERFACE)
target_compile_options(tz_options INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion
                                            -Wnon-virtual-dtor -Woverloaded-virtual -Wimplicit-fallthrough -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  target_compile_options(tz_options INTERFACE -Wduplicated-cond -Wlogical-op -Wno-missing-field-initializers)
  # Locals alone: sources are compiled several at a time, and what one of them names at its top is no concern of others.
  target_compile_options(tz_options INTERFACE -Wshadow=local)
  # GCC 12 sees overlaps in std::string that are not there (its bug 105651); at -O3 overflows as well.
  target_compile_options(tz_options INTERFACE -Wno-restrict)
else()
  target_compile_options(tz_options INTERFACE -Wno-missing-field-initializers)
endif()
if(TZ_SANITIZE)
  target_compile_options(tz_options INTERFACE -fsanitize=${TZ_SANITIZE} -fno-sanitize-recover=all
                                              -fno-omit-frame-pointer)
  target_link_options(tz_options INTERFACE -fsanitize=${TZ_SANITIZE})
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND TZ_SANITIZE MATCHES "undefined")
    # With these GCC compares no address of a function in a constant expression (its bug 71962), as the makers of the
    # report records do. A null pointer that is followed ends a test all the same.
    target_compile_options(tz_options INTERFACE -fno-sanitize=null,nonnull-attribute,returns-nonnull-attribute)
  endif()
endif()

set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG")

find_program(TZ_CCACHE ccache)
if(TZ_CCACHE)
  # Without these two ccache refuses everything that is compiled with a precompiled header.
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros ${TZ_CCACHE})
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(tz_options INTERFACE -fpch-preprocess)
  endif()
endif()
find_program(TZ_MOLD mold)
if(TZ_MOLD AND NOT TZ_SANITIZE)
  add_link_options(-fuse-ld=mold)
endif()

# What only tests and tools compile runs once: without optimization it is built in half the time.
add_library(tz_once INTERFACE)
target_link_libraries(tz_once INTERFACE tz_options)
target_compile_options(tz_once INTERFACE -O0)
