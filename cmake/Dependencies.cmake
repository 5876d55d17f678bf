# What is needed from elsewhere, by the parts that need it; see Parts.cmake. What an installed part needs of its user is
# said once more in feecenterConfig.cmake.in.
find_package(Boost 1.74 REQUIRED COMPONENTS thread)
if(Boost_VERSION VERSION_GREATER_EQUAL 1.87)
  message(FATAL_ERROR "Boost ${Boost_VERSION} has no boost::asio::io_service, which the boundary with the host names; "
                      "use one from 1.74 to 1.86")
endif()

if(FEECENTER_RECORDS)
  find_package(PkgConfig REQUIRED)
  pkg_check_modules(bson REQUIRED IMPORTED_TARGET libbson-1.0)
  pkg_check_modules(xxhash REQUIRED IMPORTED_TARGET libxxhash)
endif()

if(FEECENTER_STANDALONE OR FEECENTER_CONFORMANCE)
  find_package(Threads REQUIRED)
endif()

if(FEECENTER_STANDALONE)
  find_package(fmt REQUIRED)
  pkg_check_modules(lzma REQUIRED IMPORTED_TARGET liblzma)
  pkg_check_modules(tomlplusplus REQUIRED IMPORTED_TARGET tomlplusplus)
  include(${CMAKE_CURRENT_LIST_DIR}/Libcsv.cmake)
  if(NOT TARGET csv::csv)
    message(FATAL_ERROR "libcsv was not found: neither its header csv.h nor its library may be missing; "
                        "in Debian it is the package libcsv-dev")
  endif()
endif()

if(FEECENTER_FEEDESK)
  find_package(CLI11 REQUIRED)
  pkg_check_modules(libedit REQUIRED IMPORTED_TARGET libedit)
  pkg_check_modules(rapidjson REQUIRED IMPORTED_TARGET RapidJSON)
  if(FEECENTER_SANITIZE MATCHES undefined AND CMAKE_CXX_COMPILER_ID STREQUAL Clang)
    target_compile_options(PkgConfig::rapidjson INTERFACE
      -fsanitize-ignorelist=${PROJECT_SOURCE_DIR}/cmake/sanitizer_ignorelist.txt)
  endif()
  pkg_check_modules(xlsxwriter REQUIRED IMPORTED_TARGET xlsxwriter)
endif()
