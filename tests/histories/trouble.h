#ifndef TESTS_HISTORIES_TROUBLE_H
#define TESTS_HISTORIES_TROUBLE_H

#include <functional>
#include <string>

namespace histories {

/// Something that can go wrong inside a call of the fee center, on occasions that come one after the other.
class Trouble {
public:
    struct Result {
        long strikes = 0;   ///< how often it went wrong
        bool left = false;  ///< whether an exception left the call
        std::string other;  ///< what left it, where that is not what was thrown
    };

    Trouble() = default;
    Trouble(const Trouble&) = delete;
    Trouble& operator=(const Trouble&) = delete;
    virtual ~Trouble() = default;

    /// Runs `work`; it goes wrong at the occasion after `before` others, and at all that follow where it is for good.
    virtual Result run(const std::function<void()>& work, long before, bool forGood) = 0;

    /// Called just before it goes wrong for the first time, where the fee center can be looked at then.
    std::function<void()> onStrike;
};

}  // namespace histories

#endif  // TESTS_HISTORIES_TROUBLE_H
