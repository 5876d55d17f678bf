#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <utility>

#include "feedesk/answers/unlisted.h"
#include "feedesk/commands/commands.h"
#include "feedesk/commands/fee_answer.h"
#include "feedesk/commands/fee_rows.h"
#include "feedesk/commands/options.h"
#include "feedesk/explaining/explanation.h"
#include "feedesk/explaining/verdict_text.h"
#include "feedesk/program.h"
#include "feedesk/text/text.h"
#include "standalone/families.h"

namespace feedesk {
namespace {

struct ExplainArguments {
    std::string account;
    std::string instrument;
};

/// An input that was considered for an answer.
struct InputRow : FeeRow {
    const Considered& input;
};

using InputFields = FieldsOf<InputRow>;

const qmservice::CInstrument& instrument(const InputRow& row) { return *row.answer.instrument; }

Value sourceOf(const InputRow& row, const Origin& origin) {
    return origin.position ? Value(Source{row.market.where(*origin.position)}) : Value(Nothing());
}

Value beatenBy(const InputRow& row) {
    return row.input.beatenBy ? sourceOf(row, *row.input.beatenBy) : Value(Nothing());
}

Value turn(const InputRow& row) { return row.input.turn == 0 ? Value(Nothing()) : row.input.turn; }

InputFields inputFields(const std::string& items) {
    return {
        {forPrograms("account"), [](const InputRow& row) { return row.answer.account->accountId; }},
        {forPrograms("kind"),
         [](const InputRow& row) { return standalone::accountKindName(row.answer.account->accountType); }},
        {forPrograms("market").in("instrument"), [](const InputRow& row) { return instrument(row).market; }},
        {forPrograms("code").in("instrument"), [](const InputRow& row) { return instrument(row).code; }},
        {forPrograms("name").in("instrument"), [](const InputRow& row) { return instrument(row).name; }},
        {forPrograms("part"), [](const InputRow& row) { return row.line.part; }},
        {{"item", items},
         [](const InputRow& row) {
             return Label{row.line.item, {row.line.label}};
         }},
        {{"turn", "Turn", Unit::kCount}, turn},
        {{"level", "Level"},
         [](const InputRow& row) {
             const std::string name = levelName(row.line.origin.level);
             return Label{name, words(name)};
         }},
        {Field{"source", "Source"}.when(WhenZero::kLeftOut),
         [](const InputRow& row) { return sourceOf(row, row.line.origin); }},
        {{"verdict", "What becomes of it"},
         [](const InputRow& row) {
             return Label{verdictName(row.input.verdict), words(verdictText(row.input))};
         }},
        {Field{"beaten_by", "By"}.when(WhenZero::kLeftOut), beatenBy},
        {forPrograms("from"), [](const InputRow& row) { return dayOrNothing(row.input.days.from); }},
        {forPrograms("until"), [](const InputRow& row) { return dayOrNothing(row.input.days.until); }},
        {forPrograms("category"),
         [](const InputRow& row) {
             return row.input.category == 0 ? Value(Nothing()) : Value(std::to_string(row.input.category));
         }},
        {beginOf("rates"), [](const InputRow& /*row*/) { return Nothing(); }},
    };
}

/// Whether the line is for other instruments or accounts: people read it in a table of its own, without its rates.
bool doesNotApply(const Considered& input) {
    return input.verdict == Verdict::kOtherCategory || input.verdict == Verdict::kNoSimulation ||
           input.verdict == Verdict::kNotTaken;
}

/// The fields of a part, with the rates of the first input that has some.
InputFields fieldsOf(const std::string& part, bool notApplying, const std::vector<Considered>& considered) {
    InputFields fields = inputFields(standalone::rateFamily(part).itemTitle);
    const auto withRates = std::find_if(considered.begin(), considered.end(), [&](const Considered& input) {
        return input.line.part == part && !input.line.rates.empty();
    });
    if (withRates != considered.end()) {
        for (const FieldOf<FeeRow>& each : rateFields(withRates->line)) {
            fields.push_back({each.field, each.value});
        }
    }
    for (FieldOf<InputRow>& each : fields) {
        const bool isRate = !each.field.group.empty();
        each.field.title = notApplying && (isRate || each.field.name == "turn") ? "" : each.field.title;
    }
    return fields;
}

/// The sections of the parts, in the order in which they appear.
class Parts {
public:
    explicit Parts(const std::vector<Considered>& considered) {
        for (const Considered& input : considered) {
            const Name name{input.line.part, doesNotApply(input)};
            if (std::find(names.begin(), names.end(), name) == names.end()) {
                names.push_back(name);
                fields.push_back(fieldsOf(name.first, name.second, considered));
                parts.push_back(sectionOf(titleOf(name), fields.back()));
            }
        }
    }

    [[nodiscard]] const Sections& sections() const { return parts; }

    [[nodiscard]] Row row(const InputRow& input) const {
        const auto name = std::find(names.begin(), names.end(), Name{input.line.part, doesNotApply(input.input)});
        const auto section = static_cast<std::size_t>(name - names.begin());
        Row made = rowOf(fields[section], input);
        made.section = section;
        return made;
    }

private:
    using Name = std::pair<std::string, bool>;

    static std::string titleOf(const Name& name) {
        return standalone::rateFamily(name.first).title + std::string(name.second ? ", lines that do not apply" : "");
    }

    std::vector<Name> names;
    std::vector<InputFields> fields;
    Sections parts;
};

std::string heading(const Program& program, const Answer& answer, const standalone::Account& account) {
    const qmservice::CInstrument& instrument = *answer.instrument;
    return fmt::format("{}: {} {}", accountHeading(account, program.session.date), instrumentText(instrument),
                       instrument.name);
}

ExitStatus explainAnswer(Program& program, const ExplainArguments& arguments) {
    Session& session = program.open();
    const standalone::Account& account = session.account(arguments.account);
    const Question question = session.instrument(account, arguments.instrument, "one is explained at a time");
    const Replies replies = session.fees(account, {question});
    tellUnanswered(replies, account);
    if (replies.answers.empty()) {
        return kNoAnswer;
    }
    const Answer& answer = replies.answers.front();
    const Trials trials(session.excerpt(account, question));
    const std::vector<Considered> considered = explain(trials, session.day(), answer);
    const Parts parts(considered);
    program.answer(session, parts.sections(), [&](RowSink& sink) {
        for (const Considered& input : considered) {
            sink.row(parts.row({{answer, input.line, session.market()}, input}));
        }
        return Remarks{
            heading(program, answer, account), unlistedNotes(account, replies.answers, session.market()), "", {}};
    });
    return kAnswered;
}

}  // namespace

void addExplain(CLI::App& app, Program& program) {
    CLI::App* command = app.add_subcommand("explain", "Why an account pays these rates");
    ExplainArguments& arguments = argumentsOf(*command, program, explainAnswer);
    command->add_option("ACCOUNT", arguments.account, "Number of the account")->required()->type_name("");
    command->add_option("INSTRUMENT", arguments.instrument, "One instrument, named as for `fee`")
        ->required()
        ->type_name("");
    addFormatOptions(*command, program);
}

}  // namespace feedesk
