# The packages of Debian 12 that this project needs, and the one way they get installed.
# To be sourced by the scripts that need them.

# To build and run the program. googletest: the windows preset configures its tests as well.
# librsvg2-bin, icoutils: draw the icons. halibut: makes the help.
# fonts-liberation, fonts-dejavu-core: stand in for faces that Windows has (tools/wine.reg).
packages_run="cmake ninja-build g++-mingw-w64-x86-64-posix googletest librsvg2-bin icoutils
    halibut wine wine64 fonts-wine fonts-liberation fonts-dejavu-core xvfb xdotool imagemagick"

# To pack it. nsis: makes the installer.
packages_package="$packages_run nsis"

# To fuzz the rules.
packages_fuzz="cmake ninja-build g++ clang-14 libclang-rt-14-dev"

# To measure it; nsis: the preset makes the installer as well.
packages_bench="$packages_package g++ libbenchmark-dev"

# To check and test it. locales, fonts-misaki: machines of other code pages, one of them Japanese.
packages_test="$packages_bench $packages_fuzz g++-mingw-w64-i686-posix clang-format-14 cppcheck
    locales fonts-misaki"

# install_missing PACKAGE...: asks dpkg, not apt, so that it costs nothing when all are there.
install_missing() {
    local missing=() package
    for package in "$@"; do
        case $(dpkg-query -W -f '${Status}' "$package" 2>/dev/null) in
        'install ok installed') ;;
        *) missing+=("$package") ;;
        esac
    done
    [ ${#missing[@]} -gt 0 ] || return 0

    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            echo "These packages are missing and only root can install them; as root, please run:" >&2
            echo "    apt-get update && apt-get install -y --no-install-recommends ${missing[*]}" >&2
            return 1
        fi
        as_root=(sudo)
        # Nobody is there to type a password.
        [ -t 0 ] || as_root+=(-n)
    fi
    echo "Installing ${missing[*]}${as_root[*]:+ (with sudo)}"
    # DEBIAN_FRONTEND behind sudo, which drops the environment. Use-Pty: plain output in a log.
    local apt=("${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -q
        -o Dpkg::Use-Pty=0 -o Acquire::Retries=3)
    if ! "${apt[@]}" update </dev/null; then
        echo "The package lists could not be brought up to date (apt-get update)." >&2
        return 1
    fi
    if ! "${apt[@]}" install -y --no-install-recommends "${missing[@]}" </dev/null; then
        echo "These packages could not be installed: ${missing[*]}" >&2
        return 1
    fi
}
