# Tests that drive the plug-in itself through its exports.
function(add_plugin_test name)
  list(TRANSFORM ARGN PREPEND "${CMAKE_CURRENT_LIST_DIR}/")
  add_standin_test(${name} "${CMAKE_CURRENT_LIST_DIR}/plugin_driver.cpp" ${ARGN})
  target_link_libraries(${name} PRIVATE plyweld_platform)
  target_compile_definitions(${name} PRIVATE PLYWELD_PLUGIN="$<TARGET_FILE:plyweld_plugin>")
  add_dependencies(${name} plyweld_plugin)
endfunction()

add_plugin_test(test_merge merge_rules_test.cpp merge_failures_test.cpp)
add_plugin_test(test_plugin plugin_entry_test.cpp plugin_run_test.cpp
  plugin_walk_test.cpp plugin_modeless_test.cpp support/dialog_desk.cpp)
