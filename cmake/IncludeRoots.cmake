# A target sees only the folders it may include: each layer gets an include root of links to them,
# so that the compiler itself refuses an upward include.
function(tavrel_include_root target scope)
  set(root ${CMAKE_BINARY_DIR}/include-roots/${target})
  file(MAKE_DIRECTORY ${root})
  foreach(folder IN LISTS ARGN)
    file(CREATE_LINK ${CMAKE_SOURCE_DIR}/src/${folder} ${root}/${folder} SYMBOLIC)
  endforeach()
  target_include_directories(${target} ${scope} ${root})
endfunction()
