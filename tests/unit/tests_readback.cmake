# The second reading of MusicXML, and what it finds in merged scores.
add_executable(test_readback
  "${CMAKE_CURRENT_LIST_DIR}/readback_differences_test.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/readback_merge_test.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/readback_reading_test.cpp")
target_link_libraries(test_readback PRIVATE standin_readback GTest::gtest_main plyweld_options)
add_test(NAME test_readback COMMAND test_readback)
