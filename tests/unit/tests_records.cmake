add_standin_test(test_records
  "${CMAKE_CURRENT_LIST_DIR}/records_every_test.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/records_classes_test.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/records_access_test.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/records_serialized_test.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/records_preferences_test.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/records_measures_test.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/records_staves_test.cpp")
target_link_libraries(test_records PRIVATE finpi)
