#include "histories/side_by_side.h"

#include "histories/record_fields.h"

namespace histories {
namespace {

/// Thrown by the mark behind a change's job, to stop there.
struct JobIsDone {};

void copyFacts(const model::Facts& facts, test::FakeHost& host) {
    host.instruments.clear();
    for (const auto& listed : facts.listed) {
        host.instruments.push_back({listed.instrument, listed.listMask, listed.types});
    }
    host.catalogue.clear();
    for (const auto& entry : facts.catalogue) {
        host.catalogue[utils::hash(entry.first)] = entry.second;
    }
    host.accounts = facts.accounts;
    host.tradeUnits = facts.tradeUnits;
    host.rateLimits = facts.rateLimits;
    host.hgtLimits = facts.hgtLimits;
    host.sgtLimits = facts.sgtLimits;
    host.simulationPlatforms = facts.simulationPlatforms;
    host.foreignMarkets = facts.foreignMarkets;
    host.categoryNumbers = facts.categoryNumbers;
    host.systemMembers = facts.systemMembers;
    host.groupMembers = facts.groupMembers;
    host.inSystemCategory = facts.inSystemCategory;
    host.inCustomCategory = facts.inCustomCategory;
    host.inGroupCategory = facts.inGroupCategory;
}

Record copyOf(const Record& record) { return record ? record->copy() : record; }

/// The name of the record's class.
std::string_view classOf(const Record& record) {
    std::string_view name = kNoRecord;
    if (record) {
        asItsClass(*record, [&](const auto& typed) {
            name = qmservice::records::RecordFields<std::decay_t<decltype(typed)>>::className;
        });
    }
    return name;
}

/// The default records that answers may hold.
std::set<const void*> defaultsOf(const model::Model& model) {
    std::set<const void*> defaults{model.stock.fallback.get(), model.credit.fallback.get(),
                                   model.neeq.fallback.get(),  model.hgt.fallback.get(),
                                   model.sgt.fallback.get(),   model.defaultOptionRate.get()};
    for (const auto& fee : {model.defaultFutureFee, model.defaultIncomeSwapFee}) {
        defaults.insert(fee->commissionDetail.get());
        for (const auto& margin : fee->marginDetails) {
            defaults.insert(margin.get());
        }
    }
    return defaults;
}

}  // namespace

SideBySide::Host::Host(const World& world) {
    fake.reset();
    copyFacts(world.facts, fake);
}

SideBySide::SideBySide(World& theWorld)
    : world(theWorld), host(theWorld), model(std::make_unique<model::Model>(theWorld.facts)) {
    watchHost();
    defaults = defaultsOf(*model);
}

// Queued jobs hold the fee center and this: they run while both still exist.
SideBySide::~SideBySide() { host.fake.reset(); }

void SideBySide::initFees(const Account& account, const Records& records) {
    Records copies;
    for (const auto& record : records) {
        copies.push_back(copyOf(record));
        world.reached.count(account->accountType, kLoaded, classOf(record));
    }
    handed.watch(records, copies);
    const std::size_t before = model->queued();
    center.initFees(account, Records(records));
    model->initFees(account, copies);
    posted(account, before);
}

void SideBySide::updateCustomFee(const Account& account, const Record& record) {
    const Record copy = copyOf(record);
    handed.watch({record}, {copy});
    const std::size_t before = model->queued();
    center.updateCustomFee(account, record);
    model->updateCustomFee(account, copy);
    world.reached.count(account->accountType, kUpdated, classOf(record));
    posted(account, before);
}

/// A mark follows each change on the fee center's strand: left to itself the strand runs several jobs in one go.
void SideBySide::posted(const Account& account, std::size_t queuedBefore) {
    changes.push_back({model->queued() - queuedBefore, account->accountType});
    center.strand->post([this] {
        if (stepping) {
            throw JobIsDone();
        }
    });
}

void SideBySide::runJob() {
    if (changes.empty()) {
        return;
    }
    stepping = true;
    try {
        while (host.fake.runOneJob()) {
        }
    } catch (const JobIsDone&) {
        // As it must be.
    }
    stepping = false;
    runModelsOldest();
}

void SideBySide::runModelsOldest() {
    world.updating = changes.front().kind;
    for (std::size_t jobs = changes.front().jobs; jobs > 0; --jobs) {
        model->runJob();
    }
    world.updating.reset();
    changes.pop_front();
}

void SideBySide::runJobs() {
    host.fake.runJobs();
    while (!changes.empty()) {
        runModelsOldest();
    }
}

void SideBySide::publish() {
    copyFacts(world.facts, host.fake);
    watchHost();
}

/// False when the record is watched already, or there is none.
bool SideBySide::watchOnce(const Record& record) {
    const bool isNew = record && watched.insert(record.get()).second;
    if (isNew) {
        hostsOwn.watch(record);
    }
    return isNew;
}

void SideBySide::watchHost() {
    for (const auto& account : world.accounts(Focus::all)) {
        watchOnce(account);
    }
    for (const auto& instrument : world.instruments) {
        watchOnce(instrument);
    }
    for (const auto& entry : world.facts.catalogue) {
        watchOnce(entry.second);
    }
    // A configured limit is one and the same record on both sides.
    const auto watchLimits = [this](const auto& limits) {
        for (const auto& entry : limits) {
            if (watchOnce(entry.second)) {
                sharing.pair(entry.second, entry.second);
            }
        }
    };
    watchLimits(world.facts.rateLimits);
    watchLimits(world.facts.hgtLimits);
    watchLimits(world.facts.sgtLimits);
}

}  // namespace histories
