#ifndef TESTS_FEECENTER_SUPPORT_SHORTAGE_H
#define TESTS_FEECENTER_SUPPORT_SHORTAGE_H

namespace test {

/// Which allocation of a thread fails. A program that is linked with it has operator new replaced, which clang++'s
/// ThreadSanitizer does not let a program do. Each thread has its own; no other may touch it.
class Shortage {
public:
    static Shortage& ofThisThread();

    /// The allocation after `allocations` others fails; all that follow do too where it is for good.
    void begin(long allocations, bool forGood);

    /// Memory is there again; how many allocations failed.
    long end();

    /// How many allocations have been made since it began.
    [[nodiscard]] long made() const { return asked - failures; }

    /// For operator new: whether the allocation that is asked for fails.
    bool fails();

private:
    long left = 0;
    bool lasting = false;
    bool active = false;
    long asked = 0;
    long failures = 0;
};

}  // namespace test

#endif  // TESTS_FEECENTER_SUPPORT_SHORTAGE_H
