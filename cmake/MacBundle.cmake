# What the application carries in Contents/Resources: a folder that the build makes anew in the
# bundle beside the program, with what the system compiles, where it has the means to.
set_target_properties(tavrel PROPERTIES OUTPUT_NAME Tavrel MACOSX_BUNDLE ON
  MACOSX_BUNDLE_INFO_PLIST ${CMAKE_SOURCE_DIR}/resources/macos/Info.plist.in)
set(BUNDLE_RESOURCES $<TARGET_BUNDLE_CONTENT_DIR:tavrel>/Resources)

add_custom_command(TARGET tavrel POST_BUILD VERBATIM
  COMMAND ${CMAKE_COMMAND} -E make_directory ${BUNDLE_RESOURCES}
  COMMAND ${CMAKE_COMMAND} -E copy_directory
    ${CMAKE_SOURCE_DIR}/resources/localizations ${BUNDLE_RESOURCES}
  COMMAND ${CMAKE_COMMAND} -E copy_directory ${CMAKE_SOURCE_DIR}/resources/sounds ${BUNDLE_RESOURCES}
  COMMAND ${CMAKE_COMMAND} -E copy_directory ${CMAKE_SOURCE_DIR}/resources/images ${BUNDLE_RESOURCES}
  COMMAND ${CMAKE_COMMAND} -E copy
    ${CMAKE_SOURCE_DIR}/resources/macos/Tavrel.sdef ${BUNDLE_RESOURCES}/Tavrel.sdef)

find_program(OSACOMPILE osacompile)
file(GLOB CAPTURE_SCRIPTS CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/resources/scripts/*.applescript)
foreach(source IN LISTS CAPTURE_SCRIPTS)
  get_filename_component(name ${source} NAME_WE)
  if(OSACOMPILE)
    add_custom_command(TARGET tavrel POST_BUILD VERBATIM
      COMMAND ${OSACOMPILE} -o ${BUNDLE_RESOURCES}/${name}.scpt ${source})
  endif()
endforeach()

# The application's icon, from the drawing.
find_program(RSVG_CONVERT rsvg-convert)
find_program(ICONUTIL iconutil)
if(RSVG_CONVERT AND ICONUTIL)
  set(ICONSET ${CMAKE_BINARY_DIR}/Tavrel.iconset)
  file(MAKE_DIRECTORY ${ICONSET})
  foreach(size 16 32 128 256 512)
    math(EXPR double "${size} * 2")
    foreach(variant "${size} icon_${size}x${size}" "${double} icon_${size}x${size}@2x")
      separate_arguments(variant)
      list(GET variant 0 pixels)
      list(GET variant 1 file)
      add_custom_command(TARGET tavrel POST_BUILD VERBATIM
        COMMAND ${RSVG_CONVERT} -w ${pixels} -h ${pixels} -o ${ICONSET}/${file}.png
          ${CMAKE_SOURCE_DIR}/resources/icons/qorvane.tavrel.Tavrel.svg)
    endforeach()
  endforeach()
  add_custom_command(TARGET tavrel POST_BUILD VERBATIM
    COMMAND ${ICONUTIL} -c icns -o ${BUNDLE_RESOURCES}/Tavrel.icns ${ICONSET})
endif()

install(TARGETS tavrel BUNDLE DESTINATION .)
