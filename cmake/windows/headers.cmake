# zu_headers_of_this_machine(TARGET FOLDER): a library of headers only, seen through a link: the folder of all of this
# machine's headers would hide those of the other system.
function(zu_headers_of_this_machine target folder)
  if(TARGET ${target})
    return()
  endif()
  set(links ${CMAKE_BINARY_DIR}/headers)
  file(MAKE_DIRECTORY ${links})
  file(CREATE_LINK /usr/include/${folder} ${links}/${folder} SYMBOLIC)
  add_library(${target} INTERFACE IMPORTED GLOBAL)
  target_include_directories(${target} INTERFACE ${links})
endfunction()
