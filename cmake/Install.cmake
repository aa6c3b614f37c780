# What `cmake --install` lays down. The program looks for share/tavrel beside its own bin folder
# (src/platform/linux/ResourceFolder.h), so these names are fixed and any prefix works.
install(TARGETS tavrel tavrel-osacompile RUNTIME DESTINATION bin)
install(DIRECTORY resources/ DESTINATION share/tavrel USE_SOURCE_PERMISSIONS PATTERN scripts EXCLUDE)
install(FILES ${COMPILED_SCRIPTS} DESTINATION share/tavrel/scripts)
install(FILES docs/tavrel.1 docs/tavrel-osacompile.1 DESTINATION share/man/man1)
install(FILES resources/icons/qorvane.tavrel.Tavrel.svg
  DESTINATION share/icons/hicolor/scalable/apps)
