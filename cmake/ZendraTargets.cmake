# Warnings are errors, everywhere alike.
function(zendra_reglas objetivo)
  target_include_directories(${objetivo} PUBLIC ${CMAKE_SOURCE_DIR})
  target_compile_options(${objetivo} PRIVATE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Werror)
  target_compile_definitions(${objetivo} PRIVATE QT_NO_KEYWORDS QT_NO_CAST_FROM_BYTEARRAY)
  if(ZENDRA_SANITIZE)
    target_compile_options(${objetivo} PUBLIC -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(${objetivo} PUBLIC -fsanitize=address,undefined)
  endif()
endfunction()

function(zendra_pch objetivo)
  if(ZENDRA_PCH)
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
