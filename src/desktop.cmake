# The desktop: the windows as one shared library, and the program that opens them.
find_package(Qt6 6.4 REQUIRED COMPONENTS Widgets Svg PrintSupport)
find_package(ICU REQUIRED COMPONENTS i18n uc)
set(TZ_DESKTOP_SOURCES)
foreach(folder suite ui shell res)
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_LIST_DIR}/${folder}/*.cpp
       ${CMAKE_CURRENT_LIST_DIR}/${folder}/*.h ${CMAKE_CURRENT_LIST_DIR}/${folder}/*.qrc)
  list(APPEND TZ_DESKTOP_SOURCES ${sources})
endforeach()
add_library(TzAssistant SHARED ${TZ_DESKTOP_SOURCES})
# As with tzcore: the program and the tests beside it use more of the library than its exported window.
set_target_properties(TzAssistant PROPERTIES AUTOMOC ON AUTORCC ON CXX_VISIBILITY_PRESET default
                                             VISIBILITY_INLINES_HIDDEN OFF)
target_link_libraries(TzAssistant PUBLIC tzcore Qt6::Widgets Qt6::Svg Qt6::PrintSupport
                                  PRIVATE tz_options fmt::fmt-header-only ICU::i18n ICU::uc)
target_precompile_headers(TzAssistant PRIVATE <QtWidgets> <functional> <memory> <optional> <string> <vector>)

file(GLOB TZ_HOST_SOURCES CONFIGURE_DEPENDS ${CMAKE_CURRENT_LIST_DIR}/host/*.cpp ${CMAKE_CURRENT_LIST_DIR}/host/*.h)
add_executable(tzassistant-desktop ${TZ_HOST_SOURCES})
set_target_properties(tzassistant-desktop PROPERTIES AUTOMOC ON)
target_link_libraries(tzassistant-desktop PRIVATE TzAssistant tz_options)
