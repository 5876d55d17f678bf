#include "histories/states.h"

namespace histories {

States::States(const model::Model& start) : states{start}, ends{0} { states.back().onStore = nullptr; }

void States::add(const FeeChange& change) {
    model::Model running = states.back();
    running.onStore = [&] {
        states.push_back(running);
        states.back().onStore = nullptr;
    };
    change.handTo(running);
    running.runJobs();
    ends.push_back(states.size() - 1);
}

States States::firstAndLast() const {
    States outer(states.front());
    outer.states.push_back(states.back());
    outer.ends.push_back(1);
    return outer;
}

}  // namespace histories
