#ifndef STANDALONE_SERVICES_PROCESS_H
#define STANDALONE_SERVICES_PROCESS_H

#include "standalone/services/published.h"
#include "standalone/services/snapshot.h"
#include "standalone/services/strand_pool.h"

namespace standalone {

/// The process's one object of a class. It is never destroyed, so that threads and static objects may use it to the
/// end. Safe from any thread.
template <class T>
T& onlyOne() {
    static T& object = *new T;
    return object;
}

/// What the services answer from: that of the market which was installed last, as a whole.
inline Published<Snapshot>& published() { return onlyOne<Published<Snapshot>>(); }

/// The strands and their threads.
inline StrandPool& strands() { return onlyOne<StrandPool>(); }

}  // namespace standalone

#endif  // STANDALONE_SERVICES_PROCESS_H
