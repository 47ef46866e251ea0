# The folder <build>/program: what ships, laid out as on a user's disk. The programs are linked
# into it, so that they find each other and the menus there.
set(program_dir "${CMAKE_BINARY_DIR}/program")
set_target_properties(NVMenu NVSub nvmtool PROPERTIES
  RUNTIME_OUTPUT_DIRECTORY "${program_dir}")

file(GLOB_RECURSE menus CONFIGURE_DEPENDS RELATIVE "${CMAKE_SOURCE_DIR}/menus"
  "${CMAKE_SOURCE_DIR}/menus/*.nvm")
set(staged_menus)
foreach(menu IN LISTS menus)
  add_custom_command(OUTPUT "${program_dir}/${menu}"
    COMMAND ${CMAKE_COMMAND} -E copy "${CMAKE_SOURCE_DIR}/menus/${menu}" "${program_dir}/${menu}"
    DEPENDS "${CMAKE_SOURCE_DIR}/menus/${menu}"
    VERBATIM)
  list(APPEND staged_menus "${program_dir}/${menu}")
endforeach()
add_custom_target(program ALL DEPENDS ${staged_menus})
add_dependencies(program NVMenu NVSub nvmtool)
