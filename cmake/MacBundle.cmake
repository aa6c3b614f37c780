# What the application carries in Contents/Resources, laid down anew with each build beside the
# program: with what the system compiles, where it has the means to.
set(TAVREL_SIGNATURE "" CACHE STRING
  "The certificate to sign with; - for a signature that counts on this Mac alone; empty: none")
set_target_properties(tavrel PROPERTIES OUTPUT_NAME Tavrel MACOSX_BUNDLE ON
  MACOSX_BUNDLE_INFO_PLIST ${CMAKE_SOURCE_DIR}/resources/macos/Info.plist.in)
set(BUNDLE_RESOURCES $<TARGET_BUNDLE_CONTENT_DIR:tavrel>/Resources)
set(BUNDLE_FILES ${CMAKE_SOURCE_DIR}/resources/macos/Tavrel.sdef)

find_program(OSACOMPILE osacompile)
file(GLOB CAPTURE_SCRIPTS CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/resources/scripts/*.applescript)
foreach(source IN LISTS CAPTURE_SCRIPTS)
  get_filename_component(name ${source} NAME_WE)
  set(compiled ${CMAKE_BINARY_DIR}/scripts/${name}.scpt)
  if(OSACOMPILE)
    add_custom_command(OUTPUT ${compiled} DEPENDS ${source} VERBATIM
      COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/scripts
      COMMAND ${OSACOMPILE} -o ${compiled} ${source})
    list(APPEND BUNDLE_FILES ${compiled})
  endif()
endforeach()

# The application's icon, from the drawing.
find_program(RSVG_CONVERT rsvg-convert)
find_program(ICONUTIL iconutil)
if(RSVG_CONVERT AND ICONUTIL)
  set(ICON_DRAWING ${CMAKE_SOURCE_DIR}/resources/icons/qorvane.tavrel.Tavrel.svg)
  set(ICONSET ${CMAKE_BINARY_DIR}/Tavrel.iconset)
  set(DRAW_ICONS)
  foreach(size 16 32 128 256 512)
    math(EXPR double "${size} * 2")
    list(APPEND DRAW_ICONS
      COMMAND ${RSVG_CONVERT} -w ${size} -h ${size} -o ${ICONSET}/icon_${size}x${size}.png
        ${ICON_DRAWING}
      COMMAND ${RSVG_CONVERT} -w ${double} -h ${double} -o ${ICONSET}/icon_${size}x${size}@2x.png
        ${ICON_DRAWING})
  endforeach()
  add_custom_command(OUTPUT ${CMAKE_BINARY_DIR}/Tavrel.icns DEPENDS ${ICON_DRAWING} VERBATIM
    COMMAND ${CMAKE_COMMAND} -E make_directory ${ICONSET}
    ${DRAW_ICONS}
    COMMAND ${ICONUTIL} -c icns -o ${CMAKE_BINARY_DIR}/Tavrel.icns ${ICONSET})
  list(APPEND BUNDLE_FILES ${CMAKE_BINARY_DIR}/Tavrel.icns)
endif()

set(COPY_FOLDERS)
foreach(folder ${TAVREL_BUILT_TEXTS} ${CMAKE_SOURCE_DIR}/resources/sounds
    ${CMAKE_SOURCE_DIR}/resources/images)
  list(APPEND COPY_FOLDERS
    COMMAND ${CMAKE_COMMAND} -E copy_directory ${folder} ${BUNDLE_RESOURCES})
endforeach()
add_custom_target(bundle_resources DEPENDS ${BUNDLE_FILES} VERBATIM
  COMMAND ${CMAKE_COMMAND} -E make_directory ${BUNDLE_RESOURCES}
  ${COPY_FOLDERS}
  COMMAND ${CMAKE_COMMAND} -E copy ${BUNDLE_FILES} ${BUNDLE_RESOURCES})
add_dependencies(tavrel bundle_resources)

# Last of all: a signature covers the resources.
if(TAVREL_SIGNATURE)
  add_custom_command(TARGET tavrel POST_BUILD VERBATIM
    COMMAND codesign --force --options runtime --sign ${TAVREL_SIGNATURE}
      --entitlements ${CMAKE_SOURCE_DIR}/resources/macos/Tavrel.entitlements
      $<TARGET_BUNDLE_DIR:tavrel>)
endif()

install(TARGETS tavrel BUNDLE DESTINATION .)
