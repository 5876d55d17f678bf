#ifndef TESTS_HISTORIES_LOCK_PAUSES_H
#define TESTS_HISTORIES_LOCK_PAUSES_H

namespace histories {

/// From now on this thread pauses now and then when it has let a mutex go, so that other threads get in there: that is
/// where a change that needs one hold of a lock, and has two, shows what it must not. Nothing under ThreadSanitizer,
/// which needs no pauses to see a race.
void pauseAfterUnlocks();

}  // namespace histories

#endif  // TESTS_HISTORIES_LOCK_PAUSES_H
