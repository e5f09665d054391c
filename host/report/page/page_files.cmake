# Writes page_files.cpp, which holds the page's style and script:
#   cmake -DFOLDER=... -DOUTPUT=... -P page_files.cmake
# The longest text that every compiler takes in one piece is 16 KB.
function(append_text name file)
  file(READ "${FOLDER}/${file}" text)
  set(literal "")
  while(NOT text STREQUAL "")
    string(SUBSTRING "${text}" 0 8000 piece)
    string(LENGTH "${piece}" length)
    string(SUBSTRING "${text}" ${length} -1 text)
    string(APPEND literal "\nR\"~~(${piece})~~\"")
  endwhile()
  string(APPEND source "const std::string_view ${name}{${literal}};\n")
  set(source "${source}" PARENT_SCOPE)
endfunction()

set(source "#include \"host/report/page/page_files.h\"\n\nnamespace standin {\n\n")
append_text(kPageStyle page.css)
append_text(kPageScript page.js)
string(APPEND source "\n}  // namespace standin\n")
file(WRITE "${OUTPUT}" "${source}")
