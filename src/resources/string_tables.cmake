# For an external host the texts are string tables: the built-in ones in the library, each other language in a module of
# resources alone. Only Windows has a compiler for them.
if(NOT WIN32)
  return()
endif()
find_package(Python3 REQUIRED COMPONENTS Interpreter)

function(zu_string_table name id)
  set(source ${CMAKE_CURRENT_SOURCE_DIR}/${name}.strings)
  set(script ${CMAKE_CURRENT_SOURCE_DIR}/make_string_table.py)
  add_custom_command(OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/${name}.rc
    COMMAND ${Python3_EXECUTABLE} ${script} ${source} ${id} ${CMAKE_CURRENT_BINARY_DIR}/${name}.rc
    DEPENDS ${source} ${script})
endfunction()

zu_string_table(ja 1041)
add_library(zucomn_texts OBJECT ${CMAKE_CURRENT_BINARY_DIR}/ja.rc)
foreach(language IN LISTS ZU_LANGUAGES)
  separate_arguments(language)
  list(GET language 0 file)
  list(GET language 1 id)
  zu_string_table(${file} ${id})
  add_library(ZuComn_${id} MODULE ${CMAKE_CURRENT_BINARY_DIR}/${file}.rc)
  set_target_properties(ZuComn_${id} PROPERTIES LINKER_LANGUAGE CXX PREFIX "" OUTPUT_NAME ZuComn
    LIBRARY_OUTPUT_DIRECTORY ${CMAKE_LIBRARY_OUTPUT_DIRECTORY}/${id})
  if(MSVC)
    target_link_options(ZuComn_${id} PRIVATE /NOENTRY)
  endif()
  install(TARGETS ZuComn_${id} LIBRARY DESTINATION ${CMAKE_INSTALL_BINDIR}/${id})
endforeach()
