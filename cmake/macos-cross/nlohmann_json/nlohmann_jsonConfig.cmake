# Only the JSON library's headers, copied from the include folder of this machine, whose other
# headers must not be found.
find_path(host_json_folder nlohmann/json.hpp REQUIRED NO_CMAKE_FIND_ROOT_PATH)
file(COPY ${host_json_folder}/nlohmann DESTINATION ${CMAKE_BINARY_DIR}/json)
add_library(nlohmann_json::nlohmann_json INTERFACE IMPORTED)
target_include_directories(nlohmann_json::nlohmann_json INTERFACE ${CMAKE_BINARY_DIR}/json)
