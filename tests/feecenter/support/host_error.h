#ifndef TESTS_FEECENTER_SUPPORT_HOST_ERROR_H
#define TESTS_FEECENTER_SUPPORT_HOST_ERROR_H

#include <functional>
#include <stdexcept>
#include <string>

// What the functions of an ill host throw, each time with a number that tells which call failed.

namespace test {

class HostError : public std::runtime_error {
public:
    explicit HostError(long failedCall) : std::runtime_error("the host is ill"), call(failedCall) {}
    long call;
};

/// A HostError, or an int: a host may throw anything.
enum class Thrown { kError, kInt };
inline constexpr Thrown kAllThrown[] = {Thrown::kError, Thrown::kInt};

/// What whatLeft() says of it.
inline const char* nameOf(Thrown what) { return what == Thrown::kError ? "the error" : "the int"; }

[[noreturn]] inline void throwAt(long call, Thrown what) {
    if (what == Thrown::kInt) {
        throw static_cast<int>(call);
    }
    throw HostError(call);
}

/// Runs `work` and says what left it: "nothing", "the error" or "the int" that was thrown at this call, or what else.
inline std::string whatLeft(const std::function<void()>& work, long call) {
    try {
        work();
    } catch (const HostError& error) {
        return error.call == call ? nameOf(Thrown::kError) : "another error";
    } catch (const std::exception& error) {
        return error.what();
    } catch (int error) {
        return error == static_cast<int>(call) ? nameOf(Thrown::kInt) : "another int";
    } catch (...) {
        return "something else";
    }
    return "nothing";
}

}  // namespace test

#endif  // TESTS_FEECENTER_SUPPORT_HOST_ERROR_H
