#ifndef FEEDESK_COMPARING_CONNECTED_H
#define FEEDESK_COMPARING_CONNECTED_H

#include <cstddef>
#include <numeric>
#include <string>
#include <unordered_map>
#include <vector>

namespace feedesk {

/// Puts numbered things together that share something, with those that share something with one of them.
class Connected {
public:
    explicit Connected(std::size_t count) : parents(count) { std::iota(parents.begin(), parents.end(), 0); }

    void share(std::size_t thing, const std::string& what) {
        const auto first = firstWith.emplace(what, thing);
        if (!first.second) {
            join(thing, first.first->second);
        }
    }

    /// The first of those that are together with the thing.
    std::size_t firstOf(std::size_t thing) {
        while (parents[thing] != thing) {
            parents[thing] = parents[parents[thing]];
            thing = parents[thing];
        }
        return thing;
    }

private:
    void join(std::size_t one, std::size_t other) {
        const std::size_t a = firstOf(one);
        const std::size_t b = firstOf(other);
        parents[a < b ? b : a] = a < b ? a : b;
    }

    std::vector<std::size_t> parents;
    std::unordered_map<std::string, std::size_t> firstWith;
};

}  // namespace feedesk

#endif  // FEEDESK_COMPARING_CONNECTED_H
