#include "support/lock_waiters.h"

#include <boost/thread/condition_variable.hpp>

namespace test {
namespace {

using Condition = boost::condition_variable boost::shared_mutex::*;

// The condition variables are private. An explicit instantiation may name them all the same.

template <class Which, Condition Member>
struct Opened {
    friend Condition member(Which) { return Member; }
};

struct Readers {
    friend Condition member(Readers);
};
struct Writers {
    friend Condition member(Writers);
};

template struct Opened<Readers, &boost::shared_mutex::shared_cond>;
template struct Opened<Writers, &boost::shared_mutex::exclusive_cond>;

/// glibc counts a condition variable's waiters in eighths.
int waiting(boost::condition_variable& condition) {
    return static_cast<int>(__atomic_load_n(&condition.native_handle()->__data.__wrefs, __ATOMIC_ACQUIRE) >> 3U);
}

}  // namespace

int waitingReaders(boost::shared_mutex& mutex) { return waiting(mutex.*member(Readers())); }

int waitingWriters(boost::shared_mutex& mutex) { return waiting(mutex.*member(Writers())); }

}  // namespace test
