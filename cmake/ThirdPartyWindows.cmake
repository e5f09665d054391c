# The libraries for the Windows build: pugixml and libzip from their sources (zlib comes ready-made
# with MinGW), the others as the headers that the native build uses.
include(ThirdPartySources)

# Libraries of headers alone come from the packages of the native build. The system's include
# folder cannot be given to a cross-compiler whole.
file(MAKE_DIRECTORY "${PROJECT_BINARY_DIR}/include")
foreach(folder CLI nlohmann utf8 utf8.h)
  find_path(PLYWELD_${folder} ${folder} PATHS /usr/include /usr/local/include NO_DEFAULT_PATH
    NO_CMAKE_FIND_ROOT_PATH REQUIRED)
  file(CREATE_LINK "${PLYWELD_${folder}}/${folder}" "${PROJECT_BINARY_DIR}/include/${folder}"
    SYMBOLIC)
endforeach()
add_library(plyweld_headers INTERFACE)
target_include_directories(plyweld_headers SYSTEM INTERFACE "${PROJECT_BINARY_DIR}/include")
add_library(CLI11::CLI11 ALIAS plyweld_headers)
add_library(nlohmann_json::nlohmann_json ALIAS plyweld_headers)

# GoogleTest, from the sources that its package brings.
function(plyweld_add_googletest)
  set(CMAKE_POLICY_DEFAULT_CMP0077 NEW)
  set(INSTALL_GTEST OFF)
  set(BUILD_GMOCK OFF)
  add_subdirectory(/usr/src/googletest "${PROJECT_BINARY_DIR}/googletest" EXCLUDE_FROM_ALL SYSTEM)
endfunction()
plyweld_add_googletest()
