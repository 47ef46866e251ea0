# cmake -DFROM=FOLDER -DTO=FOLDER -P stage.cmake: copies what ships from FROM, the program as it was
# built, into TO, a new folder, and writes beside it, to TO.nsh, how the installer puts it on a disk
# and the uninstaller takes it away again.
cmake_minimum_required(VERSION 3.25)
file(GLOB_RECURSE files RELATIVE "${FROM}" "${FROM}/*")
list(SORT files)
# A build folder may hold more: what older builds left, what a run of the program wrote.
list(FILTER files INCLUDE REGEX
  "^((NVMenu|NVSub|nvmtool)\\.exe|NVMENU\\.(HLP|CNT)|Start\\.nvm|Samples/[^/]+\\.nvm|Help/[^/]+)$")
file(REMOVE_RECURSE "${TO}")
set(install)
set(remove)
set(folders)
foreach(file IN LISTS files)
  get_filename_component(folder "${file}" DIRECTORY)
  file(COPY "${FROM}/${file}" DESTINATION "${TO}/${folder}")
  string(REPLACE "/" "\\" windows_folder "${folder}")
  string(REPLACE "/" "\\" windows_file "${file}")
  if(NOT folder STREQUAL "" AND NOT folder IN_LIST folders)
    list(APPEND folders "${folder}")
  endif()
  string(APPEND install "  SetOutPath \"$INSTDIR\\${windows_folder}\"\n")
  # Menus are the users' to change: those they changed stay.
  if(file MATCHES "\\.nvm$")
    string(APPEND install "  !insertmacro InstallMenu \"${TO}/${file}\" \"${windows_file}\"\n")
    string(APPEND remove "  !insertmacro RemoveMenu \"${windows_file}\"\n")
  else()
    string(APPEND install "  File \"${TO}/${file}\"\n")
    string(APPEND remove "  Delete \"$INSTDIR\\${windows_file}\"\n")
  endif()
endforeach()
foreach(folder IN LISTS folders)
  string(REPLACE "/" "\\" windows_folder "${folder}")
  string(APPEND remove "  RMDir \"$INSTDIR\\${windows_folder}\"\n")
endforeach()
file(WRITE "${TO}.nsh"
  "!macro InstallFiles\n${install}!macroend\n\n!macro RemoveFiles\n${remove}!macroend\n")
