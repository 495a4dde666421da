include(${CMAKE_CURRENT_LIST_DIR}/headers.cmake)
zu_headers_of_this_machine(CLI11::CLI11 CLI)
