# Each suite is one entry of ctest's, with a label for what it tests and one for where it runs, and
# writes its report into reports/ of the build folder, where scripts/test counts.
if(NOT WIN32)
  set(conmuta_where native)
elseif(CMAKE_SIZEOF_VOID_P EQUAL 8)
  set(conmuta_where wine64)
else()
  set(conmuta_where wine32)
endif()

# A GoogleTest program. Under Wine it runs through CMAKE_CROSSCOMPILING_EMULATOR.
function(conmuta_program_suite label target)
  # A relative report: a Unix path is no absolute path to a Windows program.
  add_test(NAME ${target} COMMAND ${target} --gtest_brief=1 --gtest_output=xml:reports/${target}.xml
    WORKING_DIRECTORY ${CMAKE_BINARY_DIR})
  set_tests_properties(${target} PROPERTIES
    LABELS "${label};${conmuta_where}"
    TIMEOUT 300
    FAIL_REGULAR_EXPRESSION "Running 0 tests")
endfunction()

# Any program that takes where it runs (native, win64 or win32) and ends its output with the line
# "N passed, N failed".
function(conmuta_script_suite label script)
  string(REPLACE wine win size ${conmuta_where})
  get_filename_component(name ${script} NAME)
  string(REGEX REPLACE "^(run|check)-" "${label}_" name ${name})
  add_test(NAME ${name}
    COMMAND ${CMAKE_SOURCE_DIR}/scripts/lib/script-suite reports/${name}.txt ${script} ${size}
    WORKING_DIRECTORY ${CMAKE_BINARY_DIR})
  set_tests_properties(${name} PROPERTIES LABELS "${label};${conmuta_where}" TIMEOUT 300)
endfunction()
