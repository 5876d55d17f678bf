#ifndef FEEDESK_COMMANDS_FEE_ROWS_H
#define FEEDESK_COMMANDS_FEE_ROWS_H

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "feedesk/answer.h"
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

/// Answers as rows: one for each line, a section for each part in the order in which they appear. docs/feedesk.md
/// describes the fields. Refers to what it is made from.
class FeeRows {
public:
    FeeRows(const std::vector<Answer>& newAnswers, const standalone::Market& newMarket);

    [[nodiscard]] const Sections& sections() const { return parts; }
    void giveTo(RowSink& sink) const;

private:
    template <class Visit>
    void forEachRow(const Visit& visit) const;

    const std::vector<Answer>& answers;
    const standalone::Market& market;
    std::map<std::string, std::size_t> sectionOfPart;
    std::vector<FieldsOf<FeeRow>> fieldsOfSection;
    Sections parts;
};

}  // namespace feedesk

#endif  // FEEDESK_COMMANDS_FEE_ROWS_H
