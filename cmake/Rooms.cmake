# Batches are rooms: the sources of one folder go through one compiler run, so that what stands in
# an anonymous namespace must be the only one of its name in its folder and nowhere else.
function(tavrel_rooms target)
  set_target_properties(${target} PROPERTIES UNITY_BUILD_MODE GROUP)
  foreach(source IN LISTS ARGN)
    file(RELATIVE_PATH place ${CMAKE_SOURCE_DIR} ${source})
    get_filename_component(folder ${place} DIRECTORY)
    string(MAKE_C_IDENTIFIER "${folder}" room)
    set_source_files_properties(${source} PROPERTIES UNITY_GROUP "${room}")
  endforeach()
endfunction()
