# The command-line program from inside, with the real plug-in beside it.
add_executable(test_command
  "${CMAKE_CURRENT_LIST_DIR}/command_line_test.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/command_output_test.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/command_run_test.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/command_tuplets_test.cpp")
set_target_properties(test_command PROPERTIES ENABLE_EXPORTS ON)
target_compile_definitions(test_command PRIVATE
  PLYWELD_EXAMPLES="${PROJECT_SOURCE_DIR}/examples")
target_link_libraries(test_command PRIVATE plyweld_command standin_callbacks nlohmann_json::nlohmann_json GTest::gtest_main)
add_dependencies(test_command plyweld_plugin)
add_test(NAME test_command COMMAND test_command)

# Made-up MusicXML through the command, and a program that prints it for other readers.
add_library(made_up_xml STATIC
  "${CMAKE_CURRENT_LIST_DIR}/support/made_up_rhythm.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/support/made_up_xml.cpp")
target_link_libraries(made_up_xml PUBLIC plyweld_options)
add_executable(made_up_score "${CMAKE_CURRENT_LIST_DIR}/support/made_up_score.cpp")
target_link_libraries(made_up_score PRIVATE made_up_xml)
add_executable(test_made_up_files "${CMAKE_CURRENT_LIST_DIR}/made_up_xml_test.cpp")
set_target_properties(test_made_up_files PROPERTIES ENABLE_EXPORTS ON)
target_link_libraries(test_made_up_files PRIVATE
  made_up_xml plyweld_command standin_callbacks test_support GTest::gtest_main)
add_dependencies(test_made_up_files plyweld_plugin)
