# The version has one place, the project's line in CMakeLists.txt; every text and resource takes it
# from here.
set(PLYWELD_VERSION "${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}")

# Gives a program what Windows shows of its version.
function(plyweld_add_version_info target file description)
  set(resource "${CMAKE_CURRENT_BINARY_DIR}/${target}_version.rc")
  configure_file("${PROJECT_SOURCE_DIR}/cmake/version_info.rc.in" "${resource}" @ONLY)
  target_sources(${target} PRIVATE "${resource}")
endfunction()
