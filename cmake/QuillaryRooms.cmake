# Rooms: each folder of src is a target that sees its own headers and those of
# the rooms that it names, so that an include that points upwards, or from one
# direction into the other, does not compile.

# quillary_room(FOLDER [PUBLIC ROOM...] [PRIVATE ROOM...]): the room src/FOLDER.
# PUBLIC rooms stand in its headers, so that its users see them too; PRIVATE
# rooms only in its sources. Sources and rule files are found by themselves; a
# rule file foo.rules becomes the header "FOLDER/foo.rules.h".
function(quillary_room folder)
  cmake_parse_arguments(USES "" "" "PUBLIC;PRIVATE" ${ARGN})
  quillary_room_target(${folder} target)
  set(source_dir ${PROJECT_SOURCE_DIR}/src/${folder})
  file(GLOB sources CONFIGURE_DEPENDS ${source_dir}/*.cpp)
  file(GLOB headers CONFIGURE_DEPENDS ${source_dir}/*.h ${source_dir}/*.inc)
  file(GLOB rules CONFIGURE_DEPENDS ${source_dir}/*.rules)
  list(REMOVE_ITEM rules ${QUILLARY_SENTINELS})

  # What users of the room may include: a link to each header under its name.
  set(root ${PROJECT_BINARY_DIR}/rooms/${target})
  file(REMOVE_RECURSE ${root}/links)
  file(MAKE_DIRECTORY ${root}/links/${folder} ${root}/rules/${folder})
  foreach(header IN LISTS headers)
    get_filename_component(name ${header} NAME)
    file(CREATE_LINK ${header} ${root}/links/${folder}/${name} SYMBOLIC)
  endforeach()

  foreach(file IN LISTS rules)
    get_filename_component(name ${file} NAME)
    set(output ${root}/rules/${folder}/${name})
    add_custom_command(
      OUTPUT ${output}.cpp ${output}.h
      COMMAND rulec --sentinels ${QUILLARY_SENTINELS} --name src/${folder}/${name} ${file} ${output}.cpp ${output}.h
      DEPENDS rulec ${file} ${QUILLARY_SENTINELS}
      VERBATIM)
    list(APPEND sources ${output}.cpp ${output}.h)
    set_property(GLOBAL APPEND PROPERTY QUILLARY_RULE_FILES ${file})
  endforeach()

  if(sources)
    add_library(${target} OBJECT ${sources})
    quillary_precompiled(${target} rooms)
    set(scope PUBLIC)
    set_property(GLOBAL APPEND PROPERTY QUILLARY_ROOMS ${target})
  else()
    add_library(${target} INTERFACE)
    set(scope INTERFACE)
  endif()
  target_include_directories(${target} ${scope} ${root}/links ${root}/rules ${PROJECT_SOURCE_DIR}/include)
  foreach(room IN LISTS USES_PUBLIC)
    quillary_room_target(${room} used)
    target_link_libraries(${target} ${scope} ${used})
  endforeach()
  foreach(room IN LISTS USES_PRIVATE)
    quillary_room_target(${room} used)
    target_link_libraries(${target} PRIVATE ${used})
  endforeach()
  if(rules)
    # Users of the room include its rule headers, and must wait for them.
    list(TRANSFORM rules REPLACE "^.*/" "${root}/rules/${folder}/")
    list(TRANSFORM rules APPEND .h)
    add_custom_target(${target}_rule_headers DEPENDS ${rules})
    set_property(GLOBAL APPEND PROPERTY QUILLARY_RULE_HEADERS ${target}_rule_headers)
  endif()
endfunction()

# Three quarters of the time that a source takes to compile goes into the
# headers of the standard library. quillary_precompiled_headers(NAME HEADER...
# [LINK TARGET...]) reads them once; quillary_precompiled(TARGET NAME) takes
# them into a target. A source includes what it needs all the same: the presets
# other than release and mutate, and the linter, build without.
function(quillary_precompiled_headers name)
  cmake_parse_arguments(WITH "" "" "LINK" ${ARGN})
  file(WRITE ${PROJECT_BINARY_DIR}/precompiled_${name}.cpp "")
  add_library(quillary_precompiled_${name} OBJECT ${PROJECT_BINARY_DIR}/precompiled_${name}.cpp)
  target_link_libraries(quillary_precompiled_${name} PRIVATE ${WITH_LINK})
  list(TRANSFORM WITH_UNPARSED_ARGUMENTS REPLACE "^(.+)$" "<\\1>")
  target_precompile_headers(quillary_precompiled_${name} PRIVATE ${WITH_UNPARSED_ARGUMENTS})
endfunction()

function(quillary_precompiled target name)
  target_precompile_headers(${target} REUSE_FROM quillary_precompiled_${name})
endfunction()

# The target of a room, quillary_links of "links".
function(quillary_room_target folder result)
  string(REPLACE "/" "_" name ${folder})
  set(${result} quillary_${name} PARENT_SCOPE)
endfunction()
