# What `cmake --install` lays down. The program looks for share/tavrel beside its own bin folder
# (src/platform/linux/installation/ResourceFolder.h), so these names are fixed and any prefix works.
install(TARGETS tavrel tavrel-osacompile RUNTIME DESTINATION bin)
if(TARGET tavrel-uninstall-helper)
  install(TARGETS tavrel-uninstall-helper RUNTIME DESTINATION libexec/tavrel)
endif()
install(DIRECTORY resources/ DESTINATION share/tavrel USE_SOURCE_PERMISSIONS
  PATTERN scripts EXCLUDE PATTERN localizations EXCLUDE PATTERN macos EXCLUDE)
install(DIRECTORY ${TAVREL_BUILT_TEXTS} DESTINATION share/tavrel)
install(FILES ${COMPILED_SCRIPTS} DESTINATION share/tavrel/scripts)
install(FILES docs/tavrel.1 docs/tavrel-osacompile.1 DESTINATION share/man/man1)
install(FILES resources/icons/qorvane.tavrel.Tavrel.svg
  DESTINATION share/icons/hicolor/scalable/apps)

# How the desktop comes to know the program. These name the place of installation, which is known
# only then: --prefix may say another one than the configuration did.
set(TAVREL_PACKAGING ${CMAKE_SOURCE_DIR}/packaging)
set(TAVREL_FILLED_IN ${CMAKE_BINARY_DIR}/packaging)
configure_file(cmake/InstallFilledIn.cmake.in ${TAVREL_FILLED_IN}/InstallFilledIn.cmake @ONLY)
install(SCRIPT ${TAVREL_FILLED_IN}/InstallFilledIn.cmake)
