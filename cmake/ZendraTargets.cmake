# What every target of ours shares.

# Files of a folder that are compiled together when ZENDRA_UNITY is on.
set(ZENDRA_POR_GRUPO 8)
function(zendra_unidad objetivo)
  if(NOT ZENDRA_UNITY)
    return()
  endif()
  get_target_property(fuentes ${objetivo} SOURCES)
  foreach(fuente IN LISTS fuentes)
    if(NOT fuente MATCHES "\\.cpp$" OR fuente MATCHES "main_[a-z]+\\.cpp$|${CMAKE_BINARY_DIR}")
      continue()
    endif()
    get_filename_component(carpeta ${fuente} ABSOLUTE)
    get_filename_component(carpeta ${carpeta} DIRECTORY)
    file(RELATIVE_PATH carpeta ${CMAKE_SOURCE_DIR} ${carpeta})
    string(MAKE_C_IDENTIFIER "${carpeta}" carpeta)
    if(NOT DEFINED en_${carpeta})
      set(en_${carpeta} 0)
    endif()
    math(EXPR grupo "${en_${carpeta}} / ${ZENDRA_POR_GRUPO}")
    math(EXPR en_${carpeta} "${en_${carpeta}} + 1")
    set_source_files_properties(${fuente} PROPERTIES UNITY_GROUP "${carpeta}_${grupo}")
  endforeach()
  set_target_properties(${objetivo} PROPERTIES UNITY_BUILD ON UNITY_BUILD_MODE GROUP)
endfunction()

# Warnings are errors, everywhere alike. With CON_TEXTOS_SUELTOS a plain "text" may still stand for a QString.
function(zendra_reglas objetivo)
  zendra_unidad(${objetivo})
  target_include_directories(${objetivo} PUBLIC ${CMAKE_SOURCE_DIR})
  target_compile_options(${objetivo} PRIVATE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Werror)
  # A connection says its context; Qt knows this word from 6.7 on, scripts/connections looks until then.
  target_compile_definitions(${objetivo} PRIVATE QT_NO_KEYWORDS QT_NO_CAST_FROM_BYTEARRAY QT_NO_CONTEXTLESS_CONNECT)
  if(NOT "CON_TEXTOS_SUELTOS" IN_LIST ARGN)
    target_compile_definitions(${objetivo} PRIVATE QT_NO_CAST_FROM_ASCII)
  endif()
endfunction()

# The core is read by the sanitizers in whatever program it runs: its own tests, the batch, the screens.
function(zendra_vigilar objetivo)
  if(ZENDRA_SANITIZE)
    target_compile_options(${objetivo} PRIVATE
      -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(${objetivo} PUBLIC -fsanitize=address,undefined)
  endif()
endfunction()

# Tests are compiled once and run once: reading them fast is worth more than running them fast.
function(zendra_prueba objetivo)
  zendra_reglas(${objetivo} ${ARGN})
  target_compile_options(${objetivo} PRIVATE $<$<CONFIG:Debug>:-O0>)
  if(ZENDRA_UNITY)
    # What is a file's own is its neighbours' too when they are read together.
    target_compile_options(${objetivo} PRIVATE -Wno-subobject-linkage -Wno-shadow)
  endif()
endfunction()

function(zendra_pch objetivo)
  if(ZENDRA_PCH AND NOT ZENDRA_UNITY)
    target_precompile_headers(${objetivo} PRIVATE ${ARGN})
  endif()
endfunction()

# A program is one file in programs/ over one of the two libraries.
function(zendra_programa nombre biblioteca)
  file(GLOB principal CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/programs/${nombre}.cpp)
  if(principal)
    add_executable(${nombre} ${principal})
    target_link_libraries(${nombre} PRIVATE ${biblioteca})
    zendra_reglas(${nombre})
  endif()
endfunction()
