# The pages of the reports, on a study and on simulated subjects: their parts in study/page/ and the modules
# of the plots' library, which the distribution brings, become one source of the study floor under the build
# tree. Each module and each script stands behind those that it uses.

set(page ${CMAKE_SOURCE_DIR}/study/page)
set(modules "")
foreach(module array collection color format interpolate path selection time time-format scale shape axis)
  find_file(D3_${module} d3-${module}.min.js REQUIRED
            PATHS /usr/share/nodejs/d3-${module}/dist /usr/share/javascript/d3-${module})
  list(APPEND modules ${D3_${module}})
endforeach()

set(made ${CMAKE_BINARY_DIR}/generated/pageParts.cpp)
set(report base reportData reportScore reportBeliefs reportEnds reportLine reportPeople)
set(pilot base pilotData pilotLives pilotMinds)
set(parts ${page}/report.html ${page}/pilot.html ${page}/report.css ${page}/licence.txt)
foreach(script ${report} ${pilot})
  list(APPEND parts ${page}/${script}.js)
endforeach()
list(JOIN modules "|" joined)
list(JOIN report "|" joinedReport)
list(JOIN pilot "|" joinedPilot)
add_custom_command(OUTPUT ${made} VERBATIM
  COMMAND ${CMAKE_COMMAND} -DPAGE=${page} -DMODULES=${joined} -DREPORT=${joinedReport}
          -DPILOT=${joinedPilot} -DMADE=${made}
          -P ${CMAKE_SOURCE_DIR}/cmake/writePageParts.cmake
  DEPENDS ${parts} ${modules} ${CMAKE_SOURCE_DIR}/cmake/writePageParts.cmake)
target_sources(tavix_study PRIVATE ${made})
if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
  set_source_files_properties(${made} PROPERTIES COMPILE_OPTIONS -Wno-overlength-strings)
endif()
