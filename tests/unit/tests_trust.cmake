# Whether any run loses music: merges of made-up music, checked for what every merge must keep,
# and runs of which one call after the other is refused.
add_plugin_test(test_trust trust_invariant_test.cpp trust_merges_test.cpp
  trust_properties_test.cpp trust_endurance_test.cpp
  support/dialog_desk.cpp support/score_generator.cpp support/written_score.cpp)
add_plugin_test(test_sweeps sweep_test.cpp sweep_manners_test.cpp sweep_pretended_test.cpp
  support/dialog_desk.cpp support/scenarios.cpp support/score_generator.cpp
  support/sweep_round.cpp support/written_score.cpp)
foreach(program test_trust test_sweeps)
  target_compile_options(${program} PRIVATE -O1)
endforeach()
