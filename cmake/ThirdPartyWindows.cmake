# The libraries for the Windows build, from sources: pugixml and libzip as Debian's source
# packages (zlib comes ready-made with MinGW), the others as the headers that the native build uses.
set(PLYWELD_THIRD_PARTY "${PROJECT_SOURCE_DIR}/build/third_party" CACHE PATH
  "Where the sources of pugixml and libzip are unpacked")
foreach(needed pugixml/src/pugixml.cpp libzip/lib/zip.h)
  if(NOT EXISTS "${PLYWELD_THIRD_PARTY}/${needed}")
    message(FATAL_ERROR "${PLYWELD_THIRD_PARTY}/${needed} is missing: ./run unpacks it")
  endif()
endforeach()

add_library(pugixml STATIC "${PLYWELD_THIRD_PARTY}/pugixml/src/pugixml.cpp")
target_include_directories(pugixml SYSTEM PUBLIC "${PLYWELD_THIRD_PARTY}/pugixml/src")
add_library(pugixml::pugixml ALIAS pugixml)

# Plain zip files need no encryption and no other compression than zlib's.
function(plyweld_add_libzip)
  set(CMAKE_POLICY_DEFAULT_CMP0063 NEW)
  set(CMAKE_POLICY_DEFAULT_CMP0077 NEW)
  set(CMAKE_WARN_DEPRECATED OFF)
  set(ZLIB_USE_STATIC_LIBS ON)
  foreach(option COMMONCRYPTO GNUTLS MBEDTLS OPENSSL WINDOWS_CRYPTO BZIP2 LZMA ZSTD)
    set(ENABLE_${option} OFF)
  endforeach()
  foreach(option TOOLS REGRESS EXAMPLES DOC SHARED_LIBS)
    set(BUILD_${option} OFF)
  endforeach()
  add_subdirectory("${PLYWELD_THIRD_PARTY}/libzip" "${PROJECT_BINARY_DIR}/libzip" EXCLUDE_FROM_ALL SYSTEM)
endfunction()
plyweld_add_libzip()
add_library(plyweld_zip INTERFACE)
target_link_libraries(plyweld_zip INTERFACE zip)

# Libraries of headers alone come from the packages of the native build. The system's include
# folder cannot be given to a cross-compiler whole.
file(MAKE_DIRECTORY "${PROJECT_BINARY_DIR}/include")
foreach(folder CLI nlohmann)
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
