# shellcheck shell=bash

# Configuring and building a preset; sourced by run, test and bench/run. The caller stands in the project's root.

# build_preset PRESET [TARGET…]: brings build/PRESET up to date.
build_preset() {
    local preset=$1
    shift
    local folder=build/$preset home=CMAKE_HOME_DIRECTORY:INTERNAL=$PWD how=()
    if [[ -f $folder/CMakeCache.txt ]] && ! grep -qxF -- "$home" "$folder/CMakeCache.txt"; then
        how=(--fresh) # the build folder remembers where its sources were: this clone was moved
    fi
    if ((${#how[@]})) || [[ ! -f $folder/build.ninja || CMakePresets.json -nt $folder/build.ninja ]]; then
        echo "Configuring $folder"
        cmake --preset "$preset" "${how[@]}" || return
        touch "$folder/build.ninja" # also when CMake found nothing to change in it
    fi
    echo "Building $folder"
    ninja -C "$folder" "$@"
}
