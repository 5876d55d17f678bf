#include "feedesk/reconciling/hypotheses.h"

#include <utility>

#include "feedesk/reconciling/trial.h"

namespace feedesk {

Explanations explanationsOf(const Disputed& disputed, const Layout& layout, OtherTariffs& others) {
    Trial trial(disputed, layout);
    trial.noteEach(Cause::kOtherDate, others.ofOtherDates(disputed));
    tryMinimumPer(trial);
    tryRoundingPerFill(trial);
    tryRoundingModes(trial);
    trial.noteEach(Cause::kOtherLevel, others.ofOtherLevels(disputed));
    tryLeftOut(trial);
    tryChargedTwice(trial);
    trial.noteEach(Cause::kOtherAccount, others.ofOtherAccounts(disputed));
    tryOtherSide(trial);
    trial.noteEach(Cause::kOtherCategory, others.ofOtherCategories(disputed));
    tryNoMinimum(trial);
    return std::move(trial.found);
}

void addRanges(const Disputed& disputed, const Layout& layout, Explanations& explanations) {
    Trial trial(disputed, layout);
    trial.found = std::move(explanations);
    tryMinimumPerAsRange(trial);
    explanations = std::move(trial.found);
}

}  // namespace feedesk
