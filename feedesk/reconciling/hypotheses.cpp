#include "feedesk/reconciling/hypotheses.h"

#include <utility>

#include "feedesk/reconciling/trial.h"

namespace feedesk {

Explanations explanationsOf(const Disputed& disputed, const Layout& layout, OtherTariffs& others) {
    Trial trial(disputed, layout);
    trial.noteEach(Cause::kOtherDate, others.ofOtherDates(disputed));
    tryMinimumPer(trial);
    tryRoundingPerFill(trial);
    tryFillByFill(trial);
    tryRoundingModes(trial);
    trial.noteEach(Cause::kOtherLevel, others.ofOtherLevels(disputed));
    tryLeftOut(trial);
    tryChargedTwice(trial);
    trial.noteEach(Cause::kOtherAccount, others.ofOtherAccounts(disputed));
    tryOtherSide(trial);
    trial.noteEach(Cause::kOtherCategory, others.ofOtherCategories(disputed));
    tryAllIn(trial);
    tryNoMinimum(trial);
    return std::move(trial.found);
}

void addGuesses(const Disputed& disputed, const Layout& layout, Explanations& explanations) {
    Trial trial(disputed, layout);
    trial.found = std::move(explanations);
    tryMinimumPerAsRange(trial);
    if (trial.found.empty()) {
        tryUsualMinimum(trial);
    }
    explanations = std::move(trial.found);
}

}  // namespace feedesk
