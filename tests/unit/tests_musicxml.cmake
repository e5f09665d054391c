# MusicXML in and out.
set(PLYWELD_CORPUS "${PROJECT_SOURCE_DIR}/../shared/corpus" CACHE PATH
  "Scores that are read and written back by a test, where present")
set(PLYWELD_SUITE "${PROJECT_SOURCE_DIR}/../shared/musicxml-suite" CACHE PATH
  "Files of one feature each that are read and written back by a test, where present")
add_executable(test_musicxml
  "${CMAKE_CURRENT_LIST_DIR}/musicxml_files_test.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/musicxml_layers_test.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/musicxml_refused_test.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/musicxml_slips_test.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/musicxml_times_test.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/musicxml_tuplets_test.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/musicxml_write_test.cpp")
target_compile_definitions(test_musicxml PRIVATE
  PLYWELD_CORPUS="${PLYWELD_CORPUS}" PLYWELD_SUITE="${PLYWELD_SUITE}")
target_link_libraries(test_musicxml PRIVATE
  test_support standin_musicxml standin_readback GTest::gtest_main plyweld_options)
add_test(NAME test_musicxml COMMAND test_musicxml)
