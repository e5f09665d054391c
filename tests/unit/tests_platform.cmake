add_executable(test_platform "${CMAKE_CURRENT_LIST_DIR}/platform_test.cpp")
target_link_libraries(test_platform PRIVATE plyweld_platform GTest::gtest_main)
add_test(NAME test_platform COMMAND test_platform)
