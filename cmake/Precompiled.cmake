# Other people's headers that many sources include are compiled once for all libraries, once for feedesk and once for all test
# programs, not once for each source. A source still includes what it uses: the library itself and release builds are compiled
# without what is here.
#
# Sources that share compiled headers must agree on what these look at: definitions, optimisation, position
# independence. Where they do not, the compiler says so and stops.

# feecenter_precompile(NAME LINK libraries... HEADERS headers... OPTIONS options...)
# PIC where the sources that use it go into a shared library, or into a static one.
function(feecenter_precompile name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "PIC" "" "LINK;HEADERS;OPTIONS")
  set(source ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp)
  file(CONFIGURE OUTPUT ${source} CONTENT "// There is nothing here but the headers that are compiled with it.\n")
  add_library(${name} STATIC EXCLUDE_FROM_ALL ${source})
  target_link_libraries(${name} PRIVATE feecenter_build_flags ${arg_LINK})
  target_compile_options(${name} PRIVATE ${arg_OPTIONS})
  target_precompile_headers(${name} PRIVATE ${arg_HEADERS})
  set_target_properties(${name} PROPERTIES POSITION_INDEPENDENT_CODE ${arg_PIC} USERS_OPTIONS "${arg_OPTIONS}")
endfunction()

# feecenter_use_precompiled(NAME targets...): compiles the targets as NAME is compiled, and with its headers. Does nothing where the
# build has no NAME.
function(feecenter_use_precompiled name)
  if(NOT TARGET ${name})
    return()
  endif()
  get_target_property(pic ${name} POSITION_INDEPENDENT_CODE)
  get_target_property(options ${name} USERS_OPTIONS)
  foreach(target IN LISTS ARGN)
    target_precompile_headers(${target} REUSE_FROM ${name})
    target_compile_definitions(${target} PRIVATE $<TARGET_PROPERTY:${name},COMPILE_DEFINITIONS>)
    target_compile_options(${target} PRIVATE ${options})
    set_target_properties(${target} PROPERTIES POSITION_INDEPENDENT_CODE ${pic})
  endforeach()
endfunction()

if(FEECENTER_TESTS)
  set(precompiled_headers
    <boost/asio/io_service.hpp> <boost/asio/io_service_strand.hpp> <boost/make_shared.hpp> <boost/shared_ptr.hpp>
    <boost/thread/lock_types.hpp> <boost/thread/shared_mutex.hpp> <boost/unordered_map.hpp> <fmt/format.h>
    <algorithm> <filesystem> <functional> <map> <optional> <set> <string> <string_view> <utility> <vector>)
  set(precompiled_libraries Boost::headers Boost::thread fmt::fmt)
  feecenter_precompile(precompiled_for_libraries PIC LINK ${precompiled_libraries} HEADERS ${precompiled_headers})
  # Where the program is tested it is not optimised: that would take longer than it saves.
  feecenter_precompile(precompiled_for_program
    LINK ${precompiled_libraries} CLI11::CLI11
    HEADERS ${precompiled_headers} <boost/multiprecision/cpp_int.hpp> <CLI/CLI.hpp>
    OPTIONS -O0)
  set(precompiled precompiled_for_libraries precompiled_for_program)
  if(FEECENTER_CHECK_HEADERS)
    # Without what would make code in each unit that has it.
    feecenter_precompile(precompiled_for_inner_headers
      LINK ${precompiled_libraries}
      HEADERS ${precompiled_headers} <boost/multiprecision/cpp_int.hpp>
      OPTIONS -O0 -g0 -fno-sanitize=all)
    list(APPEND precompiled precompiled_for_inner_headers)
  endif()
  foreach(name IN LISTS precompiled)
    target_compile_definitions(${name} PRIVATE $<TARGET_PROPERTY:feecenter_standalone,INTERFACE_COMPILE_DEFINITIONS>)
  endforeach()
endif()
