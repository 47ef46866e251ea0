#!/bin/bash
# lint.sh: what no compiler checks. Run it after `cmake --preset windows`, which says which source
# files are windows and which are rules; programs that are not built yet are left out.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
shopt -s nullglob globstar
windows_files=build/windows/windows_files.txt
wrong=0

# complain TITLE <<<FINDINGS: nothing found, nothing said.
complain() {
    local findings
    findings=$(cat)
    [ -n "$findings" ] || return 0
    wrong=1
    printf '%s\n%s\n' "$1:" "$findings" >&2
}

[ -f $windows_files ] || { echo "lint.sh: please run cmake --preset windows first" >&2; exit 1; }

sources=(src/**/*.cpp src/**/*.h)
rules=()
for file in "${sources[@]}"; do
    grep -qxF "$file" $windows_files || rules+=("$file")
done
[ ${#rules[@]} -gt 0 ] || { echo "lint.sh: no rules found in src" >&2; exit 1; }

# A standard header's name is one word; that of any platform has a dot or a slash.
complain 'Rules that include a platform header (or windows missing in their CMakeLists.txt)' < <(
    grep -niE '^\s*#\s*include\s*(<[^>]*[./][^>]*>|"windows\.h")' "${rules[@]}")
complain 'Rules that depend on the platform' < <(
    grep -nE '^\s*#\s*(if|elif).*\b(_WIN32|_WIN64|WIN32|__MINGW|__linux__)' "${rules[@]}")
complain 'Rules that include a header of windows' < <(
    grep -nFf <(sed -n 's|^src/\(.*\.h\)$|#include "\1"|p' $windows_files) "${rules[@]}")
# Half a megabyte each in a static program.
complain 'Headers that are too big for the program' < <(
    grep -nE '^\s*#\s*include\s*<(iostream|fstream|sstream|iomanip|filesystem|regex)>' "${sources[@]}")

# cppcheckError: it gives up on single expressions, which says nothing of the code. passedByValue: what
# is passed may change meanwhile, or is moved. missingIncludeSystem: it needs no system header.
command -v cppcheck >/dev/null || { echo "lint.sh: cppcheck is missing" >&2; exit 1; }
complain 'What cppcheck finds in the rules' < <(
    cppcheck -q --std=c++20 --language=c++ -I src --enable=warning,performance,portability \
        --suppress=cppcheckError --suppress=passedByValue --suppress=missingIncludeSystem \
        "${rules[@]}" 2>&1)

# One sample line: 3><CAPTION>Notepad</CAPTION> <LINK>notepad.exe</LINK> <FONTNAME>Tahoma ...
value='[^\x00-\x08\x0a-\x1f]'
flag='(True|False)'
line="^[0-5]><CAPTION>($value|\\x01)*</CAPTION> <LINK>$value*</LINK> <FONTNAME>$value+</FONTNAME> \
<FONTSIZE>[1-9][0-9]*</FONTSIZE> <FONTBOLD>$flag</FONTBOLD> <FONTITALIC>$flag</FONTITALIC> \
<FONTSTR>$flag</FONTSTR> <FONTUNDER>$flag</FONTUNDER> <FONTCOLOR>-?[0-9]+</FONTCOLOR> \
<FONTCHAR>[0-9]+</FONTCHAR>\\r\$"
menus=(menus/**/*.nvm)
[ ${#menus[@]} -eq 0 ] || complain 'Menu lines that are not as the program would write them' < <(
    LC_ALL=C grep -HnvP "$line" "${menus[@]}")
complain 'Links to menus that do not exist' < <(
    [ ${#menus[@]} -eq 0 ] || LC_ALL=C grep -ohP '(?<=<LINK>)[^<]*\.nvm(?=</LINK>)' "${menus[@]}" |
        sort -u | while read -r target; do
            [ -f "menus/${target//\\//}" ] || echo "$target"
        done)
# A first start opens the first menu beside the program, whichever that is.
complain 'Menus beside Start.nvm' < <(
    for menu in menus/*.nvm; do [ "$menu" = menus/Start.nvm ] || echo "$menu"; done)

# Texts are bytes in the code page. Messages are taken wide, or typed characters of two bytes fall apart
# (win32/message_pump); a console is written to in characters; no font's character set says that bytes
# are UTF-8 (win32/gdi_text); the last two are the C run-time's own.
wide='DispatchMessage|GetMessage|IsDialogMessage|PeekMessage|WriteConsole'
wide+='|DrawText|GetTextExtentExPoint|GetTextExtentPoint32|TextOut|GetModuleHandle|LoadLibrary'
system_dlls='kernel32|user32|gdi32|advapi32|shell32|comctl32|msvcrt'
# Each of those costs every start. These are loaded when they are needed (win32/load_function). Every
# process has ntdll, which is only looked at.
late_dlls='comdlg32|ole32|oleacc|oleaut32'
complain 'Loaded by name, and not of the system' < <(
    grep -rnoE '"[A-Za-z0-9_]+\.(dll|DLL)"' src | grep -vE "\"($late_dlls|ntdll)\.dll\"")
complain 'Called by name, and for wide characters' < <(grep -rnE '"[A-Z][A-Za-z]+[a-z]W"' src)
for program in build/windows{,32}/program/*.exe; do
    headers=$(x86_64-w64-mingw32-objdump -p "$program")
    dlls=$(sed -n 's/.*DLL Name: //p' <<<"$headers")
    functions=$(awk '$1 ~ /^[0-9a-f]+$/ && NF == 3 { print $3 }' <<<"$headers")
    grep -qix kernel32.dll <<<"$dlls" && grep -qx GetProcAddress <<<"$functions" ||
        complain "$program: what it imports cannot be read" <<<"$dlls $functions"
    complain "$program needs more than every start can wait for" < <(
        grep -vixE "($system_dlls)\.dll" <<<"$dlls")
    complain "$program calls functions for wide characters" < <(
        grep -E '[a-z]W$' <<<"$functions" | grep -vxE "($wide)W")
    complain "$program has not our own stack guard (win32/stack_guard)" < <(
        grep '^Crypt' <<<"$functions")
    complain "$program is too big" < <(find "$program" -size +999999c)
done
exit $wrong
