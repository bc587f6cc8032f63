# Builds a preset, configuring it first where that is due. Sourced by run and test.
# shellcheck shell=bash

# Configuring takes longer than a build with nothing to do. It is due at the first time, after a change of the
# presets (CMake sees the other changes by itself), and after packages came or went: Qt may be among them.
ConfigureIsDue() {
    local stamp=build/$1/configured
    [[ ! -f $stamp || ! -f build/$1/build.ninja || CMakePresets.json -nt $stamp || /var/lib/dpkg/status -nt $stamp ]]
}

# BuildPreset PRESET [TARGET...]: everything, or only the targets.
BuildPreset() {
    local preset=$1 cache=build/$1/CMakeCache.txt options=()
    shift
    if [[ -f $cache ]] && ! grep -qxF "CMAKE_HOME_DIRECTORY:INTERNAL=$PWD" "$cache"; then
        # The tree was moved or copied together with its build folder.
        options=(--fresh)
        rm -f "build/$preset/configured"
    fi
    if ConfigureIsDue "$preset"; then
        cmake --preset "$preset" "${options[@]}" && touch "build/$preset/configured" || return 1
    fi
    if (($# > 0)); then
        set -- --target "$@"
    fi
    cmake --build --preset "$preset" "$@"
}
