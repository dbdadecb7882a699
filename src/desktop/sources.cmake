# The desktop: the windows as one shared library, and the program that opens them.
find_package(Qt6 6.4 REQUIRED COMPONENTS Widgets Svg PrintSupport)
find_package(ICU REQUIRED COMPONENTS i18n uc)
set(TZ_DESKTOP_SOURCES)
foreach(room res theme frame manual gridview page picking query report archives receivables shell)
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_LIST_DIR}/${room}/*.cpp
       ${CMAKE_CURRENT_LIST_DIR}/${room}/*.h ${CMAKE_CURRENT_LIST_DIR}/${room}/*.qrc)
  list(APPEND TZ_DESKTOP_SOURCES ${sources})
endforeach()
add_library(TzAssistant SHARED ${TZ_DESKTOP_SOURCES})
# As with tzcore: the program and the tests beside it use more of the library than its exported window.
set_target_properties(TzAssistant PROPERTIES AUTOMOC ON AUTORCC ON CXX_VISIBILITY_PRESET default
                                             VISIBILITY_INLINES_HIDDEN OFF)
target_link_libraries(TzAssistant PUBLIC tzcore Qt6::Widgets Qt6::Svg Qt6::PrintSupport
                                  PRIVATE tz_options fmt::fmt-header-only ICU::i18n ICU::uc)
# The user manual, which the windows carry in themselves.
file(GLOB_RECURSE TZ_MANUAL_PAGES CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/docs/manual/*.md)
qt_add_resources(TzAssistant manual PREFIX /manual BASE ${PROJECT_SOURCE_DIR}/docs/manual FILES ${TZ_MANUAL_PAGES})
target_precompile_headers(TzAssistant PRIVATE <QtWidgets> <functional> <memory> <optional> <string> <vector>)

# The windows of the host, which the tests and the pictures take in as well; the program is these and its main.
file(GLOB TZ_HOST_WINDOWS CONFIGURE_DEPENDS ${CMAKE_CURRENT_LIST_DIR}/host/*.cpp ${CMAKE_CURRENT_LIST_DIR}/host/*.h)
list(FILTER TZ_HOST_WINDOWS EXCLUDE REGEX "host/main.cpp$")
add_library(tzhost STATIC ${TZ_HOST_WINDOWS})
set_target_properties(tzhost PROPERTIES AUTOMOC ON)
target_link_libraries(tzhost PUBLIC TzAssistant PRIVATE tz_options)
target_precompile_headers(tzhost PRIVATE <QtWidgets> <functional> <memory> <optional> <string> <vector>)
add_executable(tzassistant-desktop ${CMAKE_CURRENT_LIST_DIR}/host/main.cpp)
target_link_libraries(tzassistant-desktop PRIVATE tzhost tz_options)

# The command line with the toolkit in it; tzassistant becomes it where pages are asked for.
add_executable(tzassistant-pages ${PROJECT_SOURCE_DIR}/src/pages/main.cpp)
target_link_libraries(tzassistant-pages PRIVATE tzcli TzAssistant tz_options)
