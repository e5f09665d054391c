add_standin_test(test_region "${CMAKE_CURRENT_LIST_DIR}/region_test.cpp")
target_link_libraries(test_region PRIVATE finpi)
