#ifndef STANDALONE_BOUNDARY_UNCOUNTED_H
#define STANDALONE_BOUNDARY_UNCOUNTED_H

#include <boost/shared_ptr.hpp>

namespace standalone {

/// A pointer without a reference count to an object that is never destroyed: the count would be one more place that
/// every query of every thread changes twice.
template <class T>
boost::shared_ptr<T> uncounted(T& object) {
    return boost::shared_ptr<T>(boost::shared_ptr<void>(), &object);
}

}  // namespace standalone

#endif  // STANDALONE_BOUNDARY_UNCOUNTED_H
