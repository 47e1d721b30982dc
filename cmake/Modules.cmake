# One line for a library, one line for a test.

# vantordesk_module(<name> FOLDER <folder> [EXCEPT ...] | SOURCES ... [LINKS ...]): a static library
# of all that lies in a folder, or of some sources. Our headers are included by their path below
# src/.
function(vantordesk_module name)
  cmake_parse_arguments(arg "" "FOLDER" "SOURCES;EXCEPT;LINKS" ${ARGN})
  if(arg_FOLDER)
    file(GLOB_RECURSE arg_SOURCES CONFIGURE_DEPENDS RELATIVE "${CMAKE_CURRENT_SOURCE_DIR}"
      "${arg_FOLDER}/*.cpp")
    list(REMOVE_ITEM arg_SOURCES ${arg_EXCEPT})
  endif()
  add_library(${name} STATIC ${arg_SOURCES})
  target_include_directories(${name} PUBLIC "${PROJECT_SOURCE_DIR}/src")
  target_link_libraries(${name} PUBLIC ${arg_LINKS} PRIVATE vantordesk_options)
endfunction()

# vantordesk_test(<name> SOURCES ... [LINKS ...] [LABELS ...] [TIMEOUT seconds]):
# a QtTest program, run offscreen with folders of its own.
function(vantordesk_test name)
  cmake_parse_arguments(arg "" "TIMEOUT" "SOURCES;LINKS;LABELS" ${ARGN})
  if(NOT arg_TIMEOUT)
    set(arg_TIMEOUT 120)
  endif()
  add_executable(${name} ${arg_SOURCES})
  set_target_properties(${name} PROPERTIES
    RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/tests")
  target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}/tests")
  target_link_libraries(${name} PRIVATE ${arg_LINKS} Qt5::Test vantordesk_options)
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES
    TIMEOUT ${arg_TIMEOUT}
    LABELS "${arg_LABELS}"
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8;XDG_DATA_HOME=${PROJECT_BINARY_DIR}/tests/data/${name};ASAN_OPTIONS=detect_leaks=0;UBSAN_OPTIONS=print_stacktrace=1")
endfunction()
