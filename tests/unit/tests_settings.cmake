add_executable(test_settings "${CMAKE_CURRENT_LIST_DIR}/settings_store_test.cpp")
target_link_libraries(test_settings PRIVATE finpi GTest::gtest_main)
gtest_discover_tests(test_settings)
