# Writes <build>/windows_files.txt: the source files that may know the platform, one a line. To
# tools/lint.sh every file that is not among them is rules.
set(windows_files)
foreach(target windows NVMenu NVSub nvmtool)
  get_target_property(sources ${target} SOURCES)
  get_target_property(folder ${target} SOURCE_DIR)
  foreach(source IN LISTS sources)
    cmake_path(ABSOLUTE_PATH source BASE_DIRECTORY "${folder}" NORMALIZE)
    cmake_path(RELATIVE_PATH source BASE_DIRECTORY "${CMAKE_SOURCE_DIR}")
    list(APPEND windows_files "${source}")
  endforeach()
endforeach()
list(JOIN windows_files "\n" windows_files)
file(WRITE "${CMAKE_BINARY_DIR}/windows_files.txt" "${windows_files}\n")
