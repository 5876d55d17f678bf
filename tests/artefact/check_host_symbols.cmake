# What a host brings is undefined in the library, and nothing of the standalone host is named in it.
execute_process(COMMAND ${NM} -D --undefined-only --demangle ${LIBRARY} OUTPUT_VARIABLE undefined COMMAND_ERROR_IS_FATAL ANY)
foreach(symbol IN ITEMS "utils::hash(" "utils::voStockKey(" "qmservice::crc64(" "qmservice::getTradeMinUnit("
                        "qmservice::TraderCenter::instance(" "qmservice::ConfigCollector::instance("
                        "utils::CSingletonT<net::RPCEngine>::instance(" "utils::CSingletonT<qmservice::CppCategory>::instance("
                        "vtable for qmservice::CInstrumentFee" "typeinfo for qmservice::CInstrumentFee")
  string(FIND "${undefined}" "${symbol}" found)
  if(found EQUAL -1)
    message(FATAL_ERROR "${LIBRARY} does not leave ${symbol} to the host")
  endif()
endforeach()
if(undefined MATCHES "standalone::")
  message(FATAL_ERROR "${LIBRARY} depends on the standalone host")
endif()
