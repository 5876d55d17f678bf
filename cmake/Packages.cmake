# Debian packages, which scripts/package makes. What a package is called, needs and says of itself stands here; what is in it
# follows from the components of Install.cmake.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_CONTACT "${FEECENTER_MAINTAINER}")
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING ONE_PER_GROUP)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(this_version "(= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})")

# package(GROUP NAME SECTION COMPONENTS components... SUMMARY text DESCRIPTION text... [DEPENDS packages] [SUGGESTS packages]
#         [COPYRIGHT file] [ANY])
# ANY: it holds compiled files, and what these need is found from them. A line of the description has less than 80 letters.
function(package group name section)
  cmake_parse_arguments(PARSE_ARGV 3 arg "ANY" "SUMMARY;DEPENDS;SUGGESTS;COPYRIGHT" "COMPONENTS;DESCRIPTION")
  string(TOUPPER ${group} upper)
  foreach(component IN LISTS arg_COMPONENTS)
    string(TOUPPER ${component} upper_component)
    set(CPACK_COMPONENT_${upper_component}_GROUP ${group} PARENT_SCOPE)
  endforeach()
  list(JOIN arg_DESCRIPTION "\n" description)
  set(CPACK_COMPONENT_GROUP_${upper}_DESCRIPTION "${arg_SUMMARY}\n${description}" PARENT_SCOPE)
  set(CPACK_DEBIAN_${upper}_DESCRIPTION "${arg_SUMMARY}\n${description}" PARENT_SCOPE)
  set(CPACK_DEBIAN_${upper}_PACKAGE_NAME ${name} PARENT_SCOPE)
  set(CPACK_DEBIAN_${upper}_PACKAGE_SECTION ${section} PARENT_SCOPE)
  set(CPACK_DEBIAN_${upper}_PACKAGE_DEPENDS "${arg_DEPENDS}" PARENT_SCOPE)
  set(CPACK_DEBIAN_${upper}_PACKAGE_SUGGESTS "${arg_SUGGESTS}" PARENT_SCOPE)
  if(arg_ANY)
    set(CPACK_DEBIAN_${upper}_PACKAGE_SHLIBDEPS ON PARENT_SCOPE)
  elseif(NOT group STREQUAL development)
    set(CPACK_DEBIAN_${upper}_PACKAGE_ARCHITECTURE all PARENT_SCOPE)
  endif()

  list(GET arg_COMPONENTS 0 component)
  if(NOT arg_COPYRIGHT)
    set(arg_COPYRIGHT copyright)
  endif()
  install(FILES ${PROJECT_SOURCE_DIR}/packaging/${arg_COPYRIGHT} DESTINATION share/doc/${name} RENAME copyright
          COMPONENT ${component})
  install(FILES ${PROJECT_BINARY_DIR}/changelog.Debian.gz DESTINATION share/doc/${name} COMPONENT ${component})
endfunction()

set(library_package libfeecenter${FEECENTER_SOVERSION})
package(runtime ${library_package} libs ANY COMPONENTS library
  SUMMARY "fee, commission and margin rates for trading clients"
  DESCRIPTION "The fee center holds for every trading account the commission, fee and margin"
              "rates of instruments on Chinese markets, and answers from many threads at"
              "once. A trading client loads it and brings its own records and services."
              "."
              "This package holds the shared library.")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/feecenter)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
file(WRITE ${PROJECT_BINARY_DIR}/triggers "activate-noawait ldconfig\n")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA ${PROJECT_BINARY_DIR}/triggers)

package(development libfeecenter-dev libdevel COMPONENTS development records cost standalone conformance
  DEPENDS "${library_package} ${this_version}, libboost-dev, libboost-thread-dev, libbson-dev, libcsv-dev, libfmt-dev, liblzma-dev, libtomlplusplus-dev, libxxhash-dev, pkg-config"
  SUMMARY "fee, commission and margin rates for trading clients (development files)"
  DESCRIPTION "Headers of the fee center and of its boundary with the host, and the files"
              "that CMake and pkg-config find them by. Static libraries besides: the given"
              "operations of the host's records, the cost library, which makes amounts of"
              "rates and trades, a complete standalone host, and a suite that tells a host"
              "which promises it breaks. The guide for hosts and the examples are in"
              "/usr/share/doc/feecenter.")

package(program feedesk misc ANY COMPONENTS feedesk
  DEPENDS "${library_package} ${this_version}" SUGGESTS "feecenter-market ${this_version}"
  SUMMARY "asks what trading an instrument costs an account, and why"
  DESCRIPTION "Answers from a market folder of plain tables which commission, fees and"
              "margins an account pays on an instrument, where each rate comes from and what"
              "a trade costs. Compares folders, checks them for faults that cost money, and"
              "reconciles statements of brokers.")

# One of its sources allows non-commercial use only.
package(market feecenter-market non-free/misc COMPONENTS market COPYRIGHT copyright.market
  SUMMARY "example market folder for feedesk"
  DESCRIPTION "Instruments of Chinese markets, published fee rates and invented accounts, as"
              "a market folder that feedesk finds by itself. An example to learn from and to"
              "try things on; its rates are those of the days that its sources name."
              "."
              "Some of its data may be used for non-commercial purposes only.")

# Each description has its own first line.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
include(CPack)
