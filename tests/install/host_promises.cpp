// The example's host, asked whether it keeps what a host promises.
#define main exampleMain
#include "host/main.cpp"
#undef main

#include "conformance/conformance.h"

int main() {
    conformance::Sample sample;
    sample.instruments = {{theInstrument->market, theInstrument->code, qmservice::kStockList, 0}};
    sample.accounts = {theAccount};
    sample.crc64OfDigits = 0x995DC9BBDF1939FA;
    sample.engineOutlivesExceptions = true;
    return conformance::report(sample, std::cout) ? 0 : 1;
}
