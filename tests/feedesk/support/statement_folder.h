#ifndef TESTS_FEEDESK_SUPPORT_STATEMENT_FOLDER_H
#define TESTS_FEEDESK_SUPPORT_STATEMENT_FOLDER_H

#include <string>
#include <vector>

#include "tests/feedesk/support/cost_folder.h"

namespace feedesk::test {

/// The small market folder with a layout of its own, `plain`, and a statement next to it. Account S100 pays 0.025 %
/// commission on SH:600*, at least 5 yuan an order, with the transfer fee (0.001 %) inside it, and stamp duty on sales.
class StatementFolder : public CostFolder {
public:
    StatementFolder();
    StatementFolder(const StatementFolder&) = delete;
    StatementFolder& operator=(const StatementFolder&) = delete;
    ~StatementFolder();

    void writeStatement(const std::string& text) const;
    [[nodiscard]] std::string statementFile() const { return path() + ".xls"; }

    /// Runs `feedesk reconcile S100` on the statement.
    [[nodiscard]] Outcome reconcile(const std::string& arguments = "") const;
    /// The same with a statement whose header is "日期,代码,买卖,数量,价格,佣金,印花税,过户费,单号,笔数,发生" and these
    /// lines.
    [[nodiscard]] Outcome reconcileLines(const std::string& lines, const std::string& arguments = "") const;

    /// Where a test lets a patch be written; taken away with the folder.
    [[nodiscard]] std::string patchFile() const { return tradesFile(); }
    /// The lines that the patch adds, without the sign in front.
    [[nodiscard]] std::vector<std::string> addedByPatch() const;
    /// Whether it could be applied to the folder.
    [[nodiscard]] bool applyPatch() const;
};

}  // namespace feedesk::test

#endif  // TESTS_FEEDESK_SUPPORT_STATEMENT_FOLDER_H
