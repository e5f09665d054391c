# What tests of several areas share.
add_library(test_support STATIC
  "${CMAKE_CURRENT_LIST_DIR}/notation.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/stand_in.cpp")
target_link_libraries(test_support PUBLIC standin_verify standin_score GTest::gtest)

# A test program that is its own host: it exports the callbacks, so that a plug-in in the same
# process finds them.
function(add_standin_test name)
  add_executable(${name} ${ARGN})
  target_link_libraries(${name} PRIVATE
    test_support standin_callbacks standin_score GTest::gtest_main plyweld_options)
  set_target_properties(${name} PROPERTIES ENABLE_EXPORTS ON)
  add_test(NAME ${name} COMMAND ${name})
endfunction()
