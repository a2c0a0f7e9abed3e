# Warnings are errors everywhere; the compiler cache is used where it is installed.
find_program(CCACHE ccache)
if(CCACHE)
  set(CMAKE_C_COMPILER_LAUNCHER ${CCACHE})
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE})
endif()

add_compile_options(-Wall -Wextra -Wpedantic -Werror -Wshadow -Wconversion -Wno-sign-conversion
                    -Wnull-dereference -Wimplicit-fallthrough)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # g++ 12 reports false positives inside std::string and std::vector at -O2.
  add_compile_options(-Wno-null-dereference -Wno-restrict)
endif()
if(TIDEMARK_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_compile_definitions(_GLIBCXX_ASSERTIONS)
  add_link_options(-fsanitize=address,undefined)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # The sanitizers' own code makes g++ report false positives inside std::function.
    add_compile_options(-Wno-maybe-uninitialized)
  endif()
endif()
if(TIDEMARK_FUZZ)
  # Coverage in every library; the fuzzers alone are linked with the driver, which has a main().
  # A number from outside that no whole type holds is the likeliest fault, and clang can tell it.
  add_compile_options(-fsanitize=fuzzer-no-link,float-cast-overflow)
  add_link_options(-fsanitize=float-cast-overflow)
endif()

# tm_library(NAME [QT] LINK lib...): a static library of every source in the current folder.
# A library with QT gets a precompiled header of the Qt classes that its windows use.
function(tm_library name)
  cmake_parse_arguments(ARG "QT" "" "LINK" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS *.cpp *.h)
  add_library(${name} STATIC ${sources})
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(${name} PUBLIC ${ARG_LINK})
  if(ARG_QT)
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
    target_precompile_headers(${name} PRIVATE ${PROJECT_SOURCE_DIR}/cmake/QtPrecompiled.h)
  endif()
endfunction()

# tm_test(NAME [QT] LINK lib... [ENV VARIABLE=value...]): a test program of every source in the
# current folder.
function(tm_test name)
  cmake_parse_arguments(ARG "QT" "" "LINK;ENV" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS *.cpp *.h)
  if(NOT sources)
    return()
  endif()
  add_executable(${name} ${sources})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_compile_definitions(${name} PRIVATE TIDEMARK_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
  target_link_libraries(${name} PRIVATE ${ARG_LINK} GTest::gmock)
  if(ARG_QT)
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
    target_precompile_headers(${name} PRIVATE ${PROJECT_SOURCE_DIR}/cmake/QtPrecompiled.h)
  else()
    target_link_libraries(${name} PRIVATE GTest::gtest_main)
  endif()
  include(GoogleTest)
  gtest_discover_tests(${name} PROPERTIES ENVIRONMENT "${ARG_ENV}" DISCOVERY_TIMEOUT 60)
endfunction()

# What moc generates is not ours to tidy; one harmless check stands in, since none at all is an error.
if(CMAKE_CXX_CLANG_TIDY)
  file(WRITE ${CMAKE_BINARY_DIR}/.clang-tidy "Checks: '-*,misc-definitions-in-headers'\n")
endif()
