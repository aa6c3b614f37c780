# The texts of the build tree: those of the sources, with the address of the list of versions.
set(TAVREL_UPDATE_URL "" CACHE STRING
  "https address of the list of versions; without one nothing is looked up")
set(TAVREL_HISTORY_URL "" CACHE STRING "https address of the page that tells what is new")
set(TAVREL_BUILT_TEXTS ${CMAKE_BINARY_DIR}/resources/localizations)
if(IS_SYMLINK ${TAVREL_BUILT_TEXTS})
  file(REMOVE ${TAVREL_BUILT_TEXTS})
endif()
file(GLOB TEXTS CONFIGURE_DEPENDS RELATIVE ${CMAKE_SOURCE_DIR}/resources/localizations
  ${CMAKE_SOURCE_DIR}/resources/localizations/*.lproj/*)
foreach(text IN LISTS TEXTS)
  configure_file(${CMAKE_SOURCE_DIR}/resources/localizations/${text} ${TAVREL_BUILT_TEXTS}/${text}
    @ONLY)
endforeach()
