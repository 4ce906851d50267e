# A folder of src/ knows only itself and what lies below it. Fails, naming the line, where an
# include points upwards or to a folder that is none of these.
#
#     cmake -DSOURCE=src -P cmake/floors.cmake
set(floors platform cable config translate catalogue ui component)

set(wrong "")
get_filename_component(SOURCE ${SOURCE} ABSOLUTE)
file(GLOB_RECURSE sources RELATIVE ${SOURCE} ${SOURCE}/*.h ${SOURCE}/*.cpp)
if(NOT sources)
  message(FATAL_ERROR "there is nothing in ${SOURCE}")
endif()
foreach(source ${sources})
  string(REGEX MATCH "^[^/]+" own ${source})
  list(FIND floors ${own} own_floor)
  file(STRINGS ${SOURCE}/${source} includes REGEX "^#include \"[a-z]")
  foreach(include ${includes})
    string(REGEX REPLACE "^#include \"([^/\"]+).*$" "\\1" included "${include}")
    list(FIND floors ${included} floor)
    if(own_floor EQUAL -1 OR floor EQUAL -1 OR floor GREATER own_floor)
      string(APPEND wrong "\n  src/${source}: ${include}")
    endif()
  endforeach()
endforeach()
if(wrong)
  message(FATAL_ERROR "from bottom to top: ${floors}. These point upwards:${wrong}")
endif()
