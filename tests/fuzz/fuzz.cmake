# Fuzz targets for libFuzzer: PLYWELD_FUZZ, with clang.
function(add_fuzz_target name)
  add_executable(${name} "${CMAKE_CURRENT_SOURCE_DIR}/fuzz/${name}.cpp" ${ARGN})
  target_link_libraries(${name} PRIVATE plyweld_options)
  target_link_options(${name} PRIVATE -fsanitize=fuzzer)
endfunction()
add_fuzz_target(fuzz_musicxml)
target_link_libraries(fuzz_musicxml PRIVATE standin_musicxml standin_readback)
foreach(name fuzz_frames fuzz_settings)
  add_fuzz_target(${name} "${CMAKE_CURRENT_SOURCE_DIR}/unit/plugin_driver.cpp"
    "${CMAKE_CURRENT_SOURCE_DIR}/unit/support/dialog_desk.cpp")
  target_link_libraries(${name} PRIVATE
    test_support standin_callbacks standin_score plyweld_platform GTest::gtest)
  set_target_properties(${name} PROPERTIES ENABLE_EXPORTS ON)
  target_compile_definitions(${name} PRIVATE PLYWELD_PLUGIN="$<TARGET_FILE:plyweld_plugin>")
  add_dependencies(${name} plyweld_plugin)
endforeach()
