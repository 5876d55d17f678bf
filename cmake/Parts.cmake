# Which parts are built. Each stands on the one before it: asking for one asks for those too, and what a part needs from
# elsewhere is looked for only where the part is built.
#   library     libfeecenter.so, always        Boost
#   records     the given record operations    libbson, xxHash
#   cost        amounts
#   standalone  the complete host              libcsv, liblzma, toml++, fmt
#   feedesk     the program                    CLI11, RapidJSON, libedit, libxlsxwriter
# The conformance suite stands on the library alone.
# As part of another project it is the library and the records, unless more is asked for.
option(FEECENTER_LIBRARY_ONLY "Build the library and nothing else; it needs Boost alone" OFF)
option(FEECENTER_RECORDS "Build the given record operations" ON)
option(FEECENTER_COST "Build the cost library" ${PROJECT_IS_TOP_LEVEL})
option(FEECENTER_STANDALONE "Build the standalone host" ${PROJECT_IS_TOP_LEVEL})
option(FEECENTER_FEEDESK "Build feedesk, the program" ${PROJECT_IS_TOP_LEVEL})
option(FEECENTER_CONFORMANCE "Build the suite that tells a host which promises it breaks" ${PROJECT_IS_TOP_LEVEL})

set(parts RECORDS COST STANDALONE FEEDESK)
set(wanted OFF)
if(FEECENTER_LIBRARY_ONLY)
  foreach(part IN LISTS parts ITEMS CONFORMANCE)
    set(FEECENTER_${part} OFF)
  endforeach()
endif()
list(REVERSE parts)
foreach(part IN LISTS parts)
  if(FEECENTER_${part})
    set(wanted ON)
  endif()
  set(FEECENTER_${part} ${wanted})
endforeach()

# The tests are of all parts.
include(CMakeDependentOption)
option(BUILD_TESTING "Build the tests, of this project and of others that it is part of" ON)
cmake_dependent_option(FEECENTER_TESTS "Build the tests" ${PROJECT_IS_TOP_LEVEL} "BUILD_TESTING;FEECENTER_FEEDESK;FEECENTER_CONFORMANCE" OFF)
