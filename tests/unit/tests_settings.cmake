add_standin_test(test_settings
  "${CMAKE_CURRENT_LIST_DIR}/settings_store_test.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/settings_saved_test.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/support/dialog_desk.cpp")
target_link_libraries(test_settings PRIVATE finpi)
