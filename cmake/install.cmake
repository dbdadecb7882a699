# cmake --install: the programs, their libraries, completion, manual page, and the desktop's entry and picture. What is
# written from the program's own records is written by the program when it has been built.
include(GNUInstallDirs)

set(TZ_WRITTEN)
function(tz_written name)
  set(file ${CMAKE_CURRENT_BINARY_DIR}/${name})
  add_custom_command(OUTPUT ${file} COMMAND tzassistant ${ARGN} > ${file} DEPENDS tzassistant VERBATIM)
  set(TZ_WRITTEN ${TZ_WRITTEN} ${file} PARENT_SCOPE)
endfunction()
tz_written(tzassistant.1 --man)
tz_written(tzassistant.bash completion bash)
tz_written(_tzassistant completion zsh)
tz_written(tzassistant.fish completion fish)
add_custom_target(written ALL DEPENDS ${TZ_WRITTEN})

set(TZ_LIBRARIES ${CMAKE_INSTALL_LIBDIR}/tzassistant)
install(TARGETS tzassistant RUNTIME)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/tzassistant.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/tzassistant.bash RENAME tzassistant
        DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/_tzassistant DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/tzassistant.fish
        DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)

if(TZ_DESKTOP)
  file(RELATIVE_PATH TZ_FROM_PROGRAMS ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR}/tzassistant)
  set_target_properties(tzassistant-desktop tzassistant-pages PROPERTIES INSTALL_RPATH "$ORIGIN/${TZ_FROM_PROGRAMS}")
  set_target_properties(TzAssistant PROPERTIES INSTALL_RPATH "$ORIGIN")
  install(TARGETS tzcore TzAssistant LIBRARY DESTINATION ${TZ_LIBRARIES})
  install(TARGETS tzassistant-desktop tzassistant-pages RUNTIME)
  install(FILES ${PROJECT_SOURCE_DIR}/src/desktop/host/tzassistant.desktop
          DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
  install(FILES ${PROJECT_SOURCE_DIR}/src/desktop/res/icons/three-column.svg RENAME tzassistant.svg
          DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
endif()
