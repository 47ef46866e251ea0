#!/bin/bash
# Builds Navrix Menu and opens a menu with it, under Wine, on Debian 12. See README.md.
set -euo pipefail

usage() {
    cat <<'END'
Usage: ./run.sh [--picture FILE.png] [MENU]

Installs what is missing, builds the program and opens MENU (a .nvm file; without one the sample
menu, Start.nvm).

With a display the program runs there until you close it. Without one, or with --picture, it opens
the menu on a virtual display, saves a picture of its window (to FILE.png, or else to
build/navrix-menu.png), closes the program and ends.
END
}

fail() {
    echo "run.sh: $*" >&2
    exit 1
}

source_dir=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
program=$source_dir/build/windows/program
picture=
menu=

while [ $# -gt 0 ]; do
    case $1 in
    --picture)
        [ -n "${2-}" ] || fail "--picture needs the name of a file"
        picture=$(realpath -sm -- "$2")
        [ -d "$(dirname "$picture")" ] || fail "there is no folder for the picture $2"
        [ ! -d "$picture" ] || fail "the picture $2 is a folder"
        [ -w "$(dirname "$picture")" ] || fail "the picture $2 cannot be written there"
        shift
        ;;
    -h | --help)
        usage
        exit 0
        ;;
    -*)
        usage >&2
        exit 2
        ;;
    *)
        [ -z "$menu" ] || fail "one menu at a time: $menu, $1"
        menu=$1
        [ -n "$menu" ] || fail "the name of the menu is empty"
        ;;
    esac
    shift
done

if [ -n "$menu" ]; then
    [ -e "$menu" ] || fail "there is no menu $menu"
    [ -f "$menu" ] || fail "$menu is not a file"
    [ -r "$menu" ] || fail "$menu cannot be read"
    case $menu in
    *.[Nn][Vv][Mm]) ;;
    *) fail "$menu is not a menu: their names end with .nvm" ;;
    esac
    # Absolute, because the program makes its own folder the current one.
    menu=$(realpath -s -- "$menu")
else
    menu=$program/Start.nvm
fi

cd "$source_dir"
. tools/packages.sh
# The list is words on purpose.
# shellcheck disable=SC2086
install_missing $packages_run || fail "it cannot be built without them"

[ -f build/windows/build.ninja ] || cmake --preset windows
cmake --build --preset windows --target program

# Wine's drive Z: is the whole file system.
windows_menu="Z:${menu//\//\\}"

if [ -z "$picture" ] && [ -n "${DISPLAY-}" ] && timeout 5 xdotool getdisplaygeometry >/dev/null 2>&1; then
    tools/wine-up build/run/desktop desktop
    . build/run/desktop/env
    exec wine "$program/NVMenu.exe" "$windows_menu"
fi

[ -n "$picture" ] || picture=$source_dir/build/navrix-menu.png
tools/menu-picture build/run/picture "$program/NVMenu.exe" "$windows_menu" "$picture" ||
    fail "no picture of $menu"
echo "A picture of the open menu: $picture"
