#ifndef FEEDESK_TIMING_WALL_TIME_H
#define FEEDESK_TIMING_WALL_TIME_H

#include <chrono>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace feedesk {

/// Where the time of a command goes. Each moment belongs to one part, so that the parts sum up to all of it. For one
/// thread.
class WallTime {
public:
    using Clock = std::chrono::steady_clock;
    using Now = std::function<Clock::time_point()>;

    explicit WallTime(Now clock = Clock::now);

    /// Counts from 0, in no part.
    void restart();

    /// What follows belongs to this part. Returns the one before, for goOnWith().
    std::size_t enter(std::string_view part);
    void goOnWith(std::size_t part);

    /// "1.700 ms: reading accounts.csv 0.200, asking 1.000, everything else 0.500". In these figures too the parts sum
    /// up to the total. What took no time is left out.
    [[nodiscard]] std::string text();

private:
    struct Part {
        std::string name;
        std::chrono::nanoseconds sum{0};
    };

    Now now;
    std::vector<Part> parts;  // the first is of what belongs to no other; kept by restart(), as others know the places
    std::size_t current = 0;
    Clock::time_point counted;  // up to here
};

/// That of the command which runs.
WallTime& wallTime();

/// The time of its life belongs to a part, apart from what others within it take.
class InPart {
public:
    explicit InPart(std::string_view part, WallTime& whole = wallTime()) : time(whole), before(whole.enter(part)) {}
    InPart(const InPart&) = delete;
    InPart& operator=(const InPart&) = delete;
    ~InPart() { time.goOnWith(before); }

private:
    WallTime& time;
    std::size_t before;
};

}  // namespace feedesk

#endif  // FEEDESK_TIMING_WALL_TIME_H
