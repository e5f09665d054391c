# Whether any run loses music: merges of made-up music, checked for what every merge must keep,
# and runs of which one call after the other is refused.
add_library(trust_support STATIC
  "${CMAKE_CURRENT_LIST_DIR}/support/frame_faults.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/support/invariant.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/support/score_facts.cpp"
  "${CMAKE_CURRENT_LIST_DIR}/support/score_generator.cpp")
target_link_libraries(trust_support PRIVATE test_support plyweld_options)
target_compile_options(trust_support PRIVATE -O1)  # thousands of merges

add_plugin_test(test_trust trust_invariant_test.cpp trust_merges_test.cpp
  trust_properties_test.cpp trust_endurance_test.cpp support/dialog_desk.cpp support/written_score.cpp)
add_plugin_test(test_sweeps sweep_calls_test.cpp sweep_exports_test.cpp
  support/dialog_desk.cpp support/scenarios.cpp support/sweep_round.cpp support/written_score.cpp)
foreach(program test_trust test_sweeps)
  target_link_libraries(${program} PRIVATE trust_support)
  target_compile_options(${program} PRIVATE -O1)
endforeach()
