// A plug-in that is a host: a library of services, records and the suite, which links the library and is loaded late.
#include <iostream>

#include "conformance/conformance.h"
#include "support/faulty_host.h"

extern "C" bool keepsItsPromises() {
    const test::FaultyHost host("");
    return conformance::report(host.sample(), std::cout);
}
