# Targets that all carry the project's compile options.

set(KEST_COMPILE_OPTIONS
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align -Wconversion
  -Wno-sign-conversion)
set(KEST_COMPILE_DEFINITIONS
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING QT_NO_NARROWING_CONVERSIONS_IN_CONNECT
  QT_NO_KEYWORDS QT_NO_FOREACH QT_STRICT_ITERATORS QT_DISABLE_DEPRECATED_BEFORE=0x060400
  KEST_VERSION="${PROJECT_VERSION}")

function(kest_target_options target)
  target_include_directories(${target} PRIVATE ${PROJECT_SOURCE_DIR}/src)
  target_compile_options(${target} PRIVATE ${KEST_COMPILE_OPTIONS})
  target_compile_definitions(${target} PRIVATE ${KEST_COMPILE_DEFINITIONS})
  if(KEST_WERROR)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
  if(KEST_SANITIZE)
    target_compile_options(${target} PRIVATE -fsanitize=${KEST_SANITIZE} -fno-omit-frame-pointer)
    target_link_options(${target} PRIVATE -fsanitize=${KEST_SANITIZE})
  endif()
endfunction()

# kest_library(NAME SOURCES... LINK ...): a static library of one room.
function(kest_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_link_libraries(${name} PUBLIC ${ARG_LINK})
  kest_target_options(${name})
endfunction()

# kest_plugin(NAME SOURCES... LINK ...): a part of the program in a file of its own, NAME.so, with libraries that are loaded
# with it only when it is wanted (PluginLibrary). What needs it at run time is built together with it.
set(KEST_PLUGIN_DIR ${CMAKE_INSTALL_LIBDIR}/kest)
function(kest_plugin name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
  add_library(${name} MODULE ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE ${ARG_LINK})
  kest_target_options(${name})
  set_target_properties(${name} PROPERTIES PREFIX "" CXX_VISIBILITY_PRESET hidden)
  install(TARGETS ${name} LIBRARY DESTINATION ${KEST_PLUGIN_DIR})
endfunction()

# kest_test(NAME LABEL SOURCES... LINK ... [SERVICES ...] [TIMEOUT seconds]):
# one QtTest executable, run by CTest. SERVICES are options of
# tests/support/with_services.py, which starts private services and ends them.
# A test function that skips itself fails the run: what it needs should be there.
# What works with real time and real services has the machine to itself.
set(KEST_SKIPPED "SKIP   : ")
function(kest_test name label)
  cmake_parse_arguments(ARG "" "TIMEOUT" "SOURCES;LINK;SERVICES" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE Qt6::Test ${ARG_LINK})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  kest_target_options(${name})
  if(NOT ARG_TIMEOUT)
    set(ARG_TIMEOUT 60)
  endif()
  set(alone TRUE)
  if(label MATCHES "^(unit|contract|gui)$")
    set(alone FALSE)
  endif()
  add_test(NAME ${label}.${name}
    COMMAND /usr/bin/python3 ${PROJECT_SOURCE_DIR}/tests/support/with_services.py ${ARG_SERVICES}
      -- $<TARGET_FILE:${name}>)
  set_tests_properties(${label}.${name} PROPERTIES LABELS ${label} TIMEOUT ${ARG_TIMEOUT} RUN_SERIAL ${alone}
    FAIL_REGULAR_EXPRESSION ${KEST_SKIPPED}
    ENVIRONMENT "KEST_BUILD_DIR=${CMAKE_BINARY_DIR};KEST_SOURCE_DIR=${PROJECT_SOURCE_DIR}")
endfunction()
