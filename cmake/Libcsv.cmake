# Makes the target csv::csv, where libcsv is found: it comes without a package file. The build and the installed package
# use it alike.
if(NOT TARGET csv::csv)
  find_path(CSV_INCLUDE_DIR csv.h)
  find_library(CSV_LIBRARY csv)
  mark_as_advanced(CSV_INCLUDE_DIR CSV_LIBRARY)
  if(CSV_INCLUDE_DIR AND CSV_LIBRARY)
    add_library(csv::csv UNKNOWN IMPORTED)
    set_target_properties(csv::csv PROPERTIES IMPORTED_LOCATION ${CSV_LIBRARY}
                                              INTERFACE_INCLUDE_DIRECTORIES ${CSV_INCLUDE_DIR})
  endif()
endif()
