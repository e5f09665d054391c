add_standin_test(test_details
  "${CMAKE_CURRENT_LIST_DIR}/details_every_test.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/details_records_test.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/details_shapes_test.cpp")
target_link_libraries(test_details PRIVATE finpi)
