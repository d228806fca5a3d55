# Flags and helpers shared by every target of the project.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_AUTOMOC ON)
set(CMAKE_AUTORCC ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_WINDOWS_EXPORT_ALL_SYMBOLS ON)

set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
set(CMAKE_BUILD_RPATH_USE_ORIGIN ON)
set(CMAKE_INSTALL_RPATH "$ORIGIN/../${CMAKE_INSTALL_LIBDIR}/kest")

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER "${CCACHE_PROGRAM}")
endif()

add_library(kest_flags INTERFACE)
target_compile_options(kest_flags INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion
  $<$<BOOL:${KEST_WERROR}>:-Werror>
  $<$<CONFIG:RelWithDebInfo>:-fno-semantic-interposition>)
target_compile_definitions(kest_flags INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII
  KEST_VERSION="${PROJECT_VERSION}")
target_include_directories(kest_flags INTERFACE "${PROJECT_SOURCE_DIR}/src")
if(KEST_SANITIZERS)
  list(JOIN KEST_SANITIZERS "," sanitizers)
  add_compile_options(-fsanitize=${sanitizers} -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
  add_link_options(-fsanitize=${sanitizers})
endif()

# Only sources that ask for it meet moc: what it makes costs a compilation a target.
function(kest_automoc_where_needed target)
  foreach(source IN LISTS ARGN)
    file(STRINGS "${source}" found REGEX "Q_OBJECT|Q_GADGET|Q_NAMESPACE|\\.moc\"" LIMIT_COUNT 1)
    if(found)
      return()
    endif()
  endforeach()
  set_target_properties(${target} PROPERTIES AUTOMOC OFF)
endfunction()

# The moc output of a test program's own file. That is all of it that most test programs need, and much
# quicker than the scan and the extra source of AUTOMOC.
function(kest_moc_of_test target)
  foreach(source IN LISTS ARGN)
    if(source MATCHES "\\.h$")
      file(STRINGS "${source}" found REGEX "Q_OBJECT" LIMIT_COUNT 1)
      if(found)
        return()
      endif()
    endif()
  endforeach()
  foreach(source IN LISTS ARGN)
    cmake_path(GET source STEM stem)
    file(STRINGS "${source}" found REGEX "\"${stem}\\.moc\"" LIMIT_COUNT 1)
    if(found)
      set(output "${CMAKE_CURRENT_BINARY_DIR}/${target}_moc/${stem}.moc")
      qt6_generate_moc("${source}" "${output}" TARGET ${target})
      target_sources(${target} PRIVATE "${output}")
      target_include_directories(${target} PRIVATE "${CMAKE_CURRENT_BINARY_DIR}/${target}_moc")
    endif()
  endforeach()
  set_target_properties(${target} PROPERTIES AUTOMOC OFF)
endfunction()

# With KEST_PCH the headers that most sources include are compiled once a target, not once a source.
# Off by default: with ccache, builds without them come from the cache more often.
set(KEST_COMMON_HEADERS
  <QByteArray> <QCoreApplication> <QHash> <QObject> <QSet> <QString> <QStringList>
  <algorithm> <functional> <map> <memory> <optional> <set> <variant> <vector>)
function(kest_precompile target)
  if(KEST_PCH)
    target_precompile_headers(${target} PRIVATE ${KEST_COMMON_HEADERS} ${ARGN})
  endif()
endfunction()

# kest_library(NAME SHARED|STATIC LINKS ...): one folder, one link target, all of its .cpp and .h files.
function(kest_library name kind)
  cmake_parse_arguments(PARSE_ARGV 2 arg "RECURSE" "" "LINKS;EXCLUDE")
  set(glob GLOB)
  if(arg_RECURSE)
    set(glob GLOB_RECURSE)
  endif()
  file(${glob} sources CONFIGURE_DEPENDS "*.cpp" "*.h" "*.qrc")
  foreach(pattern IN LISTS arg_EXCLUDE)
    list(FILTER sources EXCLUDE REGEX "${pattern}")
  endforeach()
  add_library(${name} ${kind} ${sources})
  kest_automoc_where_needed(${name} ${sources})
  target_link_libraries(${name} PUBLIC kest_flags ${arg_LINKS})
  kest_precompile(${name})
endfunction()

# kest_test(NAME LINKS ...): a test program from NAME.cpp; registered with ctest under its own name.
function(kest_test name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "LINKS;SOURCES")
  add_executable(${name} ${name}.cpp ${arg_SOURCES})
  list(TRANSFORM arg_SOURCES PREPEND "${CMAKE_CURRENT_SOURCE_DIR}/" OUTPUT_VARIABLE more)
  kest_moc_of_test(${name} "${CMAKE_CURRENT_SOURCE_DIR}/${name}.cpp" ${more})
  target_link_libraries(${name} PRIVATE kest_flags kest_test_support ${arg_LINKS})
  if(KEST_PCH)
    target_precompile_headers(${name} REUSE_FROM kest_test_headers)
  endif()
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES
    TIMEOUT 300
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LANG=C.UTF-8;TZ=UTC")
endfunction()
