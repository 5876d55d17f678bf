# For clang-tidy alone, never built: all sources of the product as two, for two processors, so that Boost's headers are read
# and looked through twice and not once for each source. scripts/lint uses it.
file(GLOB_RECURSE sources CONFIGURE_DEPENDS
  ${PROJECT_SOURCE_DIR}/cost/*.cpp
  ${PROJECT_SOURCE_DIR}/feecenter/*.cpp
  ${PROJECT_SOURCE_DIR}/feedesk/*.cpp
  ${PROJECT_SOURCE_DIR}/standalone/*.cpp)
list(LENGTH sources count)
math(EXPR half "(${count} + 1) / 2")
add_library(all_sources OBJECT EXCLUDE_FROM_ALL ${sources})
set_target_properties(all_sources PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE ${half})
target_compile_definitions(all_sources PRIVATE $<TARGET_PROPERTY:feedesk_parts,COMPILE_DEFINITIONS>)
target_link_libraries(all_sources PRIVATE
  feecenter_build_flags feedesk_parts PkgConfig::bson PkgConfig::lzma PkgConfig::tomlplusplus PkgConfig::xxhash csv::csv)
