# Ways from one installed place to another.

# feecenter_way(OUT BASE FROM TO): how a file in FROM, for which BASE stands, names TO. What is installed may be moved as a
# whole, so it is the way from the one to the other; but a folder that CMAKE_INSTALL_LIBDIR or the like gives in full is where
# it is, and so is what is named from there.
function(feecenter_way out base from to)
  if(IS_ABSOLUTE "${from}" OR IS_ABSOLUTE "${to}")
    cmake_path(ABSOLUTE_PATH to BASE_DIRECTORY "${CMAKE_INSTALL_PREFIX}" NORMALIZE OUTPUT_VARIABLE way)
  else()
    file(RELATIVE_PATH way "/prefix/${from}" "/prefix/${to}")
    cmake_path(APPEND base "${way}" OUTPUT_VARIABLE way)
  endif()
  string(REGEX REPLACE "/$" "" way "${way}")
  set(${out} "${way}" PARENT_SCOPE)
endfunction()
