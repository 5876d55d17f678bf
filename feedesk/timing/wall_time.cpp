#include "feedesk/timing/wall_time.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace feedesk {
namespace {

std::string millisecondsText(std::chrono::microseconds time) {
    return fmt::format("{}.{:03}", time.count() / 1000, time.count() % 1000);
}

}  // namespace

WallTime::WallTime(Now clock) : now(std::move(clock)), parts(1, Part{"everything else"}), counted(now()) {}

void WallTime::restart() {
    for (Part& part : parts) {
        part.sum = {};
    }
    current = 0;
    counted = now();
}

std::size_t WallTime::enter(std::string_view part) {
    const auto found = std::find_if(parts.begin(), parts.end(), [&](const Part& each) { return each.name == part; });
    const auto place = static_cast<std::size_t>(found - parts.begin());
    if (found == parts.end()) {
        parts.push_back({std::string(part)});
    }
    const std::size_t before = current;
    goOnWith(place);
    return before;
}

void WallTime::goOnWith(std::size_t part) {
    const Clock::time_point until = now();
    parts[current].sum += until - std::exchange(counted, until);
    current = part;
}

std::string WallTime::text() {
    goOnWith(current);
    std::string listed;
    // What has passed at the end of each part is cut to microseconds, and not the parts, so that their sum stays exact.
    std::chrono::nanoseconds passed{0};
    const auto add = [&](const Part& part) {
        const auto cut = [&] { return std::chrono::duration_cast<std::chrono::microseconds>(passed); };
        const std::chrono::microseconds begin = cut();
        passed += part.sum;
        if (part.sum.count() != 0) {
            listed += fmt::format("{}{} {}", listed.empty() ? "" : ", ", part.name, millisecondsText(cut() - begin));
        }
    };
    std::for_each(parts.begin() + 1, parts.end(), add);
    add(parts.front());
    return fmt::format("{} ms: {}", millisecondsText(std::chrono::duration_cast<std::chrono::microseconds>(passed)),
                       listed);
}

WallTime& wallTime() {
    static WallTime time;
    return time;
}

}  // namespace feedesk
