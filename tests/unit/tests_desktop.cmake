add_standin_test(test_desktop
  "${CMAKE_CURRENT_LIST_DIR}/desktop_selection_test.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/desktop_script_test.cpp")
target_link_libraries(test_desktop PRIVATE standin_grid)
