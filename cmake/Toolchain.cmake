# Compiler, warnings, sanitizers and ccache, set once for every target.

if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  message(FATAL_ERROR
    "GCC ${CMAKE_CXX_COMPILER_VERSION} destroys temporaries twice in suspended coroutines; use clang 16 or newer "
    "(the presets choose clang++-16), or GCC 13 or newer.")
elseif(CMAKE_CXX_COMPILER_ID STREQUAL "Clang" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 16)
  message(FATAL_ERROR "clang ${CMAKE_CXX_COMPILER_VERSION} is too old for this code; use clang 16 or newer.")
endif()

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_AUTOMOC ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)

find_program(CCACHE ccache)
if(CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  # Work trees beside each other share the cache; precompiled headers need the sloppiness.
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env
    CCACHE_BASEDIR=${PROJECT_SOURCE_DIR} CCACHE_NOHASHDIR=1
    CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
    ${CCACHE})
endif()

add_library(orvella_flags INTERFACE)
target_compile_options(orvella_flags INTERFACE -Wall -Wextra -Wpedantic -Wnon-virtual-dtor -Werror
  # In files that are joined, a local name hides that of another file.
  $<$<NOT:$<BOOL:$<TARGET_PROPERTY:UNITY_BUILD>>>:-Wshadow>)
target_compile_definitions(orvella_flags INTERFACE
  QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_FOREACH QT_NO_NARROWING_CONVERSIONS_IN_CONNECT
  QT_DISABLE_DEPRECATED_BEFORE=0x060400)
if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  # The timestamp in a clang precompiled header would defeat ccache.
  target_compile_options(orvella_flags INTERFACE
    -Wno-gnu-zero-variadic-macro-arguments $<$<COMPILE_LANGUAGE:CXX>:SHELL:-Xclang -fno-pch-timestamp>)
  target_link_options(orvella_flags INTERFACE -fuse-ld=lld-16)
endif()
if(CMAKE_BUILD_TYPE STREQUAL "Debug")
  # Full debug information doubles build and link time; line tables are what backtraces need.
  set(CMAKE_CXX_FLAGS_DEBUG "-g1")
endif()

# What a fault in memory can be turned into is bounded by the compiler and the linker; scripts/check-hardening reads the
# program for it. The sanitizers have their own ways, which these get in.
if(CMAKE_BUILD_TYPE STREQUAL "Release")
  include(CheckPIESupported)
  check_pie_supported()
  add_compile_options(-fstack-protector-strong -fstack-clash-protection -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
  add_link_options(-Wl,-z,relro,-z,now,-z,noexecstack)
endif()

# Files of a folder include the same headers one by one; joined, a build from nothing takes half the time. Off, a change
# in one file compiles only that file, the compile commands name every file, as clang-tidy wants them, and the compiler
# tells of names that hide others.
option(ORVELLA_JOIN "Compile the files of a folder together" ON)

# orvella_join(TARGET FILES): its files compiled so many at a time.
function(orvella_join target files)
  if(ORVELLA_JOIN)
    set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE ${files})
  endif()
endfunction()

set(ORVELLA_SANITIZE "" CACHE STRING "Sanitizers to build with, as -fsanitize= takes them")
if(ORVELLA_SANITIZE)
  add_compile_options(-fsanitize=${ORVELLA_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  # Qt's own libraries carry no type information for the vptr check.
  if(ORVELLA_SANITIZE MATCHES "undefined")
    add_compile_options(-fno-sanitize=vptr)
  endif()
  # Without any optimisation the thread sanitizer watches every access to the stack.
  if(ORVELLA_SANITIZE MATCHES "thread")
    add_compile_options(-O1)
  endif()
  add_link_options(-fsanitize=${ORVELLA_SANITIZE})
endif()

option(ORVELLA_FUZZ "Build tests/fuzz too; everything then counts where it has been for libFuzzer" OFF)
if(ORVELLA_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link -O1)
endif()

set(ORVELLA_TEST_ENVIRONMENT
  "QT_QPA_PLATFORM=offscreen" "QT_QUICK_BACKEND=software" "LC_ALL=C.UTF-8"
  "ASAN_OPTIONS=detect_stack_use_after_return=1:malloc_context_size=12:quarantine_size_mb=64"
  "LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/scripts/leaks.supp:print_suppressions=0"
  "UBSAN_OPTIONS=print_stacktrace=1"
  "TSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/scripts/races.supp")

# orvella_test(NAME SOURCES … [LIBRARIES …]): one Qt Test program, registered with CTest.
function(orvella_test name)
  cmake_parse_arguments(arg "GUI" "" "SOURCES;LIBRARIES;WRAPPER" ${ARGN})
  add_executable(${name} ${arg_SOURCES})
  target_link_libraries(${name} PRIVATE orvella_flags Qt6::Test ${arg_LIBRARIES})
  add_test(NAME ${name} COMMAND ${arg_WRAPPER} $<TARGET_FILE:${name}>)
  set_tests_properties(${name} PROPERTIES TIMEOUT 120 ENVIRONMENT "${ORVELLA_TEST_ENVIRONMENT}")
endfunction()
