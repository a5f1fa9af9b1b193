# Writes MADE, the source of study/pageParts.h, from the files of PAGE and from MODULES. REPORT and PILOT name
# the scripts of the two pages. Lists are parted by "|".

set(source "#include \"study/pageParts.h\"\n\nnamespace pageParts {\n")

function(add_part name)
  set(text "")
  foreach(file ${ARGN})
    file(READ ${file} content)
    string(APPEND text "${content}\n")
  endforeach()
  set(source "${source}\nconst std::string_view ${name} = R\"~page~(${text})~page~\";\n" PARENT_SCOPE)
endfunction()

string(REPLACE "|" ";" MODULES "${MODULES}")
foreach(list REPORT PILOT)
  string(REPLACE "|" ";" ${list} "${${list}}")
  list(TRANSFORM ${list} PREPEND ${PAGE}/)
  list(TRANSFORM ${list} APPEND .js)
endforeach()
add_part(frame ${PAGE}/report.html)
add_part(pilotFrame ${PAGE}/pilot.html)
add_part(style ${PAGE}/report.css)
add_part(library ${MODULES})
add_part(licence ${PAGE}/licence.txt)
add_part(script ${REPORT})
add_part(pilotScript ${PILOT})
file(WRITE ${MADE} "${source}\n}  // namespace pageParts\n")
