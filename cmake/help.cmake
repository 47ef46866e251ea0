# The help, made from resources/help: NVMENU.HLP with its list of contents for the old viewer of
# Windows, and the folder Help for a browser. Chapters in their order; each is a page.
set(help_chapters start entries editing commands files locked settings ticket nvsub nvmtool keys)
find_program(HALIBUT halibut REQUIRED)

set(help_dir "${CMAKE_SOURCE_DIR}/resources/help")
list(TRANSFORM help_chapters REPLACE "(.+)" "${help_dir}/\\1.but" OUTPUT_VARIABLE help_sources)
list(PREPEND help_sources "${help_dir}/help.but")
add_custom_command(OUTPUT "${program_dir}/NVMENU.HLP" "${program_dir}/NVMENU.CNT"
  COMMAND ${HALIBUT} --winhelp=NVMENU.HLP ${help_sources}
  COMMAND ${CMAKE_COMMAND} -E rename NVMENU.cnt NVMENU.CNT
  WORKING_DIRECTORY "${program_dir}"
  DEPENDS ${help_sources} "${CMAKE_CURRENT_LIST_FILE}"
  COMMENT "Making NVMENU.HLP"
  VERBATIM)

list(TRANSFORM help_chapters REPLACE "(.+)" "${program_dir}/Help/\\1.html" OUTPUT_VARIABLE help_pages)
set(help_extras "${help_dir}/style.css")
foreach(picture normal edit options support)
  list(APPEND help_extras "${CMAKE_SOURCE_DIR}/pictures/${picture}-96.png")
endforeach()
file(MAKE_DIRECTORY "${program_dir}/Help")
add_custom_command(
  OUTPUT "${program_dir}/Help/index.html" "${program_dir}/Help/keywords.html" ${help_pages}
  COMMAND ${HALIBUT} --html ${help_sources}
  COMMAND sed -i "s|<title></title>|<title>Keywords</title>|" keywords.html
  COMMAND ${CMAKE_COMMAND} -E copy ${help_extras} .
  WORKING_DIRECTORY "${program_dir}/Help"
  DEPENDS ${help_sources} ${help_extras} "${CMAKE_CURRENT_LIST_FILE}"
  COMMENT "Making the pages of the help"
  VERBATIM)
# The names of all that stands in the folder Help.
set(help_names index.html keywords.html)
foreach(file IN LISTS help_pages help_extras)
  cmake_path(GET file FILENAME name)
  list(APPEND help_names ${name})
endforeach()
add_custom_target(help_files ALL DEPENDS "${program_dir}/NVMENU.HLP" "${program_dir}/Help/index.html")
add_dependencies(program help_files)
