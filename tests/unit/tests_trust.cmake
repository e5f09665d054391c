# Merges of made-up music, checked for what every merge must keep.
add_plugin_test(test_trust trust_invariant_test.cpp trust_merges_test.cpp
  support/frame_faults.cpp support/invariant.cpp support/score_facts.cpp support/score_generator.cpp
  support/written_score.cpp)
target_compile_options(test_trust PRIVATE -O1)  # thousands of merges
