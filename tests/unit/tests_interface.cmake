add_standin_test(test_interface
  "${CMAKE_CURRENT_LIST_DIR}/interface_dialog_test.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/interface_modeless_test.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/interface_controls_test.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/interface_alert_test.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/interface_host_menu_test.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/support/dialog_desk.cpp")
target_link_libraries(test_interface PRIVATE finpi)
