# Conventions of the tree: every folder's sources form one library, and its *_test.cpp
# files, which stand beside the code they test, form one test program of that folder.

# velorand_sources(<out-var> <dir>...): the non-test sources of the given folders.
function(velorand_sources out)
  set(files)
  foreach(dir IN LISTS ARGN)
    file(GLOB found CONFIGURE_DEPENDS ${dir}/*.cpp)
    list(FILTER found EXCLUDE REGEX "_test\\.cpp$")
    list(APPEND files ${found})
  endforeach()
  set(${out} ${files} PARENT_SCOPE)
endfunction()

# velorand_tests(<name> DIRS <dir>... LIBS <lib>...): one GoogleTest program of the
# *_test.cpp files in the folders, registered test by test with CTest.
function(velorand_tests name)
  cmake_parse_arguments(ARG "" "" "DIRS;LIBS" ${ARGN})
  set(files)
  foreach(dir IN LISTS ARG_DIRS)
    file(GLOB found CONFIGURE_DEPENDS ${dir}/*_test.cpp)
    list(APPEND files ${found})
  endforeach()
  if(NOT files)
    return()
  endif()
  add_executable(${name} ${files})
  target_link_libraries(${name} PRIVATE ${ARG_LIBS} velorand_testing GTest::gmock GTest::gtest_main)
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60)
endfunction()
