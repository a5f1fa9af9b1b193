# What is installed where, and the package of it. tavix-study finds its parts relative to itself; the desktop
# program is copied from lib/tavix into each study and so stands on no path.

set(programs tavix tavix-studio tavix-headless tavix-pilot tavixdb tavix-notice tavix-preview)
install(TARGETS ${programs} DESTINATION lib/tavix)
file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/links)
foreach(name tavix-studio tavix-headless tavix-pilot tavixdb)
  file(CREATE_LINK ../lib/tavix/${name} ${CMAKE_BINARY_DIR}/links/${name} SYMBOLIC)
  install(FILES ${CMAKE_BINARY_DIR}/links/${name} DESTINATION bin)
endforeach()
install(PROGRAMS packaging/tavix-study DESTINATION bin)
install(DIRECTORY sample/tables sample/Patients DESTINATION share/tavix)
install(FILES sample/unattended.tvx DESTINATION share/tavix)
install(FILES packaging/tavix.desktop DESTINATION share/applications)
install(FILES packaging/copyright DESTINATION share/doc/tavix)
install(FILES study/page/licence.txt DESTINATION share/doc/tavix RENAME copyright.d3)
# These two are headers only and so part of our programs: their licences come with us.
foreach(package libcli11-dev nlohmann-json3-dev)
  install(FILES /usr/share/doc/${package}/copyright DESTINATION share/doc/tavix RENAME copyright.${package}
          OPTIONAL)
endforeach()

# The icon, drawn from the program's emblem.
foreach(side 48 128 256)
  set(icon ${CMAKE_BINARY_DIR}/icons/${side}x${side}/apps/tavix.png)
  file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/icons/${side}x${side}/apps)
  add_custom_command(OUTPUT ${icon} COMMAND drawEmblem ${side} ${icon})
  list(APPEND made ${icon})
endforeach()
install(DIRECTORY ${CMAKE_BINARY_DIR}/icons/ DESTINATION share/icons/hicolor)

# The manual pages are what the programs say themselves with --help, its first line being the page's name;
# where there are subcommands --help-all tells of them too.
find_program(HELP2MAN help2man)
if(HELP2MAN)
  file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/man)
  foreach(name tavix-study tavix-studio tavix-headless tavix-pilot tavixdb)
    set(program ${CMAKE_SOURCE_DIR}/packaging/${name})
    if(TARGET ${name})
      set(program $<TARGET_FILE:${name}>)
    endif()
    set(page ${CMAKE_BINARY_DIR}/man/${name}.1)
    set(write "${HELP2MAN} --no-info --version-string=$1 --name=\"$name\" --help-option=$all --output=$2 $0")
    add_custom_command(OUTPUT ${page}.gz DEPENDS ${program} VERBATIM
      COMMAND sh -ec "name=$($0 --help | head -n 1); all=--help; if $0 --help | grep -q help-all; then all=--help-all; fi; ${write}" ${program} ${PROJECT_VERSION} ${page}
      COMMAND gzip -9nf ${page})
    list(APPEND made ${page}.gz)
  endforeach()
  install(DIRECTORY ${CMAKE_BINARY_DIR}/man/ DESTINATION share/man/man1)
else()
  message(STATUS "No help2man: the manual pages are left out")
endif()

# What the programs are made of and need, as this machine's packages tell it.
find_program(DPKG_QUERY dpkg-query)
find_package(Python3 COMPONENTS Interpreter)
if(DPKG_QUERY AND Python3_FOUND)
  set(list ${CMAKE_BINARY_DIR}/sbom.cdx.json)
  list(TRANSFORM programs REPLACE "(.+)" "$<TARGET_FILE:\\1>" OUTPUT_VARIABLE files)
  add_custom_command(OUTPUT ${list} DEPENDS ${programs} script/sbom VERBATIM
    COMMAND sh -ec "script=$1; list=$2; shift 2; \"$script\" \"$@\" >\"$list.new\"; mv \"$list.new\" \"$list\""
            sh ${CMAKE_SOURCE_DIR}/script/sbom ${list} ${PROJECT_VERSION} ${files})
  list(APPEND made ${list})
  install(FILES ${list} DESTINATION share/doc/tavix)
else()
  message(STATUS "No dpkg-query or no Python: the list of parts is left out")
endif()
add_custom_target(madeForInstall ALL DEPENDS ${made})

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_CONTACT "Tavix maintainers <maintainers@tavix.invalid>")
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE
    WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"A subject takes the role of a doctor and treats simulated patients while a
simulated clock runs. A study is one folder with one protected store of its
tables and results, made, checked, tried and watched in a window.")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "fonts-inter, fonts-dejavu-core")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS sqlcipher) # the analyst's way into a store; no program of ours runs it
include(CPack)
