# Fuzz targets, and what makes their first inputs. Built by the preset "fuzz" alone, with clang's fuzzer.
file(GLOB TZ_FUZZED_PROGRAM CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/src/cli/*.cpp)
set_source_files_properties(${PROJECT_SOURCE_DIR}/src/cli/main.cpp PROPERTIES COMPILE_DEFINITIONS main=programMain)

foreach(target ledger arguments names)
  add_executable(fuzz_${target} fuzz/fuzz_${target}.cpp support/every_report.cpp)
  target_link_options(fuzz_${target} PRIVATE -fsanitize=fuzzer)
endforeach()
target_sources(fuzz_arguments PRIVATE ${TZ_FUZZED_PROGRAM})
target_link_libraries(fuzz_arguments PRIVATE CLI11::CLI11)
target_compile_definitions(fuzz_arguments PRIVATE TZ_VERSION="${PROJECT_VERSION}")
add_executable(fuzz_seeds fuzz/seeds.cpp support/every_report.cpp)
target_link_options(fuzz_seeds PRIVATE -fsanitize=fuzzer-no-link)

foreach(program fuzz_ledger fuzz_arguments fuzz_names fuzz_seeds)
  target_link_libraries(${program} PRIVATE tzcore tz_options nlohmann_json::nlohmann_json fmt::fmt-header-only)
  target_include_directories(${program} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
endforeach()
