# Finds libraries on this computer, or on a Mac, which has no package manager, downloads them.
include(FetchContent)

# vireline_find(<package> <version> <url> <sha256>)
macro(vireline_find package version url checksum)
    if(APPLE AND NOT CMAKE_CROSSCOMPILING)
        FetchContent_Declare(${package}
            URL ${url}
            URL_HASH SHA256=${checksum}
            DOWNLOAD_EXTRACT_TIMESTAMP ON
            SYSTEM
            FIND_PACKAGE_ARGS ${version} NAMES ${package})
        FetchContent_MakeAvailable(${package})
    else()
        find_package(${package} ${version} REQUIRED)
    endif()
endmacro()

macro(vireline_find_json)
    vireline_find(nlohmann_json 3.11
        https://github.com/nlohmann/json/releases/download/v3.11.3/json.tar.xz
        d6c65aca6b1ed68e7a182f4757257b107ae403032760ed6ef121c9d55e81757d)
endmacro()

macro(vireline_find_googletest)
    set(INSTALL_GTEST OFF)
    vireline_find(GTest 1.12
        https://github.com/google/googletest/archive/refs/tags/v1.14.0.tar.gz
        8ad598c73ad796e0d8280b082cebd82a630d73e73cd3c70057938a6501bba5d7)
endmacro()
