# What every target of the project is compiled with. The sanitizers apply to the whole build.
add_library(feecenter_build_flags INTERFACE)
target_compile_options(feecenter_build_flags INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wold-style-cast
                                                       -Wcast-qual
                                                       $<$<BOOL:${FEECENTER_WERROR}>:-Werror>)
if(NOT PROJECT_IS_TOP_LEVEL AND NOT FEECENTER_WERROR)
  # What the project around this one makes an error of is asked of its own sources.
  target_compile_options(feecenter_build_flags INTERFACE -Wno-error)
  set(CMAKE_COMPILE_WARNING_AS_ERROR OFF)
endif()
target_include_directories(feecenter_build_flags INTERFACE ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/include)

if(FEECENTER_SANITIZE)
  add_compile_options(-fsanitize=${FEECENTER_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${FEECENTER_SANITIZE})
  if(FEECENTER_SANITIZE MATCHES thread AND CMAKE_CXX_COMPILER_ID STREQUAL GNU)
    # Boost.Asio's headers use a fence, which g++ warns that ThreadSanitizer cannot see.
    target_compile_options(feecenter_build_flags INTERFACE -Wno-tsan)
  endif()
endif()

if(FEECENTER_COVERAGE)
  # The tests are counted too: an inline function that a test shares with the library exists once in the program, and it is
  # the linker that chooses which of the two. The tests have threads, so the counters are atomic.
  add_compile_options(-fprofile-instr-generate -fcoverage-mapping -fprofile-update=atomic)
  add_link_options(-fprofile-instr-generate)
endif()
