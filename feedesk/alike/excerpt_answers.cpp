#include "feedesk/alike/excerpt_answers.h"

#include "feedesk/answers/interval_center.h"
#include "standalone/folder_excerpt.h"

namespace feedesk {

std::vector<std::optional<Answer>> excerptAnswers(const standalone::MarketFolder& folder, cost::Date day,
                                                  std::size_t account, const std::vector<std::size_t>& instruments) {
    IntervalCenter center(standalone::FolderExcerpt(folder, account, instruments).marketOn(day));
    center.install();
    const standalone::Account& asked = center.market().accounts.front();
    center.feedOnce(asked);
    std::vector<Question> questions;
    questions.reserve(instruments.size());
    for (const standalone::ListedInstrument& listed : center.market().instruments) {
        questions.push_back({listed.record->market, listed.record->code});
    }
    return center.traced(asked, questions, center.ask(asked, questions));
}

}  // namespace feedesk
