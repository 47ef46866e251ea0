# The packages, each a target of its own: zip and installer. They hold the folder <build>/program.
set(package_name "navrix-menu-${PROJECT_VERSION}")
set(package_dir "${CMAKE_BINARY_DIR}/packages")
set(staged "${package_dir}/installed")
set(portable "${package_dir}/portable/Navrix Menu")
file(MAKE_DIRECTORY "${package_dir}/portable")
list(JOIN help_names " " help_words)
set(what_ships "-DFROM=${program_dir}" "-DMENUS=${CMAKE_SOURCE_DIR}/menus" "-DHELP=${help_words}")
set(clean_up "${CMAKE_CURRENT_LIST_DIR}/clean-up.cmd")

add_custom_target(zip
  COMMAND ${CMAKE_COMMAND} ${what_ships} "-DTO=${portable}"
    -P "${CMAKE_CURRENT_LIST_DIR}/stage.cmake"
  COMMAND ${CMAKE_COMMAND} -E copy "${clean_up}" "${portable}/Clean up.cmd"
  COMMAND ${CMAKE_COMMAND} -E rm -f "${package_dir}/${package_name}.zip"
  COMMAND ${CMAKE_COMMAND} -E chdir "${package_dir}/portable"
    ${CMAKE_COMMAND} -E tar cf "${package_dir}/${package_name}.zip" --format=zip "Navrix Menu"
  COMMENT "Packing ${package_name}.zip"
  VERBATIM)
add_dependencies(zip program)

# The name of the setup program without its version serves the tests, too.
add_custom_target(installer
  COMMAND ${CMAKE_COMMAND} ${what_ships} "-DTO=${staged}"
    -P "${CMAKE_CURRENT_LIST_DIR}/stage.cmake"
  COMMAND makensis -V2 -WX -NOCD
    "-DFILES=${staged}.nsh" "-DVERSION=${PROJECT_VERSION}"
    "-DICON=${CMAKE_BINARY_DIR}/resources/icons/app.ico"
    "-DOUT=${package_dir}/${package_name}-setup.exe" "${CMAKE_CURRENT_LIST_DIR}/installer.nsi"
  COMMENT "Making ${package_name}-setup.exe"
  VERBATIM)
add_dependencies(installer program)
