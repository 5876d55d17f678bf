#include "histories/record_fields.h"

namespace histories {
std::string show(const std::map<int, std::vector<std::string>>& members) {
    constexpr std::size_t kFew = 4;
    if (members.size() > kFew) {
        return std::to_string(members.size()) + " categories, the last " + std::to_string(members.rbegin()->first);
    }
    std::string text;
    for (const auto& category : members) {
        text += (text.empty() ? "" : ", ") + std::to_string(category.first) + ": " + show(category.second);
    }
    return '{' + text + '}';
}

std::string show(const boost::shared_ptr<qmservice::CAccountInfo>& account) {
    return account ? "kind " + std::to_string(account->accountType) + " key " + std::to_string(account->getHashKey(0))
                   : "no account";
}

std::string show(const boost::shared_ptr<qmservice::CInstrument>& instrument) {
    return instrument ? '"' + instrument->market + '|' + instrument->code + '"' : "no instrument";
}

std::string describe(const qmservice::IData* record) {
    if (record == nullptr) {
        return "an empty pointer";
    }
    std::string text = "a record of another class";
    asItsClass(*record, [&](const auto& typed) { text = showRecord(typed); });
    return text;
}

}  // namespace histories
