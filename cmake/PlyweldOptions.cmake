# What every target of the project is compiled with: plyweld_options.
add_library(plyweld_options INTERFACE)
target_include_directories(plyweld_options INTERFACE "${PROJECT_SOURCE_DIR}")
target_compile_options(plyweld_options INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
target_compile_definitions(plyweld_options INTERFACE
  PLYWELD_VERSION="${PLYWELD_VERSION}")

if(WIN32)
  target_compile_definitions(plyweld_options INTERFACE
    UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN _WIN32_WINNT=0x0A00)
  target_link_options(plyweld_options INTERFACE $<$<CONFIG:Release>:-s>
    # Addresses that cannot be guessed, and no code in data. GCC has no control flow guard.
    -Wl,--dynamicbase,--high-entropy-va,--nxcompat
    # The same sources give the same bytes at any time.
    -Wl,--no-insert-timestamp)
else()
  # A module that was closed must be gone, so that the next load starts from scratch.
  target_compile_options(plyweld_options INTERFACE
    $<$<CXX_COMPILER_ID:GNU>:-fno-gnu-unique>)
endif()

set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG")
if(PLYWELD_SANITIZE)
  # Little optimization and line numbers alone: compiling takes half the time.
  set(CMAKE_CXX_FLAGS_RELWITHDEBINFO "-O1 -g1 -DNDEBUG")
  target_compile_options(plyweld_options INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(plyweld_options INTERFACE -fsanitize=address,undefined)
endif()
if(PLYWELD_FUZZ)
  # Only what the compilers agree on counts as a mistake.
  target_compile_options(plyweld_options INTERFACE -Wno-error
    -fsanitize=address,undefined,fuzzer-no-link -fno-sanitize-recover=undefined
    # A library finds the classes of another by their names alone.
    -fno-sanitize=vptr,function)
  target_link_options(plyweld_options INTERFACE -fsanitize=address,undefined)
endif()
if(PLYWELD_COVERAGE)
  target_compile_options(plyweld_options INTERFACE --coverage -O0)
  target_link_options(plyweld_options INTERFACE --coverage)
endif()
