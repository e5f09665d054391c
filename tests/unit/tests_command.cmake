# The command-line program from inside, with the real plug-in beside it.
add_executable(test_command
  "${CMAKE_CURRENT_LIST_DIR}/command_line_test.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/command_output_test.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/command_run_test.cpp")
set_target_properties(test_command PROPERTIES ENABLE_EXPORTS ON)
target_compile_definitions(test_command PRIVATE
  PLYWELD_EXAMPLES="${PROJECT_SOURCE_DIR}/examples")
target_link_libraries(test_command PRIVATE plyweld_command standin_callbacks nlohmann_json::nlohmann_json GTest::gtest_main)
add_dependencies(test_command plyweld_plugin)
add_test(NAME test_command COMMAND test_command)
