# cmake -DSWITCHES=DIR -DOUT=FILE.cpp -P embed_layouts.cmake
#
# Writes the layouts of all switches as the source of BuiltinLayouts().
file(GLOB layouts ${SWITCHES}/*/layout.toml)
list(SORT layouts)
set(rows "")
foreach(layout IN LISTS layouts)
  cmake_path(GET layout PARENT_PATH folder)
  cmake_path(GET folder FILENAME name)
  file(READ ${layout} toml)
  string(APPEND rows "    {\"${name}\", R\"__layout__(${toml})__layout__\"},\n")
endforeach()
file(WRITE ${OUT} "// Made by embed_layouts.cmake.
#include \"conmuta/builtin_layouts.h\"

namespace conmuta::host {
namespace {

constexpr BuiltinLayout kLayouts[] = {
${rows}};

}  // namespace

std::span<const BuiltinLayout> BuiltinLayouts() {
  return kLayouts;
}

}  // namespace conmuta::host
")
