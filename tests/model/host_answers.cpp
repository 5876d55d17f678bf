#include "model/lookup.h"
#include "model/model.h"

// What the host answers, by the facts.

namespace model {

Model::Instrument Model::findInstrument(const std::string& key) const { return valueOr(facts.catalogue, key); }

/// The instruments that are listed under the mask; empty ones are passed over.
std::vector<Model::Instrument> Model::listInstruments(int listMask) const {
    std::vector<Instrument> instruments;
    for (const Facts::Listed& listed : facts.listed) {
        if ((listed.listMask & listMask) != 0 && listed.instrument) {
            instruments.push_back(listed.instrument);
        }
    }
    return instruments;
}

int Model::tradeUnit(const std::string& market, const std::string& code) const {
    return valueOr(facts.tradeUnits, Name(market, code), 100);
}

bool Model::isSimulated(uint64 account) const {
    const auto data = valueOr(facts.accounts, account);
    const Account info = data ? data->getAccountInfo() : nullptr;
    return info && facts.simulationPlatforms.count(info->platformId) != 0;
}

}  // namespace model
