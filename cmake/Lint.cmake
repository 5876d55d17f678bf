# For clang-tidy alone, never built: all sources of the product as two, for two processors, so that Boost's headers are read
# and looked through twice and not once for each source. scripts/lint uses it.
file(GLOB_RECURSE sources CONFIGURE_DEPENDS
  ${PROJECT_SOURCE_DIR}/conformance/*.cpp
  ${PROJECT_SOURCE_DIR}/cost/*.cpp
  ${PROJECT_SOURCE_DIR}/feecenter/*.cpp
  ${PROJECT_SOURCE_DIR}/feedesk/*.cpp
  ${PROJECT_SOURCE_DIR}/standalone/*.cpp)
list(TRANSFORM sources REPLACE "(.+)" "#include \"\\1\"\n")
list(LENGTH sources count)
math(EXPR half "${count} / 2")
list(SUBLIST sources 0 ${half} first)
list(SUBLIST sources ${half} -1 second)
# It is by this name that the static analyzer knows that the functions of included sources are to be analysed.
set(unified ${CMAKE_BINARY_DIR}/UnifiedSource)
foreach(part IN ITEMS first second)
  list(JOIN ${part} "" includes)
  file(CONFIGURE OUTPUT ${unified}_${part}.cpp CONTENT "${includes}" @ONLY)
endforeach()
add_library(all_sources OBJECT EXCLUDE_FROM_ALL ${unified}_first.cpp ${unified}_second.cpp)
target_compile_definitions(all_sources PRIVATE $<TARGET_PROPERTY:feedesk_parts,COMPILE_DEFINITIONS>)
target_link_libraries(all_sources PRIVATE
  feecenter_build_flags feedesk_parts PkgConfig::bson PkgConfig::lzma PkgConfig::tomlplusplus PkgConfig::xxhash csv::csv)
