#ifndef CONFORMANCE_PROMISE_H
#define CONFORMANCE_PROMISE_H

#include <vector>

#include "conformance/conformance.h"
#include "conformance/witness.h"

namespace conformance {

/// One promise of a host. The sentence of a broken one is "CALL DID, but REQUIRED: MEND.".
struct Promise {
    const char* name;
    const char* required;
    const char* remedy;
    void (*check)(const Sample& sample, Witness& witness);  ///< throws Broken or NotChecked
    std::vector<const char*> needs = {};  ///< promises of earlier in the list, without which it cannot be asked for
};

using Promises = std::vector<Promise>;

// By topic, each in a source of its own.
Promises servicePromises();
Promises keyPromises();
Promises cataloguePromises();
Promises accountPromises();
Promises configurationPromises();
Promises categoryPromises();
Promises enginePromises();
Promises recordPromises();
Promises threadPromises();
Promises feeCenterPromises();
Promises failurePromises();

}  // namespace conformance

#endif  // CONFORMANCE_PROMISE_H
