#include "support/lock_waiters.h"

#include <pthread.h>

#include <boost/thread/condition_variable.hpp>
#include <type_traits>

#if !defined(__GLIBC__) || !__GLIBC_PREREQ(2, 25)
#error "waiting threads are counted in the condition variable of glibc 2.25 and later: find their number elsewhere"
#endif

// What is taken for granted of Boost's mutex for pthreads: who waits to read does so in shared_cond, who waits to write
// in exclusive_cond, and both are plain condition variables around a pthread_cond_t. Nobody waits to upgrade, which
// would be counted too.
//
// What is taken for granted of glibc's pthread_cond_t: __wrefs holds three flags and above them the number of threads
// that have begun to wait and not yet come back.

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

constexpr unsigned kFlags = 3;

int waiting(boost::condition_variable& condition) {
    pthread_cond_t* handle = condition.native_handle();
    static_assert(std::is_same_v<decltype(handle->__data.__wrefs), unsigned int>, "the counter is another one");
    return static_cast<int>(__atomic_load_n(&handle->__data.__wrefs, __ATOMIC_ACQUIRE) >> kFlags);
}

}  // namespace

int waitingReaders(boost::shared_mutex& mutex) { return waiting(mutex.*member(Readers())); }

int waitingWriters(boost::shared_mutex& mutex) { return waiting(mutex.*member(Writers())); }

}  // namespace test
