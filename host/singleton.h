#ifndef HOST_SINGLETON_H
#define HOST_SINGLETON_H

#include "host/host_export.h"

namespace utils {

/// The host's one object of class T. The host specialises instance() for every service that it offers this way; the
/// object is the host's, is never null while the host runs, and instance() may be called from any thread.
template <class T>
class HOST_EXPORT CSingletonT {
public:
    /// Not owned by the caller.
    static T* instance();
};

}  // namespace utils

#endif  // HOST_SINGLETON_H
