find_package(Boost 1.74 REQUIRED COMPONENTS thread)
if(Boost_VERSION VERSION_GREATER_EQUAL 1.87)
  message(FATAL_ERROR "Boost ${Boost_VERSION} has no boost::asio::io_service, which the boundary with the host names; "
                      "use one from 1.74 to 1.86")
endif()
find_package(Threads REQUIRED)
find_package(PkgConfig REQUIRED)
find_package(fmt REQUIRED)
find_package(CLI11 REQUIRED)
pkg_check_modules(bson REQUIRED IMPORTED_TARGET libbson-1.0)
pkg_check_modules(lzma REQUIRED IMPORTED_TARGET liblzma)
pkg_check_modules(rapidjson REQUIRED IMPORTED_TARGET RapidJSON)
if(FEECENTER_SANITIZE MATCHES undefined AND CMAKE_CXX_COMPILER_ID STREQUAL Clang)
  target_compile_options(PkgConfig::rapidjson INTERFACE
    -fsanitize-ignorelist=${PROJECT_SOURCE_DIR}/cmake/sanitizer_ignorelist.txt)
endif()
pkg_check_modules(libedit REQUIRED IMPORTED_TARGET libedit)
pkg_check_modules(xlsxwriter REQUIRED IMPORTED_TARGET xlsxwriter)
pkg_check_modules(xxhash REQUIRED IMPORTED_TARGET libxxhash)
pkg_check_modules(tomlplusplus REQUIRED IMPORTED_TARGET tomlplusplus)

# libcsv comes without a package file.
find_path(CSV_INCLUDE_DIR csv.h REQUIRED)
find_library(CSV_LIBRARY csv REQUIRED)
add_library(csv::csv UNKNOWN IMPORTED)
set_target_properties(csv::csv PROPERTIES IMPORTED_LOCATION ${CSV_LIBRARY}
                                          INTERFACE_INCLUDE_DIRECTORIES ${CSV_INCLUDE_DIR})
