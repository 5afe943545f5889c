# shellcheck shell=bash
# Shared by the scripts of this folder, which source it from the top of the tree.

fail() {
    printf '%s: %s\n' "${0##*/}" "$*" >&2
    exit 1
}

# list_packages LIST...: the names in scripts/packages/LIST.txt.
list_packages() {
    sed -e 's/#.*//' -e '/^ *$/d' "${@/#/scripts/packages/}"
}

# install_packages LIST.txt...: installs what is missing of the lists; says nothing otherwise.
install_packages() {
    local wanted missing
    mapfile -t wanted < <(list_packages "$@")
    if [ ! -x /usr/bin/dpkg-query ] || [ ! -x /usr/bin/apt-get ]; then
        say_what_is_needed "${wanted[*]}"
        return
    fi
    mapfile -t missing < <(printf '%s\n' "${wanted[@]}" | grep -vxFf <(installed_packages))
    [ ${#missing[@]} -gt 0 ] || return 0
    [ "$(id -u)" = 0 ] || command -v sudo > /dev/null ||
        fail "packages are missing, and this is neither root nor is there sudo. Please install:
    apt-get install ${missing[*]}"
    echo "Installing ${missing[*]}"
    quietly as_root apt-get -qq -o Acquire::Retries=3 update
    quietly as_root apt-get -qq -y --no-install-recommends install "${missing[@]}"
}

installed_packages() {
    dpkg-query -W -f='${db:Status-Status} ${Package}\n' | sed -n 's/^installed //p'
}

as_root() {
    local command=(env DEBIAN_FRONTEND=noninteractive "$@")
    [ "$(id -u)" = 0 ] || command=(sudo "${command[@]}")
    "${command[@]}"
}

# On other systems the packages go by other names, so nothing is installed; said once a tree.
say_what_is_needed() {
    local said=build/needed-packages
    mkdir -p build
    [ "$(cat "$said" 2> /dev/null)" != "$1" ] || return 0
    echo "This is not a Debian system. Please install what these Debian packages hold: $1" >&2
    echo "$1" > "$said"
}

# quietly COMMAND...: shows what the command says only when it fails, and ends the script then.
quietly() {
    local log
    log=$(mktemp)
    if ! "$@" > "$log" 2>&1; then
        cat "$log" >&2
        rm -f "$log"
        fail "failed: $*"
    fi
    rm -f "$log"
}

# build_preset PRESET [TARGET...]: configures when that was not done yet, then builds.
build_preset() {
    local preset=$1 tree=build/$1
    shift
    export CCACHE_BASEDIR=$PWD CCACHE_NOHASHDIR=1 CCACHE_SLOPPINESS=pch_defines,time_macros
    if [ ! -f "$tree/build.ninja" ] || [ CMakePresets.json -nt "$tree/build.ninja" ]; then
        echo "Configuring $preset"
        quietly cmake --preset "$preset"
    fi
    echo "Building $preset"
    if [ -t 1 ]; then
        ninja -C "$tree" "$@"
    else
        quietly ninja --quiet -C "$tree" "$@"
    fi
}
