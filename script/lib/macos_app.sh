# Packs Vireline.app for all processors, on Linux. To be sourced after common.sh. shellcheck shell=bash

macos_processors=(arm64 x86_64)

macos_archive() {
    local version
    version=$(sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' build/macos-arm64/CMakeCache.txt)
    echo "build/packages/Vireline-$version-macos.zip"
}

# Packs the bundles that the presets for the processors have built, and checks the result.
pack_macos_app() {
    local archive bundles
    archive=$(macos_archive)
    bundles=("${macos_processors[@]/#/build/macos-}")
    script/lib/macos_app.py "$archive" "${bundles[@]/%//Vireline.app}"
    check_macos_app "$archive"
}

check_macos_app() {
    local version=${1#*Vireline-}
    Tests/Install/macos_app_test.py "$1" "${version%-macos.zip}" "$PWD"
}
