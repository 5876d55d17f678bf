# Which parts are built. Each stands on the one before it, and what a part needs from elsewhere is looked for only where the
# part is built.
#   library     libfeecenter.so, always        Boost
#   records     the given record operations    libbson, xxHash
#   cost        amounts
#   standalone  the complete host              libcsv, liblzma, toml++, fmt
#   feedesk     the program                    CLI11, RapidJSON, libedit, libxlsxwriter
# The conformance suite stands on the library alone, the tests on all parts.
# As part of another project it is the library and the records, unless more is asked for.
option(FEECENTER_LIBRARY_ONLY "Build the library and nothing else; it needs Boost alone" OFF)
if(PROJECT_IS_TOP_LEVEL)
  option(BUILD_TESTING "Build the tests" ON)
endif()

# feecenter_part(NAME ABOUT DEFAULT NEEDS parts...): the option FEECENTER_NAME, and in said_NAME the value that somebody gave
# it. A default is no such value; it is kept, so that a later run can tell.
set(parts)
function(feecenter_part name about default)
  cmake_parse_arguments(PARSE_ARGV 3 arg "" "" "NEEDS")
  set(option FEECENTER_${name})
  get_property(type CACHE ${option} PROPERTY TYPE)
  if(NOT DEFINED ${option})
    set(${option}_DEFAULT ${default} CACHE INTERNAL "")
  elseif(NOT type OR type STREQUAL UNINITIALIZED)
    unset(${option}_DEFAULT CACHE)
  endif()
  option(${option} "${about}" ${default})
  set(said)
  if(NOT ${option} STREQUAL "$CACHE{${option}_DEFAULT}")
    set(said OFF)
    if(${option})
      set(said ON)
    endif()
  endif()
  set(said_${name} "${said}" PARENT_SCOPE)
  set(needs_${name} ${arg_NEEDS} PARENT_SCOPE)
  set(parts ${parts} ${name} PARENT_SCOPE)
endfunction()

feecenter_part(RECORDS "Build the given record operations" ON)
feecenter_part(COST "Build the cost library" ${PROJECT_IS_TOP_LEVEL} NEEDS RECORDS)
feecenter_part(STANDALONE "Build the standalone host" ${PROJECT_IS_TOP_LEVEL} NEEDS COST)
feecenter_part(FEEDESK "Build feedesk, the program" ${PROJECT_IS_TOP_LEVEL} NEEDS STANDALONE)
feecenter_part(CONFORMANCE "Build the suite that tells a host which promises it breaks" ${PROJECT_IS_TOP_LEVEL})
feecenter_part(TESTS "Build the tests" ${PROJECT_IS_TOP_LEVEL} NEEDS FEEDESK CONFORMANCE)

function(feecenter_contradiction asked why)
  message(FATAL_ERROR "${asked}=ON was asked for, but ${why}. Leave one of the two out.")
endfunction()

# What was refused takes along what stands on it, unless that was asked for.
foreach(name IN LISTS parts)
  set(why)
  if(FEECENTER_LIBRARY_ONLY)
    set(why "FEECENTER_LIBRARY_ONLY=ON builds the library and no other part")
  elseif(name STREQUAL TESTS AND DEFINED BUILD_TESTING AND NOT BUILD_TESTING)
    set(why "BUILD_TESTING=${BUILD_TESTING} builds no tests")
  endif()
  foreach(below IN LISTS needs_${name})
    if("${said_${below}}" STREQUAL OFF AND NOT why)
      set(why ${why_${below}})
    endif()
  endforeach()
  if(why AND said_${name})
    feecenter_contradiction(FEECENTER_${name} "${why}")
  elseif(why)
    set(said_${name} OFF)
  elseif("${said_${name}}" STREQUAL OFF)
    set(why "it needs FEECENTER_${name}, which is OFF")
  endif()
  set(why_${name} "${why}")
endforeach()

# What was asked for brings what it stands on.
set(built)
set(left)
list(REVERSE parts)
foreach(name IN LISTS parts)
  if(NOT "${said_${name}}" STREQUAL "")
    set(FEECENTER_${name} ${said_${name}})
  endif()
  string(TOLOWER ${name} lower)
  if(FEECENTER_${name})
    list(PREPEND built ", ${lower}")
    foreach(below IN LISTS needs_${name})
      set(said_${below} ON)
    endforeach()
  else()
    list(PREPEND left ", ${lower}")
  endif()
endforeach()
string(CONCAT built library ${built})
string(REGEX REPLACE "^, " "; not built: " left "${left}")
string(REPLACE ";," "," left "${left}")
message(STATUS "Parts of the fee center: ${built}${left}")

# feecenter_needs(OPTION parts...): for an option of which nobody has anything without these parts.
function(feecenter_needs option)
  foreach(name IN LISTS ARGN)
    if(${option} AND NOT FEECENTER_${name})
      feecenter_contradiction(${option} "it needs FEECENTER_${name}, which is OFF")
    endif()
  endforeach()
endfunction()
