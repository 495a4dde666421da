include(${CMAKE_CURRENT_LIST_DIR}/headers.cmake)
zu_headers_of_this_machine(nlohmann_json::nlohmann_json nlohmann)
