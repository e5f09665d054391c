# pugixml and libzip, from the sources of Debian's packages, linked statically: for the Windows build,
# and for a Linux build that shall run where these libraries are not installed.
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
  set(CMAKE_UNITY_BUILD OFF)  # its sources repeat names
  set(ZLIB_USE_STATIC_LIBS ON)
  foreach(option COMMONCRYPTO GNUTLS MBEDTLS OPENSSL WINDOWS_CRYPTO BZIP2 LZMA ZSTD)
    set(ENABLE_${option} OFF)
  endforeach()
  foreach(option TOOLS REGRESS EXAMPLES DOC SHARED_LIBS)
    set(BUILD_${option} OFF)
  endforeach()
  # A function of glibc 2.36: without it 2.34 is enough.
  set(HAVE_ARC4RANDOM OFF CACHE INTERNAL "")
  add_subdirectory("${PLYWELD_THIRD_PARTY}/libzip" "${PROJECT_BINARY_DIR}/libzip" EXCLUDE_FROM_ALL SYSTEM)
endfunction()
plyweld_add_libzip()
add_library(plyweld_zip INTERFACE)
target_link_libraries(plyweld_zip INTERFACE zip)
