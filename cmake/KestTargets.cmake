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
# Libraries report their branches to a fuzzer, else it would search blindly.
if(KEST_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()
if(KEST_SANITIZERS)
  list(JOIN KEST_SANITIZERS "," sanitizers)
  add_compile_options(-fsanitize=${sanitizers} -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
  add_link_options(-fsanitize=${sanitizers})
endif()

# Of test programs. The sanitizers' build is optimized for what is tested; the tests themselves are compiled in
# two thirds of the time without.
add_library(kest_test_flags INTERFACE)
target_link_libraries(kest_test_flags INTERFACE kest_flags)
if(KEST_SANITIZERS)
  target_compile_options(kest_test_flags INTERFACE -O0)
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

# With KEST_QUICK the headers that most sources include are compiled once, not once a source, and the sources of a
# target in batches. Off by default: with ccache, a build of single sources comes from the cache more often, and it
# shows that each source includes what it uses.
#
# kest_headers(NAME LINKS ... HEADERS ...): the common headers, and these. Few large sets are dearer than
# several small ones: a compiler instantiates anew, for each source, what a set leaves open.
function(kest_headers name)
  if(NOT KEST_QUICK)
    return()
  endif()
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "LINKS;HEADERS")
  file(CONFIGURE OUTPUT "${name}.cpp" CONTENT "")
  add_library(${name} OBJECT "${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp")
  set_target_properties(${name} PROPERTIES AUTOMOC OFF)
  target_link_libraries(${name} PRIVATE kest_flags ${arg_LINKS})
  target_precompile_headers(${name} PRIVATE
    <QByteArray> <QCoreApplication> <QHash> <QObject> <QSet> <QString> <QStringList>
    <algorithm> <functional> <map> <memory> <optional> <set> <variant> <vector> ${arg_HEADERS})
endfunction()

# kest_quick(TARGET HEADERS [APART REGEX]): the sources of the target begin with such a set; those of a library are
# compiled in batches. Sources that name their texts' context in a function of their own, or make the names of an
# enumeration their own, stay out of these, where they would meet those of others; so do those that match APART.
function(kest_quick target headers)
  cmake_parse_arguments(PARSE_ARGV 2 arg "" "APART" "")
  if(NOT KEST_QUICK)
    return()
  endif()
  target_precompile_headers(${target} REUSE_FROM ${headers})
  get_target_property(type ${target} TYPE)
  if(type STREQUAL "EXECUTABLE")
    return()
  endif()
  set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 12)
  get_target_property(sources ${target} SOURCES)
  list(FILTER sources INCLUDE REGEX "\\.cpp$")
  foreach(source IN LISTS sources)
    file(STRINGS "${source}" found REGEX "^QString tr\\(|^using enum " LIMIT_COUNT 1)
    if(found OR (arg_APART AND source MATCHES "${arg_APART}"))
      set_source_files_properties("${source}" PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
    endif()
  endforeach()
endfunction()

function(kest_quick_test target)
  foreach(source IN LISTS ARGN)
    file(STRINGS "${source}" is_google_test REGEX "gtest/gtest.h" LIMIT_COUNT 1)
    if(is_google_test)
      kest_quick(${target} kest_google_test_headers)
      return()
    endif()
  endforeach()
  kest_quick(${target} kest_qt_test_headers)
endfunction()

# kest_library(NAME SHARED|STATIC LINKS ...): one folder, one link target, all of its .cpp and .h files. APART as for
# kest_quick().
function(kest_library name kind)
  cmake_parse_arguments(PARSE_ARGV 2 arg "RECURSE" "APART" "LINKS;EXCLUDE")
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
  kest_quick(${name} kest_core_headers APART "${arg_APART}")
endfunction()

# kest_test_library(NAME SOURCES ... LINKS ...): what several test programs share.
function(kest_test_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "LINKS;SOURCES")
  add_library(${name} STATIC ${arg_SOURCES})
  target_link_libraries(${name} PRIVATE kest_test_flags PUBLIC kest_test_support ${arg_LINKS})
  list(TRANSFORM arg_SOURCES REPLACE "^([^/].*)" "${CMAKE_CURRENT_SOURCE_DIR}/\\1")
  kest_automoc_where_needed(${name} ${arg_SOURCES})
  kest_quick_test(${name} ${arg_SOURCES})
endfunction()

# kest_sanitize(TEST ...): tests over bytes that come from elsewhere, which ./check builds and runs under the
# sanitizers only. After kest_test(), in the same folder.
add_custom_target(sanitized_tests COMMENT "Building the tests that run under the sanitizers")
function(kest_sanitize)
  foreach(test IN LISTS ARGN)
    set_tests_properties(${test} PROPERTIES LABELS sanitize)
    if(KEST_QUICK AND NOT KEST_SANITIZERS)
      set_target_properties(${test} PROPERTIES EXCLUDE_FROM_ALL ON)
      set_tests_properties(${test} PROPERTIES DISABLED ON)
    endif()
    add_dependencies(sanitized_tests ${test})
  endforeach()
endfunction()

# kest_test(NAME LINKS ...): a test program from NAME.cpp; registered with ctest under its own name.
function(kest_test name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "LINKS;SOURCES")
  add_executable(${name} ${name}.cpp ${arg_SOURCES})
  list(TRANSFORM arg_SOURCES PREPEND "${CMAKE_CURRENT_SOURCE_DIR}/" OUTPUT_VARIABLE more)
  kest_moc_of_test(${name} "${CMAKE_CURRENT_SOURCE_DIR}/${name}.cpp" ${more})
  target_link_libraries(${name} PRIVATE kest_test_flags kest_test_support ${arg_LINKS})
  kest_quick_test(${name} "${CMAKE_CURRENT_SOURCE_DIR}/${name}.cpp")
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES
    TIMEOUT 300
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LANG=C.UTF-8;TZ=UTC")
endfunction()
