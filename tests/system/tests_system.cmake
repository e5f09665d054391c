# A host program of the expected name that tests the real plug-in file from inside.
file(GLOB system_test_sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_LIST_DIR}/*.cpp")
add_executable(system_tests ${system_test_sources})
set_target_properties(system_tests PROPERTIES OUTPUT_NAME FINALE SUFFIX .EXE
  RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/system")
target_link_libraries(system_tests PRIVATE
  plyweld_command standin_callbacks gtest_main version)
add_dependencies(system_tests plyweld_plugin)
add_custom_command(TARGET system_tests POST_BUILD
  COMMAND "${CMAKE_COMMAND}" -E copy_if_different
    "${PROJECT_BINARY_DIR}/plyweld.fxt" "${PROJECT_BINARY_DIR}/system/plyweld.fxt"
  VERBATIM)
