# SPDX-License-Identifier: MIT
# The one place for compiler settings, and the two functions that every folder uses.

add_library(quillery_settings INTERFACE)
target_include_directories(quillery_settings INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_definitions(quillery_settings INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_FOREACH
  QT_STRICT_ITERATORS QT_USE_QSTRINGBUILDER)
target_compile_options(quillery_settings INTERFACE
  # One position-independent code model everywhere, so that all targets can share one
  # precompiled header.
  -fPIC
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Wold-style-cast -Wcast-align
  -Woverloaded-virtual -Wconversion -Wno-sign-conversion -Wnull-dereference
  -Wimplicit-fallthrough -Wextra-semi)
if(QUILLERY_WERROR)
  target_compile_options(quillery_settings INTERFACE -Werror)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  target_compile_options(quillery_settings INTERFACE
    -Wduplicated-cond -Wlogical-op -Wuseless-cast
    # GCC 12 reports impossible null paths inside Qt's and the standard library's inline code,
    # values inside std::optional that are read before they are set, and impossible lengths in
    # std::string (GCC bugs 105329 and 105651).
    -Wno-null-dereference -Wno-maybe-uninitialized -Wno-stringop-overflow
    -Wno-array-bounds -Wno-restrict)
endif()
if(QUILLERY_SANITIZE)
  target_compile_options(quillery_settings INTERFACE
    -fsanitize=${QUILLERY_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  target_link_options(quillery_settings INTERFACE -fsanitize=${QUILLERY_SANITIZE})
endif()
target_link_libraries(quillery_settings INTERFACE Qt6::Core)

# The precompiled headers are compiled once, here, and reused by every target: one for code without
# windows, one for widgets.
file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/pch.cpp CONTENT "// Only carries a precompiled header.\n")
function(quillery_precompile NAME HEADER)
  add_library(${NAME} STATIC ${CMAKE_BINARY_DIR}/pch.cpp)
  set_target_properties(${NAME} PROPERTIES AUTOMOC OFF AUTORCC OFF)
  target_link_libraries(${NAME} PUBLIC quillery_settings ${ARGN})
  target_precompile_headers(${NAME} PRIVATE ${PROJECT_SOURCE_DIR}/cmake/${HEADER})
endfunction()
quillery_precompile(quillery_pch Precompiled.h)
quillery_precompile(quillery_widgets_pch PrecompiledWidgets.h Qt6::Widgets)

# quillery_reuse_pch(NAME) picks the precompiled header by what the target links.
function(quillery_reuse_pch NAME HAS_WIDGETS)
  if(HAS_WIDGETS)
    target_link_libraries(${NAME} PRIVATE Qt6::Widgets)
    target_precompile_headers(${NAME} REUSE_FROM quillery_widgets_pch)
  else()
    target_precompile_headers(${NAME} REUSE_FROM quillery_pch)
  endif()
endfunction()

# quillery_library(NAME [WIDGETS] SOURCES a.cpp a.h ... LINK lib ... PRIVATE_LINK lib ...)
# A folder's static library. It may use what LINK names (and passes that on to its users) and
# what PRIVATE_LINK names, and nothing else. WIDGETS: it has windows.
function(quillery_library NAME)
  cmake_parse_arguments(ARG "WIDGETS" "" "SOURCES;LINK;PRIVATE_LINK" ${ARGN})
  add_library(${NAME} STATIC ${ARG_SOURCES})
  target_link_libraries(${NAME} PUBLIC quillery_settings ${ARG_LINK} PRIVATE ${ARG_PRIVATE_LINK})
  quillery_reuse_pch(${NAME} "${ARG_WIDGETS}")
endfunction()

# quillery_test(NAME [WIDGETS] SOURCES ... LINK ...)
# One GoogleTest program; its main() comes from tests/support.
function(quillery_test NAME)
  cmake_parse_arguments(ARG "WIDGETS" "" "SOURCES;LINK" ${ARGN})
  add_executable(${NAME} ${ARG_SOURCES})
  target_link_libraries(${NAME} PRIVATE quillery_settings ${ARG_LINK})
  quillery_reuse_pch(${NAME} "${ARG_WIDGETS}")
endfunction()

# Static checks are for what we wrote: the files that moc and rcc write get one harmless check,
# because none at all is an error.
file(WRITE ${CMAKE_BINARY_DIR}/.clang-tidy
  "Checks: '-*,misc-unused-alias-decls'\nInheritParentConfig: false\n")
