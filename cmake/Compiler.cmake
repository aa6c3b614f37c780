# What every target of our own is compiled with.
add_library(tavrel_warnings INTERFACE)
target_compile_options(tavrel_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror)

if(TAVREL_SANITIZE)
  add_compile_options(-fsanitize=${TAVREL_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${TAVREL_SANITIZE})
endif()

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE_PROGRAM})
endif()
