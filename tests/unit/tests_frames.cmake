add_standin_test(test_frames
  "${CMAKE_CURRENT_LIST_DIR}/frames_loan_test.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/frames_walk_test.cpp")
target_link_libraries(test_frames PRIVATE finpi)
