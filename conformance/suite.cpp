#include <algorithm>
#include <exception>
#include <iterator>
#include <new>
#include <ostream>
#include <system_error>

#include "conformance/promise.h"

namespace conformance {
namespace {

Promises allPromises() {
    Promises all;
    for (const auto& topic :
         {servicePromises, keyPromises, cataloguePromises, accountPromises, configurationPromises, categoryPromises,
          enginePromises, recordPromises, threadPromises, feeCenterPromises, failurePromises}) {
        const Promises more = topic();
        all.insert(all.end(), more.begin(), more.end());
    }
    return all;
}

Outcome broken(const Promise& promise, const Witness& witness, const std::string& did) {
    return {promise.name, Verdict::kBroken,
            witness.lastCall() + " " + did + ", but " + promise.required + ": " + promise.remedy + "."};
}

Outcome notChecked(const Promise& promise, const std::string& why) {
    return {promise.name, Verdict::kNotChecked, why + "."};
}

Outcome outcomeOf(const Promise& promise, const Sample& sample) {
    Witness witness;
    try {
        promise.check(sample, witness);
    } catch (const Broken& found) {
        return broken(promise, witness, found.did);
    } catch (const NotChecked& found) {
        return notChecked(promise, found.why);
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::system_error&) {
        throw;
    } catch (const std::exception& error) {
        return broken(promise, witness, std::string("threw an exception (") + error.what() + ")");
    } catch (...) {
        return broken(promise, witness, "threw something that is no std::exception");
    }
    return {promise.name, Verdict::kKept, ""};
}

/// The first promise that this one needs and that is not kept among what was found so far; null when there is none.
const char* lacking(const Promise& promise, const std::vector<Outcome>& outcomes) {
    const auto isKept = [&](const char* name) {
        return std::any_of(outcomes.begin(), outcomes.end(), [&](const Outcome& outcome) {
            return outcome.promise == name && outcome.verdict == Verdict::kKept;
        });
    };
    const auto found = std::find_if_not(promise.needs.begin(), promise.needs.end(), isKept);
    return found == promise.needs.end() ? nullptr : *found;
}

}  // namespace

std::vector<std::string> promises() {
    const Promises all = allPromises();
    std::vector<std::string> names;
    names.reserve(all.size());
    std::transform(all.begin(), all.end(), std::back_inserter(names),
                   [](const Promise& promise) { return promise.name; });
    return names;
}

std::vector<Outcome> check(const Sample& sample) {
    const Promises all = allPromises();
    std::vector<Outcome> outcomes;
    outcomes.reserve(all.size());
    for (const Promise& promise : all) {
        const char* const need = lacking(promise, outcomes);
        outcomes.push_back(need == nullptr
                               ? outcomeOf(promise, sample)
                               : notChecked(promise, std::string("it cannot be asked for until ") + need + " is kept"));
    }
    return outcomes;
}

bool report(const Sample& sample, std::ostream& out) {
    std::size_t kept = 0;
    std::size_t brokenOnes = 0;
    const std::vector<Outcome> outcomes = check(sample);
    for (const Outcome& outcome : outcomes) {
        if (outcome.verdict == Verdict::kKept) {
            ++kept;
            continue;
        }
        const bool isBroken = outcome.verdict == Verdict::kBroken;
        brokenOnes += isBroken ? 1 : 0;
        out << (isBroken ? "broken: " : "not checked: ") << outcome.promise << ": " << outcome.sentence << '\n';
    }
    out << kept << " promises kept, " << brokenOnes << " broken, " << outcomes.size() - kept - brokenOnes
        << " not checked\n";
    return brokenOnes == 0;
}

}  // namespace conformance
