#include "model/model.h"

#include <utility>

namespace model {

Model::Model(const Facts& hostFacts) : facts(hostFacts) { buildDefaults(); }

void Model::stored() const {
    if (onStore) {
        onStore();
    }
}

std::size_t Model::queued() const { return jobs.size(); }

bool Model::runJob() {
    if (jobs.empty()) {
        return false;
    }
    const auto job = std::move(jobs.front());
    jobs.pop_front();
    job(*this);
    return true;
}

void Model::runJobs() {
    while (runJob()) {
    }
}

}  // namespace model
