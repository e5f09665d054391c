add_standin_test(test_foundation
  "${CMAKE_CURRENT_LIST_DIR}/foundation_strings_test.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/foundation_errors_test.cpp")
target_link_libraries(test_foundation PRIVATE finpi)
