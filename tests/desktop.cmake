# desktop tests: real windows, drawn off the screen.
find_package(Qt6 6.4 REQUIRED COMPONENTS Test)
pkg_check_modules(XCB REQUIRED IMPORTED_TARGET xcb)
file(GLOB_RECURSE TZ_DESKTOP_TESTS CONFIGURE_DEPENDS ${CMAKE_CURRENT_LIST_DIR}/desktop/*.cpp)
add_executable(desktop_tests ${TZ_DESKTOP_TESTS} support/test_ledger.cpp support/refusal_cases.cpp
                             support/every_report.cpp support/watchdog.cpp)
set_target_properties(desktop_tests PROPERTIES AUTOMOC ON)
target_link_libraries(desktop_tests PRIVATE tzhost tz_once Qt6::Test GTest::gtest PkgConfig::SODIUM PkgConfig::XCB)
target_compile_definitions(desktop_tests PRIVATE TZ_DESKTOP_PROGRAM="$<TARGET_FILE:tzassistant-desktop>"
                                                 TZ_MANUAL="${PROJECT_SOURCE_DIR}/docs/manual")
add_dependencies(desktop_tests tzassistant-desktop)
target_include_directories(desktop_tests PRIVATE ${CMAKE_CURRENT_LIST_DIR})
target_precompile_headers(desktop_tests PRIVATE <gtest/gtest.h> <QtTest> <QtWidgets> <string> <vector>)
add_test(NAME desktop COMMAND desktop_tests)
set_tests_properties(desktop PROPERTIES TIMEOUT 1800 ENVIRONMENT QT_QPA_PLATFORM=offscreen)
# The same windows on the screen that 200 % leave of 1920 x 1080.
add_test(NAME desktop-small-screen COMMAND desktop_tests --gtest_filter=SmallScreen.*)
set_tests_properties(
  desktop-small-screen
  PROPERTIES TIMEOUT 300
             ENVIRONMENT QT_QPA_PLATFORM=offscreen:configfile=${CMAKE_CURRENT_LIST_DIR}/support/small_screen.json)
# And on a usual one: off the screen it is otherwise narrower than a report.
add_test(NAME desktop-wide-screen COMMAND desktop_tests --gtest_filter=Windows.*)
set_tests_properties(
  desktop-wide-screen
  PROPERTIES TIMEOUT 300
             ENVIRONMENT QT_QPA_PLATFORM=offscreen:configfile=${CMAKE_CURRENT_LIST_DIR}/support/wide_screen.json)
# Kept pictures, drawn again and compared: every window and state at 100 %, those of the manual at 200 % too.
set(TZ_PICTURES ${CMAKE_CURRENT_LIST_DIR}/pictures)
function(tz_pictures_test percent scale)
  add_test(NAME pictures-${percent} COMMAND docs_images ${ARGN} --against ${PROJECT_SOURCE_DIR}/docs/images
                                            --against ${TZ_PICTURES}
                                            ${CMAKE_CURRENT_BINARY_DIR}/pictures-${percent})
  set(screen offscreen:configfile=${PROJECT_SOURCE_DIR}/tools/images/screen.json)
  # 77: fonts or toolkit draw texts another way.
  set_tests_properties(pictures-${percent} PROPERTIES TIMEOUT 300 SKIP_RETURN_CODE 77
                                                      ENVIRONMENT "QT_QPA_PLATFORM=${screen};QT_SCALE_FACTOR=${scale}")
endfunction()
tz_pictures_test(100 1 --all)
tz_pictures_test(200 2)
# What is installed and packed, and a person who has only that. Nobody gets the sanitizers' programs.
if(NOT TZ_SANITIZE)
  add_test(NAME package COMMAND ${CMAKE_CURRENT_LIST_DIR}/package/check ${PROJECT_BINARY_DIR}
                                ${CMAKE_CURRENT_BINARY_DIR}/package)
  set_tests_properties(package PROPERTIES TIMEOUT 300)
endif()
