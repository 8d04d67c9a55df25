# quillary_rules(TARGET FILE.rules...): compiles rule files into constant
# tables and adds them to the target. A rule file foo.rules becomes
# "DIR/foo.rules.h" for its users, DIR being the folder below src.
function(quillary_rules target)
  foreach(file IN LISTS ARGN)
    set(source ${CMAKE_CURRENT_SOURCE_DIR}/${file})
    file(RELATIVE_PATH relative ${PROJECT_SOURCE_DIR}/src ${source})
    set(output ${PROJECT_BINARY_DIR}/rules/${relative})
    get_filename_component(folder ${output} DIRECTORY)
    file(MAKE_DIRECTORY ${folder})
    add_custom_command(
      OUTPUT ${output}.cpp ${output}.h
      COMMAND rulec --sentinels ${PROJECT_SOURCE_DIR}/src/rules/sentinels.rules --name src/${relative} ${source}
              ${output}.cpp ${output}.h
      DEPENDS rulec ${source} ${PROJECT_SOURCE_DIR}/src/rules/sentinels.rules
      VERBATIM)
    target_sources(${target} PRIVATE ${output}.cpp ${output}.h)
    set_property(GLOBAL APPEND PROPERTY QUILLARY_RULE_FILES ${source})
  endforeach()
  target_include_directories(${target} PUBLIC ${PROJECT_BINARY_DIR}/rules)
endfunction()

# quillary_chain_registry(TARGET): adds the list of every chain compiled so
# far to the target, in the order of src/rules/running_order; a shared name that
# no rule file uses is an error here.
function(quillary_chain_registry target)
  get_property(files GLOBAL PROPERTY QUILLARY_RULE_FILES)
  set(sentinels ${PROJECT_SOURCE_DIR}/src/rules/sentinels.rules)
  set(order ${PROJECT_SOURCE_DIR}/src/rules/running_order)
  set(output ${PROJECT_BINARY_DIR}/rules/rules/all_chains.cpp)
  add_custom_command(
    OUTPUT ${output}
    COMMAND rulec --registry ${sentinels} ${order} ${output} ${files}
    DEPENDS rulec ${sentinels} ${order} ${files}
    VERBATIM)
  target_sources(${target} PRIVATE ${output})
endfunction()
