#ifndef FEEDESK_COMMANDS_FEE_ROWS_H
#define FEEDESK_COMMANDS_FEE_ROWS_H

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "feedesk/answers/answer.h"
#include "feedesk/rows/rows.h"
#include "standalone/market.h"

namespace feedesk {

/// One line of an answer.
struct FeeRow {
    const Answer& answer;
    const FeeLine& line;
    const standalone::Market& market;  ///< the one that the answer comes from
};

/// The fields of the rates that the lines of a part have, in the group "rates"; `line` is one that has them.
FieldsOf<FeeRow> rateFields(const FeeLine& line);

/// Answers as rows: one for each line, a section for each part. docs/feedesk.md describes the fields. Refers to the
/// market that the answers come from.
class FeeRows {
public:
    /// For these answers, whose parts come in the order in which they appear.
    FeeRows(const std::vector<Answer>& answers, const standalone::Market& newMarket);

    /// For whatever accounts of these kinds are answered with. Tables show the account of each row.
    FeeRows(const std::vector<int>& accountKinds, const standalone::Market& newMarket);

    [[nodiscard]] const Sections& sections() const { return parts; }
    void giveTo(RowSink& sink, const std::vector<Answer>& answers) const;

private:
    void addSection(const FeeLine& line, bool tellsAccount);

    const standalone::Market& market;
    std::map<std::string, std::size_t> sectionOfPart;
    std::vector<FieldsOf<FeeRow>> fieldsOfSection;
    Sections parts;
};

}  // namespace feedesk

#endif  // FEEDESK_COMMANDS_FEE_ROWS_H
