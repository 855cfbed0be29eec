# The version that is installed on this machine.
find_file(host_json_version nlohmann_jsonConfigVersion.cmake REQUIRED NO_CMAKE_FIND_ROOT_PATH
          PATHS /usr/share/cmake/nlohmann_json /usr/lib/cmake/nlohmann_json)
include(${host_json_version})
