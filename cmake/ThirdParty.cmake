# The libraries that the project uses. Natively they are Debian's packages; the Windows build and
# the portable one take the same versions from Debian's source packages, which setup has unpacked
# into PLYWELD_THIRD_PARTY.
if(WIN32)
  include(ThirdPartyWindows)
else()
  if(PLYWELD_PORTABLE)
    include(ThirdPartySources)
  else()
    find_package(pugixml REQUIRED)
    find_package(PkgConfig REQUIRED)
    pkg_check_modules(LIBZIP REQUIRED IMPORTED_TARGET libzip)
    add_library(plyweld_zip INTERFACE)
    target_link_libraries(plyweld_zip INTERFACE PkgConfig::LIBZIP)
  endif()
  find_package(CLI11 REQUIRED)
  find_package(nlohmann_json REQUIRED)
  find_package(GTest REQUIRED)
endif()
