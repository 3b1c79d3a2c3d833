# One warning list for every target of the project.
add_library(bacfmt_warnings INTERFACE)
target_compile_options(bacfmt_warnings INTERFACE -Wall -Wextra -Wshadow -Wformat=2
                       $<$<COMPILE_LANGUAGE:CXX>:-Wnon-virtual-dtor -Wold-style-cast>)
if(BACFMT_WERROR)
  target_compile_options(bacfmt_warnings INTERFACE -Werror)
endif()
