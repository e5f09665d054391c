# Makes the program's form of strings.json: a C++ table or, with a name that ends in .rc, the
# string tables of the Windows resources.
#   cmake -DINPUT=strings.json -DOUTPUT=file -P GenerateStrings.cmake
file(READ "${INPUT}" table)
string(JSON count LENGTH "${table}")
math(EXPR last "${count} - 1")

set(english "")
set(spanish "")
set(entries "")
foreach(index RANGE ${last})
  string(JSON id GET "${table}" ${index} id)
  string(JSON en GET "${table}" ${index} en)
  string(JSON es GET "${table}" ${index} es)
  string(REPLACE "\"" "\"\"" rc_en "${en}")
  string(REPLACE "\"" "\"\"" rc_es "${es}")
  string(APPEND english "  ${id} \"${rc_en}\"\n")
  string(APPEND spanish "  ${id} \"${rc_es}\"\n")
  string(REPLACE "\"" "\\\"" cpp_en "${en}")
  string(REPLACE "\"" "\\\"" cpp_es "${es}")
  string(APPEND entries "    {${id}, u\"${cpp_en}\", u\"${cpp_es}\"},\n")
endforeach()

if(OUTPUT MATCHES "\\.rc$")
  file(WRITE "${OUTPUT}" "#pragma code_page(65001)
LANGUAGE LANG_ENGLISH, SUBLANG_ENGLISH_US
STRINGTABLE
BEGIN
${english}END
LANGUAGE LANG_SPANISH, SUBLANG_SPANISH_MODERN
STRINGTABLE
BEGIN
${spanish}END
")
else()
  file(WRITE "${OUTPUT}" "#include \"resources/string_table.h\"

namespace resources {

namespace {

constexpr StringEntry kStrings[] = {
${entries}};

}  // namespace

std::span<const StringEntry> StringTable() noexcept { return kStrings; }

}  // namespace resources
")
endif()
