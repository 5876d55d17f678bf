#include "tests/feedesk/support/statement_folder.h"

#include <cstdlib>
#include <fstream>

#include "tests/feedesk/support/program.h"

namespace feedesk::test {
namespace {

constexpr const char* kLayout = R"(format = 1
title = "plain"
footers = "合计"
[columns]
date = "日期"
code = "代码"
operation = "买卖"
quantity = "数量"
price = "价格"
amount = "成交金额"
order = "单号"
fills = "笔数"
net = "发生"
[operations]
buy = "买"
sell = "卖"
[charges.commission]
column = "佣金"
charges = "commission"
[charges.stamp_duty]
column = "印花税"
charges = "stamp_duty"
[charges.transfer_fee]
column = "过户费"
charges = "transfer_fee"
)";

}  // namespace

StatementFolder::StatementFolder() { write("layouts/plain.toml", kLayout); }

StatementFolder::~StatementFolder() {
    std::error_code ignored;
    std::filesystem::remove(statementFile(), ignored);
}

void StatementFolder::writeStatement(const std::string& text) const {
    std::ofstream(statementFile(), std::ios::binary) << text;
}

Outcome StatementFolder::reconcile(const std::string& arguments) const {
    return ask(path(), "reconcile S100 " + statementFile() + " " + arguments);
}

Outcome StatementFolder::reconcileLines(const std::string& lines, const std::string& arguments) const {
    writeStatement("日期,代码,买卖,数量,价格,佣金,印花税,过户费,单号,笔数,发生\n" + lines);
    return reconcile(arguments);
}

std::vector<std::string> StatementFolder::addedByPatch() const {
    std::vector<std::string> added;
    for (const std::string& line : lines(contentOf(patchFile()))) {
        if (line.find('+') == 0 && line.find("+++") != 0) {
            added.push_back(line.substr(1));
        }
    }
    return added;
}

bool StatementFolder::applyPatch() const {
    return std::system(("patch -s -p1 -d " + path() + " <" + patchFile()).c_str()) == 0;
}

}  // namespace feedesk::test
