# The library exports what EXPECTED lists, one demangled name a line, and nothing else. A C++ symbol may appear several
# times under one name (complete and base constructors). Where RENEW is set the list is written there instead.
execute_process(COMMAND ${NM} -D --defined-only --demangle ${LIBRARY} OUTPUT_VARIABLE output COMMAND_ERROR_IS_FATAL ANY)
string(REPLACE ";" "," output "${output}")
string(REGEX REPLACE "\n$" "" output "${output}")
string(REPLACE "\n" ";" lines "${output}")
foreach(line IN LISTS lines)
  string(REGEX REPLACE "^[0-9a-f]+ . " "" name "${line}")
  list(APPEND exported "${name}")
endforeach()
list(REMOVE_DUPLICATES exported)

if(RENEW)
  # Present or not, as said below.
  list(APPEND exported "vtable for qmservice::IFeeCenter")
  list(REMOVE_DUPLICATES exported)
  list(SORT exported)
  list(JOIN exported "\n" text)
  file(WRITE ${RENEW} "${text}\n")
  return()
endif()

file(STRINGS ${EXPECTED} expected)
set(missing ${expected})
list(REMOVE_ITEM missing ${exported})
set(extra ${exported})
list(REMOVE_ITEM extra ${expected})
# An optimiser may find that no object ever shows this table; where it is left it is exported.
list(REMOVE_ITEM missing "vtable for qmservice::IFeeCenter")
if(missing OR extra)
  list(JOIN missing "\n  " missing)
  list(JOIN extra "\n  " extra)
  message(FATAL_ERROR "${LIBRARY}\nlacks:\n  ${missing}\nexports besides:\n  ${extra}\n"
    "If that is meant: scripts/abi --renew")
endif()
