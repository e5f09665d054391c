# The stand-in host's scores and callbacks.
add_standin_test(test_host
  "${CMAKE_CURRENT_LIST_DIR}/host_beams_test.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/host_changes_test.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/host_faults_test.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/host_frames_test.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/host_menu_test.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/host_records_test.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/host_texts_test.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/host_times_test.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/host_undo_test.cpp")
