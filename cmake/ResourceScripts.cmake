# The resource folder of the build tree: that of the sources, by links, with the scripts compiled and
# the addresses in the texts.
set(TAVREL_BUILT_RESOURCES ${CMAKE_BINARY_DIR}/resources)
file(MAKE_DIRECTORY ${TAVREL_BUILT_RESOURCES}/scripts)
file(GLOB ENTRIES CONFIGURE_DEPENDS RELATIVE ${CMAKE_SOURCE_DIR}/resources
  ${CMAKE_SOURCE_DIR}/resources/*)
list(REMOVE_ITEM ENTRIES scripts localizations)
foreach(entry IN LISTS ENTRIES)
  file(CREATE_LINK ${CMAKE_SOURCE_DIR}/resources/${entry} ${TAVREL_BUILT_RESOURCES}/${entry}
    SYMBOLIC)
endforeach()

file(GLOB SCRIPT_SOURCES CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/resources/scripts/*.applescript)
set(COMPILED_SCRIPTS)
foreach(source IN LISTS SCRIPT_SOURCES)
  get_filename_component(name ${source} NAME_WE)
  set(compiled ${TAVREL_BUILT_RESOURCES}/scripts/${name}.scpt)
  add_custom_command(OUTPUT ${compiled} DEPENDS ${source} tavrel-osacompile
    COMMAND tavrel-osacompile ${source} -o ${compiled} VERBATIM)
  list(APPEND COMPILED_SCRIPTS ${compiled})
endforeach()
add_custom_target(resource_scripts ALL DEPENDS ${COMPILED_SCRIPTS})
add_dependencies(tavrel resource_scripts)
