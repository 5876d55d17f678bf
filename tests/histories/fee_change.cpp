#include "histories/fee_change.h"

#include "histories/choices.h"
#include "histories/record_fields.h"

namespace histories {

FeeChange FeeChange::copy() const {
    const auto copyOf = [](const Record& record) { return record ? record->copy() : record; };
    FeeChange change = *this;
    for (Record& record : change.records) {
        record = copyOf(record);
    }
    change.customFee = copyOf(customFee);
    return change;
}

Records FeeChange::handedIn() const { return kind == Kind::load ? records : Records{customFee}; }

std::string FeeChange::describe() const {
    std::string text = kind == Kind::load ? "initFees" : "updateCustomFee";
    text += "(account of " + show(account);
    for (const Record& record : handedIn()) {
        text += ",\n      " + histories::describe(record.get());
    }
    return text + (kind == Kind::load && records.empty() ? ", no records)" : ")");
}

FeeChange chooseLoad(Bytes& bytes, const World& world, const Account& account) {
    return {FeeChange::Kind::load, account, chooseRecords(bytes, world, account->accountType), {}};
}

FeeChange chooseCustomFee(Bytes& bytes, const World& world, const Account& account) {
    return {FeeChange::Kind::customFee, account, {}, chooseCustomFee(bytes, world, account->accountType)};
}

FeeChange chooseFeeChange(Bytes& bytes, const World& world, Focus focus) {
    const bool load = bytes.pick(2) == 0;
    const auto& accounts = world.accounts(focus);
    const Account& account = accounts[bytes.pick(accounts.size())];
    return load ? chooseLoad(bytes, world, account) : chooseCustomFee(bytes, world, account);
}

}  // namespace histories
