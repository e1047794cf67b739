# kel_precompile(TARGET FAMILY HEADERS...): TARGET's sources find these headers compiled, once for a family of targets with
# the same flags.
function(kel_precompile target family)
  get_property(owner GLOBAL PROPERTY kel_precompiled_${family})
  if(owner)
    target_precompile_headers(${target} REUSE_FROM ${owner})
  else()
    target_precompile_headers(${target} PRIVATE ${ARGN})
    set_property(GLOBAL PROPERTY kel_precompiled_${family} ${target})
  endif()
endfunction()

# kel_alone(SOURCES...): sources that are never compiled together with others of their folder, because of names of their
# own that others have too.
function(kel_alone)
  set_source_files_properties(${ARGN} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
endfunction()

# kel_find_headers(PACKAGE FOLDER): a library that is headers alone, below FOLDER of the include path, as PACKAGE::PACKAGE.
# Where the compiler is another system's it sees those of this one, and nothing else that lies beside them.
function(kel_find_headers package folder)
  if(NOT CMAKE_CROSSCOMPILING)
    find_package(${package} REQUIRED)
    return()
  endif()
  if(TARGET ${package}::${package})
    return()
  endif()
  find_path(${package}_DIR_OF_HEADERS ${folder} PATHS /usr/include NO_CMAKE_FIND_ROOT_PATH REQUIRED)
  set(headers ${PROJECT_BINARY_DIR}/headers/${package})
  file(MAKE_DIRECTORY ${headers})
  file(CREATE_LINK ${${package}_DIR_OF_HEADERS}/${folder} ${headers}/${folder} SYMBOLIC)
  add_library(${package}::${package} INTERFACE IMPORTED GLOBAL)
  target_include_directories(${package}::${package} SYSTEM INTERFACE ${headers})
endfunction()

# kel_floor(NAME SOURCES... [BELOW TARGETS...]): one folder of the product as a static library. What it links is what it
# may include.
function(kel_floor name)
  cmake_parse_arguments(FLOOR "" "" "BELOW" ${ARGN})
  if(FLOOR_UNPARSED_ARGUMENTS)
    add_library(kel_${name} STATIC ${FLOOR_UNPARSED_ARGUMENTS})
    target_include_directories(kel_${name} PUBLIC ${PROJECT_SOURCE_DIR})
    target_link_libraries(kel_${name} PUBLIC ${FLOOR_BELOW})
    if(KEL_PRECOMPILE)
      kel_precompile(kel_${name} floors
        <algorithm> <cstdint> <functional> <map> <memory> <optional> <string> <unordered_map> <utility> <vector>)
    endif()
  else()
    add_library(kel_${name} INTERFACE)
    target_include_directories(kel_${name} INTERFACE ${PROJECT_SOURCE_DIR})
    target_link_libraries(kel_${name} INTERFACE ${FLOOR_BELOW})
  endif()
endfunction()

# kel_knows_version(TARGETS...): their sources may include "version.h".
function(kel_knows_version)
  foreach(target IN LISTS ARGN)
    target_include_directories(${target} PRIVATE ${PROJECT_BINARY_DIR}/generated)
  endforeach()
endfunction()

# kel_test(NAME SOURCES... [USES TARGETS...]): one GoogleTest program; each of its tests is one ctest test.
function(kel_test name)
  cmake_parse_arguments(TEST "" "" "USES" ${ARGN})
  add_executable(${name} ${TEST_UNPARSED_ARGUMENTS})
  target_link_libraries(${name} PRIVATE ${TEST_USES} GTest::gtest_main)
  # What is tested is optimised as the preset says; the tests themselves need not be, and compile in half the time.
  if(KEL_SANITIZE OR NOT CMAKE_BUILD_TYPE STREQUAL "Debug")
    target_compile_options(${name} PRIVATE -O0)
  endif()
  # All of them begin with GoogleTest, so that nothing is hidden by having it compiled once.
  set(headers <gtest/gtest.h>)
  if(KEL_PRECOMPILE)
    list(APPEND headers <algorithm> <filesystem> <fstream> <functional> <map> <memory> <optional> <string> <utility> <vector>)
  endif()
  kel_precompile(${name} tests ${headers})
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST NO_PRETTY_VALUES PROPERTIES TIMEOUT 280)
endfunction()

# kel_fuzz(NAME [RUNS NUMBER] [DICTIONARY FILE] [USES TARGETS...]): the fuzz target of NAME_fuzz.cpp. As a test it starts from
# the seeds in seeds/NAME and runs a fixed number of inputs from a fixed start, so that every run does the same. A dictionary
# holds words that inputs are made of.
function(kel_fuzz name)
  cmake_parse_arguments(FUZZ "" "RUNS;DICTIONARY" "USES" ${ARGN})
  if(NOT FUZZ_RUNS)
    set(FUZZ_RUNS 20000)
  endif()
  add_executable(${name}_fuzz ${name}_fuzz.cpp)
  target_link_libraries(${name}_fuzz PRIVATE ${FUZZ_USES})
  target_link_options(${name}_fuzz PRIVATE -fsanitize=fuzzer)
  set(found ${CMAKE_CURRENT_BINARY_DIR}/found/${name})
  set(corpus ${CMAKE_CURRENT_BINARY_DIR}/corpus/${name})  # the first folder gets what is found; the seeds stay as they are
  file(MAKE_DIRECTORY ${found} ${corpus})
  set(options -runs=${FUZZ_RUNS} -seed=1 -max_len=4096 -timeout=20)
  if(FUZZ_DICTIONARY)
    list(APPEND options -dict=${CMAKE_CURRENT_SOURCE_DIR}/${FUZZ_DICTIONARY})
  endif()
  add_test(NAME fuzz.${name} COMMAND ${name}_fuzz ${options}
    -artifact_prefix=${found}/ -reload=0 -verbosity=0 ${corpus} ${CMAKE_CURRENT_SOURCE_DIR}/seeds/${name})
  set_tests_properties(fuzz.${name} PROPERTIES TIMEOUT 280)
endfunction()
