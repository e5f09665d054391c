# The stand-in host's scores and callbacks.
add_standin_test(test_host
  "${CMAKE_CURRENT_LIST_DIR}/host_documents_test.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/host_faults_test.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/host_frames_test.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/host_menu_test.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/host_records_test.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/host_times_test.cpp")
target_link_libraries(test_host PRIVATE plyweld_platform)
