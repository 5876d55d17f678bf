# What is installed, and where. Everything may be moved afterwards: whatever names another file does so from its own place.
# The components are those of Parts.cmake, `development`, which is what compiling against the library takes, and `market`.
# Each part that others build against has targets of its own for find_package, and a pkg-config file.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)
include(${CMAKE_CURRENT_LIST_DIR}/Places.cmake)

set(installed_headers ${CMAKE_INSTALL_INCLUDEDIR}/feecenter)
# Where CMake describes a set of headers it puts the prefix before its folder, also before one that is given in full.
set(header_sets ${installed_headers})
if(IS_ABSOLUTE ${header_sets})
  file(RELATIVE_PATH header_sets ${CMAKE_INSTALL_PREFIX} ${header_sets})
endif()
set(installed_cmake ${CMAKE_INSTALL_LIBDIR}/cmake/feecenter)
set(installed_pkgconfig ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
set(installed_market ${CMAKE_INSTALL_DATADIR}/feecenter/market)
set(installed_pages ${CMAKE_INSTALL_DATAROOTDIR}/doc/feecenter)

feecenter_way(FEECENTER_MARKET_FROM_PROGRAM "" ${CMAKE_INSTALL_BINDIR} ${installed_market})

# feecenter_install_targets(PART COMPONENT): the file that defines the part's targets for find_package.
function(feecenter_install_targets part component)
  install(EXPORT feecenter-${part} NAMESPACE feecenter:: DESTINATION ${installed_cmake} FILE feecenter-${part}.cmake
          COMPONENT ${component})
endfunction()

# feecenter_install_pkgconfig(NAME COMPONENT DESCRIPTION LIBS libs... [REQUIRES modules...] [CFLAGS flags...])
function(feecenter_install_pkgconfig name component description)
  cmake_parse_arguments(PARSE_ARGV 3 arg "" "" "LIBS;REQUIRES;CFLAGS")
  feecenter_way(prefix "\${pcfiledir}" ${installed_pkgconfig} .)
  feecenter_way(libdir "\${prefix}" . ${CMAKE_INSTALL_LIBDIR})
  feecenter_way(includedir "\${prefix}" . ${installed_headers})
  list(JOIN arg_LIBS " " libs)
  list(JOIN arg_REQUIRES " " requires)
  list(JOIN arg_CFLAGS " " cflags)
  configure_file(${PROJECT_SOURCE_DIR}/cmake/part.pc.in ${PROJECT_BINARY_DIR}/${name}.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/${name}.pc DESTINATION ${installed_pkgconfig} COMPONENT ${component})
endfunction()

function(feecenter_install_library)
  add_library(feecenter::feecenter ALIAS feecenter)
  if(NOT FEECENTER_INSTALL)
    return()
  endif()
  install(TARGETS feecenter EXPORT feecenter-library
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT library NAMELINK_COMPONENT development
    FILE_SET HEADERS DESTINATION ${header_sets} COMPONENT development
    FILE_SET boundary DESTINATION ${header_sets} COMPONENT development)
  feecenter_install_targets(library development)
  feecenter_install_pkgconfig(feecenter development "${PROJECT_DESCRIPTION}" LIBS -lfeecenter)

  get_target_property(boost_thread_type Boost::thread TYPE)
  configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/feecenterConfig.cmake.in
    ${PROJECT_BINARY_DIR}/feecenterConfig.cmake INSTALL_DESTINATION ${installed_cmake}
    NO_SET_AND_CHECK_MACRO NO_CHECK_REQUIRED_COMPONENTS_MACRO)
  # While the first number of the version is 0, the second one changes with what programs rely on.
  write_basic_package_version_file(${PROJECT_BINARY_DIR}/feecenterConfigVersion.cmake COMPATIBILITY SameMinorVersion)
  install(FILES ${PROJECT_BINARY_DIR}/feecenterConfig.cmake ${PROJECT_BINARY_DIR}/feecenterConfigVersion.cmake
                ${PROJECT_SOURCE_DIR}/cmake/Libcsv.cmake
          DESTINATION ${installed_cmake} COMPONENT development)
  if(PROJECT_IS_TOP_LEVEL)
    feecenter_install_pages()
  endif()
endfunction()

# What the author of a host reads, in folders that stand to each other as here, so that the links between them lead somewhere.
# The other pages show what the bundled market answers, whose data have terms of their own: they are named, and not linked.
function(feecenter_install_pages)
  set(pages architecture.md host-guide.md market-folder.md packaging.md surprising-rules.md)
  file(GLOB others RELATIVE ${PROJECT_SOURCE_DIR}/docs ${PROJECT_SOURCE_DIR}/docs/*.md)
  list(REMOVE_ITEM others ${pages})
  list(JOIN others "|" others)
  foreach(page IN LISTS pages)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/docs/${page})
    file(READ ${PROJECT_SOURCE_DIR}/docs/${page} text)
    string(REGEX REPLACE "\\[([^]]+)\\]\\((${others}|\\.\\./(tests/)?README\\.md)(#[^)]*)?\\)" "\\1" text "${text}")
    file(WRITE ${PROJECT_BINARY_DIR}/pages/${page} "${text}")
  endforeach()
  install(DIRECTORY ${PROJECT_BINARY_DIR}/pages/ DESTINATION ${installed_pages}/docs COMPONENT development)
  install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples DESTINATION ${installed_pages} COMPONENT development)
endfunction()

# feecenter_install_part(PART targets... REQUIRES modules... [LIBS libs...])
# Static libraries, the part's own first, called feecenter_NAME and for users feecenter::NAME. What it REQUIRES are modules
# of pkg-config, its LIBS those that have none; feecenterConfig.cmake.in says the same for CMake.
function(feecenter_install_part part)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "REQUIRES;LIBS")
  foreach(target IN LISTS arg_UNPARSED_ARGUMENTS)
    string(REPLACE feecenter_ "" name ${target})
    add_library(feecenter::${name} ALIAS ${target})
    set_target_properties(${target} PROPERTIES EXPORT_NAME ${name})
    target_compile_features(${target} PUBLIC cxx_std_17)
    list(APPEND libs -l${target})
  endforeach()
  if(NOT FEECENTER_INSTALL)
    return()
  endif()
  list(GET arg_UNPARSED_ARGUMENTS 0 own)
  get_target_property(sets ${own} INTERFACE_HEADER_SETS)
  set(headers)
  if(sets)
    set(headers FILE_SET HEADERS DESTINATION ${header_sets} COMPONENT ${part})
  endif()
  install(TARGETS ${arg_UNPARSED_ARGUMENTS} EXPORT feecenter-${part}
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT ${part}
    INCLUDES DESTINATION ${installed_headers}
    ${headers})
  feecenter_install_targets(${part} ${part})
  foreach(property IN ITEMS COMPILE_DEFINITIONS LINK_OPTIONS)
    get_target_property(${property} ${own} INTERFACE_${property})
    if(NOT ${property})
      set(${property})
    endif()
  endforeach()
  list(TRANSFORM COMPILE_DEFINITIONS PREPEND -D)
  feecenter_install_pkgconfig(feecenter-${part} ${part} "${PROJECT_DESCRIPTION}: ${part}"
    LIBS ${LINK_OPTIONS} ${libs} ${arg_LIBS} REQUIRES ${arg_REQUIRES} CFLAGS ${COMPILE_DEFINITIONS})
endfunction()

function(feecenter_install_feedesk)
  if(NOT FEECENTER_INSTALL)
    return()
  endif()
  feecenter_way(library "$ORIGIN" ${CMAKE_INSTALL_BINDIR} ${CMAKE_INSTALL_LIBDIR})
  set_target_properties(feedesk PROPERTIES INSTALL_RPATH "${library}")
  install(TARGETS feedesk RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT feedesk)
  install(DIRECTORY ${PROJECT_SOURCE_DIR}/market/ DESTINATION ${installed_market} COMPONENT market)
  if(FEECENTER_MANUAL)
    feecenter_install_manual()
  endif()
endfunction()

# Made by running the program: the manual pages from its help, and what shells complete its command lines by. They are put
# where the shells look without being told; zsh looks in two folders, of which one is for packages.
function(feecenter_install_manual)
  set(pages ${PROJECT_BINARY_DIR}/man)
  set(completions ${PROJECT_BINARY_DIR}/completion.bash ${PROJECT_BINARY_DIR}/completion.zsh)
  set(for_zsh site-functions)
  if(FEECENTER_PACKAGES)
    set(for_zsh vendor-completions)
  endif()
  add_custom_command(OUTPUT ${pages}/feedesk.1.gz ${completions} DEPENDS feedesk ${PROJECT_SOURCE_DIR}/scripts/man VERBATIM
    COMMAND ${CMAKE_COMMAND} -E rm -rf ${pages}
    COMMAND ${PROJECT_SOURCE_DIR}/scripts/man $<TARGET_FILE:feedesk> ${pages}
    COMMAND gzip --recursive --best --no-name ${pages}
    COMMAND $<TARGET_FILE:feedesk> completion bash > completion.bash
    COMMAND $<TARGET_FILE:feedesk> completion zsh > completion.zsh
    WORKING_DIRECTORY ${PROJECT_BINARY_DIR})
  add_custom_target(manual ALL DEPENDS ${pages}/feedesk.1.gz ${completions})
  install(DIRECTORY ${pages}/ DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT feedesk)
  install(FILES ${PROJECT_BINARY_DIR}/completion.bash DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
          RENAME feedesk COMPONENT feedesk)
  install(FILES ${PROJECT_BINARY_DIR}/completion.zsh DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/${for_zsh}
          RENAME _feedesk COMPONENT feedesk)
endfunction()

if(FEECENTER_INSTALL AND PROJECT_IS_TOP_LEVEL)
  add_custom_target(uninstall VERBATIM
    COMMAND ${CMAKE_COMMAND} -DBUILD=${PROJECT_BINARY_DIR} -P ${PROJECT_SOURCE_DIR}/cmake/uninstall.cmake)
endif()
