#ifndef FEECENTER_GUARDED_H
#define FEECENTER_GUARDED_H

#include <boost/thread/lock_types.hpp>
#include <boost/thread/shared_mutex.hpp>
#include <type_traits>

namespace qmservice {

/// A reference that is const where its owner is: what is reached through const tables cannot be written.
template <class T>
class Ref {
public:
    Ref(T& object) : referred(&object) {}  // NOLINT(google-explicit-constructor): tables list their members

    T& operator*() { return *referred; }
    const T& operator*() const { return *referred; }

private:
    T* referred;
};

/// Tables under a lock that is held as long as this lives. A temporary one holds it to the end of its expression.
template <class Lock, class Tables>
class Held {
public:
    Held(boost::shared_mutex& mutex, const std::remove_const_t<Tables>& guarded) : lock(mutex), tables(guarded) {}

    Tables& operator*() { return tables; }
    Tables* operator->() { return &tables; }
    const Tables& operator*() const { return tables; }
    const Tables* operator->() const { return &tables; }

private:
    Lock lock;
    Tables tables;
};

/// A family's tables, to be reached under their lock alone. `Tables` is a struct of Refs; it refers into the fee
/// center, and so does this.
template <class Tables>
class Guarded {
public:
    Guarded(boost::shared_mutex& guard, const Tables& guarded) : mutex(guard), tables(guarded) {}

    /// The tables, not to be written, under the lock in shared mode.
    [[nodiscard]] Held<boost::shared_lock<boost::shared_mutex>, const Tables> read() const { return {mutex, tables}; }

    /// The tables under the lock in exclusive mode.
    [[nodiscard]] Held<boost::unique_lock<boost::shared_mutex>, Tables> write() const { return {mutex, tables}; }

protected:
    /// The tables, not to be written, without the lock: for a class that is reached under the lock that all writers of
    /// the tables take before this one.
    [[nodiscard]] const Tables& unguarded() const { return tables; }

private:
    boost::shared_mutex& mutex;
    Tables tables;
};

}  // namespace qmservice

#endif  // FEECENTER_GUARDED_H
