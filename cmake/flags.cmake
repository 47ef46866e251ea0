# One strict warning set for our own code; googletest and the system headers are outside it.
add_library(project_flags INTERFACE)
target_compile_options(project_flags INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Werror
  -Wnon-virtual-dtor -Wold-style-cast -Wcast-qual -Wformat=2 -Wundef -Wextra-semi
  -Wimplicit-fallthrough
  $<$<CXX_COMPILER_ID:GNU>:-Wduplicated-cond -Wduplicated-branches -Wlogical-op -Wsuggest-override>
  -fstack-protector-strong)
# gcc 12 takes std::string's assignment of a literal for an overlapping copy (its bug 105651).
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(project_flags INTERFACE -Wno-restrict)
endif()
target_compile_definitions(project_flags INTERFACE
  $<$<OR:$<CONFIG:Debug>,$<BOOL:${NAVRIX_SANITIZE}>>:_GLIBCXX_ASSERTIONS>)
if(WIN32)
  # -fstack-protector-strong at the link too: gcc then adds -lssp (mingw-w64 10 has no ssp of its own)
  # for what does without win32/stack_guard.cpp.
  target_link_options(project_flags INTERFACE -static -fstack-protector-strong
    -Wl,--no-insert-timestamp $<$<CONFIG:Release>:-s -Wl,--gc-sections>)
  # Small before all: -O3 makes the program larger and no faster.
  string(REPLACE "-O3" "-O2" CMAKE_CXX_FLAGS_RELEASE "${CMAKE_CXX_FLAGS_RELEASE}")
  target_compile_options(project_flags INTERFACE -ffunction-sections -fdata-sections)
  # winedbg 8.0 reads DWARF 4, not gcc's own 5: with it a crash prints functions and lines.
  target_compile_options(project_flags INTERFACE $<$<CONFIG:Debug>:-gdwarf-4>)
endif()
if(NAVRIX_SANITIZE)
  target_compile_options(project_flags INTERFACE
    -fsanitize=address,undefined -fno-omit-frame-pointer -fno-sanitize-recover=all)
  target_link_options(project_flags INTERFACE -fsanitize=address,undefined)
endif()
# Only what is built with these may include <windows.h>: the rules are not.
add_library(windows_flags INTERFACE)
target_link_libraries(windows_flags INTERFACE project_flags)
target_compile_definitions(windows_flags INTERFACE WIN32_LEAN_AND_MEAN NOMINMAX STRICT
  _WIN32_WINNT=0x0601 WINVER=0x0601 _WIN32_IE=0x0600)
if(NAVRIX_COUNT_HANDLES)
  target_compile_definitions(windows_flags INTERFACE NAVRIX_COUNT_HANDLES)
endif()
