# Floors: a library for each, whose sources see only their own folder and the floors below. Each folder is
# reached through a view of its own in the build tree, so that an include that points up does not compile.
# The calls in CMakeLists.txt are the one list of the floors; floors.txt in the build tree repeats it for
# script/check, a line a floor: its folder and the folders of the views that it sees.

file(WRITE ${CMAKE_BINARY_DIR}/floors.txt "")

# tavix_floor(FOLDER BELOW floor... LINKS library... EXCLUDE source...): the floor store/layer is the library
# tavix_store_layer.
function(tavix_floor folder)
  cmake_parse_arguments(FLOOR "" "" "BELOW;LINKS;EXCLUDE" ${ARGN})
  string(REPLACE "/" "_" name ${folder})
  set(view ${CMAKE_BINARY_DIR}/floors/${name})
  get_filename_component(inside ${view}/${folder} DIRECTORY)
  file(MAKE_DIRECTORY ${inside})
  file(CREATE_LINK ${CMAKE_SOURCE_DIR}/${folder} ${view}/${folder} SYMBOLIC)

  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/${folder}/*.cpp)
  list(TRANSFORM FLOOR_EXCLUDE PREPEND ${CMAKE_SOURCE_DIR}/${folder}/)
  list(REMOVE_ITEM sources ${FLOOR_EXCLUDE})
  add_library(tavix_${name} STATIC ${sources})
  target_include_directories(tavix_${name} PUBLIC ${view})
  set(seen ${name})
  foreach(below ${FLOOR_BELOW})
    string(REPLACE "/" "_" below ${below})
    target_link_libraries(tavix_${name} PUBLIC tavix_${below})
    get_property(further GLOBAL PROPERTY tavix_seen_${below})
    list(APPEND seen ${further})
  endforeach()
  list(REMOVE_DUPLICATES seen)
  set_property(GLOBAL PROPERTY tavix_seen_${name} ${seen})
  target_link_libraries(tavix_${name} PUBLIC ${FLOOR_LINKS})
  list(JOIN seen " " line)
  file(APPEND ${CMAKE_BINARY_DIR}/floors.txt "${folder} ${line}\n")
endfunction()

function(tavix_program name source)
  add_executable(${name} ${CMAKE_SOURCE_DIR}/${source})
  target_link_libraries(${name} PRIVATE ${ARGN})
endfunction()
