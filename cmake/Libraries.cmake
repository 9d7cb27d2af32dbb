# One way to make each kind of target; a folder's sources are all that lie in it.
include_guard()
find_package(Threads REQUIRED)
if(KOVRA_TESTS)
  find_package(GTest REQUIRED)
endif()

# kovra_folder(NAME folder-libraries...): an object library of the sources in this folder and its rooms.
function(kovra_folder name)
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/*.cpp")
  if(NOT sources)
    return()
  endif()
  add_library(${name} OBJECT ${sources})
  target_link_libraries(${name} PUBLIC kovra_options ${ARGN})
endfunction()

# kovra_tests(NAME libraries...): one test program of the sources in this folder, one CTest entry a case.
function(kovra_tests name)
  file(GLOB sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/*.cpp")
  if(NOT sources)
    return()
  endif()
  add_executable(${name} ${sources})
  target_link_libraries(${name} PRIVATE kovra_options ${ARGN} GTest::gtest GTest::gtest_main)
  # Assertions on pointers end a test, which the compiler can't see.
  set_source_files_properties(${sources} PROPERTIES COMPILE_OPTIONS -Wno-null-dereference)
  add_test(NAME ${name} COMMAND ${name} --gtest_brief=1)
  # Programs that they start look fonts up, too.
  set_tests_properties(${name} PROPERTIES TIMEOUT 3600 ENVIRONMENT "${KOVRA_LEAK_OPTIONS}")
endfunction()
