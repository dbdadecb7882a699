# cmake --install: the programs and their libraries together in a folder of their own, the command in the PATH, and what
# desktops and shells look for in the places where they look. What is written from the program's own records is written
# by the program when it has been built.
include(GNUInstallDirs)

set(TZ_PACKAGING ${PROJECT_SOURCE_DIR}/packaging)
set(TZ_INSTALLED ${CMAKE_CURRENT_BINARY_DIR}/installed)
file(MAKE_DIRECTORY ${TZ_INSTALLED})
find_program(TZ_GZIP gzip REQUIRED)
set(TZ_WRITTEN)

# What the program prints with these words, as a file.
function(tz_written name)
  set(file ${TZ_INSTALLED}/${name})
  add_custom_command(OUTPUT ${file} COMMAND tzassistant ${ARGN} > ${file} DEPENDS tzassistant VERBATIM)
  set(TZ_WRITTEN ${TZ_WRITTEN} ${file} PARENT_SCOPE)
endfunction()
# A file packed as manuals are; without a time in it, so that the same sources give the same bytes.
function(tz_packed file packed)
  add_custom_command(OUTPUT ${packed} COMMAND ${TZ_GZIP} -9nc ${file} > ${packed} DEPENDS ${file} VERBATIM)
  set(TZ_WRITTEN ${TZ_WRITTEN} ${packed} PARENT_SCOPE)
endfunction()

# The newest entry of the changelog is this version; its date is that of the release.
set(TZ_CHANGELOG ${TZ_PACKAGING}/changelog)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${TZ_CHANGELOG})
file(STRINGS ${TZ_CHANGELOG} TZ_CHANGES REGEX "^(tzassistant | -- )")
list(GET TZ_CHANGES 0 TZ_NEWEST)
list(GET TZ_CHANGES 1 TZ_SIGNED)
if(NOT TZ_NEWEST MATCHES "^tzassistant \\(${PROJECT_VERSION}\\) ")
  message(FATAL_ERROR "packaging/changelog begins with \"${TZ_NEWEST}\", not with version ${PROJECT_VERSION}")
endif()
string(REGEX REPLACE "^ -- (.*>)  (.*)$" "\\1" TZ_MAINTAINER "${TZ_SIGNED}")
string(REGEX MATCH ", +([0-9]+) ([A-Z][a-z]+) ([0-9]+) " TZ_RELEASE_DATE "${TZ_SIGNED}")
set(TZ_DAY 0${CMAKE_MATCH_1})
set(TZ_YEAR ${CMAKE_MATCH_3})
string(FIND "JanFebMarAprMayJunJulAugSepOctNovDec" "${CMAKE_MATCH_2}" TZ_MONTH)
math(EXPR TZ_MONTH "${TZ_MONTH} / 3 + 101")
string(REGEX REPLACE "^1(..)0?(..)$" "${TZ_YEAR}-\\1-\\2" TZ_RELEASE_DATE "${TZ_MONTH}${TZ_DAY}")

# The command in the PATH is a link to the program among its libraries.
set(TZ_PRIVATE ${CMAKE_INSTALL_LIBEXECDIR}/tzassistant)
set(TZ_DOC ${CMAKE_INSTALL_DATADIR}/doc/tzassistant)
file(RELATIVE_PATH TZ_FROM_COMMAND ${CMAKE_INSTALL_FULL_BINDIR}
     ${CMAKE_INSTALL_FULL_LIBEXECDIR}/tzassistant/tzassistant)
file(CREATE_LINK ${TZ_FROM_COMMAND} ${TZ_INSTALLED}/tzassistant SYMBOLIC)

tz_written(zh_CN.1 --man)
tz_written(tzassistant.bash completion bash)
tz_written(_tzassistant completion zsh)
tz_written(tzassistant.fish completion fish)
configure_file(${TZ_PACKAGING}/tzassistant.1.in ${TZ_INSTALLED}/tzassistant.1 @ONLY)
tz_packed(${TZ_INSTALLED}/zh_CN.1 ${TZ_INSTALLED}/zh_CN/tzassistant.1.gz)
tz_packed(${TZ_INSTALLED}/tzassistant.1 ${TZ_INSTALLED}/tzassistant.1.gz)
tz_packed(${TZ_CHANGELOG} ${TZ_INSTALLED}/changelog.gz)
file(MAKE_DIRECTORY ${TZ_INSTALLED}/zh_CN)
add_custom_target(written ALL DEPENDS ${TZ_WRITTEN})

install(TARGETS tzassistant RUNTIME DESTINATION ${TZ_PRIVATE})
install(FILES ${TZ_INSTALLED}/tzassistant DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES ${TZ_INSTALLED}/tzassistant.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${TZ_INSTALLED}/zh_CN/tzassistant.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/zh_CN/man1)
install(FILES ${TZ_INSTALLED}/tzassistant.bash RENAME tzassistant
        DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
install(FILES ${TZ_INSTALLED}/_tzassistant DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions)
install(FILES ${TZ_INSTALLED}/tzassistant.fish DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)
install(FILES ${TZ_PACKAGING}/copyright ${TZ_INSTALLED}/changelog.gz DESTINATION ${TZ_DOC})
install(FILES ${TZ_PACKAGING}/lintian-overrides RENAME tzassistant
        DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs/manual DESTINATION ${TZ_DOC})

if(TZ_DESKTOP)
  set(TZ_ID cn.tzassistant.TzAssistant)
  configure_file(${TZ_PACKAGING}/tzassistant.metainfo.xml.in ${TZ_INSTALLED}/${TZ_ID}.metainfo.xml @ONLY)
  set_target_properties(tzassistant-desktop tzassistant-pages TzAssistant PROPERTIES INSTALL_RPATH "$ORIGIN")
  install(TARGETS tzcore TzAssistant tzassistant-desktop tzassistant-pages LIBRARY DESTINATION ${TZ_PRIVATE}
          RUNTIME DESTINATION ${TZ_PRIVATE})
  install(FILES ${TZ_PACKAGING}/tzassistant.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
  install(FILES ${TZ_INSTALLED}/${TZ_ID}.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
  install(FILES ${TZ_PACKAGING}/tzassistant-mime.xml RENAME tzassistant.xml
          DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages)
  install(FILES ${PROJECT_SOURCE_DIR}/src/desktop/res/tzassistant.svg
          DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
  include(${PROJECT_SOURCE_DIR}/cmake/package.cmake)
endif()
