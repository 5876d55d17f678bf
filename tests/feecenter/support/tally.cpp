#include "support/tally.h"

#include <iostream>
#include <map>

namespace test {
namespace {

class Tally {
public:
    Tally() = default;
    Tally(const Tally&) = delete;
    Tally& operator=(const Tally&) = delete;
    ~Tally() {
        for (const auto& entry : counts) {
            std::cout << entry.first << ": " << entry.second << std::endl;
        }
    }

    std::map<std::string, long> counts;
};

}  // namespace

void tally(const std::string& name, long count) {
    static Tally all;
    all.counts[name] += count;
}

}  // namespace test
